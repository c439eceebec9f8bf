#pragma once

#include <utility>

#include "engine/settingsstore.h"
#include "engine/worksheet.h"

namespace tallyfin {

/// Assigns a value to a variable of the program or of the thread, and gives it its former value back when it goes.
template <class T>
class Installed {
 public:
  Installed(T& place, T value) : place_(place), before_(std::exchange(place, std::move(value))) {}
  ~Installed() { place_ = std::move(before_); }
  Installed(const Installed&) = delete;
  Installed& operator=(const Installed&) = delete;

 private:
  T& place_;
  T before_;
};

/// Installs what the engine needs on this thread, the settings store and the provider of the worksheet, for as long as
/// it lives. Both must outlive it.
class Services {
 public:
  Services(SettingsStore& store, WorksheetProvider& provider)
      : store_(settingsStore, &store), provider_(worksheetProvider, &provider) {}
  /// With the last services of a thread goes what was recorded on it.
  ~Services() {
    if (outermost_) removeRecordings();
  }
  Services(const Services&) = delete;
  Services& operator=(const Services&) = delete;

 private:
  static void removeRecordings();

  const bool outermost_ = settingsStore == nullptr;
  Installed<SettingsStore*> store_;
  Installed<WorksheetProvider*> provider_;
};

}  // namespace tallyfin
