#include "ui/qt/explanation/setline.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

double advance(QFont font, const char* words, bool bold = false) {
  font.setBold(bold);
  return QFontMetricsF(font).horizontalAdvance(QString::fromLatin1(words));
}

}  // namespace

SetLines setLines(const Form& form, const QFont& font, double width) {
  const FormLine* result = nullptr;
  double figures = 0;
  QFont bold = font;
  bold.setBold(true);
  for (const FormLine& line : form.lines) {
    if (line.number != 0) result = &line;
    figures = std::max(figures, advance(font, line.figure.c_str(), true));
  }
  SetLines set;
  for (const FormLine& line : form.lines) {
    set.push_back(std::make_unique<SetLine>(line, &line == result ? bold : font, width, figures));
  }
  return set;
}

SetLine::SetLine(const FormLine& line, const QFont& font, double width, double figures)
    : line_(line),
      font_(font),
      width_(width),
      left_(advance(font, "00.  ")),
      right_(width - figures),
      text_(std::make_unique<QTextLayout>(drawn(line.text()), font)) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  text_->setTextOption(option);
  const double gap = advance(font, ". . ");
  double top = 0;
  text_->beginLayout();
  for (QTextLine row = text_->createLine(); row.isValid(); row = text_->createLine()) {
    row.setLineWidth(std::max(gap, (line.number == 0 ? width_ : right_ - gap) - left_));
    row.setPosition({0, top});
    top += row.height();
  }
  text_->endLayout();
}

SetLine::~SetLine() = default;

double SetLine::height() const { return text_->boundingRect().height(); }

void SetLine::draw(QPainter& painter, QPointF place, const QColor& colour) const {
  painter.setPen(colour);
  text_->draw(&painter, place + QPointF(left_, 0));
  if (line_.number == 0) return;
  const QTextLine last = text_->lineAt(text_->lineCount() - 1);
  const QPointF bottom = place + QPointF(0, last.y() + last.ascent());
  painter.setFont(font_);
  painter.drawText(place + QPointF(0, last.ascent()), QString::number(line_.number));
  const QString figure = text(line_.figure);
  const double start = width_ - QFontMetricsF(font_).horizontalAdvance(figure);
  painter.drawText(bottom + QPointF(start, 0), figure);
  drawLeader(painter, bottom);
}

/// The dots of all lines are aligned.
void SetLine::drawLeader(QPainter& painter, QPointF place) const {
  const QTextLine last = text_->lineAt(text_->lineCount() - 1);
  const double step = advance(font_, ". ");
  const double from = left_ + last.naturalTextWidth() + step / 2;
  const double to = std::min(right_, width_ - QFontMetricsF(font_).horizontalAdvance(text(line_.figure)) - step);
  for (double x = std::ceil(from / step) * step; x + step / 2 < to; x += step) {
    painter.drawText(place + QPointF(x, 0), QStringLiteral("."));
  }
}

std::vector<int> SetLine::namedAt(QPointF point) const {
  point -= QPointF(left_, 0);
  for (int i = 0; i < text_->lineCount(); ++i) {
    const QTextLine row = text_->lineAt(i);
    if (!row.naturalTextRect().contains(point)) continue;
    int at = row.xToCursor(point.x(), QTextLine::CursorOnCharacter);
    for (const FormPart& part : line_.parts) {
      at -= static_cast<int>(text(part.text).size());
      if (at < 0) return part.lines;
    }
  }
  return {};
}

}  // namespace tallyfin::qt
