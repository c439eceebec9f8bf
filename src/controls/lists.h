#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

/// Controls that offer entries to choose from.

namespace tallyfin {

/// A list of texts of which one, or none, is chosen. Entries count from 0; -1 means that none is chosen, and every list
/// starts so.
class ListBox : public Control {
 public:
  ListBox(Screen& screen, std::string name, std::vector<std::string> entries = {}, std::string index = "");

  const std::vector<std::string>& entries() const { return entries_; }
  int index() const { return index_; }
  /// Chooses an entry by code and runs Click, also when nothing changes; -1 chooses none. Fails outside the list.
  void setIndex(int index);
  /// The same for a number, such as a stored one, that must be that of an entry: -1 fails too.
  void setEntry(int index);
  /// The text of the chosen entry, empty if none is.
  virtual const std::string& text() const;
  /// The number that add() gave the chosen entry.
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

/// A drop-down with an editable text, which code and user may set to anything: the entry with the same text is then the
/// chosen one, or none is, and no Click runs.
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

/// A pair of arrows that turn a value.
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
