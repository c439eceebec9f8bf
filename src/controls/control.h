#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "controls/property.h"

/// The vocabulary of the screens: controls that hold what a window shows and know no toolkit.
///
/// There are two ways to change a control. The program assigns (setText, setIndex, select, ...) and the rules say which
/// handlers that runs. The user acts (userType, userPick, userClick, ...), which a hidden or disabled control refuses.

namespace tallyfin {

class Screen;

/// Why a user's act was refused. A refused act changes nothing.
enum class Refusal { none, blocked, notShown, disabled, noEntry };

/// Anything on a screen.
class Control : public Watched {
 public:
  /// Registers itself with the screen, in the order of declaration. The index tells one of a control array.
  Control(Screen& screen, std::string name, std::string index = "");

  Screen& screen() const { return screen_; }
  const std::string& name() const { return name_; }
  /// "txtIncome", or "cmdToolBar(0)" for one of an array.
  std::string address() const;

  Property<bool> enabled{*this, true};
  Property<bool> visible{*this, true};
  Property<OwnColour> foreColour{*this, std::nullopt};
  Property<OwnColour> backColour{*this, std::nullopt};
  std::string tooltip;

  Handler onGotFocus;
  Handler onLostFocus;
  Handler onMouseEnter;
  Handler onMouseLeave;
  Handler onMouseMove;

  /// Moves the focus here by code: the control that had it loses it, then this one's handler runs.
  void setFocus();
  bool focused() const;

  Refusal userFocus();
  Refusal userEnter();
  /// The pointer can always leave, whatever has become of the control meanwhile.
  void userLeave();
  Refusal userMove();

 protected:
  friend class Desk;

  /// What the pointer does to the control itself, before the handler.
  virtual void pointerOver(bool /*over*/) {}
  /// What gaining the focus does.
  virtual void gotFocus() { run(onGotFocus); }

 private:
  Screen& screen_;
  std::string name_;
  std::string index_;
};

/// A control that the user can click.
class Clickable : public Control {
 public:
  using Control::Control;

  Handler onClick;
  Handler onDblClick;

  Refusal userClick();
  /// Click once, then DblClick if the screen is still there.
  Refusal userDblClick();
  /// The second half of a double click whose first click has run already.
  Refusal userSecondClick();
  /// What a click does: by the user, or "presses the button" by code.
  virtual void click() { run(onClick); }

 protected:
  virtual void dblClick() { run(onDblClick); }
};

/// Controls under one name, told apart by their index.
template <class T, int count>
class ControlArray {
 public:
  /// One caption or text for each index.
  ControlArray(Screen& screen, const std::string& name,
               const std::array<const char*, static_cast<std::size_t>(count)>& captions)
      : ControlArray(screen, name, captions, std::make_integer_sequence<int, count>{}) {}
  ControlArray(Screen& screen, const std::string& name)
      : ControlArray(screen, name, std::make_integer_sequence<int, count>{}) {}

  T& operator[](int index) { return controls_[static_cast<std::size_t>(index)]; }
  const T& operator[](int index) const { return controls_[static_cast<std::size_t>(index)]; }
  auto begin() { return controls_.begin(); }
  auto end() { return controls_.end(); }

  /// Gives each control a handler that knows its index.
  template <class F>
  void on(Handler T::*event, F handler) {
    for (int i = 0; i < count; ++i) (*this)[i].*event = [handler, i] { handler(i); };
  }

  /// Colours the text of each control at one event, and takes the colour back at another.
  void highlight(Handler T::*begin, Handler T::*end, Colour lit, Colour plain) {
    on(begin, [this, lit](int i) { (*this)[i].foreColour = lit; });
    on(end, [this, plain](int i) { (*this)[i].foreColour = plain; });
  }

 private:
  template <int... i>
  ControlArray(Screen& screen, const std::string& name,
               const std::array<const char*, static_cast<std::size_t>(count)>& captions,
               std::integer_sequence<int, i...>)
      : controls_{T(screen, name, captions[static_cast<std::size_t>(i)], std::to_string(i))...} {}
  template <int... i>
  ControlArray(Screen& screen, const std::string& name, std::integer_sequence<int, i...>)
      : controls_{T(screen, name, {}, std::to_string(i))...} {}

  std::array<T, static_cast<std::size_t>(count)> controls_;
};

}  // namespace tallyfin
