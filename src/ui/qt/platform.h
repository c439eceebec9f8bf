#pragma once

#include "platform/platform.h"

namespace tallyfin::qt {

/// The desktop's own beep.
class DesktopBeeper : public Beeper {
 public:
  void beep() override;
};

/// The pointer of the whole program, as an hourglass or as it was.
class DesktopPointer : public MousePointer {
 public:
  ~DesktopPointer() override;
  void setBusy(bool busy) override;

 private:
  bool busy_ = false;
};

}  // namespace tallyfin::qt
