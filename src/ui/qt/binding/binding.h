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

/// Binds a widget to a control: shows the control's properties, and turns the user's input into acts on the control. It
/// decides nothing and keeps no state. The widget's object name is the control's address; it has the control's tooltip.
///
/// Mouse, keys and assistive technology cause the same acts.
///
/// The control may be destroyed before the widget (a button that closes its own screen): call release() first.
class Binding : public QObject {
 public:
  Binding(QWidget& widget, Control& control);

  Control* control() const { return control_; }
  QWidget& widget() const { return widget_; }
  void release();

  /// Shows the current properties of the control.
  void refresh();
  /// The part of refresh() beside enabling, hiding and colours.
  std::function<void()> show;
  /// Whether the widget is visible. Without it the control decides.
  std::function<bool()> shown;
  /// The view's colours of the widget; those of the control override them.
  QPalette colours;

  /// Runs an act of the user, unless the control is destroyed or the widget is being refreshed. After a refused act the
  /// widget shows the control again.
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

/// Hides a widget and clears a focus inside it. Qt would move the focus to another widget, as if the user had moved it.
void hideQuietly(QWidget& widget);

/// How a row of a list is chosen by keyboard: by moving the marker, or by Enter and Space.
enum class Choose { byMoving, byEnter };

/// The content of a box: any text, or an amount.
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
/// A step picks at once; a typed number picks when it is complete.
Binding& bind(QSpinBox& widget, UpDown& upDown);
/// A widget without acts.
Binding& bindPlain(QWidget& widget, Control& control);

}  // namespace tallyfin::qt
