#include <emscripten.h>

#include <memory>
#include <set>
#include <string>

#include "controls/desk.h"
#include "engine/settingsstore.h"
#include "machine/machine.h"
#include "script/session.h"
#include "script/words.h"

/// The module that a page loads: the line protocol as a function, the page as the machine around the program. What the
/// program asks of the machine goes to functions that the page hands over when it loads the module; each may be
/// missing.

// clang-format off
EM_JS(void, pageKeeps, (const char* section, const char* key, const char* text), {
  if (Module["pageKeeps"]) Module["pageKeeps"](UTF8ToString(section), UTF8ToString(key), text ? UTF8ToString(text) : null);
});
EM_JS(void, pagePrints, (const char* screen), { if (Module["pagePrints"]) Module["pagePrints"](UTF8ToString(screen)); });
EM_JS(void, pageHelps, (const char* file, int context), {
  if (Module["pageHelps"]) Module["pageHelps"](UTF8ToString(file), context);
});
EM_JS(void, pageBeeps, (), { if (Module["pageBeeps"]) Module["pageBeeps"](); });
// clang-format on

namespace tallyfin::web {

namespace {

/// Keeps everything in memory and hands each change to the page, which stores it.
class PageStore : public MemoryStore {
 public:
  void write(std::string_view section, std::string_view key, const std::string& text) override {
    MemoryStore::write(section, key, text);
    pageKeeps(std::string(section).c_str(), std::string(key).c_str(), text.c_str());
  }
  void erase(std::string_view section, std::string_view key) override {
    MemoryStore::erase(section, key);
    pageKeeps(std::string(section).c_str(), std::string(key).c_str(), nullptr);
  }
  /// What the page had stored comes back.
  void remember(const char* section, const char* key, const char* text) { MemoryStore::write(section, key, text); }
};

class PagePrinter : public Printer {
 public:
  int printScreen(Screen& screen) override {
    pagePrints(screen.name().c_str());
    return 1;
  }
};

class PageHelp : public HelpViewer {
 public:
  void open(const std::string& file, int context) override { pageHelps(file.c_str(), context); }
};

class PageBeeper : public Beeper {
 public:
  void beep() override { pageBeeps(); }
};

/// The addresses of screens and controls that changed since the page last asked. Of a screen that isn't shown nothing
/// is noted: all of it changes when it is.
class Changes final : public DeskWatcher {
 public:
  void shown(Screen& screen) override {
    screen.watch([this, &screen] { addresses_.insert(screen.name()); });
    screen.changed();
    for (Control* control : screen.controls()) {
      control->watch([this, control] { addresses_.insert(control->screen().name() + "." + control->address()); });
      control->changed();
    }
  }
  void discarded(Screen& screen) override { addresses_.insert(screen.name()); }

  std::string take() {
    const std::string list = script::json(std::vector<std::string>(addresses_.begin(), addresses_.end()));
    addresses_.clear();
    return list;
  }

 private:
  std::set<std::string> addresses_;
};

/// One program.
class Page {
 public:
  PageStore store;
  Changes changes;

 private:
  PagePrinter printer_;
  PageHelp help_;
  PageBeeper beeper_;

 public:
  script::Session session{store, {plainMachine().clock, &beeper_, plainMachine().pointer, &printer_, &help_}, &changes};
};

Page& page() {
  static Page thePage;
  return thePage;
}

/// A text that stays until the next call.
const char* handOver(std::string text) {
  static std::string kept;
  kept = std::move(text);
  return kept.c_str();
}

}  // namespace

}  // namespace tallyfin::web

extern "C" {

/// The answer to a line of the protocol; empty for a blank line or a comment.
EMSCRIPTEN_KEEPALIVE const char* answer(const char* line) {
  return tallyfin::web::handOver(tallyfin::web::page().session.answer(line).value_or(""));
}

/// What has changed since the last call: a JSON list of addresses of shown screens and their controls.
EMSCRIPTEN_KEEPALIVE const char* changed() { return tallyfin::web::handOver(tallyfin::web::page().changes.take()); }

/// The address of the control that has the focus, empty where none has.
EMSCRIPTEN_KEEPALIVE const char* focused() {
  const tallyfin::Control* control = tallyfin::desk.focused();
  return tallyfin::web::handOver(control == nullptr ? "" : control->screen().name() + "." + control->address());
}

/// A text that was stored before this run.
EMSCRIPTEN_KEEPALIVE void remember(const char* section, const char* key, const char* text) {
  tallyfin::web::page().store.remember(section, key, text);
}
}
