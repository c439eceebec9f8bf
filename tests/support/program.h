#pragma once

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "ui/program.h"
#include "ui/screens.h"

namespace tallyfin {

/// A fake platform: its clock stands still, and it records each call.
struct FakePlatform : Clock, Beeper, MousePointer, Printer, HelpViewer {
  LocalTime now() const override { return time; }
  void beep() override { ++beeps; }
  void setBusy(bool busy) override { pointer.push_back(busy); }
  bool startDocument() override { return printerWorks; }
  int printScreen(Screen& screen) override {
    printed.clear();
    for (const Control* control : screen.controls()) {
      if (control->visible) printed.push_back(control->address());
    }
    ++pages;
    return 1;
  }
  void open(const std::string& file, int context) override { help.emplace_back(file, context); }

  /// Monday, May 17, 1999, half past two in the afternoon.
  LocalTime time = std::chrono::local_days{std::chrono::May / 17 / 1999} + std::chrono::minutes{14 * 60 + 30};
  int beeps = 0;
  std::vector<bool> pointer;
  bool printerWorks = true;
  int pages = 0;
  std::vector<std::string> printed;  ///< What was visible of the screen printed last.
  std::vector<std::pair<std::string, int>> help;
};

/// The program on a store in memory, driven by its controls.
class ProgramTest : public testing::Test {
 protected:
  /// Starts the program; it opens the main screen.
  void start() {
    store.write(section::user, "DontShow", "1");
    program.start();
  }

  void put(const char* key, const char* text) { store.write(section::settings, key, text); }
  void putState(const char* key, const char* text) { store.write(section::stateInfo, key, text); }
  std::string stored(const char* key) const { return store.read(section::settings, key).value_or("(none)"); }
  std::string storedState(const char* key) const { return store.read(section::stateInfo, key).value_or("(none)"); }
  std::string storedUser(const char* key) const { return store.read(section::user, key).value_or("(none)"); }

  static frmMain& main() { return desk.use<frmMain>(); }
  static void calculate() { EXPECT_EQ(main().cmdToolBar[frmMain::calculate].userClick(), Refusal::none); }

  /// Clicks an item of the list bar.
  static void choose(const std::string& key) {
    for (ListBarItem& item : desk.use<MDIOpen>().SSListBar1) {
      if (item.key() == key) {
        EXPECT_EQ(item.userClick(), Refusal::none);
        return;
      }
    }
    ADD_FAILURE() << "no item " << key;
  }
  static std::string activeDocument() { return desk.activeDocument() == nullptr ? "" : desk.activeDocument()->name(); }
  static Money dollars(std::string_view text) { return toMoney(text); }

  MemoryStore store;
  FakePlatform platform;
  Program program{store, {&platform, &platform, &platform, &platform, &platform}};
};

}  // namespace tallyfin
