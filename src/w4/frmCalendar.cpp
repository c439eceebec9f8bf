#include "w4/frmCalendar.h"

#include "controls/surroundings.h"

namespace tallyfin {

frmCalendar::frmCalendar() : Screen(screenName, "Calendar") {}

void frmCalendar::Load() {
  mthTwoWorkers.date = std::chrono::year_month_day{std::chrono::floor<std::chrono::days>(surroundings.clock->now())};
}

}  // namespace tallyfin
