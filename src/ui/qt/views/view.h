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
  /// Whether the user sees a widget of this page and can act on it.
  bool inSight(const QWidget& widget) const;
  /// Takes the keyboard as if the user had moved there: the control that had it last, or else the first one.
  void takeKeyboard();
  /// Remembers which widget of this page has the keyboard.
  void noteFocus(QWidget& widget) { lastFocus_ = &widget; }
  /// The keys of a page are heard while it is the active one.
  void setActive(bool active);

 protected:
  // Each makes the widget of a control, tied to it.
  QLabel* label(Label& control);
  /// A label in the heading font.
  QLabel* heading(Label& control);
  /// A label that wraps its text.
  QLabel* paragraph(Label& control);
  /// A label for a figure: right-aligned, digits of one width; who makes it names it.
  QLabel* figure(Label& control);
  QLineEdit* box(TextBox& control, Pasted pasted = Pasted::text);
  /// A box for an amount: right-aligned.
  QLineEdit* amountBox(TextBox& control);
  QPushButton* button(CommandButton& control);
  /// A button that shows a picture, of a side in pixels, instead of a caption.
  QPushButton* pictureButton(CommandButton& control, const char* picture, const char* name, QSize size, int side = 18);
  /// A button that shows a picture and a word, which the control has none of.
  QPushButton* wordButton(CommandButton& control, const char* picture, const char* word);
  /// The same for buttons of the view's own.
  static void showWord(QPushButton& button, const char* picture, const char* word);
  static void showPicture(QPushButton& button, const char* picture, const char* name, QSize size, int side);
  /// Options that exclude one another, in one group of the keyboard.
  std::vector<QRadioButton*> options(std::initializer_list<OptionButton*> controls);
  template <int count>
  std::vector<QRadioButton*> options(ControlArray<OptionButton, count>& controls);
  QCheckBox* check(CheckBox& control);
  FramedList* list(ListBox& control, Choose choose = Choose::byMoving);
  QComboBox* dropDown(DropDown& control);
  QComboBox* dropDown(EditableDropDown& control);

  /// Registers a widget that a view has tied by itself.
  template <class Widget>
  Widget* tied(Widget* widget, Binding& binding) {
    bindings_.push_back(&binding);
    binding.refresh();
    return widget;
  }

  /// Makes a label the name of its box for screen readers, whatever its caption becomes; with a letter of the caption,
  /// Alt and that letter move to the box.
  void name(QLabel* label, QWidget* box, char letter = '\0');
  /// Gives a tied widget colours of its own, under those of its control.
  void colour(QWidget* widget, const QPalette& palette);
  /// Nothing moves when the widget is hidden.
  static void keepPlace(QWidget* widget);
  /// Alt and this letter of its caption press the button, option or check box.
  static void letter(QAbstractButton* button, char letter);
  /// A key that acts while this page is the active one, whatever has the keyboard; the words tell what it does.
  void onKey(const QKeySequence& key, const QString& words, std::function<void()> act);
  /// A key that presses a button, or goes to a widget, if it is in sight. The tooltip names it.
  void pressOn(const QKeySequence& key, QAbstractButton* button);
  void pressOn(const QKeySequence& key, const CommandButton& control);
  void goOn(const QKeySequence& key, QWidget* widget);
  /// Alt and the number or letter of a line of a form go to what stands there, in sight or not.
  void lineKeys(std::initializer_list<std::pair<char, Control*>> lines);
  /// The control that a page which opens gives the keyboard to; none where nothing takes it.
  virtual QWidget* firstControl() const;

  /// Keeps the mark for the keyboard of a label that is out of sight from acting.
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

/// Where Tab goes that would go to a widget: of a group of options to the chosen one.
QWidget& enteredAt(QWidget& widget);

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
