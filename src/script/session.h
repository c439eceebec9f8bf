#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/desk.h"
#include "engine/settingsstore.h"
#include "platform/platform.h"
#include "ui/program.h"

namespace tallyfin::script {

struct Word;

/// The headless binding: carries out one command a line on the screen models, and answers each with one line.
class Session {
 public:
  /// Uses a platform with a clock that can be set, and counts printed pages. A further binding is notified of the
  /// screens.
  explicit Session(SettingsStore& store, const Platform& runsOn = plainPlatform(), DeskWatcher* binding = nullptr);

  /// The answer to a line; none for a blank line or a comment.
  std::optional<std::string> answer(std::string_view line);

  /// The first words of all commands.
  static std::vector<std::string_view> commandNames();

 private:
  /// A clock that stops when it is set.
  class Watch : public Clock {
   public:
    LocalTime now() const override { return stopped ? *stopped : system.now(); }
    std::optional<LocalTime> stopped;

   private:
    SystemClock system;
  };
  /// Counts the printed pages.
  class PageCounter : public Printer {
   public:
    explicit PageCounter(Printer& printer) : printer_(printer) {}
    int printScreen(Screen& screen) override {
      const int printed = printer_.printScreen(screen);
      pages += printed;
      return printed;
    }
    int pages = 0;

   private:
    Printer& printer_;
  };

  /// The target of an address: a control, or a screen. Addresses are looked up on screen objects that are never loaded,
  /// so they are known for all screens.
  struct Addressed {
    const Screen* design = nullptr;
    const Control* control = nullptr;
    std::size_t position = 0;

    Screen* screen() const;
    /// The control on the loaded screen.
    Control& live(const Screen& loaded) const;
  };

  using Words = std::vector<Word>;
  using Command = std::string (Session::*)(const Words&);
  struct Entry;
  static const std::vector<Entry>& commands();

  std::string start(const Words& words);
  std::string kill(const Words& words);
  std::string running(const Words& words);
  std::string clock(const Words& words);
  std::string type(const Words& words);
  std::string pick(const Words& words);
  std::string click(const Words& words);
  std::string dblclick(const Words& words);
  std::string enter(const Words& words);
  std::string leave(const Words& words);
  std::string move(const Words& words);
  std::string focus(const Words& words);
  std::string close(const Words& words);
  std::string resize(const Words& words);
  std::string get(const Words& words);
  std::string pay(const Words& words);
  std::string poke(const Words& words);
  std::string storeCommand(const Words& words);
  std::string screens(const Words& words);
  std::string controls(const Words& words);
  std::string trace(const Words& words);
  std::string explain(const Words& words);
  std::string printed(const Words& words);

  std::optional<Addressed> find(const std::string& address) const;
  /// The reason why no act on the target is possible; empty where acts are possible.
  std::string unreachable(const Addressed& target) const;
  template <class Kind, class Act>
  std::string actOn(const std::string& address, Act act);
  template <class OnScreen, class OnControl>
  std::string clickOn(const std::string& address, OnScreen onScreen, OnControl onControl);

  std::vector<std::unique_ptr<Screen>> designs_;
  SettingsStore& store_;
  Watch watch_;
  PageCounter printer_;
  Program program_;
};

}  // namespace tallyfin::script
