#pragma once

#include "controls/calendar.h"
#include "controls/screen.h"

namespace tallyfin {

/// A month calendar on which users count paydays. No date is read from it.
class frmCalendar final : public Screen {
 public:
  static constexpr const char* screenName = "frmCalendar";
  frmCalendar();

  MonthCalendar mthTwoWorkers{*this, "mthTwoWorkers"};

 protected:
  void Load() override;
};

}  // namespace tallyfin
