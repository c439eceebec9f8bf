#pragma once

#include <QImage>
#include <QWidget>

/// Pictures of widgets, read at the positions of the widgets: a picture has more pixels on displays with a device pixel
/// ratio above 1.

namespace tallyfin::qt {

inline QImage pictureOf(const QWidget& widget) { return const_cast<QWidget&>(widget).grab().toImage(); }

/// The pixels of a rectangle of the widget.
inline QRect pixelsOf(const QImage& picture, const QRect& place) {
  const double scale = picture.devicePixelRatio();
  const QRectF pixels(place.x() * scale, place.y() * scale, place.width() * scale, place.height() * scale);
  return pixels.toAlignedRect().intersected(picture.rect());
}

/// The colour in the middle of a position of the widget.
inline QColor colourAt(const QImage& picture, QPoint place) {
  const double scale = picture.devicePixelRatio();
  return picture.pixelColor(static_cast<int>((place.x() + 0.5) * scale), static_cast<int>((place.y() + 0.5) * scale));
}

}  // namespace tallyfin::qt
