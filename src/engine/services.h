#pragma once

#include <utility>

#include "engine/settingsstore.h"
#include "engine/worksheet.h"

namespace tallyfin {

/// Assigns a value to a variable, and restores the former value in the destructor.
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

/// Installs the settings store and the provider of the worksheet on this thread, during its lifetime. Both must outlive
/// it.
class Services {
 public:
  Services(SettingsStore& store, WorksheetProvider& provider)
      : store_(settingsStore, &store), provider_(worksheetProvider, &provider) {}
  /// The outermost services of a thread remove its recordings.
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
