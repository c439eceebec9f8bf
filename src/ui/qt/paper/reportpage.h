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

/// Begins to paint on the whole of the paper, in twips, and returns its size; none where the device can't be painted
/// on.
std::optional<QSize> beginPages(QPagedPaintDevice& device, QPainter& painter);

/// The report's pages as they are on paper: header, table, footer, in twips. One drawing serves the preview, the
/// printer and the PDF file. A table longer than a page goes on on the next, under its heading row.
class ReportPages {
 public:
  /// A Letter page.
  static constexpr QSize letter{12240, 15840};

  explicit ReportPages(const PrintEngine& engine, QSize page = letter);

  /// 0 where no document has been made.
  int count() const;
  /// What stands on a page, counted from 0: a line each, the cells of a row divided by tabs.
  QString readable(int page) const;
  /// Draws a page, counted from 0. The painter's unit is a twip, its origin the paper's upper left corner.
  void draw(QPainter& painter, int page) const;

 private:
  int textWidth() const;
  int rowHeight() const;
  /// Rows of a page, the heading row aside.
  int rowsOfPage() const;
  /// The first row of each page.
  std::vector<std::size_t> starts() const;
  /// The rows of a page, the last one excluded.
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

/// Draws the report onto a printer or into a file, on whatever paper is in it. False where the device can't be painted
/// on, or there is no report.
bool drawReport(QPagedPaintDevice& device, const PrintEngine& engine);

}  // namespace tallyfin::qt
