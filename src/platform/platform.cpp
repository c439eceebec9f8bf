#include "platform/platform.h"

#include <ctime>

namespace tallyfin {

LocalTime SystemClock::now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return LocalTime{std::chrono::seconds{timegm(&local)}};
}

Platform plainPlatform() {
  static SystemClock clock;
  static Beeper beeper;
  static MousePointer pointer;
  static Printer printer;
  static HelpViewer help;
  return {&clock, &beeper, &pointer, &printer, &help};
}

Platform platform = plainPlatform();

}  // namespace tallyfin
