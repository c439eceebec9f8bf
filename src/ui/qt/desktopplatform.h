#pragma once

#include "platform/platform.h"

namespace tallyfin::qt {

/// The desktop's own beep.
class DesktopBeeper : public Beeper {
 public:
  void beep() override;
};

/// The mouse pointer of the program: an hourglass, or the previous one.
class DesktopPointer : public MousePointer {
 public:
  ~DesktopPointer() override;
  void setBusy(bool busy) override;

 private:
  bool busy_ = false;
};

}  // namespace tallyfin::qt
