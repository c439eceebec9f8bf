#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QString>

#include "controls/property.h"

class QApplication;
class QPainter;
class QRect;
class QWidget;

/// The look of the program: its own colours, fonts and measures, whatever the desktop's theme.

namespace tallyfin::qt::look {

inline const QColor deep{38, 70, 83};          ///< Background of the frame, the main screen and the tools.
inline const QColor deeper{26, 53, 65};        ///< Background of the state options, with contrast to their red.
inline const QColor deepLighter{52, 89, 103};  ///< Background of the open group's items.
inline const QColor deepLine{78, 114, 127};    ///< Hairlines on it.
inline const QColor light{252, 252, 240};      ///< Text on it, and the background of boxes, lists and grid.
inline const QColor ink{32, 40, 44};           ///< Text on a light background.
inline const QColor lightYellow{255, 255, 128};
inline const QColor lightBlue{192, 192, 255};
inline const QColor paper{255, 255, 204};      ///< Background of the worksheets.
inline const QColor paperLine{214, 210, 160};  ///< Hairlines on it.
inline const QColor greyText{64, 64, 64};      ///< Text on it.
inline const QColor lightEdge{150, 150, 120};  ///< For edges of boxes on a light background.

/// Spaces in pixels: between a label and its box, rows, groups, and at the edges.
inline constexpr int tight = 4;
inline constexpr int row = 8;
inline constexpr int group = 12;
inline constexpr int edge = 12;

/// A measure of a widget with text: pixels at the normal font, scaled for a larger one.
int scaled(int pixels);

/// Sets style, font and palette of the program, and turns off Qt's pixmap cache.
void apply(QApplication& application);

/// Sets the font of the program for a desktop with a font of that many points.
void applyFont(QApplication& application, double systemPoints);

/// Palettes for the three backgrounds.
QPalette onDeep();
QPalette onDeeper();
QPalette onPaper();
QPalette onWhite();

/// For the dark background, with option texts in light yellow.
QPalette choicesOnDeep();

/// A highlighted button: the main action of a screen.
QPalette mainAction();

/// For any background: a drop-down or button as light as the boxes.
QPalette lightFace();

/// The open list of a drop-down.
QPalette onList();

/// Sets the palette of a widget and paints its background.
void setGround(QWidget& widget, const QPalette& palette);

/// A horizontal or vertical line.
QWidget* rule(const QColor& colour, QWidget* parent, int thickness = 1, Qt::Orientation orientation = Qt::Horizontal);

/// The sides of a rectangle, inside it. Drawn as filled rectangles, because a pen may lose a side between whole pixels.
void drawEdge(QPainter& painter, const QRect& place, const QColor& colour);

/// The heading font: the program's font, bold, 10 points.
QFont heading();
/// A font with digits of equal width: the program's font if it has them.
QFont figures();

QColor colour(Colour colour);

/// A picture of the program by its file name without extension.
QIcon picture(const QString& name);

}  // namespace tallyfin::qt::look
