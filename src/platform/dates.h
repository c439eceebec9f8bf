#pragma once

#include <string>

#include "platform/platform.h"

namespace tallyfin {

/// "5/17/1999 2:30:00 PM".
std::string dateAndTime(LocalTime time);

/// "Monday, May 17, 1999", the day with two digits.
std::string longDate(LocalTime time);

}  // namespace tallyfin
