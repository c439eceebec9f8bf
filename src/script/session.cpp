#include "script/session.h"

#include <algorithm>
#include <charconv>

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/texts.h"
#include "engine/failure.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/recorder.h"
#include "explain/explain.h"
#include "explain/json.h"
#include "explain/jsontext.h"
#include "script/properties.h"
#include "script/statements.h"
#include "script/tokenizer.h"
#include "ui/screens.h"

namespace tallyfin::script {

namespace {

// No objects: their making could fail before main() begins.
constexpr const char* ok = "ok";

std::string value(const std::string& text) { return "= " + text; }

std::string refused(Refusal refusal) {
  switch (refusal) {
    case Refusal::none: return ok;
    case Refusal::blocked: return "! blocked a box must be answered first";
    case Refusal::notShown: return "! not-shown";
    case Refusal::disabled: return "! disabled";
    case Refusal::noEntry: return "! no-entry";
  }
  return ok;
}

constexpr const char* missing = "! syntax something is missing or too much";
constexpr const char* unknownControl = "! unknown control";
constexpr const char* unknownAction = "! unknown action for this kind of control";
constexpr const char* notRunning = "! not-running";
constexpr const char* notLoaded = "! not-loaded";

std::optional<int> intOf(const std::string& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// "1999-05-17T14:30:00".
std::optional<LocalTime> timeOf(const std::string& text) {
  constexpr std::string_view pattern = "dddd-dd-ddTdd:dd:dd";
  const auto fits = [](char c, char p) { return p == 'd' ? c >= '0' && c <= '9' : c == p; };
  if (!std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(), fits)) return std::nullopt;
  const auto number = [&](std::size_t from, std::size_t digits) { return *intOf(text.substr(from, digits)); };
  const std::chrono::year_month_day date{std::chrono::year{number(0, 4)},
                                         std::chrono::month{static_cast<unsigned>(number(5, 2))},
                                         std::chrono::day{static_cast<unsigned>(number(8, 2))}};
  const int hour = number(11, 2);
  const int minute = number(14, 2);
  const int second = number(17, 2);
  if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return std::chrono::local_days{date} + std::chrono::hours{hour} + std::chrono::minutes{minute} +
         std::chrono::seconds{second};
}

void assign(Money& field, const std::string& text) { field = toMoney(text); }
void assign(Int16& field, const std::string& text) { field = toInt16(text); }
void assign(double& field, const std::string& text) { field = realOf(text); }

template <class... Screens>
struct Designs {
  static std::vector<std::unique_ptr<Screen>> all() {
    std::vector<std::unique_ptr<Screen>> screens;
    (screens.push_back(std::make_unique<Screens>()), ...);
    return screens;
  }
};

}  // namespace

struct Session::Entry {
  std::string_view name;
  std::size_t fewest;  ///< Words behind the command.
  std::size_t most;
  Command command;
};

const std::vector<Session::Entry>& Session::commands() {
  static const std::vector<Entry> all{
      {"start", 0, 0, &Session::start},     {"kill", 0, 0, &Session::kill},
      {"running", 0, 0, &Session::running}, {"clock", 1, 1, &Session::clock},
      {"type", 2, 2, &Session::type},       {"pick", 2, 2, &Session::pick},
      {"click", 1, 1, &Session::click},     {"dblclick", 1, 1, &Session::dblclick},
      {"enter", 1, 1, &Session::enter},     {"leave", 1, 1, &Session::leave},
      {"move", 1, 1, &Session::move},       {"focus", 1, 1, &Session::focus},
      {"close", 1, 1, &Session::close},     {"resize", 2, 2, &Session::resize},
      {"get", 2, 2, &Session::get},         {"pay", 0, 1, &Session::pay},
      {"poke", 2, 2, &Session::poke},       {"store", 0, 4, &Session::storeCommand},
      {"screens", 0, 0, &Session::screens}, {"controls", 1, 1, &Session::controls},
      {"trace", 0, 0, &Session::trace},     {"explain", 0, 0, &Session::explain},
      {"printed", 0, 0, &Session::printed},
  };
  return all;
}

std::vector<std::string_view> Session::commandNames() {
  std::vector<std::string_view> names;
  for (const Entry& command : commands()) names.push_back(command.name);
  return names;
}

Session::Session(SettingsStore& store, const Platform& runsOn, DeskWatcher* binding)
    : designs_(AllScreens<Designs>::all()),
      store_(store),
      printer_(*runsOn.printer),
      program_(store, {&watch_, runsOn.beeper, runsOn.pointer, &printer_, runsOn.help}, binding) {}

std::optional<std::string> Session::answer(std::string_view line) {
  const auto start = line.find_first_not_of(" \t\r");
  if (start == std::string_view::npos || line[start] == '#') return std::nullopt;
  const auto words = wordsOf(line);
  if (!words) return "! syntax a text is no JSON string";
  const Word& name = words->front();
  const auto entry = std::find_if(commands().begin(), commands().end(),
                                  [&](const Entry& e) { return !name.quoted && e.name == name.text; });
  if (entry == commands().end()) return "! unknown command";
  const std::size_t arguments = words->size() - 1;
  if (arguments < entry->fewest || arguments > entry->most) return missing;
  return (this->*entry->command)({words->begin() + 1, words->end()});
}

// --- The run ---------------------------------------------------------------------------------------------------------

std::string Session::start(const Words& /*words*/) {
  if (desk.running()) return "! running";
  printer_.pages = 0;
  program_.start();
  return ok;
}

std::string Session::kill(const Words& /*words*/) {
  if (!desk.running()) return notRunning;
  desk.end();
  return ok;
}

std::string Session::running(const Words& /*words*/) { return value(desk.running() ? "true" : "false"); }

std::string Session::clock(const Words& words) {
  const auto time = words[0].quoted ? timeOf(words[0].text) : std::nullopt;
  if (!time) return "! syntax no such date and time";
  watch_.stopped = time;
  return ok;
}

// --- Addresses -------------------------------------------------------------------------------------------------------

Screen* Session::Addressed::screen() const { return desk.find(design->name()); }

Control& Session::Addressed::live(const Screen& loaded) const { return *loaded.controls()[position]; }

std::optional<Session::Addressed> Session::find(const std::string& address) const {
  const auto dot = address.find('.');
  const std::string screenName = address.substr(0, dot);
  for (const auto& design : designs_) {
    if (design->name() != screenName) continue;
    if (dot == std::string::npos) return Addressed{design.get()};
    const std::string controlAddress = address.substr(dot + 1);
    for (std::size_t i = 0; i < design->controls().size(); ++i) {
      if (design->controls()[i]->address() == controlAddress) return Addressed{design.get(), design->controls()[i], i};
    }
  }
  return std::nullopt;
}

std::string Session::unreachable(const Addressed& target) const {
  if (!desk.running()) return notRunning;
  if (desk.blocked(target.design->name())) return refused(Refusal::blocked);
  if (target.screen() == nullptr) return notLoaded;
  return "";
}

/// A user's act on a control of one kind.
template <class Kind, class Act>
std::string Session::actOn(const std::string& address, Act act) {
  const auto target = find(address);
  if (!target) return unknownControl;
  if (dynamic_cast<const Kind*>(target->control) == nullptr) return unknownAction;
  if (std::string why = unreachable(*target); !why.empty()) return why;
  return refused(act(dynamic_cast<Kind&>(target->live(*target->screen()))));
}

/// A click on a control or on a form.
template <class OnScreen, class OnControl>
std::string Session::clickOn(const std::string& address, OnScreen onScreen, OnControl onControl) {
  const auto target = find(address);
  if (!target || target->control != nullptr) return actOn<Clickable>(address, onControl);
  if (std::string why = unreachable(*target); !why.empty()) return why;
  return refused(onScreen(*target->screen()));
}

// --- The user --------------------------------------------------------------------------------------------------------

std::string Session::type(const Words& words) {
  if (!words[1].quoted) return "! syntax a text stands as a JSON string";
  const auto target = find(words[0].text);
  if (target && dynamic_cast<const EditableDropDown*>(target->control) != nullptr) {
    return actOn<EditableDropDown>(words[0].text, [&](EditableDropDown& box) { return box.userType(words[1].text); });
  }
  return actOn<TextBox>(words[0].text, [&](TextBox& box) { return box.userType(words[1].text); });
}

std::string Session::pick(const Words& words) {
  const auto number = intOf(words[1].text);
  if (!number || words[1].quoted) return "! syntax a whole number is wanted";
  const auto target = find(words[0].text);
  if (target && dynamic_cast<const UpDown*>(target->control) != nullptr) {
    return actOn<UpDown>(words[0].text, [&](UpDown& upDown) { return upDown.userPick(*number); });
  }
  return actOn<ListBox>(words[0].text, [&](ListBox& list) { return list.userPick(*number); });
}

std::string Session::click(const Words& words) {
  return clickOn(
      words[0].text, [](Screen& screen) { return screen.userClick(); },
      [](Clickable& control) { return control.userClick(); });
}

std::string Session::dblclick(const Words& words) {
  return clickOn(
      words[0].text, [](Screen& screen) { return screen.userDblClick(); },
      [](Clickable& control) { return control.userDblClick(); });
}

std::string Session::enter(const Words& words) {
  return actOn<Control>(words[0].text, [](Control& control) { return control.userEnter(); });
}

std::string Session::leave(const Words& words) {
  const auto target = find(words[0].text);
  if (!target) return unknownControl;
  if (target->control == nullptr) return unknownAction;
  if (!desk.running()) return notRunning;
  if (target->screen() == nullptr) return notLoaded;
  target->live(*target->screen()).userLeave();
  return ok;
}

std::string Session::move(const Words& words) {
  return actOn<Control>(words[0].text, [](Control& control) { return control.userMove(); });
}

std::string Session::focus(const Words& words) {
  return actOn<Control>(words[0].text, [](Control& control) { return control.userFocus(); });
}

std::string Session::close(const Words& words) {
  const auto target = find(words[0].text);
  if (!target || target->control != nullptr) return "! unknown screen";
  if (std::string why = unreachable(*target); !why.empty()) return why;
  return refused(desk.userClose(*target->screen()));
}

std::string Session::resize(const Words& words) {
  const std::string& state = words[1].text;
  if (!words[1].quoted || (state != "normal" && state != "maximized" && state != "minimized")) {
    return "! syntax no such window state";
  }
  const auto target = find(words[0].text);
  if (!target) return unknownControl;
  if (target->control != nullptr || target->design->place() != Place::frame) return unknownAction;
  if (std::string why = unreachable(*target); !why.empty()) return why;
  const WindowState wanted = state == "normal"      ? WindowState::normal
                             : state == "maximized" ? WindowState::maximized
                                                    : WindowState::minimized;
  return refused(desk.use<MDIOpen>().userResize(wanted));
}

// --- Asking ----------------------------------------------------------------------------------------------------------

std::string Session::get(const Words& words) {
  const auto target = find(words[0].text);
  if (!target) return unknownControl;
  const std::string& name = words[1].text;
  const bool known = target->control != nullptr ? property(*target->control, name).has_value()
                                                : property(*target->design, name).has_value();
  if (!known) return "! unknown property";
  if (!desk.running()) return notRunning;
  const Screen* screen = target->screen();
  if (screen == nullptr) return notLoaded;
  return value(target->control != nullptr ? *property(target->live(*screen), name) : *property(*screen, name));
}

std::string Session::pay(const Words& words) {
  JsonObject record;
  std::optional<std::string> text;
  const auto look = [&](const char* name, const auto& field) {
    if (!words.empty() && words[0].text == name) text = toText(field);
    record.add(name, toText(field));
  };
  forEachField(payData, look);
  const std::string all = record.text();

  const frmMain* main = desk.find<frmMain>();
  const bool ofTheRecord = words.empty() || text;
  const WorksheetFields fields = main != nullptr ? WorksheetFields(*main) : WorksheetFields{};
  forEachField(fields, look);
  if (!words.empty() && !text) return "! unknown field";
  if (!desk.running()) return notRunning;
  if (!ofTheRecord && main == nullptr) return notLoaded;
  return value(words.empty() ? all : *text);
}

std::string Session::poke(const Words& words) {
  const std::string& text = words[1].text;
  if (!isNumber(text)) return "! syntax a number is wanted";
  bool known = false;
  bool fits = false;
  const auto change = [&](const char* name, auto& field) {
    if (words[0].text != name) return;
    known = true;
    unlessItFails([&] {
      assign(field, text);
      fits = true;
    });
  };
  PayData changed = payData;
  forEachField(changed, change);
  const bool ofTheRecord = known;

  frmMain* main = desk.find<frmMain>();
  WorksheetFields fields = main != nullptr ? WorksheetFields(*main) : WorksheetFields{};
  forEachField(fields, change);
  if (known && !fits) return "! syntax the number doesn't fit the field";
  if (!known) return "! unknown field";
  if (!desk.running()) return notRunning;
  if (ofTheRecord) {
    payData = changed;
    return ok;
  }
  if (main == nullptr) return notLoaded;
  static_cast<WorksheetFields&>(*main) = fields;
  return ok;
}

std::string Session::storeCommand(const Words& words) {
  if (words.empty()) {
    JsonObject sections;
    for (const auto& [section, keys] : store_.all()) {
      JsonObject entries;
      for (const auto& [key, text] : keys) entries.add(key, json(text));
      sections.add(section, entries.text());
    }
    return value(sections.text());
  }
  const std::string& what = words[0].text;
  if (what == "get" && words.size() == 3) {
    std::optional<std::string> text;
    unlessItFails([&] { text = store_.read(words[1].text, words[2].text); });
    return value(text ? json(*text) : "null");
  }
  if (what == "put" && words.size() == 4) {
    if (!words[3].quoted) return "! syntax a text stands as a JSON string";
    unlessItFails([&] { store_.write(words[1].text, words[2].text, words[3].text); });
    return ok;
  }
  if (what == "erase" && words.size() == 3) {
    unlessItFails([&] { store_.erase(words[1].text, words[2].text); });
    return ok;
  }
  return what == "get" || what == "put" || what == "erase" ? missing : "! unknown command";
}

std::string Session::screens(const Words& /*words*/) {
  if (!desk.running()) return notRunning;
  std::vector<std::string> shown;
  std::vector<std::string> hidden;
  for (const Screen* box : desk.boxes()) shown.push_back(box->name());
  for (const Screen* screen : desk.documents()) shown.push_back(screen->name());
  for (const Screen* screen : desk.loaded()) {
    if (!screen->shown()) hidden.push_back(screen->name());
  }
  std::sort(hidden.begin(), hidden.end());
  return value(JsonObject().add("shown", json(shown)).add("hidden", json(hidden)).text());
}

std::string Session::controls(const Words& words) {
  const auto target = find(words[0].text);
  if (!target || target->control != nullptr) return "! unknown screen";
  if (!desk.running()) return notRunning;
  const Screen* screen = target->screen();
  if (screen == nullptr) return notLoaded;
  std::vector<std::string> addresses;
  for (const Control* control : screen->controls()) addresses.push_back(screen->name() + "." + control->address());
  return value(json(addresses));
}

std::string Session::trace(const Words& /*words*/) {
  if (!desk.running()) return notRunning;
  const Trace* trace = lastTrace();
  if (trace == nullptr) return value("null");
  return value(statementsAsJson(*trace));
}

std::string Session::explain(const Words& /*words*/) {
  if (!desk.running()) return notRunning;
  const Trace* trace = lastTrace();
  if (trace == nullptr) return value("null");
  return value(jsonOf(tallyfin::explain(*trace)));
}

std::string Session::printed(const Words& /*words*/) {
  if (!desk.running()) return notRunning;
  return value(std::to_string(printer_.pages));
}

}  // namespace tallyfin::script
