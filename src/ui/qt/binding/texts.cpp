#include "ui/qt/binding/texts.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <algorithm>

#include "controls/pasted.h"
#include "controls/texts.h"
#include "ui/qt/binding/afterevent.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

/// Qt begins a new undo step after a cursor move, so the cursor is moved away and back. In an empty text it can't move;
/// clearing the text has the same effect.
void beginUndoStep(QLineEdit& edit) {
  if (edit.text().isEmpty()) return edit.clear();
  const int end = static_cast<int>(edit.text().size());
  const int cursor = std::min(edit.cursorPosition(), end);  // Qt's redo may leave it beyond the text
  const int start = edit.selectionStart();
  const int length = edit.selectionLength();
  edit.setCursorPosition(cursor == 0 ? end : 0);
  if (length == 0) return edit.setCursorPosition(cursor);
  cursor == start ? edit.setSelection(start + length, -length) : edit.setSelection(start, length);
}

}  // namespace

PasteFilter::PasteFilter(QLineEdit& edit, Pasted kind) : QObject(&edit), edit_(edit), kind_(kind) {
  edit.installEventFilter(this);
}

bool PasteFilter::eventFilter(QObject* /*watched*/, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonRelease:
    case QEvent::ContextMenu:
    case QEvent::Drop: return !edit_.isReadOnly() && edit_.isEnabled() && takeIn(*event);
    default: return false;  // don't access the box: a widget that is being destroyed gets events too
  }
}

bool PasteFilter::takeIn(QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress: {
      auto& key = static_cast<QKeyEvent&>(event);
      if (!key.matches(QKeySequence::Paste)) return false;
      const bool primary = key.key() == Qt::Key_Insert && key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
      paste(QGuiApplication::clipboard()->text(primary ? QClipboard::Selection : QClipboard::Clipboard));
      return true;
    }
    case QEvent::MouseButtonRelease:
      if (static_cast<QMouseEvent&>(event).button() != Qt::MiddleButton) return false;
      if (!QGuiApplication::clipboard()->supportsSelection()) return false;
      edit_.deselect();
      paste(QGuiApplication::clipboard()->text(QClipboard::Selection));
      return true;
    case QEvent::ContextMenu: showMenu(static_cast<QContextMenuEvent&>(event).globalPos()); return true;
    case QEvent::Drop: return drop(static_cast<QDropEvent&>(event));
    default: return false;
  }
}

void PasteFilter::paste(const QString& text) {
  const QString kept = cleaned(text, edit_.selectedText() == edit_.text());
  if (kept.isEmpty() && !edit_.hasSelectedText()) return;
  beginUndoStep(edit_);
  edit_.insert(kept);
  beginUndoStep(edit_);
}

/// Qt's menu with our own Paste.
void PasteFilter::showMenu(const QPoint& place) {
  QMenu* menu = edit_.createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (QAction* action : menu->actions()) {
    if (!action->text().startsWith(QLineEdit::tr("&Paste"))) continue;
    action->disconnect(&edit_);
    connect(action, &QAction::triggered, this, [this] { paste(QGuiApplication::clipboard()->text()); });
  }
  menu->popup(place);
}

/// A text that is moved within the box isn't cleaned.
bool PasteFilter::drop(QDropEvent& event) {
  if (event.source() == &edit_) return false;
  QMimeData data;
  data.setText(cleaned(event.mimeData()->text(), edit_.text().isEmpty()));
  QDropEvent again(event.position(), event.possibleActions(), &data, event.buttons(), event.modifiers());
  edit_.event(&again);
  event.setDropAction(again.dropAction());
  event.setAccepted(again.isAccepted());
  return true;
}

QString PasteFilter::cleaned(const QString& pasted, bool replacesAll) const {
  return qt::text(cleanedPaste(pasted.toStdString(), {kind_ == Pasted::amount, replacesAll}));
}

namespace {

/// A box shows its plain text while it is edited, else the formatted text.
class EditFilter : public QObject {
 public:
  EditFilter(Binding& binding, QLineEdit& edit, TextBox& box)
      : QObject(&binding), binding_(binding), edit_(edit), box_(box) {
    // Assistive technology sets a text without a key.
    QObject::connect(&edit, &QLineEdit::textChanged, this, [this](const QString& now) {
      if (!showing_) binding_.act([&] { box_.userType(now.toStdString()); });
    });
  }

  void showText() {
    const QString wanted = text(edit_.hasFocus() ? box_.text() : box_.shown());
    if (edit_.text() == wanted) return;
    showing_ = true;
    edit_.setText(wanted);
    showing_ = false;
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (binding_.control() == nullptr) return false;  // its screen has closed
    // mutation: == -> !=: the toolkit draws it again
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
      // A box that gets the focus back, while its control still has it, isn't changed.
      const auto reason = static_cast<QFocusEvent*>(event)->reason();
      const bool gained = event->type() == QEvent::FocusIn && (!box_.focused() || reason == Qt::OtherFocusReason);
      afterThisEvent(*this, [this, gained] {
        if (binding_.control() == nullptr) return;
        showText();
        if (gained && edit_.hasFocus()) edit_.setSelection(box_.selStart(), box_.selLength());
      });
    }
    return false;
  }

 private:
  Binding& binding_;
  QLineEdit& edit_;
  TextBox& box_;
  bool showing_ = false;
};

}  // namespace

Binding& bind(QLineEdit& edit, TextBox& box, Pasted pasted) {
  auto* binding = new Binding(edit, box);
  auto* filter = new EditFilter(*binding, edit, box);
  edit.installEventFilter(filter);
  new PasteFilter(edit, pasted);
  binding->show = [filter] { filter->showText(); };
  return *binding;
}

}  // namespace tallyfin::qt
