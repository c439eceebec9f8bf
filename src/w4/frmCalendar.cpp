#include "w4/frmCalendar.h"

#include "machine/machine.h"

namespace tallyfin {

frmCalendar::frmCalendar() : Screen(screenName, "Calendar") {}

void frmCalendar::Load() {
  mthTwoWorkers.date = std::chrono::year_month_day{std::chrono::floor<std::chrono::days>(machine.clock->now())};
}

}  // namespace tallyfin
