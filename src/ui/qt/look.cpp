#include "ui/qt/look.h"

#include <QApplication>
#include <QFontDatabase>
#include <QStyleFactory>
#include <QWidget>

namespace tallyfin::qt::look {

namespace {

QPalette paletteOf(const QColor& ground, const QColor& text, const QColor& button, const QColor& buttonText) {
  QPalette palette;
  const QColor faded = QColor::fromRgb((text.red() + 2 * ground.red()) / 3, (text.green() + 2 * ground.green()) / 3,
                                       (text.blue() + 2 * ground.blue()) / 3);
  palette.setColor(QPalette::Window, ground);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, light);
  palette.setColor(QPalette::AlternateBase, QColor(242, 242, 226));
  palette.setColor(QPalette::Text, ink);
  palette.setColor(QPalette::PlaceholderText, QColor(120, 120, 110));
  palette.setColor(QPalette::Button, button);
  palette.setColor(QPalette::ButtonText, buttonText);
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::Highlight, QColor(58, 110, 165));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, paper);
  palette.setColor(QPalette::ToolTipText, ink);
  palette.setColor(QPalette::Link, QColor(30, 80, 160));
  palette.setColor(QPalette::LinkVisited, QColor(90, 60, 130));
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faded);
  }
  palette.setColor(QPalette::Disabled, QPalette::Text, QColor(150, 150, 140));
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(225, 226, 214));
  return palette;
}

}  // namespace

void apply(QApplication& application) {
  application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  font.setPointSizeF(std::max(8.5, font.pointSizeF() * 8.5 / 10.0));
  application.setFont(font);
  application.setPalette(onDeep());
}

QPalette onDeep() { return paletteOf(deep, light, deepLighter, light); }

QPalette onPaper() { return paletteOf(paper, greyText, QColor(240, 236, 184), greyText); }

QPalette onWhite() { return paletteOf(Qt::white, Qt::black, QColor(238, 238, 232), Qt::black); }

void setGround(QWidget& widget, const QPalette& palette) {
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

QFont heading() {
  QFont font = QApplication::font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 10.0 / 8.5);
  return font;
}

QFont figures() {
  QFont font = QApplication::font();
  font.setStyleStrategy(QFont::PreferAntialias);
  return font;
}

int atFont(int pixels) { return qRound(pixels * QApplication::font().pointSizeF() / 8.5); }

QColor colour(Colour colour) { return {colour.red, colour.green, colour.blue}; }

QIcon picture(const QString& name) { return QIcon(QStringLiteral(":/pictures/") + name + QStringLiteral(".svg")); }

}  // namespace tallyfin::qt::look
