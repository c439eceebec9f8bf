#pragma once

#include <QWidget>
#include <initializer_list>
#include <memory>
#include <vector>

#include "ui/qt/binding.h"

class QButtonGroup;
class QFrame;
class QGridLayout;
class QPushButton;

namespace tallyfin {
template <class T, int count>
class ControlArray;
}

namespace tallyfin::qt {

/// The picture of a screen: lays widgets out and ties each to its control. Made when the screen is first shown, let go
/// when it is discarded.
class View : public QWidget {
 public:
  explicit View(Screen& screen);
  ~View() override;

  Screen* screen() const { return screen_; }
  /// Cuts every tie to the screen, which is about to go.
  void release();
  /// The widget of a control; none if the view has none for it.
  QWidget* widgetOf(const Control& control) const;

 protected:
  // Each makes the widget of a control, tied to it.
  QLabel* label(Label& control);
  /// A label in the heading font.
  QLabel* heading(Label& control);
  /// A label that wraps its text.
  QLabel* paragraph(Label& control);
  /// A label for a figure: right-aligned, digits of one width; who makes it names it.
  QLabel* figure(Label& control);
  QLineEdit* box(TextBox& control);
  /// A box for an amount: right-aligned.
  QLineEdit* amountBox(TextBox& control);
  QPushButton* button(CommandButton& control, const QString& picture = {});
  /// Options that exclude one another, in one group of the keyboard.
  std::vector<QRadioButton*> options(std::initializer_list<OptionButton*> controls);
  template <int count>
  std::vector<QRadioButton*> options(ControlArray<OptionButton, count>& controls);
  QCheckBox* check(CheckBox& control);
  QListWidget* list(ListBox& control, Choose choose = Choose::byMoving);
  QComboBox* dropDown(DropDown& control);
  QComboBox* dropDown(EditableDropDown& control);

  /// Registers a widget that a view has tied by itself.
  template <class Widget>
  Widget* tied(Widget* widget, Binding& binding) {
    bindings_.push_back(&binding);
    return widget;
  }

  /// Makes a label the name of its box for screen readers, whatever its caption becomes; with a letter of the caption,
  /// Alt and that letter move to the box.
  void name(QLabel* label, QWidget* box, char letter = '\0');
  /// Gives a tied widget colours of its own, under those of its control.
  void colour(QWidget* widget, const QPalette& palette);

 private:
  Binding* bindingOf(const QWidget* widget) const;
  QButtonGroup* newGroup();
  QRadioButton* option(OptionButton& control, QButtonGroup& group);

  Screen* screen_;
  std::vector<Binding*> bindings_;
};

/// Makes the view of a screen.
std::unique_ptr<View> viewOf(Screen& screen);

template <int count>
std::vector<QRadioButton*> View::options(ControlArray<OptionButton, count>& controls) {
  std::vector<QRadioButton*> widgets;
  auto* group = newGroup();
  for (auto& control : controls) widgets.push_back(option(control, *group));
  return widgets;
}

}  // namespace tallyfin::qt
