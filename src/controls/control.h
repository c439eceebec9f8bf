#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "controls/property.h"

/// The controls of screens. They hold the values that a window shows, and don't depend on Qt.
///
/// There are two ways to change a control. The program assigns (setText, setIndex, select, ...); each function says
/// which handlers it runs. The user acts (userType, userPick, userClick, ...); a hidden or disabled control refuses
/// acts.

namespace tallyfin {

class Screen;

/// Why a user's act was refused. A refused act changes nothing.
enum class Refusal { none, blocked, notShown, disabled, noEntry };

/// A control of a screen.
class Control : public Watched {
 public:
  /// Registers itself with the screen, in the order of declaration. The index is that of a control in a control array.
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

  /// Moves the focus here by code: the control that had the focus loses it, then the handler of this one runs.
  void setFocus();
  bool focused() const;

  Refusal userFocus();
  Refusal userEnter();
  /// Never refused: the control may have been disabled or hidden meanwhile.
  void userLeave();
  Refusal userMove();

 protected:
  friend class Desk;

  /// The effect of the pointer on the control, before the handler.
  virtual void pointerOver(bool /*over*/) {}
  /// The effect of gaining the focus.
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
  /// Click, then DblClick if the screen still exists.
  Refusal userDblClick();
  /// The rest of a double click whose Click has run already.
  Refusal userSecondClick();
  /// The effect of a click, by the user or by code.
  virtual void click() { run(onClick); }

 protected:
  virtual void dblClick() { run(onDblClick); }
};

/// A control array: controls with one name and an index.
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

  /// Gives each control a handler, which gets the index.
  template <class F>
  void on(Handler T::*event, F handler) {
    for (int i = 0; i < count; ++i) (*this)[i].*event = [handler, i] { handler(i); };
  }

  /// Sets the text colour of each control at one event, and resets it at another.
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
