#include "ui/qt/binding/inputorder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QShortcutEvent>
#include <QToolButton>

#include "ui/qt/binding/afterevent.h"
#include "ui/qt/binding/dropdowns.h"

namespace tallyfin::qt {

namespace {

/// Whether a shortcut is a button's own, which Qt would click with a delay.
bool clicksByShortcut(QAbstractButton* button, const QShortcutEvent& event) {
  return button != nullptr && !event.isAmbiguous() && event.key() == button->shortcut();
}

void clickByShortcut(QAbstractButton& button) {
  if (button.isCheckable() && (button.focusPolicy() & Qt::ClickFocus)) button.setFocus(Qt::ShortcutFocusReason);
  button.click();
}

bool clicksBySpace(const QAbstractButton* button, const QKeyEvent& key) {
  const bool command = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  const bool opensMenu = qobject_cast<const QToolButton*>(button) != nullptr;
  return button != nullptr && !opensMenu && key.key() == Qt::Key_Space && !command;
}

}  // namespace

InputOrder::InputOrder() { QCoreApplication::instance()->installEventFilter(this); }

bool InputOrder::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      if (watched->isWindowType()) runDeferred();
      auto* button = qobject_cast<QAbstractButton*>(watched);
      const auto& key = static_cast<QKeyEvent&>(*event);
      if (!clicksBySpace(button, key)) return false;
      if (!key.isAutoRepeat()) button->click();
      return true;
    }
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
      if (watched->isWindowType()) runDeferred();  // before Qt determines the target widget
      return false;
    case QEvent::InputMethod: runDeferred(); return false;
    case QEvent::Shortcut: {
      takeTypedEntry(QApplication::focusWidget());
      auto* button = qobject_cast<QAbstractButton*>(watched);
      if (!clicksByShortcut(button, static_cast<QShortcutEvent&>(*event))) return false;
      clickByShortcut(*button);
      return true;
    }
    default: return false;
  }
}

}  // namespace tallyfin::qt
