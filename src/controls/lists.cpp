#include "controls/lists.h"

#include <algorithm>

#include "controls/desk.h"
#include "engine/failure.h"

namespace tallyfin {

ListBox::ListBox(Screen& screen, std::string name, std::vector<std::string> entries, std::string index)
    : Control(screen, std::move(name), std::move(index)), entries_(std::move(entries)), itemData_(entries_.size()) {}

void ListBox::setIndex(int index) {
  if (index < -1 || index >= static_cast<int>(entries_.size())) throw FailedStatement{};
  index_ = index;
  chosen();
  changed();
  run(onClick);
}

void ListBox::setEntry(int index) {
  if (index < 0) throw FailedStatement{};
  setIndex(index);
}

const std::string& ListBox::text() const {
  static const std::string none;
  return index_ < 0 ? none : entries_[static_cast<std::size_t>(index_)];
}

int ListBox::itemData() const { return index_ < 0 ? 0 : itemData_[static_cast<std::size_t>(index_)]; }

void ListBox::clear() {
  entries_.clear();
  itemData_.clear();
  index_ = -1;
  changed();
}

void ListBox::add(std::string entry, int itemData) {
  entries_.push_back(std::move(entry));
  itemData_.push_back(itemData);
  changed();
}

Refusal ListBox::userPick(int index) {
  const bool there = index >= 0 && index < static_cast<int>(entries_.size());
  return desk.act(*this, there ? Refusal::none : Refusal::noEntry, [&] { setIndex(index); });
}

void EditableDropDown::setText(std::string text) {
  text_ = std::move(text);
  const auto entry = std::find(entries().begin(), entries().end(), text_);
  setIndexOnly(entry == entries().end() ? -1 : static_cast<int>(entry - entries().begin()));
  changed();
}

void EditableDropDown::clear() {
  text_.clear();
  DropDown::clear();
}

Refusal EditableDropDown::userType(std::string text) {
  return desk.act(*this, [&] { setText(std::move(text)); });
}

void EditableDropDown::chosen() { text_ = DropDown::text(); }

UpDown::UpDown(Screen& screen, std::string name, int from, int to, int value)
    : Control(screen, std::move(name)), from_(from), to_(to), value_(value) {}

Refusal UpDown::userPick(int value) {
  const bool reached = value >= from_ && value <= to_;
  return desk.act(*this, reached ? Refusal::none : Refusal::noEntry, [&] {
    value_ = value;
    changed();
    run(onChange);
  });
}

}  // namespace tallyfin
