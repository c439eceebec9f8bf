#pragma once

#include "controls/desk.h"
#include "engine/services.h"
#include "platform/platform.h"

namespace tallyfin {

/// The program, for whoever runs it: the desktop, the script, the page, a test. While it lives the rules have its
/// store, its platform and the main screen as their worksheet, and the binding, if there is one, is told what the desk
/// does; what was there before comes back when it goes. Store, platform and binding must live longer.
class Program final : private WorksheetProvider, private ActWatcher {
 public:
  Program(SettingsStore& store, const Platform& runsOn, DeskWatcher* binding = nullptr);
  ~Program() { desk.end(); }

  /// Begins a run on a fresh record: the frame, then its first screen.
  void start();

 private:
  Worksheet& provideWorksheet() override;
  void beginAct() override { store_.beginAct(); }
  void endAct() override { store_.endAct(); }

  SettingsStore& store_;
  Services services_;
  Installed<Platform> platform_;
  Installed<DeskWatcher*> watcher_;
  Installed<ActWatcher*> actWatcher_;
};

}  // namespace tallyfin
