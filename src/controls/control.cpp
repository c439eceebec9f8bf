#include "controls/control.h"

#include "controls/screen.h"

namespace tallyfin {

Control::Control(Screen& screen, std::string name, std::string index)
    : screen_(screen), name_(std::move(name)), index_(std::move(index)) {
  screen.controls_.push_back(this);
}

std::string Control::address() const { return index_.empty() ? name_ : name_ + "(" + index_ + ")"; }

}  // namespace tallyfin
