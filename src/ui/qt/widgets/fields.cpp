#include "ui/qt/widgets/fields.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolTip>

#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

Box::Box(QWidget* parent) : QLineEdit(parent) {
  connect(this, &QLineEdit::textChanged, this, [this] {
    if (!hasFocus()) setCursorPosition(0);
  });
}

bool Box::cut() const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  const QRect room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).marginsRemoved(textMargins());
  constexpr int blank = 4;  // the style's margin beside a text
  return fontMetrics().horizontalAdvance(text()) > room.width() - blank;
}

bool Box::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !cut()) return QLineEdit::event(event);
  // As markup a tooltip wraps. Without escapes a text with tags would be markup too.
  QString words = QStringLiteral("<span>%1</span>").arg(drawn(text()).toHtmlEscaped());
  if (!toolTip().isEmpty()) words += QStringLiteral("<br>") + toolTip().toHtmlEscaped();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), words, this);
  return true;
}

void Box::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() != Qt::ActiveWindowFocusReason) return;
  setCursorPosition(left_.cursor);
  if (left_.selectionStart >= 0) setSelection(left_.selectionStart, left_.selectionLength);
}

void Box::focusOutEvent(QFocusEvent* event) {
  left_ = {cursorPosition(), selectionStart(), selectionLength()};
  QLineEdit::focusOutEvent(event);
  const bool comesBack = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
  if (!comesBack) setCursorPosition(0);
}

namespace {

constexpr int offEdge = 2;

}  // namespace

FramedList::FramedList(QWidget* parent) : QListWidget(parent) {
  setFrameShape(QFrame::NoFrame);
  setViewportMargins(offEdge, offEdge, offEdge, offEdge);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

void FramedList::setRows(int rows) {
  rows_ = rows;
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  updateGeometry();
}

QSize FramedList::sizeHint() const {
  if (rows_ == 0) return QListWidget::sizeHint();
  int height = 2 * offEdge;
  int width = 0;
  for (int row = 0; row < rows_; ++row) {
    const QSize item = sizeHintForIndex(model()->index(row, 0));
    height += item.height();
    width = std::max(width, item.width());
  }
  return {width + 2 * offEdge, height};
}

QSize FramedList::minimumSizeHint() const { return rows_ == 0 ? QListWidget::minimumSizeHint() : sizeHint(); }

bool FramedList::event(QEvent* event) {
  const bool done = QListWidget::event(event);
  if (event->type() == QEvent::Paint) {
    QPainter painter(this);
    look::drawEdge(painter, rect(), palette().color(QPalette::WindowText));
  }
  return done;
}

}  // namespace tallyfin::qt
