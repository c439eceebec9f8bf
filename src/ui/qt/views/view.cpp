#include "ui/qt/views/view.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QShortcut>
#include <algorithm>

#include "controls/texts.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

View::View(Screen& screen) : screen_(&screen) { setObjectName(text(screen.name())); }

View::~View() { release(); }

void View::release() {
  for (Binding* binding : bindings_) binding->release();
  if (screen_ != nullptr) screen_->watch(nullptr);
  screen_ = nullptr;
}

Binding* View::bindingOf(const QWidget* widget) const {
  const auto binding =
      std::find_if(bindings_.begin(), bindings_.end(), [&](const Binding* b) { return &b->widget() == widget; });
  return binding == bindings_.end() ? nullptr : *binding;
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
  // mutation: Qt::TabFocusReason -> *: both ways of the Tab key select alike, and there is always a next part
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

}  // namespace tallyfin::qt
