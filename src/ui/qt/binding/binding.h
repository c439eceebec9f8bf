#pragma once

#include <QObject>
#include <QPalette>
#include <QWidget>
#include <functional>
#include <vector>

#include "controls/control.h"
#include "controls/desk.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QButtonGroup;
class QAbstractButton;
class QRadioButton;
class QSpinBox;

namespace tallyfin {
class CheckBox;
class Clickable;
class CommandButton;
class DropDown;
class EditableDropDown;
class Label;
class ListBox;
class OptionButton;
class TextBox;
class UpDown;
}  // namespace tallyfin

namespace tallyfin::qt {

class DropDownBox;

/// Ties a widget to a control: what the control holds is shown, what the user does becomes an act of the control. It
/// decides nothing and remembers nothing. The widget takes the control's address as its object name, and its tooltip.
///
/// Whatever the user does it with, a mouse, keys or assistive technology, is the same act.
///
/// The control may go while the widget is still there (a button that closes its own screen): release() cuts the tie.
class Binding : public QObject {
 public:
  Binding(QWidget& widget, Control& control);

  Control* control() const { return control_; }
  QWidget& widget() const { return widget_; }
  void release();

  /// Shows the control as it stands.
  void refresh();
  /// What refresh does beyond enabling, hiding and colouring.
  std::function<void()> show;
  /// Whether the widget is to be seen at all; without it, that is as the control says.
  std::function<bool()> shown;
  /// The view's own colours of the widget; those of the control go over them.
  QPalette colours;

  /// Runs an act of the user, unless the control is gone or the widget is only being refreshed. An act that the control
  /// refuses leaves no trace on the widget.
  template <class Act>
  void act(Act userAct) {
    if (control_ == nullptr || refreshing_) return;
    userAct();
    refresh();
  }
  bool refreshing() const { return refreshing_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void applyColours();

  QWidget& widget_;
  Control* control_;
  bool refreshing_ = false;
};

/// Hides a widget; a focus inside it goes to nobody, where the toolkit would pass it on as if the user had moved it.
void hideQuietly(QWidget& widget);

/// How a row of a list is chosen by keyboard: as the marker moves, or by Enter and Space.
enum class Choose { byMoving, byEnter };

/// What a box takes: any text, or an amount.
enum class Pasted { text, amount };

// One function for each kind of widget.
Binding& bind(QLineEdit& edit, TextBox& box, Pasted pasted = Pasted::text);
Binding& bind(QLabel& widget, Label& label);
Binding& bind(QAbstractButton& widget, CommandButton& button);
Binding& bind(QRadioButton& widget, OptionButton& option, QButtonGroup& group);
Binding& bind(QCheckBox& widget, CheckBox& box);
Binding& bind(QListWidget& widget, ListBox& list, Choose choose);
Binding& bind(DropDownBox& widget, DropDown& dropDown);
Binding& bind(DropDownBox& widget, EditableDropDown& dropDown);
/// Turned by a step it picks at once, typed into when the number is complete.
Binding& bind(QSpinBox& widget, UpDown& upDown);
/// A widget that only shows.
Binding& bindPlain(QWidget& widget, Control& control);

}  // namespace tallyfin::qt
