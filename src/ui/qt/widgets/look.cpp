#include "ui/qt/widgets/look.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QFrame>
#include <QPainter>
#include <QPixmapCache>
#include <QProxyStyle>
#include <QToolTip>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace tallyfin::qt::look {

namespace {

constexpr double normalPoints = 8.5;

QPalette paletteOf(const QColor& ground, const QColor& text, const QColor& button, const QColor& buttonText) {
  QPalette palette(button, ground);  // edges and shadows come from these, not from the desktop's theme
  const QColor faded = QColor::fromRgb((text.red() + ground.red()) / 2, (text.green() + ground.green()) / 2,
                                       (text.blue() + ground.blue()) / 2);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, light);
  palette.setColor(QPalette::AlternateBase, QColor(242, 242, 226));
  palette.setColor(QPalette::Text, ink);
  palette.setColor(QPalette::PlaceholderText, QColor(120, 120, 110));
  palette.setColor(QPalette::ButtonText, buttonText);
  palette.setColor(QPalette::Highlight, QColor(50, 98, 150));
  palette.setColor(QPalette::ToolTipBase, paper);
  palette.setColor(QPalette::ToolTipText, ink);
  palette.setColor(QPalette::Link, QColor(30, 80, 160));
  palette.setColor(QPalette::LinkVisited, QColor(90, 60, 130));
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faded);
  }
  palette.setColor(QPalette::Disabled, QPalette::Text, QColor(116, 116, 106));
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(225, 226, 214));
  return palette;
}

bool hasTabularDigits(const QFont& font) {
  const QFontMetricsF metrics(font);
  // mutation: "0123456789" -> "012345678_": the font has digits of one width already
  const QString digits = QStringLiteral("0123456789");
  return std::all_of(digits.begin(), digits.end(), [&](QChar digit) {
    return qFuzzyCompare(metrics.horizontalAdvance(digit), metrics.horizontalAdvance(digits.front()));
  });
}

/// Fusion style with paler icons for disabled buttons: they are blended with their background. Fusion blends with the
/// application's window colour, which makes them too bright on the dark background.
class Style : public QProxyStyle {
 public:
  // mutation: "Fusion" -> "Gusion": the offscreen platform has no order of windows, one style and no letters of its own
  Style() : QProxyStyle(QStringLiteral("Fusion")) {}

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override {
    switch (hint) {
      // A drop-down opens a list of some rows with an edge, not a popup as high as the display.
      case SH_ComboBox_Popup: return 0;
      case SH_ComboBox_PopupFrameStyle: return static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain);
      default: return QProxyStyle::styleHint(hint, option, widget, returned);
    }
  }

  QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const override {
    if (mode != QIcon::Disabled) return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    QPixmap faded(pixmap.size());
    faded.setDevicePixelRatio(pixmap.devicePixelRatio());
    faded.fill(Qt::transparent);
    QPainter painter(&faded);
    painter.setOpacity(0.4);
    painter.drawPixmap(0, 0, pixmap);
    return faded;
  }
};

}  // namespace

int scaled(int pixels) {
  return static_cast<int>(std::ceil(pixels * QApplication::font().pointSizeF() / normalPoints));
}

void apply(QApplication& application) {
  application.setStyle(new Style);
  applyFont(application, QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).pointSizeF());
  application.setPalette(onWhite());  // for Qt's dialogs; every window of the program sets its background
  QToolTip::setPalette(onPaper());
  // Qt caches rendered pixmaps under a key that contains the palette's serial number. The widgets of a screen get new
  // palettes each time they are created, so nothing would be found again, and the keys would never be freed.
  QPixmapCache::setCacheLimit(0);
}

void applyFont(QApplication& application, double systemPoints) {
  // Default sizes of desktops are up to 11 points; a larger size was set by the user and applies here too.
  QFont font(QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family());
  // mutation: 11.0 -> 11.1: the offscreen platform has no order of windows, one style and no letters of its own
  font.setPointSizeF(normalPoints * std::max(1.0, systemPoints / 11.0));
  application.setFont(font);
  // mutation: QToolTip::setFont(font); -> nothing: the offscreen platform has no order of windows, one style and no
  // letters of its own
  QToolTip::setFont(font);
}

QPalette onDeep() { return paletteOf(deep, light, deepLighter, light); }

QPalette onDeeper() { return paletteOf(deeper, light, deepLighter, light); }

QPalette mainAction() {
  QPalette palette;
  palette.setColor(QPalette::Button, lightYellow);
  palette.setColor(QPalette::ButtonText, ink);
  return palette;
}

QPalette choicesOnDeep() {
  QPalette palette = onDeep();
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Active, role, lightYellow);
    palette.setColor(QPalette::Inactive, role, lightYellow);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(122, 146, 152));
  palette.setColor(QPalette::Disabled, QPalette::Text, deep);
  return palette;
}

QPalette onPaper() { return paletteOf(paper, greyText, QColor(240, 236, 184), greyText); }

QPalette onWhite() { return paletteOf(Qt::white, Qt::black, QColor(238, 238, 232), Qt::black); }

QPalette lightFace() {
  QPalette palette;
  palette.setColor(QPalette::Button, light);
  palette.setColor(QPalette::ButtonText, ink);
  palette.setColor(QPalette::Disabled, QPalette::Button, QColor(196, 202, 196));
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(104, 108, 104));
  return palette;
}

QPalette onList() { return paletteOf(light, ink, light, ink); }

void setGround(QWidget& widget, const QPalette& palette) {
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

QWidget* rule(const QColor& colour, QWidget* parent, int thickness, Qt::Orientation orientation) {
  auto* line = new QWidget(parent);
  orientation == Qt::Horizontal ? line->setFixedHeight(thickness) : line->setFixedWidth(thickness);
  QPalette palette;
  palette.setColor(QPalette::Window, colour);
  setGround(*line, palette);
  return line;
}

void drawEdge(QPainter& painter, const QRect& place, const QColor& colour) {
  const QRect top(place.topLeft(), QSize(place.width(), 1));
  const QRect left(place.topLeft(), QSize(1, place.height()));
  const QRect sides[] = {top, left, top.translated(0, place.height() - 1), left.translated(place.width() - 1, 0)};
  for (const QRect& side : sides) painter.fillRect(side, colour);
}

QFont heading() {
  QFont font = QApplication::font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 10.0 / normalPoints);
  return font;
}

QFont figures() {
  QFont font = QApplication::font();
  // mutation: "DejaVu Sans" -> "EejaVu Sans" and if -> if not: the font has digits of one width already
  if (!hasTabularDigits(font)) font.setFamily(QStringLiteral("DejaVu Sans"));  // installed with the program
  return font;
}

QColor colour(Colour colour) { return {colour.red, colour.green, colour.blue}; }

QIcon picture(const QString& name) { return QIcon(QStringLiteral(":/pictures/") + name + QStringLiteral(".svg")); }

}  // namespace tallyfin::qt::look
