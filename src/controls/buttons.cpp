#include "controls/buttons.h"

namespace tallyfin {

CommandButton::CommandButton(Screen& screen, std::string name, std::string caption, std::string index)
    : Clickable(screen, std::move(name), std::move(index)), caption_(std::move(caption)) {}

void OptionGroup::add(OptionButton& option) {
  options_.push_back(&option);
  option.group_ = this;
}

void OptionGroup::clear() {
  for (OptionButton* option : options_) option->deselect();
}

OptionButton::OptionButton(Screen& screen, std::string name, std::string caption, std::string index)
    : Clickable(screen, std::move(name), std::move(index)), caption_(std::move(caption)) {}

void OptionButton::setCaption(std::string caption) {
  caption_ = std::move(caption);
  changed();
}

void OptionButton::select() {
  group_->clear();
  set_ = true;
  changed();
  run(onClick);
}

void OptionButton::deselect() {
  set_ = false;
  changed();
}

CheckBox::CheckBox(Screen& screen, std::string name, std::string caption, std::string index)
    : Clickable(screen, std::move(name), std::move(index)), caption_(std::move(caption)) {}

void CheckBox::setValue(bool ticked) {
  ticked_ = ticked;
  changed();
}

void CheckBox::click() {
  setValue(!ticked_);
  run(onClick);
}

ListBarItem::ListBarItem(Screen& screen, const std::string& name, const std::string& key, std::string group,
                         std::string caption, std::string picture, std::string shortcut)
    : Clickable(screen, name, key),
      key_(key),
      group_(std::move(group)),
      caption_(std::move(caption)),
      picture_(std::move(picture)),
      shortcut_(std::move(shortcut)) {}

void ListBarItem::pointerOver(bool over) {
  highlighted_ = over;
  changed();
}

}  // namespace tallyfin
