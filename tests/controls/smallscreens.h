#pragma once

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

#include "controls/buttons.h"
#include "controls/desk.h"
#include "controls/lists.h"
#include "controls/screen.h"
#include "controls/texts.h"

/// Small screens that record their events.

namespace tallyfin {

/// The events in order: "First Load", "Second Activate".
inline std::vector<std::string> journal;
/// Actions of a test for entries of the journal.
inline std::map<std::string, Handler> hooks;

inline void note(const std::string& entry) {
  journal.push_back(entry);
  if (const auto hook = hooks.find(entry); hook != hooks.end()) run(hook->second);
}

class RecordedScreen : public Screen {
 public:
  using Screen::Screen;

 protected:
  void Load() override { note(name() + " Load"); }
  void Activate() override { note(name() + " Activate"); }
  void Unload() override { note(name() + " Unload"); }
};

struct ShellFrame final : RecordedScreen {
  static constexpr const char* screenName = "Shell";
  ShellFrame() : RecordedScreen(screenName, "", Place::frame) {}
  CommandButton item{*this, "item"};
};

struct SmallBox final : RecordedScreen {
  static constexpr const char* screenName = "Box";
  SmallBox() : RecordedScreen(screenName, "", Place::box) {}
  CommandButton OK{*this, "OK"};
};

struct SecondBox final : RecordedScreen {
  static constexpr const char* screenName = "Second box";
  SecondBox() : RecordedScreen(screenName, "", Place::box) {}
};

/// A document. The journal has the events of its controls under their names.
class Document : public RecordedScreen {
 public:
  explicit Document(const char* screen) : RecordedScreen(screen, screen) {
    const auto noted = [this](Control& control, const char* event) {
      return [this, &control, event] { note(name() + " " + control.name() + " " + event); };
    };
    for (Control* control : controls()) {
      control->onGotFocus = noted(*control, "GotFocus");
      control->onLostFocus = noted(*control, "LostFocus");
      control->onMouseEnter = noted(*control, "MouseEnter");
      control->onMouseLeave = noted(*control, "MouseLeave");
      control->onMouseMove = noted(*control, "MouseMove");
    }
    button.onClick = noted(button, "Click");
    button.onDblClick = noted(button, "DblClick");
    check.onClick = noted(check, "Click");
    list.onClick = noted(list, "Click");
    combo.onClick = noted(combo, "Click");
    upDown.onChange = noted(upDown, "Change");
    onClick = [this] { note(name() + " Click"); };
    onDblClick = [this] { note(name() + " DblClick"); };
  }

  TextBox box{*this, "box"};
  CommandButton button{*this, "button", "Go"};
  CheckBox check{*this, "check"};
  ListBox list{*this, "list", {"a", "b", "c"}};
  EditableDropDown combo{*this, "combo", {"0", "1", "2"}};
  UpDown upDown{*this, "upDown", 10, 400, 100};
  Label label{*this, "label"};
};

struct First final : Document {
  static constexpr const char* screenName = "First";
  First() : Document(screenName) {}
};
struct Second final : Document {
  static constexpr const char* screenName = "Second";
  Second() : Document(screenName) {}
};
struct Third final : Document {
  static constexpr const char* screenName = "Third";
  Third() : Document(screenName) {}
};

/// A run with only the frame, and an empty journal.
class DeskTest : public testing::Test {
 protected:
  DeskTest() {
    hooks.clear();
    desk.start<ShellFrame>();
    journal.clear();
  }
  ~DeskTest() override { desk.end(); }

  /// The events since the last call.
  static std::vector<std::string> happened() { return std::exchange(journal, {}); }
  static std::vector<std::string> stack() {
    std::vector<std::string> names;
    for (const Screen* screen : desk.documents()) names.push_back(screen->name());
    return names;
  }
};

}  // namespace tallyfin
