#pragma once

#include "controls/calendar.h"
#include "controls/screen.h"

namespace tallyfin {

/// A month calendar, an aid for counting paydays by eye; no date is read back.
class frmCalendar final : public Screen {
 public:
  static constexpr const char* screenName = "frmCalendar";
  frmCalendar();

  MonthCalendar mthTwoWorkers{*this, "mthTwoWorkers"};

 protected:
  void Load() override;
};

}  // namespace tallyfin
