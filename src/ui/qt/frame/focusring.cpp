#include "ui/qt/frame/focusring.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>

#include "ui/qt/views/view.h"
#include "ui/qt/widgets/look.h"

namespace tallyfin::qt {

namespace {

constexpr int outside = 2;  ///< Distance from the widget in pixels.

/// The widget on which the ring is drawn: the page around the widget, or its scrolled part.
QWidget* groundOf(const QWidget& widget) {
  QWidget* ground = widget.parentWidget();
  while (ground != nullptr && !ground->isWindow() && dynamic_cast<View*>(ground) == nullptr) {
    const QWidget* above = ground->parentWidget();
    const auto* area = qobject_cast<const QAbstractScrollArea*>(above == nullptr ? nullptr : above->parentWidget());
    if (area != nullptr && area->viewport() == above) break;
    ground = ground->parentWidget();
  }
  return ground;
}

}  // namespace

void FocusRing::mark(QWidget* widget) {
  // mutation: != -> ==: a filter left behind puts the ring once more where it is
  for (QWidget* part = marked_; part != nullptr && part != parentWidget(); part = part->parentWidget()) {
    // mutation: part->removeEventFilter(this); -> nothing: a filter left behind puts the ring once more where it is
    part->removeEventFilter(this);
  }
  marked_ = widget;
  QWidget* ground = widget == nullptr ? nullptr : groundOf(*widget);
  if (ground == nullptr) return hide();
  setAttribute(Qt::WA_TransparentForMouseEvents);
  if (parentWidget() != ground) setParent(ground);
  for (QWidget* part = widget; part != ground; part = part->parentWidget()) part->installEventFilter(this);
  place();
}

void FocusRing::place() {
  if (marked_ == nullptr || !marked_->isVisible()) return hide();
  const QRect around(marked_->mapTo(parentWidget(), QPoint()), marked_->size());
  setGeometry(around.adjusted(-outside, -outside, outside, outside).intersected(parentWidget()->rect()));
  show();
}

bool FocusRing::eventFilter(QObject* /*watched*/, QEvent* event) {
  switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide: place(); break;
    default: break;
  }
  return false;
}

void FocusRing::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  look::drawEdge(painter, rect(), look::ink);
  look::drawEdge(painter, rect().adjusted(1, 1, -1, -1), look::lightYellow);
}

}  // namespace tallyfin::qt
