#include "ui/qt/views/pages.h"

#include <QApplication>
#include <QCursor>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "controls/texts.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/binding/afterevent.h"
#include "ui/qt/frame/frame.h"

namespace tallyfin::qt {

namespace {

/// Sends the leave event to a widget that has moved away from the pointer: Qt sends it only when the pointer moves.
void leaveBehind(QWidget& widget) {
  if (!widget.underMouse()) return;
  afterThisEvent(widget, [&widget] {
    if (widget.rect().contains(widget.mapFromGlobal(QCursor::pos()))) return;
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&widget, &leave);
  });
}

}  // namespace

class PagedView::Part : public QWidget, public Turnable {
 public:
  using QWidget::QWidget;

  bool inView() const override { return inView_; }
  void setInView(bool inView) {
    if (inView == std::exchange(inView_, inView)) return;
    QAccessibleEvent event(this, inView ? QAccessible::ObjectShow : QAccessible::ObjectHide);
    QAccessible::updateAccessibility(&event);
  }

 private:
  bool inView_ = true;
};

PagedView::PagedView(Screen& screen) : ScreenView(screen), pages_(new QVBoxLayout) {}

QVBoxLayout* PagedView::page(Panel& panel, const QString& name) {
  auto* widget = new Part(this);
  auto* column = new QVBoxLayout(widget);
  column->setContentsMargins({});
  widget->setAccessibleName(name);
  Binding& binding = bindPlain(*widget, panel);
  all_.push_back({widget, &panel, name});
  binding.show = [this, number = all_.size() - 1] { place(all_[number]); };
  tied(widget, binding);
  return column;
}

void PagedView::levelPages(int width) {
  int height = 0;  // mutation: 0 -> 1: the raise is the higher page
  for (const Page& page : all_) height = std::max(height, page.widget->heightForWidth(width));
  for (const Page& page : all_) page.widget->setMinimumHeight(height);
}

/// For a control on a page that is out of view, the accessible description ends with the title of that page.
void PagedView::place(const Page& page) {
  if (screen() == nullptr) return;
  Part& widget = *page.widget;
  const bool inSight = page.panel->inSight();
  widget.setInView(inSight);
  if (!inSight) {
    pages_->removeWidget(&widget);
    const int width = std::max(room_.width(), widget.minimumSizeHint().width());
    const int height = std::max(room_.height(), widget.heightForWidth(width));
    const int left = std::min(Frame::pixels(page.panel->left), -width);
    widget.setGeometry(left, Frame::pixels(page.panel->top), width, height);
  } else if (pages_->indexOf(&widget) < 0) {
    pages_->addWidget(&widget);
    if (auto* frame = dynamic_cast<Frame*>(window())) frame->announce(page.name);
  }
  const QString remark = QStringLiteral(" (%1, out of view)").arg(page.name);
  for (QWidget* part : widget.findChildren<QWidget*>()) {
    leaveBehind(*part);
    if (part->focusPolicy() == Qt::NoFocus) continue;
    const QString words = part->accessibleDescription().remove(remark);
    part->setAccessibleDescription(inSight ? words : words + remark);
  }
}

void PagedView::resizeEvent(QResizeEvent* /*event*/) {
  room_ = pages_->contentsRect().size();  // read here, because each change invalidates the layout
  for (const Page& page : all_) place(page);
}

}  // namespace tallyfin::qt
