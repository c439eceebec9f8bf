#include "ui/qt/views/screenview.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/texts.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/binding/dropdowns.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

/// Appends a widget's key to its tooltip, or to its name where it has no tooltip.
void tellKey(QWidget& widget, const QKeySequence& key, const QString& name) {
  const QString words = widget.toolTip().isEmpty() ? name : widget.toolTip();
  widget.setToolTip(QStringLiteral("%1 (%2)").arg(words, key.toString(QKeySequence::NativeText)));
}

}  // namespace

void ScreenView::pressOn(const QKeySequence& key, QAbstractButton* button) {
  tellKey(*button, key, nameOf(*button));
  onKey(key, nameOf(*button), [this, button] {
    if (inSight(*button)) button->click();
  });
}

void ScreenView::pressOn(const QKeySequence& key, const CommandButton& control) {
  pressOn(key, static_cast<QAbstractButton*>(widgetOf(control)));
}

void ScreenView::lineKeys(std::initializer_list<std::pair<char, Control*>> lines) {
  for (const auto& [line, control] : lines) {
    onKey(Qt::ALT | static_cast<Qt::Key>(line), QStringLiteral("Line ") + QLatin1Char(line),
          [widget = widgetOf(*control)] { enteredAt(*widget).setFocus(Qt::ShortcutFocusReason); });
  }
}

void ScreenView::goOn(const QKeySequence& key, QWidget* widget) {
  tellKey(*widget, key, widget->accessibleName());
  onKey(key, widget->accessibleName(), [this, widget] {
    if (inSight(*widget)) enteredAt(*widget).setFocus(Qt::ShortcutFocusReason);
  });
}

void ScreenView::goOn(const QKeySequence& key, const Control& control) { goOn(key, widgetOf(control)); }

void ScreenView::keepPlace(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

void ScreenView::letter(QAbstractButton* button, char letter) {
  QString caption = button->text();
  const auto place = caption.indexOf(QLatin1Char(letter));
  if (place >= 0) button->setText(caption.insert(place, QLatin1Char('&')));
}

void ScreenView::letter(const Control& control, char key) {
  letter(static_cast<QAbstractButton*>(widgetOf(control)), key);
}

QLabel* ScreenView::label(Label& control) {
  auto* widget = new QLabel(this);
  return tied(widget, bind(*widget, control));
}

QLabel* ScreenView::heading(Label& control) {
  QLabel* widget = label(control);
  widget->setFont(look::heading());
  return widget;
}

QLabel* ScreenView::paragraph(Label& control) {
  QLabel* widget = label(control);
  widget->setWordWrap(true);
  return widget;
}

QLabel* ScreenView::figure(Label& control) {
  auto* widget = new FigureLabel(this);
  tied(widget, bind(*widget, control));
  // mutation: widget->setFont(look::figures()); -> nothing: the font has digits of one width already
  widget->setFont(look::figures());
  widget->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return widget;
}

QLineEdit* ScreenView::box(TextBox& control, Pasted pasted) {
  auto* widget = new Box(this);
  return tied(widget, bind(*widget, control, pasted));
}

QLineEdit* ScreenView::amountBox(TextBox& control) {
  QLineEdit* widget = box(control, Pasted::amount);
  // mutation: widget->setFont(look::figures()); -> nothing: the font has digits of one width already
  widget->setFont(look::figures());
  widget->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return widget;
}

QPushButton* ScreenView::button(CommandButton& control) {
  auto* widget = new QPushButton(this);
  widget->setAutoDefault(true);  // Enter presses the focused button
  return tied(widget, bind(*widget, control));
}

QPushButton* ScreenView::wordButton(CommandButton& control, const char* picture, const char* word) {
  QPushButton* widget = button(control);
  showWord(*widget, picture, word);
  return widget;
}

void ScreenView::showWord(QPushButton& button, const char* picture, const char* word) {
  constexpr int side = 16;
  button.setIcon(look::picture(QString::fromLatin1(picture)));
  button.setIconSize({side, side});
  button.setText(QString::fromLatin1(word));
  button.setMinimumWidth(side + button.fontMetrics().horizontalAdvance(button.text()) + 2 * look::row);
}

void ScreenView::showPicture(QPushButton& button, const char* picture, const char* name, QSize size, int side) {
  button.setIcon(look::picture(QString::fromLatin1(picture)));
  button.setIconSize({side, side});
  button.setFixedSize(size);
  button.setAccessibleName(QString::fromLatin1(name));
}

QButtonGroup* ScreenView::newGroup() { return new QButtonGroup(this); }

QRadioButton* ScreenView::option(OptionButton& control, QButtonGroup& group) {
  auto* widget = new QRadioButton(this);
  return tied(widget, bind(*widget, control, group));
}

std::vector<QRadioButton*> ScreenView::options(std::initializer_list<OptionButton*> controls) {
  std::vector<QRadioButton*> widgets;
  QButtonGroup* group = newGroup();
  for (OptionButton* control : controls) widgets.push_back(option(*control, *group));
  return widgets;
}

QCheckBox* ScreenView::check(CheckBox& control) {
  auto* widget = new QCheckBox(this);
  return tied(widget, bind(*widget, control));
}

FramedList* ScreenView::list(ListBox& control, Choose choose) {
  auto* widget = new FramedList(this);
  return tied(widget, bind(*widget, control, choose));
}

namespace {

constexpr int visibleEntries = 12;  ///< Of an open list, which scrolls to the others.

}  // namespace

template <class Control>
QComboBox* ScreenView::anyDropDown(Control& control) {
  auto* widget = new DropDownBox(this);
  tied(widget, bind(*widget, control));
  colour(widget, look::lightFace());
  widget->setMaxVisibleItems(visibleEntries);
  return widget;
}

QComboBox* ScreenView::dropDown(DropDown& control) { return anyDropDown(control); }
QComboBox* ScreenView::dropDown(EditableDropDown& control) { return anyDropDown(control); }

void ScreenView::name(QLabel* label, QWidget* box, char letter) {
  label->setBuddy(box);
  label->installEventFilter(this);
  const auto mark = [label, box, letter](QString caption) {
    box->setAccessibleName(caption.simplified());
    if (auto* combo = qobject_cast<QComboBox*>(box); combo != nullptr && combo->isEditable()) {
      combo->lineEdit()->setAccessibleName(box->accessibleName());
    }
    // mutation: 1 -> 2: the first entry is found again
    const auto place = letter == '\0' ? -1 : caption.indexOf(QLatin1Char(letter));
    if (place >= 0) caption.insert(place, '&');
    label->setText(caption);
  };
  Binding* binding = bindingOf(label);
  if (binding == nullptr) return mark(label->text());  // a label without a control
  binding->show = [mark, control = static_cast<Label*>(binding->control())] { mark(text(control->caption())); };
  binding->refresh();
}

bool ScreenView::eventFilter(QObject* watched, QEvent* event) {
  return event->type() == QEvent::Shortcut && !inSight(static_cast<QWidget&>(*watched));
}

void ScreenView::colour(QWidget* widget, const QPalette& palette) {
  Binding* binding = bindingOf(widget);
  binding->colours = palette;
  binding->refresh();
}

}  // namespace tallyfin::qt
