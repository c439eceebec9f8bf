#pragma once

#include <QFont>
#include <QPointF>
#include <QString>
#include <memory>
#include <vector>

#include "explain/form.h"

class QColor;
class QPainter;
class QTextLayout;

namespace tallyfin::qt {

class SetLine;
using SetLines = std::vector<std::unique_ptr<SetLine>>;

/// Sets the lines of a form in a width, the result in bold. They refer to the form.
SetLines setLines(const Form& form, const QFont& font, double width);

/// A line of a form as tax forms print it: the number in the margin, the text, a dotted leader, the figure in a column
/// at the right. Its unit is that of the font.
class SetLine {
 public:
  SetLine(const FormLine& line, const QFont& font, double width, double figures);
  ~SetLine();
  SetLine(const SetLine&) = delete;
  SetLine& operator=(const SetLine&) = delete;

  double height() const;
  void draw(QPainter& painter, QPointF place, const QColor& colour) const;

  /// The lines that the text at a point, relative to the place, refers to: "line 4".
  std::vector<int> namedAt(QPointF point) const;

 private:
  void drawLeader(QPainter& painter, QPointF place) const;

  const FormLine& line_;
  QFont font_;
  double width_;
  double left_;   ///< The left end of the text.
  double right_;  ///< The left end of the column of figures.
  std::unique_ptr<QTextLayout> text_;
};

}  // namespace tallyfin::qt
