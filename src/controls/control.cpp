#include "controls/control.h"

#include "controls/desk.h"
#include "controls/screen.h"

namespace tallyfin {

Control::Control(Screen& screen, std::string name, std::string index)
    : screen_(screen), name_(std::move(name)), index_(std::move(index)) {
  screen.controls_.push_back(this);
}

std::string Control::address() const { return index_.empty() ? name_ : name_ + "(" + index_ + ")"; }

void Control::setFocus() { desk.moveFocus(*this); }

bool Control::focused() const { return desk.focused() == this; }

Refusal Control::userFocus() {
  return desk.act(*this, [this] { setFocus(); });
}

Refusal Control::userEnter() {
  return desk.point(*this, [this] {
    pointerOver(true);
    run(onMouseEnter);
  });
}

void Control::userLeave() {
  desk.carryOut([this] {
    pointerOver(false);
    run(onMouseLeave);
  });
}

Refusal Control::userMove() {
  return desk.point(*this, [this] { run(onMouseMove); });
}

Refusal Clickable::userClick() {
  return desk.act(*this, [this] { click(); });
}

Refusal Clickable::userSecondClick() {
  return desk.act(*this, [this] { dblClick(); });
}

Refusal Clickable::userDblClick() {
  return desk.act(*this, [this] {
    click();
    if (desk.holds(screen())) dblClick();
  });
}

}  // namespace tallyfin
