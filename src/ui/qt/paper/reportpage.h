#pragma once

#include <QFont>
#include <QSize>
#include <QString>
#include <optional>
#include <vector>

class QPagedPaintDevice;
class QPainter;
class QRect;

namespace tallyfin {
class PrintEngine;
}

namespace tallyfin::qt {

/// The program's font on paper, in a painter whose unit is a twip.
QFont paperFont(int points, bool bold = false);

/// Begins to paint on the whole paper, in twips, and returns its size; none where painting fails.
std::optional<QSize> beginPages(QPagedPaintDevice& device, QPainter& painter);

/// The pages of the report: header, table, footer, in twips. Preview, printer and PDF file use the same drawing. A long
/// table continues on the next page, below its heading row.
class ReportPages {
 public:
  /// A Letter page.
  static constexpr QSize letter{12240, 15840};

  explicit ReportPages(const PrintEngine& engine, QSize page = letter);

  /// 0 before a document has been made.
  int count() const;
  /// The text of a page, counted from 0: one line for each row, with tabs between cells.
  QString readable(int page) const;
  /// Draws a page, counted from 0. The painter's unit is a twip, its origin the paper's upper left corner.
  void draw(QPainter& painter, int page) const;

 private:
  int textWidth() const;
  int rowHeight() const;
  /// Rows of a page without the heading row.
  int rowsOfPage() const;
  /// The first row of each page.
  std::vector<std::size_t> starts() const;
  /// The range of rows of a page; the end is exclusive.
  struct Rows {
    std::size_t first;
    std::size_t end;
  };
  Rows rowsOf(int page) const;
  QRect tableArea() const;
  void drawHeader(QPainter& painter) const;
  void drawFooter(QPainter& painter) const;
  void drawTable(QPainter& painter, int page) const;
  /// Returns the lower end of the row.
  int drawRow(QPainter& painter, std::size_t row, int top) const;

  const PrintEngine& engine_;
  QSize page_;
};

/// Draws the report on a printer or into a file, on paper of any size. False where painting fails, or there is no
/// report.
bool drawReport(QPagedPaintDevice& device, const PrintEngine& engine);

}  // namespace tallyfin::qt
