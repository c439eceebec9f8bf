#pragma once

#include <QPaintDevice>
#include <QStringList>
#include <memory>

class QIcon;
class QImage;
class QWidget;

/// Drawing operations as text: the same on every computer, where pixels would differ slightly.

namespace tallyfin::qt {

/// A paint device that records one line for each text, filled area, line and picture.
class PaintLog : public QPaintDevice {
 public:
  explicit PaintLog(QSize size);
  ~PaintLog() override;

  QPaintEngine* paintEngine() const override;
  const QStringList& lines() const;

 protected:
  int metric(PaintDeviceMetric metric) const override;

 private:
  class Engine;
  QSize size_;
  std::unique_ptr<Engine> engine_;
};

/// The drawing of a widget without its children.
QStringList drawnBy(QWidget& widget);

/// The name of the program's picture that is equal; "a picture" for any other.
QString pictureName(const QImage& image);
QString pictureName(const QIcon& icon, QSize size);

/// "#rrggbb", with the opacity before it where it isn't full.
QString colourText(const QColor& colour);
QString fontText(const QFont& font);

}  // namespace tallyfin::qt
