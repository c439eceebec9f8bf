#pragma once

#include "controls/control.h"

/// Buttons, options, check boxes and items of the list bar.

namespace tallyfin {

/// A push button. One without a caption has a picture.
class CommandButton : public Clickable {
 public:
  CommandButton(Screen& screen, std::string name, std::string caption = "", std::string index = "");

  const std::string& caption() const { return caption_; }

 private:
  std::string caption_;
};

/// A picture that takes clicks.
class Image : public Clickable {
 public:
  using Clickable::Clickable;
};

class OptionButton;

/// Options of which at most one is set.
class OptionGroup {
 public:
  OptionGroup() = default;
  /// A group of all options of an array.
  template <int count>
  explicit OptionGroup(ControlArray<OptionButton, count>& options) {
    for (OptionButton& option : options) add(option);
  }

  void add(OptionButton& option);
  /// Clears all options, without a handler.
  void clear();

 private:
  std::vector<OptionButton*> options_;
};

/// One choice of a group.
class OptionButton : public Clickable {
 public:
  OptionButton(Screen& screen, std::string name, std::string caption = "", std::string index = "");

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  bool value() const { return set_; }
  /// Sets this option, clears the others, and runs Click, also when nothing changes.
  void select();
  /// Clears this option, without a handler.
  void deselect();

  void click() override { select(); }

 private:
  friend class OptionGroup;

  std::string caption_;
  bool set_ = false;
  OptionGroup* group_ = nullptr;
};

/// A box that is ticked or not.
class CheckBox : public Clickable {
 public:
  CheckBox(Screen& screen, std::string name, std::string caption = "", std::string index = "");

  const std::string& caption() const { return caption_; }
  bool value() const { return ticked_; }
  /// Ticks or clears the box by code, without a handler.
  void setValue(bool ticked);

  /// Changes the tick, then runs Click.
  void click() override;

 private:
  std::string caption_;
  bool ticked_ = false;
};

/// An item of the list bar, identified by its key. It is highlighted while the pointer is over it.
class ListBarItem : public Clickable {
 public:
  ListBarItem(Screen& screen, const std::string& name, const std::string& key, std::string group, std::string caption,
              std::string picture, std::string shortcut);

  const std::string& key() const { return key_; }
  const std::string& group() const { return group_; }
  const std::string& caption() const { return caption_; }
  /// The name of its picture.
  const std::string& picture() const { return picture_; }
  /// The keys that press it on every page, "Ctrl+N".
  const std::string& shortcut() const { return shortcut_; }
  bool highlighted() const { return highlighted_; }

 protected:
  void pointerOver(bool over) override;

 private:
  std::string key_;
  std::string group_;
  std::string caption_;
  std::string picture_;
  std::string shortcut_;
  bool highlighted_ = false;
};

}  // namespace tallyfin
