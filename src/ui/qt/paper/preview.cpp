#include "ui/qt/paper/preview.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "controls/output.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/paper/reportpage.h"
#include "ui/qt/widgets/look.h"

namespace tallyfin::qt {

namespace {

const QColor previewGround{128, 134, 137};

}  // namespace

/// The sheet of paper with its shadow.
class Preview::Sheet : public QWidget {
 public:
  static constexpr int around = 12;  ///< Margin around the paper, pixels.

  Sheet(const View& view, const PrintEngine& engine) : view_(view), engine_(engine) {
    setAccessibleName(QStringLiteral("Page"));
  }

  /// Shows a page at the engine's zoom.
  void showPage(int page) {
    page_ = page;
    const QSize paper = ReportPages::letter * engine_.zoom() / 100;
    setFixedSize(Frame::pixels(paper.width()) + 2 * around, Frame::pixels(paper.height()) + 2 * around);
    update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (view_.screen() == nullptr || page_ >= ReportPages(engine_).count()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect paper = rect().adjusted(around, around, -around, -around);
    for (int spread = 4; spread > 0; --spread) {
      painter.fillRect(paper.adjusted(0, 0, spread, spread).translated(1, 1), QColor(0, 0, 0, 24));
    }
    painter.fillRect(paper, Qt::white);
    painter.translate(paper.topLeft());
    painter.scale(paper.width() / static_cast<double>(ReportPages::letter.width()),
                  paper.height() / static_cast<double>(ReportPages::letter.height()));
    ReportPages(engine_).draw(painter, page_);
  }

 private:
  const View& view_;
  const PrintEngine& engine_;
  int page_ = 0;  // mutation: 0 -> 1: written before it is read
};

Preview::Preview(View& view, const PrintEngine& engine)
    : QScrollArea(&view), engine_(engine), sheet_(new Sheet(view, engine)) {
  presentAs(*this, QAccessible::Document);
  setAccessibleName(QStringLiteral("Preview of the report"));
  setFrameShape(QFrame::Box);
  setAlignment(Qt::AlignCenter);
  setWidget(sheet_);
  QPalette ground;
  ground.setColor(QPalette::Window, previewGround);
  look::setGround(*viewport(), ground);
  sheet_->setAutoFillBackground(false);
}

void Preview::turnTo(int page) {
  page_ = std::clamp(page, 0, std::max(0, pages() - 1));
  sheet_->showPage(page_);
  const QString before = std::exchange(text_, ReportPages(engine_).readable(page_));
  if (before != text_) tellReadable(*this, before, text_);
}

int Preview::pages() const { return ReportPages(engine_).count(); }

int Preview::fitting(bool whole) const {
  const QSize room = maximumViewportSize() - QSize(2 * Sheet::around, 2 * Sheet::around);
  const QSize paper(Frame::pixels(ReportPages::letter.width()), Frame::pixels(ReportPages::letter.height()));
  if (whole) return 100 * room.height() / paper.height();  // the height decides: the paper is higher than wide
  // A page of full width is higher than the space, so there is a scroll bar beside it.
  // mutation: 100 -> 101: a pixel wider, no text moves to another line
  return 100 * (room.width() - verticalScrollBar()->sizeHint().width()) / paper.width();
}

void Preview::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Home) return verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
  if (event->key() == Qt::Key_End) return verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
  QScrollArea::keyPressEvent(event);
}

bool Preview::event(QEvent* event) {
  const bool done = QScrollArea::event(event);
  if (event->type() == QEvent::Paint) {
    QPainter painter(this);
    painter.setPen(hasFocus() ? look::lightYellow : look::deepLine);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  return done;
}

}  // namespace tallyfin::qt
