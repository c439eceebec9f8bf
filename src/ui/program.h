#pragma once

#include "controls/desk.h"
#include "engine/services.h"
#include "platform/platform.h"

namespace tallyfin {

/// The program in the desktop program, the script program, the web app or a test. During its lifetime its store, its
/// platform, the main screen as worksheet and the binding, if there is one, are installed; the destructor restores the
/// previous ones. Store, platform and binding must outlive it.
class Program final : private WorksheetProvider, private ActWatcher {
 public:
  Program(SettingsStore& store, const Platform& runsOn, DeskWatcher* binding = nullptr);
  ~Program() override { desk.end(); }

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
