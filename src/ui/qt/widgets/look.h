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

inline const QColor deep{38, 70, 83};          ///< Ground of the frame, the main screen and the tools.
inline const QColor deeper{26, 53, 65};        ///< Ground of the state options, on which their red stands out.
inline const QColor deepLighter{52, 89, 103};  ///< Ground of the open group's items.
inline const QColor deepLine{78, 114, 127};    ///< Hairlines on it.
inline const QColor light{252, 252, 240};      ///< Text on it, and the ground of boxes, lists and grid.
inline const QColor ink{32, 40, 44};           ///< Text on light ground.
inline const QColor lightYellow{255, 255, 128};
inline const QColor lightBlue{192, 192, 255};
inline const QColor paper{255, 255, 204};      ///< Ground of the worksheets.
inline const QColor paperLine{214, 210, 160};  ///< Hairlines on it.
inline const QColor greyText{64, 64, 64};      ///< Text on it.
inline const QColor lightEdge{150, 150, 120};  ///< What the style makes the edges of boxes on light ground from.

/// Spaces in pixels: between a label and its box, rows, groups, and at the edges.
inline constexpr int tight = 4;
inline constexpr int row = 8;
inline constexpr int group = 12;
inline constexpr int edge = 12;

/// A measure of something that holds text: pixels at the normal font, more at a larger one.
int scaled(int pixels);

/// Sets style, font and palette of the whole program, and that the toolkit keeps no drawn pixmaps.
void apply(QApplication& application);

/// Sets the font of the whole program for a desktop whose own has so many points.
void applyFont(QApplication& application, double systemPoints);

/// Palettes for the three grounds.
QPalette onDeep();
QPalette onDeeper();
QPalette onPaper();
QPalette onWhite();

/// On the deep ground, with option texts in light yellow.
QPalette choicesOnDeep();

/// A button that stands out from the others: the main action of a screen.
QPalette mainAction();

/// Over any ground: a drop-down or button with a face as light as the boxes.
QPalette lightFace();

/// The open list of a drop-down.
QPalette onList();

/// Gives a widget its palette and paints its ground.
void setGround(QWidget& widget, const QPalette& palette);

/// A line across its place, or up and down it.
QWidget* rule(const QColor& colour, QWidget* parent, int thickness = 1, Qt::Orientation orientation = Qt::Horizontal);

/// The sides of a rectangle, inside it. Filled, because a pen may lose a side between whole pixels.
void drawEdge(QPainter& painter, const QRect& place, const QColor& colour);

/// The heading font: the program's own, bold, 10 points.
QFont heading();
/// A font with digits of one width: the program's own where it has them.
QFont figures();

QColor colour(Colour colour);

/// A picture of the program by its file name without the ending.
QIcon picture(const QString& name);

}  // namespace tallyfin::qt::look
