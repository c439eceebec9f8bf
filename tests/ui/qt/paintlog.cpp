#include "paintlog.h"

#include <QDir>
#include <QIcon>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>
#include <map>

namespace tallyfin::qt {

namespace {

QString rounded(double value) {
  const QString text = QString::number(value, 'f', 1);
  return text.endsWith(QLatin1String(".0")) ? text.chopped(2) : text;
}

QString pointText(QPointF point) { return rounded(point.x() + 0.0) + QLatin1Char(',') + rounded(point.y() + 0.0); }

QString rectText(const QRectF& rect) {
  return pointText(rect.topLeft()) + QLatin1Char(' ') + rounded(rect.width()) + QLatin1Char('x') +
         rounded(rect.height());
}

/// All pictures of the program at a size.
const std::map<QString, QImage>& pictures(QSize size) {
  static std::map<std::pair<int, int>, std::map<QString, QImage>> known;
  auto& ofSize = known[{size.width(), size.height()}];
  if (!ofSize.empty()) return ofSize;
  const QDir folder(QStringLiteral(":/pictures"));
  for (const QString& file : folder.entryList()) {
    const QIcon icon(folder.filePath(file));
    ofSize[file.chopped(4)] = icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  }
  return ofSize;
}

}  // namespace

QString colourText(const QColor& colour) {
  return colour.name(colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
}

QString fontText(const QFont& font) {
  const bool inPixels = font.pixelSize() > 0;
  QString words =
      font.family() + QLatin1Char(' ') +
      (inPixels ? QStringLiteral("%1px").arg(font.pixelSize()) : QString::number(font.pointSizeF(), 'f', 2));
  if (font.bold()) words += QStringLiteral(" bold");
  if (font.italic()) words += QStringLiteral(" italic");
  if (font.underline()) words += QStringLiteral(" underlined");
  if (font.letterSpacing() != 0) words += QStringLiteral(" spaced %1").arg(font.letterSpacing());
  return words;
}

QString pictureName(const QImage& image) {
  const QImage wanted = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  for (const auto& [name, picture] : pictures(image.size())) {
    if (picture == wanted) return name;
  }
  return QStringLiteral("a picture");
}

QString pictureName(const QIcon& icon, QSize size) { return pictureName(icon.pixmap(size).toImage()); }

class PaintLog::Engine : public QPaintEngine {
 public:
  Engine() : QPaintEngine(AllFeatures) {}

  bool begin(QPaintDevice* /*device*/) override { return true; }
  bool end() override { return true; }
  Type type() const override { return User; }
  void updateState(const QPaintEngineState& /*state*/) override {}

  void drawRects(const QRectF* rects, int count) override {
    for (int i = 0; i < count; ++i) note(QStringLiteral("box %1").arg(rectText(at(rects[i]))) + inks());
  }
  void drawRects(const QRect* rects, int count) override {
    for (int i = 0; i < count; ++i) note(QStringLiteral("box %1").arg(rectText(at(QRectF(rects[i])))) + inks());
  }
  void drawLines(const QLineF* strokes, int count) override {
    for (int i = 0; i < count; ++i) {
      note(QStringLiteral("line %1 to %2").arg(pointText(at(strokes[i].p1())), pointText(at(strokes[i].p2()))) +
           inks());
    }
  }
  void drawLines(const QLine* strokes, int count) override {
    for (int i = 0; i < count; ++i) {
      const QLineF line(strokes[i]);
      drawLines(&line, 1);
    }
  }
  void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
    QString words = mode == PolylineMode ? QStringLiteral("stroke") : QStringLiteral("polygon");
    for (int i = 0; i < count; ++i) words += QLatin1Char(' ') + pointText(at(points[i]));
    note(words + inks());
  }
  void drawPolygon(const QPoint* points, int count, PolygonDrawMode mode) override {
    QList<QPointF> exact;
    for (int i = 0; i < count; ++i) exact << points[i];
    drawPolygon(exact.data(), count, mode);
  }
  void drawEllipse(const QRectF& rect) override { note(QStringLiteral("ellipse %1").arg(rectText(at(rect))) + inks()); }
  void drawEllipse(const QRect& rect) override { drawEllipse(QRectF(rect)); }
  void drawPath(const QPainterPath& path) override {
    note(QStringLiteral("outline %1 of %2 parts").arg(rectText(at(path.boundingRect()))).arg(path.elementCount()) +
         inks());
  }
  void drawTextItem(const QPointF& base, const QTextItem& item) override {
    QString words = item.text();
    note(QStringLiteral("text %1 \"%2\" %3 %4")
             .arg(pointText(at(base)), words.replace('\n', QLatin1String("\\n")), colourText(painter()->pen().color()),
                  fontText(item.font())));
  }
  void drawPixmap(const QRectF& rect, const QPixmap& pixmap, const QRectF& /*from*/) override {
    note(QStringLiteral("%1 %2").arg(pictureName(pixmap.toImage()), rectText(at(rect))));
  }
  void drawTiledPixmap(const QRectF& rect, const QPixmap& /*pixmap*/, const QPointF& /*from*/) override {
    note(QStringLiteral("pattern %1").arg(rectText(at(rect))));
  }
  void drawImage(const QRectF& rect, const QImage& image, const QRectF& /*from*/,
                 Qt::ImageConversionFlags /*flags*/) override {
    note(QStringLiteral("%1 %2").arg(pictureName(image), rectText(at(rect))));
  }

  QStringList lines;

 private:
  template <class Shape>
  Shape at(const Shape& shape) const {
    if constexpr (std::is_same_v<Shape, QRectF>) {
      return painter()->deviceTransform().mapRect(shape);
    } else {
      return painter()->deviceTransform().map(shape);
    }
  }

  QString inks() const {
    QString words;
    const QPen& pen = painter()->pen();
    const QBrush& brush = painter()->brush();
    if (brush.style() == Qt::SolidPattern) {
      words += QStringLiteral(" filled %1").arg(colourText(brush.color()));
    } else if (brush.style() != Qt::NoBrush) {
      words += QStringLiteral(" filled by a pattern");
    }
    if (pen.style() != Qt::NoPen) words += QStringLiteral(" drawn %1").arg(colourText(pen.color()));
    if (pen.style() != Qt::NoPen && pen.widthF() > 1) words += QStringLiteral(" %1 wide").arg(pen.widthF());
    return words;
  }

  void note(const QString& words) { lines << words; }
};

PaintLog::PaintLog(QSize size) : size_(size), engine_(std::make_unique<Engine>()) {}

PaintLog::~PaintLog() = default;

QPaintEngine* PaintLog::paintEngine() const { return engine_.get(); }

const QStringList& PaintLog::lines() const { return engine_->lines; }

int PaintLog::metric(PaintDeviceMetric metric) const {
  switch (metric) {
    case PdmWidth: return size_.width();
    case PdmHeight: return size_.height();
    case PdmWidthMM: return size_.width() * 254 / 960;
    case PdmHeightMM: return size_.height() * 254 / 960;
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY: return 96;
    case PdmDepth: return 32;
    case PdmDevicePixelRatio: return 1;
    default: return QPaintDevice::metric(metric);
  }
}

QStringList drawnBy(QWidget& widget) {
  PaintLog log(widget.size());
  QPainter painter(&log);
  widget.render(&painter, QPoint(), QRegion(), {});
  painter.end();
  return log.lines();
}

}  // namespace tallyfin::qt
