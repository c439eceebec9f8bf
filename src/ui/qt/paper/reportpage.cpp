#include "ui/qt/paper/reportpage.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

#include "controls/output.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

// Measures in twips, 1440 an inch and 20 a point.
constexpr int inch = 1440;
constexpr int point = 20;
constexpr int margin = inch;
constexpr int headerTop = 3 * inch / 4;
constexpr int headerLines = 3;
constexpr int headerToTable = 3 * inch / 10;
constexpr int cellPadding = 80;

const QColor lightRule{205, 212, 214};
const QColor headingGround{226, 233, 235};
const QColor totalGround{243, 246, 246};

/// The font of the report.
QFont engineFont(const PrintEngine& engine) {
  QFont font = paperFont(engine.fontPoints(), engine.bold());
  font.setItalic(engine.italic());
  return font;
}

int lineHeight(const QFont& font) { return qRound(QFontMetricsF(font).height()); }

/// Breaks a text into lines, and words that are wider than a line.
std::vector<QString> linesOf(const QString& words, const QFont& font, int width) {
  QTextLayout layout(words, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  std::vector<QString> lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    lines.push_back(words.mid(line.textStart(), line.textLength()));
  }
  return lines;
}

/// The header in its lines. The middle of a long name is left out, so that the date fits.
std::vector<QString> headerOf(const QString& header, const QFont& font, int width) {
  std::vector<QString> lines = linesOf(header, font, width);
  for (double room = headerLines; lines.size() > headerLines; room -= 0.25) {
    lines = linesOf(QFontMetricsF(font).elidedText(header, Qt::ElideMiddle, room * width), font, width);
  }
  return lines;
}

/// A text in its cell. A figure that is wider than its cell extends to the left.
void drawCell(QPainter& painter, const QRect& cell, const QString& words, bool rightAligned) {
  const auto side = rightAligned ? Qt::AlignRight : Qt::AlignLeft;
  const int flags = static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip;
  painter.drawText(cell.adjusted(cellPadding, 0, -cellPadding, 0), flags, words);
}

}  // namespace

QFont paperFont(int points, bool bold) {
  QFont font = QApplication::font();
  font.setPixelSize(points * point);
  font.setBold(bold);
  // mutation: font.setHintingPrefe* -> nothing: a pixel or so moves no word
  font.setHintingPreference(QFont::PreferNoHinting);
  // A little letter spacing prevents ligatures, so that the text of a PDF file can be searched.
  font.setLetterSpacing(QFont::AbsoluteSpacing, 0.05);  // mutation: 0.05 -> 0.06: a pixel or so moves no word
  return font;
}

std::optional<QSize> beginPages(QPagedPaintDevice& device, QPainter& painter) {
  QPageLayout layout = device.pageLayout();
  layout.setMode(QPageLayout::FullPageMode);
  device.setPageLayout(layout);
  if (!painter.begin(&device)) return std::nullopt;
  painter.scale(device.logicalDpiX() / static_cast<double>(inch), device.logicalDpiY() / static_cast<double>(inch));
  return (layout.fullRect(QPageLayout::Point).size() * point).toSize();
}

ReportPages::ReportPages(const PrintEngine& engine, QSize page) : engine_(engine), page_(page) {}

int ReportPages::textWidth() const { return page_.width() - 2 * margin; }

int ReportPages::rowHeight() const { return lineHeight(engineFont(engine_)) * 13 / 10; }

QRect ReportPages::tableArea() const {
  const QFont font = engineFont(engine_);
  const auto lines = static_cast<int>(headerOf(drawn(engine_.header()), font, textWidth()).size());
  const int top = std::max(headerTop + lines * lineHeight(font) + headerToTable, margin);
  return {margin, top, textWidth(), page_.height() - margin - top};
}

// mutation: 1 -> 2: the results have twelve rows
int ReportPages::rowsOfPage() const { return std::max(1, tableArea().height() / rowHeight() - 1); }

/// A page ends one row earlier where its last row would be a heading.
std::vector<std::size_t> ReportPages::starts() const {
  const auto& cells = engine_.cells();
  std::vector<std::size_t> starts{1};
  while (cells.size() > starts.back() + static_cast<std::size_t>(rowsOfPage())) {
    std::size_t next = starts.back() + static_cast<std::size_t>(rowsOfPage());
    if (next > starts.back() + 1 && engine_.kinds()[next - 1] == RowKind::group) --next;
    starts.push_back(next);
  }
  return starts;
}

ReportPages::Rows ReportPages::rowsOf(int page) const {
  const auto all = starts();
  const auto index = static_cast<std::size_t>(page);
  return {all.at(index), index + 1 < all.size() ? all[index + 1] : engine_.cells().size()};
}

int ReportPages::count() const { return engine_.pages() == 0 ? 0 : static_cast<int>(starts().size()); }

QString ReportPages::readable(int page) const {
  if (page < 0 || page >= count()) return {};
  const Rows rows = rowsOf(page);
  QStringList lines{drawn(engine_.header()).trimmed()};
  const auto addRow = [&](const PrintEngine::Cells& cells) {
    QStringList words;
    for (const std::string& cell : cells) words << text(cell).trimmed();
    lines << words.join(QLatin1Char('\t'));
  };
  if (!engine_.cells().empty()) addRow(engine_.cells().front());
  for (std::size_t row = rows.first; row < rows.end; ++row) addRow(engine_.cells()[row]);
  lines << text(engine_.footer()).trimmed();
  return lines.join(QLatin1Char('\n'));
}

void ReportPages::draw(QPainter& painter, int page) const {
  painter.setPen(Qt::black);
  painter.setFont(engineFont(engine_));
  drawHeader(painter);
  drawTable(painter, page);
  drawFooter(painter);
}

void ReportPages::drawHeader(QPainter& painter) const {
  const QFont font = engineFont(engine_);
  int top = headerTop;
  for (const QString& line : headerOf(drawn(engine_.header()), font, textWidth())) {
    painter.drawText(QRect(margin, top, textWidth(), lineHeight(font)), Qt::AlignLeft | Qt::TextSingleLine, line);
    top += lineHeight(font);
  }
  painter.fillRect(QRect(margin, top + 60, textWidth(), 15), look::deep);
}

void ReportPages::drawFooter(QPainter& painter) const {
  const int top = page_.height() - margin + inch / 5;
  painter.fillRect(QRect(margin, top, textWidth(), 10), lightRule);
  // mutation: 4 -> 5: there is room
  painter.drawText(QRect(margin, top + 60, textWidth(), inch / 4), Qt::AlignHCenter | Qt::TextSingleLine,
                   text(engine_.footer()));
}

void ReportPages::drawTable(QPainter& painter, int page) const {
  if (engine_.cells().empty()) return;
  const Rows rows = rowsOf(page);
  int top = drawRow(painter, 0, tableArea().top());
  for (std::size_t row = rows.first; row < rows.end; ++row) top = drawRow(painter, row, top);
}

int ReportPages::drawRow(QPainter& painter, std::size_t row, int top) const {
  const PrintEngine::Cells& cells = engine_.cells()[row];
  int width = 0;
  for (const PrintColumn& column : engine_.columns()) width += column.width;
  const QRect place(margin, top, width, rowHeight());

  const RowKind kind = engine_.kinds()[row];
  const bool heading = kind == RowKind::heading;
  const bool total = kind == RowKind::total;
  const int thickness = heading || total ? 15 : 10;
  if (heading || total) {
    // The background doesn't cover the rule of the row above.
    painter.fillRect(place.adjusted(0, thickness, 0, 0), heading ? headingGround : totalGround);
  }
  int left = place.left();
  for (std::size_t column = 0; column < cells.size(); ++column) {
    const PrintColumn& shape = engine_.columns()[column];
    drawCell(painter, {left, top, shape.width, place.height()}, text(cells[column]), shape.rightAligned);
    left += shape.width;
  }
  if (kind != RowKind::blank) {
    painter.fillRect(QRect(place.left(), place.bottom() + 1 - thickness, width, thickness),
                     heading || total ? look::deep : lightRule);
  }
  return top + place.height();
}

bool drawReport(QPagedPaintDevice& device, const PrintEngine& engine) {
  QPainter painter;
  if (engine.pages() == 0) return false;
  const std::optional<QSize> paper = beginPages(device, painter);
  if (!paper) return false;
  const ReportPages pages(engine, *paper);
  for (int page = 0; page < pages.count(); ++page) {
    if (page > 0 && !device.newPage()) return false;  // mutation: false -> true: the printer's state says so too
    pages.draw(painter, page);
  }
  return painter.end();
}

}  // namespace tallyfin::qt
