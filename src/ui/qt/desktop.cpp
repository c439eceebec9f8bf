#include "ui/qt/desktop.h"

#include <QApplication>
#include <QDialog>
#include <QScrollArea>
#include <QSettings>
#include <QVBoxLayout>

#include "ui/MDIOpen.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/binding/afterevent.h"
#include "ui/qt/binding/binding.h"
#include "ui/qt/frame/document.h"
#include "ui/qt/frame/focusring.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/views/view.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

Desktop::Desktop(SettingsStore& store, Dialogs& dialogs)
    : dialogs_(dialogs),
      printer_([this](std::string_view screenName) { return view(screenName); }),
      program_(store, {plainPlatform().clock, &beeper_, &pointer_, &printer_, &help_}, this) {
  answerAssistiveTechnology();
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    dropFocus(now);
    moveMark(now);
    if (frame_ != nullptr && now != nullptr) frame_->confirm({});
  });
  // Qt's dialogs would write a settings file beside the store. A path below a file can't be created, which prevents
  // that.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

Desktop::~Desktop() {
  // mutation: disconnect(qApp, nul* -> nothing: nothing of it is seen while all goes
  disconnect(qApp, nullptr, this, nullptr);  // the focus moves from widget to widget while they are destroyed
  delete ring_;
}

void Desktop::start() { program_.start(); }

View* Desktop::view(std::string_view screenName) const {
  const Screen* screen = desk.find(screenName);
  const auto entry = views_.find(screen);
  return entry == views_.end() ? nullptr : entry->second.data();
}

void Desktop::shown(Screen& screen) {
  switch (screen.place()) {
    case Place::frame:
      frame_ = std::make_unique<Frame>(static_cast<MDIOpen&>(screen), dialogs_);
      views_[&screen] = frame_.get();
      help_.serve(*frame_);
      return frame_->show();
    case Place::document: return showDocument(screen);
    case Place::box: return showBox(screen);
  }
}

void Desktop::showDocument(Screen& screen) {
  frame_->tell({});
  if (views_.find(&screen) == views_.end()) {
    View* view = viewOf(screen).release();
    views_[&screen] = view;
    frame_->area().add(*view);
  }
  arrange();
}

/// Brings the active document to the front. It gets the keyboard focus after the act that opened it, because the act
/// may move the focus.
void Desktop::arrange() {
  if (frame_ == nullptr) return;
  frame_->area().arrange();
  frame_->markPage();
  const auto active = views_.find(desk.activeDocument());
  if (active == views_.end()) return;
  if (said_ != active->second) frame_->announce(text(active->first->title()));
  said_ = active->second;
  afterThisEvent(*this, [this] { giveKeyboard(); });
}

void Desktop::giveKeyboard() {
  const auto active = views_.find(desk.activeDocument());
  if (active == views_.end() || active->second == nullptr) return;
  View& view = *active->second;
  QWidget* kept = focusedWidget();
  if (kept != nullptr && kept->isVisible() && view.isAncestorOf(kept)) {
    kept->setFocus(Qt::ActiveWindowFocusReason);
  } else {
    view.takeKeyboard();
  }
}

/// Shows the focus ring, and scrolls the widget with the focus into view, unless a mouse button is pressed on it.
void Desktop::moveMark(QWidget* now) {
  const bool foreign = now == nullptr || now->window()->inherits("QFileDialog") ||
                       now->window()->inherits("QAbstractPrintDialog") || now->focusPolicy() == Qt::NoFocus ||
                       now->window()->windowType() == Qt::Popup;
  if (ring_ == nullptr) ring_ = new FocusRing;
  ring_->mark(foreign ? nullptr : now);
  if (foreign) return;
  for (QWidget* part = now->parentWidget(); part != nullptr; part = part->parentWidget()) {
    if (auto* view = dynamic_cast<View*>(part)) view->noteFocus(*now);
    auto* area = qobject_cast<QScrollArea*>(part);
    if (area == nullptr || QApplication::mouseButtons() != Qt::NoButton) continue;
    // mutation: look::row -> look::group: how far beyond it is chosen freely
    area->ensureWidgetVisible(now, look::row, look::row);
    const QPoint begin = now->mapTo(area->widget(), QPoint());  // the beginning of one that is too wide
    // mutation: 0 -> 1 and look::row -> look::group: how far beyond it is chosen freely
    area->ensureVisible(begin.x(), begin.y(), look::row, 0);
  }
}

/// The widget of the control that has the focus; null for none.
QWidget* Desktop::focusedWidget() const {
  const Control* control = desk.focused();
  if (control == nullptr) return nullptr;
  const auto entry = views_.find(&control->screen());
  return entry == views_.end() || entry->second == nullptr ? nullptr : entry->second->widgetOf(*control);
}

/// Notifies the model that a widget without a control has taken the keyboard focus. A view has the focus while no
/// control of its screen has it. The popup of a widget (the list of a drop-down) counts as the widget.
void Desktop::dropFocus(const QWidget* now) {
  if (now == nullptr || dynamic_cast<const View*>(now) != nullptr) return;
  const QWidget* owner = focusedWidget();
  for (const QWidget* part = now; part != nullptr; part = part->parentWidget()) {
    if (part == owner) return;
  }
  desk.dropFocus();
}

void Desktop::showBox(Screen& screen) {
  if (auto shown = boxes_.find(&screen); shown != boxes_.end()) {
    // mutation: shown->second->raise(); -> nothing: the offscreen platform has no order of windows, one style and no
    // letters of its own
    shown->second->raise();
    return shown->second->activateWindow();
  }
  auto* box = new QDialog(frame_.get());
  box->setWindowTitle(text(screen.title()));
  box->setPalette(look::onDeep());
  View* view = viewOf(screen).release();
  auto* layout = new QVBoxLayout(box);
  layout->setContentsMargins({});
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(view);
  views_[&screen] = view;
  boxes_[&screen] = box;
  // Closing the box by its window or by Escape is an act like any other.
  connect(box, &QDialog::rejected, this, [view] {
    if (Screen* closed = view->screen()) desk.userClose(*closed);
  });
  box->setModal(desk.blocked(MDIOpen::screenName));
  frame_->lendKeys(*box, {QKeySequence(Qt::CTRL | Qt::Key_Q)});
  if (box->isModal()) help_.serveBox(*box);
  box->show();
}

void Desktop::discarded(Screen& screen) {
  const auto entry = views_.find(&screen);
  if (entry == views_.end()) return;
  View* view = entry->second;
  views_.erase(entry);
  if (view != nullptr) view->release();
  if (screen.place() == Place::frame) {
    // mutation: frame_.release()->deleteLater(); -> nothing: the desktop takes the frame with it
    frame_.release()->deleteLater();
    return QApplication::quit();
  }
  QWidget* holder = view;
  if (const auto box = boxes_.find(&screen); box != boxes_.end()) {
    holder = box->second;
    help_.leave(*holder);
    boxes_.erase(box);
  } else if (view != nullptr) {
    while (holder->parentWidget() != nullptr && holder->parentWidget() != &frame_->area()) {
      holder = holder->parentWidget();
    }
  }
  // A button may close its own screen, so its widgets are deleted after the event. Hidden ones have no keys any more,
  // which would be ambiguous where the next screen has the same.
  if (holder != nullptr) {
    hideQuietly(*holder);
    holder->deleteLater();
  }
  afterThisEvent(*this, [this] { arrange(); });  // when the next document is active
}

void Desktop::focusMoved() {
  QWidget* widget = focusedWidget();
  if (widget != nullptr && widget->isVisible() && !widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
}

}  // namespace tallyfin::qt
