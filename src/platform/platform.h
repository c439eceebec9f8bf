#pragma once

#include <chrono>
#include <string>

/// Small interfaces of the platform. The default implementation of each does nothing.

namespace tallyfin {

class Screen;

/// A date and time of the place where the program runs.
using LocalTime = std::chrono::local_seconds;

/// Returns the date and time.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalTime now() const = 0;
};

/// The system clock, in the local time zone.
class SystemClock : public Clock {
 public:
  LocalTime now() const override;
};

class Beeper {
 public:
  virtual ~Beeper() = default;
  virtual void beep() {}
};

class MousePointer {
 public:
  virtual ~MousePointer() = default;
  /// Shows the hourglass while a document is made.
  virtual void setBusy(bool /*busy*/) {}
};

class Printer {
 public:
  virtual ~Printer() = default;
  /// False where no document can be started.
  virtual bool startDocument() { return true; }
  /// Prints a screen as it stands; returns the pages sent to the printer.
  virtual int printScreen(Screen& /*screen*/) { return 1; }
};

class HelpViewer {
 public:
  virtual ~HelpViewer() = default;
  /// Opens a help file of the program's own folder at a context number; 0 is its index.
  virtual void open(const std::string& /*file*/, int /*context*/) {}
};

/// The services of a platform. No pointer is null.
struct Platform {
  Clock* clock;
  Beeper* beeper;
  MousePointer* pointer;
  Printer* printer;
  HelpViewer* help;
};

/// The system clock, and the defaults that do nothing.
Platform plainPlatform();

/// The platform of the running program.
extern Platform platform;

}  // namespace tallyfin
