#include "platform/dates.h"

#include <array>

namespace tallyfin {

namespace {

constexpr std::array weekdays{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::array months{"January", "February", "March",     "April",   "May",      "June",
                            "July",    "August",   "September", "October", "November", "December"};

std::string twoDigits(long long number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

std::string dateAndTime(LocalTime time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss clock{time - day};
  const long hour = clock.hours().count();
  return std::to_string(unsigned{date.month()}) + "/" + std::to_string(unsigned{date.day()}) + "/" +
         std::to_string(int{date.year()}) + " " + std::to_string(hour % 12 == 0 ? 12 : hour % 12) + ":" +
         twoDigits(clock.minutes().count()) + ":" + twoDigits(clock.seconds().count()) + (hour < 12 ? " AM" : " PM");
}

std::string longDate(LocalTime time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date{day};
  return std::string(weekdays.at(std::chrono::weekday{day}.c_encoding())) + ", " +
         months.at(unsigned{date.month()} - 1) + " " + twoDigits(unsigned{date.day()}) + ", " +
         std::to_string(int{date.year()});
}

}  // namespace tallyfin
