#include "controls/control.h"
#include "controls/desk.h"
#include "controls/screen.h"

/// The user's acts on controls. The screen stack carries them out or refuses them.

namespace tallyfin {

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
