#include "ui/program.h"

#include "engine/paydata.h"
#include "engine/recorder.h"
#include "ui/MDIOpen.h"
#include "ui/frmMain.h"

namespace tallyfin {

Program::Program(SettingsStore& store, const Platform& runsOn, DeskWatcher* binding)
    : store_(store),
      services_(store, *this),
      platform_(platform, runsOn),
      watcher_(desk.watcher, binding),
      actWatcher_(desk.actWatcher, this) {}

void Program::start() {
  desk.end();
  payData = PayData{};
  forgetTraces();
  desk.start<MDIOpen>();
}

Worksheet& Program::provideWorksheet() { return desk.use<frmMain>(); }

}  // namespace tallyfin
