#pragma once

#include <QPaintDevice>
#include <QStringList>
#include <memory>

class QIcon;
class QImage;
class QWidget;

/// What is drawn, as words: the same on every machine, where pixels would differ by a shade.

namespace tallyfin::qt {

/// A ground that notes what is drawn on it, one line for each text, filled place, line and picture.
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

/// What a widget itself draws, without what lies in it.
QStringList drawnBy(QWidget& widget);

/// The name of the program's picture that looks so; "a picture" if it is none of them.
QString pictureName(const QImage& image);
QString pictureName(const QIcon& icon, QSize size);

/// "#rrggbb", with the opacity before it where it isn't full.
QString colourText(const QColor& colour);
QString fontText(const QFont& font);

}  // namespace tallyfin::qt
