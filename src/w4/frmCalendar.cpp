#include "w4/frmCalendar.h"

#include "platform/platform.h"

namespace tallyfin {

frmCalendar::frmCalendar() : Screen(screenName, "Calendar") {}

void frmCalendar::Load() {
  mthTwoWorkers.date = std::chrono::year_month_day{std::chrono::floor<std::chrono::days>(platform.clock->now())};
}

}  // namespace tallyfin
