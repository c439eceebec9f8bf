#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

/// Lists and drop-down lists.

namespace tallyfin {

/// A list of texts of which one, or none, is chosen. Entries are numbered from 0; -1 means none, which is the initial
/// value.
class ListBox : public Control {
 public:
  ListBox(Screen& screen, std::string name, std::vector<std::string> entries = {}, std::string index = "");

  const std::vector<std::string>& entries() const { return entries_; }
  int index() const { return index_; }
  /// Chooses an entry by code and runs Click, also when nothing changes; -1 chooses none. Fails outside the list.
  void setIndex(int index);
  /// The same for a number, such as a stored one. Fails also for -1.
  void setEntry(int index);
  /// The text of the chosen entry; empty for none.
  virtual const std::string& text() const;
  /// The number of the chosen entry in its add().
  int itemData() const;

  virtual void clear();
  void add(std::string entry, int itemData = 0);

  Handler onClick;

  Refusal userPick(int index);

 protected:
  virtual void chosen() {}
  void setIndexOnly(int index) { index_ = index; }

 private:
  std::vector<std::string> entries_;
  std::vector<int> itemData_;
  int index_ = -1;
};

/// A drop-down list. Its text is that of the chosen entry.
class DropDown : public ListBox {
 public:
  using ListBox::ListBox;
};

/// A drop-down with an editable text, which code and user may set to any text. The entry with the same text, or none,
/// is then chosen, without Click.
class EditableDropDown : public DropDown {
 public:
  using DropDown::DropDown;

  const std::string& text() const override { return text_; }
  void setText(std::string text);
  void clear() override;

  Refusal userType(std::string text);

 protected:
  void chosen() override;

 private:
  std::string text_;
};

/// A pair of arrow buttons that change a value.
class UpDown : public Control {
 public:
  UpDown(Screen& screen, std::string name, int from, int to, int value);

  int from() const { return from_; }
  int to() const { return to_; }
  int value() const { return value_; }

  Handler onChange;

  Refusal userPick(int value);

 private:
  int from_;
  int to_;
  int value_;
};

}  // namespace tallyfin
