#include "controls/surroundings.h"

#include <ctime>

namespace tallyfin {

LocalTime SystemClock::now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return LocalTime{std::chrono::seconds{timegm(&local)}};
}

namespace {
SystemClock systemClock;
Beeper silentBeeper;
MousePointer plainPointer;
Printer noPrinter;
HelpViewer noHelp;
}  // namespace

Surroundings surroundings{&systemClock, &silentBeeper, &plainPointer, &noPrinter, &noHelp};

}  // namespace tallyfin
