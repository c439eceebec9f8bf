#include "ui/qt/frame/notice.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace tallyfin::qt {

namespace {

QTextOption wrapped() {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  return option;
}

}  // namespace

Notice::Notice(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("notice"));
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  hide();
}

void Notice::tell(const QString& words) {
  setText(words);
  setMinimumHeight(heightForWidth(width()));
  setVisible(!words.isEmpty());
}

QSize Notice::sizeHint() const { return {width(), heightForWidth(width())}; }

QSize Notice::minimumSizeHint() const { return {0, fontMetrics().height() + 2 * margin()}; }

int Notice::heightForWidth(int width) const {
  QTextLayout layout(text(), font());
  layout.setTextOption(wrapped());
  double height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(std::max(1, width - 2 * margin()));
    height += line.height();
  }
  layout.endLayout();
  return static_cast<int>(std::ceil(height)) + 2 * margin();
}

void Notice::resizeEvent(QResizeEvent* /*event*/) { setMinimumHeight(heightForWidth(width())); }

void Notice::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(QRectF(rect().adjusted(margin(), margin(), -margin(), -margin())), text(), wrapped());
}

}  // namespace tallyfin::qt
