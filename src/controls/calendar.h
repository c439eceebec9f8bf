#pragma once

#include <chrono>

#include "controls/control.h"

namespace tallyfin {

/// A month calendar with one marked day.
class MonthCalendar : public Control {
 public:
  using Control::Control;

  Property<std::chrono::year_month_day> date{*this, {}};
};

}  // namespace tallyfin
