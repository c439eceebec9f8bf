#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/screen.h"

namespace tallyfin {

/// Notifications of the screen stack for a binding.
class DeskWatcher {
 public:
  virtual ~DeskWatcher() = default;
  virtual void shown(Screen& /*screen*/) {}      ///< A screen was shown or brought to the front.
  virtual void discarded(Screen& /*screen*/) {}  ///< A screen is about to be discarded.
  virtual void focusMoved() {}
};

/// Notified of each act of the user, except acts within an act.
class ActWatcher {
 public:
  virtual ~ActWatcher() = default;
  virtual void beginAct() = 0;
  virtual void endAct() = 0;
};

/// The screen stack: owns the screens and controls their lifetime.
///
/// A screen is created and loaded at its first use, which is the first access to anything of it or its first showing;
/// closing runs its Unload and discards it. The shown documents are a stack, with the active document in front. A
/// screen can't be closed while it loads, and neither shown nor closed while it unloads.
class Desk {
 public:
  /// The screen; creates and loads it where necessary. The only way to another screen.
  template <class S>
  S& use() {
    if (Screen* screen = find(S::screenName)) return static_cast<S&>(*screen);
    return static_cast<S&>(load(std::make_unique<S>()));
  }
  /// The screen if it is loaded, else null.
  Screen* find(std::string_view name) const;
  template <class S>
  S* find() const {
    return static_cast<S*>(find(S::screenName));
  }
  bool holds(const Screen& screen) const;

  /// Makes a screen visible and brings it to the front.
  void show(Screen& screen);
  template <class S>
  void show() {
    show(use<S>());
  }
  void close(Screen& screen);
  /// Closes the screen if it is loaded.
  template <class S>
  void close() {
    if (Screen* screen = find(S::screenName)) close(*screen);
  }
  void closeActiveDocument();
  /// Closes the active document, then loads, maximises and shows the screen.
  template <class S>
  void openInstead() {
    closeActiveDocument();
    S& screen = use<S>();
    screen.maximized = true;
    show(screen);
  }

  Screen* activeDocument() const { return documents_.empty() ? nullptr : documents_.front(); }
  /// The shown documents from front to back.
  const std::vector<Screen*>& documents() const { return documents_; }
  /// All loaded screens, in the order in which they were loaded.
  std::vector<Screen*> loaded() const;
  /// The loaded boxes above the frame from front to back.
  std::vector<Screen*> boxes() const;

  /// The control that has the focus: one for the whole program.
  Control* focused() const { return focused_; }
  void moveFocus(Control& control);
  /// Moves the focus to something that isn't a control: the control that had the focus loses it.
  void dropFocus();

  /// A user's act on a control. Refused where the control can't be reached, or for the given reason; else brings the
  /// screen to the front and carries out the act.
  Refusal act(Control& control, const std::function<void()>& carryOut) { return act(control, Refusal::none, carryOut); }
  Refusal act(Control& control, Refusal further, const std::function<void()>& carryOut);
  /// The same for the pointer, without bringing the screen to the front.
  Refusal point(Control& control, const std::function<void()>& carryOut);
  /// Runs a function as an act that can't be refused.
  void carryOut(const std::function<void()>& act);
  /// A user's act on the screen itself.
  Refusal act(Screen& screen, const std::function<void()>& carryOut);
  /// The user closes a screen by its window. Closing the frame of the program ends the run.
  Refusal userClose(Screen& screen);
  /// True while a box must be answered before anything else on this screen.
  bool blocked(std::string_view screenName) const;
  void setBlocker(const Screen& box) { blocker_ = box.name(); }

  /// Begins a run: no screen loaded, then the frame, shown before its Load.
  template <class Frame>
  void start() {
    begin();
    carryOut([this] {
      auto frame = std::make_unique<Frame>();
      frame->shown_ = true;
      load(std::move(frame));
    });
  }
  bool running() const { return running_; }
  /// Ends the run at once: no handler runs, and all screens are destroyed at the end of the current act.
  void end();

  /// The binding that is notified while a program runs; else null.
  DeskWatcher* watcher = nullptr;
  /// Null where nothing is notified of acts.
  ActWatcher* actWatcher = nullptr;

 private:
  struct Seat {
    std::unique_ptr<Screen> screen;
    bool loading = false;
    bool unloading = false;
  };

  void begin();
  Screen& load(std::unique_ptr<Screen> screen);
  Seat* seatOf(const Screen& screen);
  void discard(Screen& screen);
  void activateFront();
  Refusal refusal(const Control& control) const;

  std::vector<Seat> seats_;
  std::vector<Screen*> documents_;
  Screen* activated_ = nullptr;
  Control* focused_ = nullptr;
  std::string blocker_;
  bool running_ = false;
  int depth_ = 0;
  /// Closed screens, kept until the end of the act: a handler may close its own screen.
  std::vector<std::unique_ptr<Screen>> discarded_;
};

/// The screen stack of the program.
extern Desk desk;

}  // namespace tallyfin
