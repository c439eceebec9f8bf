#pragma once

#include <utility>

#include "engine/settingsstore.h"
#include "engine/worksheet.h"

namespace tallyfin {

/// Puts a value into a place of the process, and what stood there back when it goes.
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

/// What the engine works with, installed for as long as this lives: the store that it asks for settings, and who has
/// the worksheet. Both must live longer.
class Services {
 public:
  Services(SettingsStore& store, WorksheetProvider& provider)
      : store_(settingsStore, &store), provider_(worksheetProvider, &provider) {}

 private:
  Installed<SettingsStore*> store_;
  Installed<WorksheetProvider*> provider_;
};

}  // namespace tallyfin
