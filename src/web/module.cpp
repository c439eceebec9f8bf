#include <emscripten.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "controls/desk.h"
#include "engine/failure.h"
#include "engine/numbertext.h"
#include "engine/recorder.h"
#include "engine/settingsstore.h"
#include "explain/json.h"
#include "explain/jsontext.h"
#include "explain/shares.h"
#include "platform/platform.h"
#include "script/session.h"
#include "script/tokenizer.h"

/// The module of the web app: the line protocol as a function. Its platform calls functions that JavaScript passes when
/// it loads the module; each of them may be missing.

// clang-format off
EM_JS(int, pageHasStorage, (), { return Module["storage"] ? 1 : 0; });
EM_JS(char*, pageStores, (const char* request), {
  try {
    const [act, ...texts] = JSON.parse(UTF8ToString(request));
    return allocateUTF8(Module["storage"][act](...texts).map((text) => JSON.stringify(text)).join(" "));
  } catch {
    return 0;
  }
});
EM_JS(void, pagePrints, (const char* screen), { if (Module["pagePrints"]) Module["pagePrints"](UTF8ToString(screen)); });
EM_JS(void, pageHelps, (const char* file, int context), {
  if (Module["pageHelps"]) Module["pageHelps"](UTF8ToString(file), context);
});
EM_JS(void, pageBeeps, (), { if (Module["pageBeeps"]) Module["pageBeeps"](); });
// clang-format on

namespace tallyfin::web {

namespace {

/// The browser's storage, by functions that JavaScript passes: each takes and returns texts, and throws where the
/// storage is full, forbidden or missing. A reading returns what is stored at that moment, also by other tabs.
class PageStore : public SettingsStore {
 public:
  std::optional<std::string> read(std::string_view section, std::string_view key) const override {
    const auto texts = carryOut({"read", std::string(section), std::string(key)});
    if (!texts) throw FailedStatement{};
    if (texts->empty()) return std::nullopt;
    return texts->front().text;
  }
  void write(std::string_view section, std::string_view key, const std::string& text) override {
    if (!carryOut({"write", std::string(section), std::string(key), text})) throw FailedStatement{};
  }
  void erase(std::string_view section, std::string_view key) override {
    if (!carryOut({"erase", std::string(section), std::string(key)})) throw FailedStatement{};
  }
  Sections all() const override {
    Sections sections;
    const auto texts = carryOut({"all"});  // section, key and text alternate
    for (std::size_t i = 0; texts && i + 2 < texts->size(); i += 3) {
      sections[(*texts)[i].text][(*texts)[i + 1].text] = (*texts)[i + 2].text;
    }
    return sections;
  }

 private:
  /// The result of the storage; none where it failed.
  static std::optional<std::vector<script::Word>> carryOut(const std::vector<std::string>& request) {
    const std::unique_ptr<char, decltype(&std::free)> texts(pageStores(json(request).c_str()), std::free);
    if (!texts) return std::nullopt;
    return script::wordsOf(texts.get());
  }
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

/// The addresses of screens and controls that changed since the last call of changes(). Changes of a screen that isn't
/// shown aren't noted: all of it counts as changed when it is shown.
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
    std::string list = json(std::vector<std::string>(addresses_.begin(), addresses_.end()));
    addresses_.clear();
    return list;
  }

 private:
  std::set<std::string> addresses_;
};

/// One program.
class Page {
  /// In memory where JavaScript passes no storage.
  static std::unique_ptr<SettingsStore> makeStore() {
    if (pageHasStorage() != 0) return std::make_unique<PageStore>();
    return std::make_unique<MemoryStore>();
  }

  std::unique_ptr<SettingsStore> store_ = makeStore();
  PagePrinter printer_;
  PageHelp help_;
  PageBeeper beeper_;

 public:
  Changes changes;
  script::Session session{
      *store_, {plainPlatform().clock, &beeper_, plainPlatform().pointer, &printer_, &help_}, &changes};
};

Page& page() {
  static Page thePage;
  return thePage;
}

/// The explanation of the last calculation as JSON: the parts of the gross pay, each with its words and its fraction,
/// the sentence about them, and the heading and worksheets of formsAsJson().
std::string explained() {
  const Trace* trace = lastTrace();
  if (trace == nullptr) return "null";
  std::vector<std::vector<std::string>> shares;
  for (const Share& share : sharesOf(*trace)) shares.push_back({shareText(share), toText(share.fraction)});
  return "{\"shares\":" + json(shares) + ",\"sentence\":" + json(sharesText(*trace)) + "," +
         formsAsJson(*trace).substr(1);
}

/// A text that is valid until the next call.
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

/// The changes since the last call: a JSON list of addresses of shown screens and their controls.
EMSCRIPTEN_KEEPALIVE const char* changed() { return tallyfin::web::handOver(tallyfin::web::page().changes.take()); }

/// The address of the control that has the focus, empty where none has.
EMSCRIPTEN_KEEPALIVE const char* focused() {
  const tallyfin::Control* control = tallyfin::desk.focused();
  return tallyfin::web::handOver(control == nullptr ? "" : control->screen().name() + "." + control->address());
}

/// Whether there is something to explain.
EMSCRIPTEN_KEEPALIVE bool calculated() { return tallyfin::lastTrace() != nullptr; }

/// The explanation of the last calculation; null before the first.
EMSCRIPTEN_KEEPALIVE const char* explained() { return tallyfin::web::handOver(tallyfin::web::explained()); }
}
