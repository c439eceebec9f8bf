#pragma once

#include <initializer_list>
#include <utility>
#include <vector>

#include "ui/qt/views/view.h"
#include "ui/qt/widgets/fields.h"

class QButtonGroup;
class QComboBox;
class QPushButton;

namespace tallyfin {
template <class T, int count>
class ControlArray;
}

namespace tallyfin::qt {

/// A view that lays out a screen: creates widgets that are bound to controls, names them and gives them keys.
class ScreenView : public View {
 protected:
  using View::View;

  // Each creates a widget that is bound to a control.
  QLabel* label(Label& control);
  /// A label in the heading font.
  QLabel* heading(Label& control);
  /// A label that wraps its text.
  QLabel* paragraph(Label& control);
  /// A label for a figure: right-aligned, with digits of equal width. The caller sets its accessible name.
  QLabel* figure(Label& control);
  QLineEdit* box(TextBox& control, Pasted pasted = Pasted::text);
  /// A box for an amount: right-aligned.
  QLineEdit* amountBox(TextBox& control);
  QPushButton* button(CommandButton& control);
  /// A button with a picture and a caption, for a control without a caption.
  QPushButton* wordButton(CommandButton& control, const char* picture, const char* word);
  /// The same for buttons without a control.
  static void showWord(QPushButton& button, const char* picture, const char* word);
  static void showPicture(QPushButton& button, const char* picture, const char* name, QSize size, int side);
  /// Exclusive options, as one group for the arrow keys.
  std::vector<QRadioButton*> options(std::initializer_list<OptionButton*> controls);
  template <int count>
  std::vector<QRadioButton*> options(ControlArray<OptionButton, count>& controls);
  QCheckBox* check(CheckBox& control);
  FramedList* list(ListBox& control, Choose choose = Choose::byMoving);
  QComboBox* dropDown(DropDown& control);
  QComboBox* dropDown(EditableDropDown& control);

  /// Makes the label's caption the accessible name of its box, also when it changes. With a letter of the caption, that
  /// letter is the mnemonic of the box.
  void name(QLabel* label, QWidget* box, char letter = '\0');
  /// Sets colours of a bound widget; those of its control override them.
  void colour(QWidget* widget, const QPalette& palette);
  /// The widget keeps its space when it is hidden.
  static void keepPlace(QWidget* widget);
  /// Makes this letter of the caption the mnemonic of the button, option or check box.
  static void letter(QAbstractButton* button, char letter);
  void letter(const Control& control, char letter);
  /// A key that presses a button, or moves to a widget, if it is in view. The tooltip names it.
  void pressOn(const QKeySequence& key, QAbstractButton* button);
  void pressOn(const QKeySequence& key, const CommandButton& control);
  void goOn(const QKeySequence& key, QWidget* widget);
  void goOn(const QKeySequence& key, const Control& control);
  /// Alt and the number or letter of a line of a form move to its entry, also when it is out of view.
  void lineKeys(std::initializer_list<std::pair<char, Control*>> lines);

  /// Disables the mnemonic of a label on a page that is out of view.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  template <class Control>
  QComboBox* anyDropDown(Control& control);
  QButtonGroup* newGroup();
  QRadioButton* option(OptionButton& control, QButtonGroup& group);
};

template <int count>
std::vector<QRadioButton*> ScreenView::options(ControlArray<OptionButton, count>& controls) {
  std::vector<QRadioButton*> widgets;
  auto* group = newGroup();
  for (auto& control : controls) widgets.push_back(option(control, *group));
  return widgets;
}

}  // namespace tallyfin::qt
