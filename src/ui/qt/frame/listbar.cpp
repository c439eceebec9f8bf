#include "ui/qt/frame/listbar.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "controls/buttons.h"
#include "ui/qt/binding/binding.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

int listBarWidth() { return look::scaled(116); }

void BarButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

namespace {

/// The mark at the left end of the item, or group, of the page in front.
void drawHere(QPainter& painter, const QRect& place) {
  constexpr int thickness = 3;
  painter.fillRect(QRect(place.topLeft(), QSize(thickness, place.height())), look::lightYellow);
}

}  // namespace

GroupHeader::GroupHeader(const QString& caption, QWidget* parent) : BarButton(parent) {
  setText(caption);
  setObjectName(QStringLiteral("group ") + caption);
  setCheckable(true);
}

void GroupHeader::setHere(bool here) {
  here_ = here;
  update();
}

QSize GroupHeader::sizeHint() const { return {listBarWidth(), std::max(22, fontMetrics().height() + 8)}; }

void GroupHeader::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), isChecked() || underMouse() ? look::deepLighter : look::deep);
  painter.setPen(look::deepLine);
  painter.drawLine(rect().topLeft(), rect().topRight());
  if (here_ && !isChecked()) drawHere(painter, rect().adjusted(0, 1, 0, 0));
  if (hasFocus()) {
    painter.setPen(look::lightYellow);
    painter.drawRect(rect().adjusted(2, 2, -3, -3));
  }
  painter.setPen(isChecked() ? look::lightYellow : look::light);
  // mutation: look::row -> look::group: there is room
  painter.drawText(rect().adjusted(look::row, 0, -look::row, 0), Qt::AlignLeft | Qt::AlignVCenter, text());

  // The arrow: down for the open group, to the right for a closed one.
  const QPointF middle(width() - 12.0, height() / 2.0);
  QPolygonF mark;
  if (isChecked()) {
    mark << middle + QPointF(-4, -2) << middle + QPointF(4, -2) << middle + QPointF(0, 3);
  } else {
    mark << middle + QPointF(-2, -4) << middle + QPointF(3, 0) << middle + QPointF(-2, 4);
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(painter.pen().color());
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(mark);
}

ListBarButton::ListBarButton(QWidget* parent, const QString& pictureName) : BarButton(parent) {
  setIcon(look::picture(pictureName));
  // mutation: QSizePolicy::Fixed -> * and QSizePolicy::Preferred -> *: its width is what its items ask for
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  // mutation: policy.setHeightForWidth(true); -> nothing and true -> false: its width is what its items ask for
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QSize ListBarButton::sizeHint() const { return {listBarWidth(), heightForWidth(listBarWidth())}; }

void ListBarButton::setCurrent(bool current) {
  current_ = current;
  setAccessibleDescription(current ? QStringLiteral("The page in front") : QString());
  update();
}

int ListBarButton::heightForWidth(int width) const {
  const QRect words =
      // mutation: 0 -> 1 and 200 -> 201 and 8 -> 9 and Qt::AlignHCenter -> Qt::AlignLeft: it is measured for its
      // height, and none is as high
      fontMetrics().boundingRect(QRect(0, 0, width - 8, 200), Qt::AlignHCenter | Qt::TextWordWrap, text());
  return 24 + words.height() + 12;
}

void ListBarButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect inside = rect().adjusted(4, 1, -4, -1);
  if (current_) drawHere(painter, rect().adjusted(0, 1, 0, -1));
  if (highlighted || isDown()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(look::lightBlue);
    painter.drawRoundedRect(inside, 3, 3);
  }
  if (hasFocus()) {
    painter.setPen(QPen(look::lightYellow, 1));
    painter.drawRoundedRect(inside, 3, 3);
  }
  const QRect pictureRect(inside.center().x() - 11, inside.top() + 4, 22, 22);
  if (highlighted || isDown()) {
    // The light picture has no contrast on light blue, so its shape is drawn dark.
    QPixmap picture = icon().pixmap(pictureRect.size() * devicePixelRatio());
    {
      QPainter shape(&picture);
      shape.setCompositionMode(QPainter::CompositionMode_SourceIn);
      shape.fillRect(picture.rect(), look::deep);
    }
    painter.drawPixmap(pictureRect, picture);
  } else {
    icon().paint(&painter, pictureRect);
  }
  painter.setPen(highlighted || isDown() ? look::deep : current_ ? look::lightYellow : look::light);
  // mutation: 3 -> 4: there is room
  painter.drawText(QRect(4, pictureRect.bottom() + 3, width() - 8, height() - pictureRect.bottom() - 3),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text());
}

Binding& bind(ListBarButton& widget, ListBarItem& item) {
  auto* binding = new Binding(widget, item);
  widget.setText(text(item.caption()));
  binding->show = [&widget, &item] {
    widget.highlighted = item.highlighted();
    widget.update();
  };
  QObject::connect(&widget, &QAbstractButton::clicked, binding,
                   [binding, &item] { binding->act([&] { item.userClick(); }); });
  return *binding;
}

}  // namespace tallyfin::qt
