#include "ui/qt/frame/notice.h"

#include <QPainter>

namespace tallyfin::qt {

namespace {

constexpr int wrapped = static_cast<int>(Qt::AlignLeft) | Qt::TextWordWrap | Qt::TextWrapAnywhere;

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
  const QRect room(0, 0, std::max(1, width - 2 * margin()), 10000);
  return fontMetrics().boundingRect(room, wrapped, text()).height() + 2 * margin();
}

void Notice::resizeEvent(QResizeEvent* /*event*/) { setMinimumHeight(heightForWidth(width())); }

void Notice::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect().adjusted(margin(), margin(), -margin(), -margin()), wrapped, text());
}

}  // namespace tallyfin::qt
