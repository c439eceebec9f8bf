#pragma once

#include <QKeySequence>
#include <QPointer>
#include <QWidget>
#include <initializer_list>
#include <memory>
#include <vector>

#include "ui/qt/binding/binding.h"
#include "ui/qt/widgets/fields.h"

class QButtonGroup;
class QComboBox;
class QGridLayout;
class QPushButton;
class QShortcut;

namespace tallyfin {
template <class T, int count>
class ControlArray;
}

namespace tallyfin::qt {

/// The view of a screen: lays out widgets and binds each to its control. Created when the screen is first shown,
/// deleted when it is discarded.
class View : public QWidget {
 public:
  explicit View(Screen& screen);
  ~View() override;

  Screen* screen() const { return screen_; }
  /// Releases all bindings, before the screen is destroyed.
  void release();
  /// The widget of a control; null if there is none.
  QWidget* widgetOf(const Control& control) const;
  /// Whether a widget of this page is visible and enabled.
  bool inSight(const QWidget& widget) const;
  /// Takes the keyboard focus as if the user had moved there: the control that had it last, or else the first one.
  void takeKeyboard();
  /// Stores the widget of this page that has the keyboard focus.
  void noteFocus(QWidget& widget) { lastFocus_ = &widget; }
  /// Enables the keys of the page, while it is active.
  void setActive(bool active);

 protected:
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
  /// A button that shows a picture, of a side in pixels, instead of a caption.
  QPushButton* pictureButton(CommandButton& control, const char* picture, const char* name, QSize size, int side = 18);
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

  /// Registers a widget that the view has bound itself.
  template <class Widget>
  Widget* tied(Widget* widget, Binding& binding) {
    bindings_.push_back(&binding);
    binding.refresh();
    return widget;
  }

  /// Makes the label's caption the accessible name of its box, also when it changes. With a letter of the caption, that
  /// letter is the mnemonic of the box.
  void name(QLabel* label, QWidget* box, char letter = '\0');
  /// Sets colours of a bound widget; those of its control override them.
  void colour(QWidget* widget, const QPalette& palette);
  /// The widget keeps its space when it is hidden.
  static void keepPlace(QWidget* widget);
  /// Makes this letter of the caption the mnemonic of the button, option or check box.
  static void letter(QAbstractButton* button, char letter);
  /// A key that works while this page is active, for any focus. `words` describes its action.
  void onKey(const QKeySequence& key, const QString& words, std::function<void()> act);
  /// A key that presses a button, or moves to a widget, if it is in view. The tooltip names it.
  void pressOn(const QKeySequence& key, QAbstractButton* button);
  void pressOn(const QKeySequence& key, const CommandButton& control);
  void goOn(const QKeySequence& key, QWidget* widget);
  /// Alt and the number or letter of a line of a form move to its entry, also when it is out of view.
  void lineKeys(std::initializer_list<std::pair<char, Control*>> lines);
  /// The control that gets the focus when the page opens; null for none.
  virtual QWidget* firstControl() const;

  /// Disables the mnemonic of a label on a page that is out of view.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Binding* bindingOf(const QWidget* widget) const;
  QButtonGroup* newGroup();
  QRadioButton* option(OptionButton& control, QButtonGroup& group);

  Screen* screen_;
  std::vector<Binding*> bindings_;
  std::vector<QShortcut*> keys_;
  QPointer<QWidget> lastFocus_;
};

/// The target of Tab for a widget: the chosen option of a group.
QWidget& enteredAt(QWidget& widget);

/// Creates the view of a screen.
std::unique_ptr<View> viewOf(Screen& screen);

template <int count>
std::vector<QRadioButton*> View::options(ControlArray<OptionButton, count>& controls) {
  std::vector<QRadioButton*> widgets;
  auto* group = newGroup();
  for (auto& control : controls) widgets.push_back(option(control, *group));
  return widgets;
}

}  // namespace tallyfin::qt
