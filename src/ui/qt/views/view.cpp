#include "ui/qt/views/view.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <algorithm>

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/texts.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/binding/dropdowns.h"
#include "ui/qt/widgets/look.h"

namespace tallyfin::qt {

View::View(Screen& screen) : screen_(&screen) { setObjectName(QString::fromStdString(screen.name())); }

View::~View() { release(); }

void View::release() {
  for (Binding* binding : bindings_) binding->release();
  if (screen_ != nullptr) screen_->watch(nullptr);
  screen_ = nullptr;
}

QWidget* View::widgetOf(const Control& control) const {
  for (const Binding* binding : bindings_) {
    if (binding->control() == &control) return &binding->widget();
  }
  return nullptr;
}

bool View::inSight(const QWidget& widget) const {
  return widget.isVisibleTo(this) && widget.isEnabledTo(this) &&
         std::none_of(bindings_.begin(), bindings_.end(), [&](const Binding* binding) {
           const auto* panel = dynamic_cast<const Panel*>(binding->control());
           return panel != nullptr && !panel->inSight() && binding->widget().isAncestorOf(&widget);
         });
}

QWidget& enteredAt(QWidget& widget) {
  const auto* option = qobject_cast<QRadioButton*>(&widget);
  QAbstractButton* chosen =
      option == nullptr || option->group() == nullptr ? nullptr : option->group()->checkedButton();
  return chosen != nullptr && chosen->isVisible() && chosen->isEnabled() ? *chosen : widget;
}

QWidget* View::firstControl() const {
  for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
    if (!isAncestorOf(widget) || bindingOf(widget) == nullptr || !inSight(*widget)) continue;
    if ((widget->focusPolicy() & Qt::TabFocus) != 0) return &enteredAt(*widget);
  }
  return nullptr;
}

void View::takeKeyboard() {
  QWidget* target = lastFocus_ != nullptr && inSight(*lastFocus_) ? lastFocus_.data() : firstControl();
  (target != nullptr ? target : this)->setFocus(Qt::TabFocusReason);
}

void View::setActive(bool active) {
  for (QShortcut* key : keys_) key->setEnabled(active);
}

void View::onKey(const QKeySequence& key, const QString& words, std::function<void()> act) {
  auto* shortcut = new QShortcut(key, this);
  shortcut->setWhatsThis(words);
  connect(shortcut, &QShortcut::activated, this, [this, act = std::move(act)] {
    if (screen_ != nullptr) act();
  });
  keys_.push_back(shortcut);
}

namespace {

/// Appends a widget's key to its tooltip, or to its name where it has no tooltip.
void tellKey(QWidget& widget, const QKeySequence& key, const QString& name) {
  const QString words = widget.toolTip().isEmpty() ? name : widget.toolTip();
  widget.setToolTip(QStringLiteral("%1 (%2)").arg(words, key.toString(QKeySequence::NativeText)));
}

}  // namespace

void View::pressOn(const QKeySequence& key, QAbstractButton* button) {
  tellKey(*button, key, nameOf(*button));
  onKey(key, nameOf(*button), [this, button] {
    if (inSight(*button)) button->click();
  });
}

void View::pressOn(const QKeySequence& key, const CommandButton& control) {
  pressOn(key, static_cast<QAbstractButton*>(widgetOf(control)));
}

void View::lineKeys(std::initializer_list<std::pair<char, Control*>> lines) {
  for (const auto& [line, control] : lines) {
    onKey(Qt::ALT | static_cast<Qt::Key>(line), QStringLiteral("Line ") + QLatin1Char(line),
          [widget = widgetOf(*control)] { enteredAt(*widget).setFocus(Qt::ShortcutFocusReason); });
  }
}

void View::goOn(const QKeySequence& key, QWidget* widget) {
  tellKey(*widget, key, widget->accessibleName());
  onKey(key, widget->accessibleName(), [this, widget] {
    if (inSight(*widget)) enteredAt(*widget).setFocus(Qt::ShortcutFocusReason);
  });
}

void View::keepPlace(QWidget* widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

void View::letter(QAbstractButton* button, char letter) {
  QString caption = button->text();
  const auto place = caption.indexOf(QLatin1Char(letter));
  if (place >= 0) button->setText(caption.insert(place, QLatin1Char('&')));
}

QLabel* View::label(Label& control) {
  auto* widget = new QLabel(this);
  return tied(widget, bind(*widget, control));
}

QLabel* View::heading(Label& control) {
  QLabel* widget = label(control);
  widget->setFont(look::heading());
  return widget;
}

QLabel* View::paragraph(Label& control) {
  QLabel* widget = label(control);
  widget->setWordWrap(true);
  return widget;
}

QLabel* View::figure(Label& control) {
  auto* widget = new FigureLabel(this);
  tied(widget, bind(*widget, control));
  widget->setFont(look::figures());
  widget->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return widget;
}

QLineEdit* View::box(TextBox& control, Pasted pasted) {
  auto* widget = new Box(this);
  return tied(widget, bind(*widget, control, pasted));
}

QLineEdit* View::amountBox(TextBox& control) {
  QLineEdit* widget = box(control, Pasted::amount);
  widget->setFont(look::figures());
  widget->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return widget;
}

QPushButton* View::button(CommandButton& control) {
  auto* widget = new QPushButton(this);
  widget->setAutoDefault(true);  // Enter presses the focused button
  return tied(widget, bind(*widget, control));
}

QPushButton* View::pictureButton(CommandButton& control, const char* picture, const char* name, QSize size, int side) {
  QPushButton* widget = button(control);
  showPicture(*widget, picture, name, size, side);
  return widget;
}

QPushButton* View::wordButton(CommandButton& control, const char* picture, const char* word) {
  QPushButton* widget = button(control);
  showWord(*widget, picture, word);
  return widget;
}

void View::showWord(QPushButton& button, const char* picture, const char* word) {
  constexpr int side = 16;
  button.setIcon(look::picture(QString::fromLatin1(picture)));
  button.setIconSize({side, side});
  button.setText(QString::fromLatin1(word));
  button.setMinimumWidth(side + button.fontMetrics().horizontalAdvance(button.text()) + 2 * look::row);
}

void View::showPicture(QPushButton& button, const char* picture, const char* name, QSize size, int side) {
  button.setIcon(look::picture(QString::fromLatin1(picture)));
  button.setIconSize({side, side});
  button.setFixedSize(size);
  button.setAccessibleName(QString::fromLatin1(name));
}

QButtonGroup* View::newGroup() { return new QButtonGroup(this); }

QRadioButton* View::option(OptionButton& control, QButtonGroup& group) {
  auto* widget = new QRadioButton(this);
  return tied(widget, bind(*widget, control, group));
}

std::vector<QRadioButton*> View::options(std::initializer_list<OptionButton*> controls) {
  std::vector<QRadioButton*> widgets;
  QButtonGroup* group = newGroup();
  for (OptionButton* control : controls) widgets.push_back(option(*control, *group));
  return widgets;
}

QCheckBox* View::check(CheckBox& control) {
  auto* widget = new QCheckBox(this);
  return tied(widget, bind(*widget, control));
}

FramedList* View::list(ListBox& control, Choose choose) {
  auto* widget = new FramedList(this);
  return tied(widget, bind(*widget, control, choose));
}

namespace {

constexpr int visibleEntries = 12;  ///< Of an open list, which scrolls to the others.

}  // namespace

QComboBox* View::dropDown(DropDown& control) {
  auto* widget = new DropDownBox(this);
  tied(widget, bind(*widget, control));
  colour(widget, look::lightFace());
  widget->setMaxVisibleItems(visibleEntries);
  return widget;
}

QComboBox* View::dropDown(EditableDropDown& control) {
  auto* widget = new DropDownBox(this);
  tied(widget, bind(*widget, control));
  colour(widget, look::lightFace());
  widget->setMaxVisibleItems(visibleEntries);
  return widget;
}

Binding* View::bindingOf(const QWidget* widget) const {
  const auto binding =
      std::find_if(bindings_.begin(), bindings_.end(), [&](const Binding* b) { return &b->widget() == widget; });
  return binding == bindings_.end() ? nullptr : *binding;
}

void View::name(QLabel* label, QWidget* box, char letter) {
  label->setBuddy(box);
  label->installEventFilter(this);
  const auto mark = [label, box, letter](QString caption) {
    box->setAccessibleName(caption.simplified());
    if (auto* combo = qobject_cast<QComboBox*>(box); combo != nullptr && combo->isEditable()) {
      combo->lineEdit()->setAccessibleName(box->accessibleName());
    }
    const auto place = letter == '\0' ? -1 : caption.indexOf(QLatin1Char(letter));
    if (place >= 0) caption.insert(place, '&');
    label->setText(caption);
  };
  Binding* binding = bindingOf(label);
  if (binding == nullptr) return mark(label->text());  // a label without a control
  binding->show = [mark, control = static_cast<Label*>(binding->control())] {
    mark(QString::fromStdString(control->caption()));
  };
  binding->refresh();
}

bool View::eventFilter(QObject* watched, QEvent* event) {
  return event->type() == QEvent::Shortcut && !inSight(static_cast<QWidget&>(*watched));
}

void View::colour(QWidget* widget, const QPalette& palette) {
  Binding* binding = bindingOf(widget);
  binding->colours = palette;
  binding->refresh();
}

}  // namespace tallyfin::qt
