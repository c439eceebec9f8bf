#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

/// Controls that show results.

namespace tallyfin {

/// The kind of a row of a table.
enum class RowKind {
  line,
  heading,  ///< Of the columns.
  group,    ///< The heading of the rows below it: a text without a figure.
  total,
  result,
  blank,
};
/// "line", "heading", ...
const char* nameOf(RowKind kind);

/// A row of a grid as one text. The separator is between the fields, which may be enclosed in the delimiter.
struct GridRow {
  std::string text;
  RowKind kind = RowKind::line;
};

/// A grid of two columns, "Title" and "Value". A value that is a number is displayed as currency.
class Grid : public Control {
 public:
  using Control::Control;
  using Cells = std::vector<std::string>;

  void setFieldDelimiter(char delimiter) { delimiter_ = delimiter; }
  void setFieldSeparator(char separator) { separator_ = separator; }
  /// Replaces all rows; notifies once.
  void setRows(const std::vector<GridRow>& rows);
  void removeAll() { setRows({}); }

  /// The rows as they were added.
  const std::vector<std::string>& rows() const { return rows_; }
  /// The rows as they are displayed, two cells each.
  const std::vector<Cells>& cells() const { return cells_; }
  const std::vector<RowKind>& kinds() const { return kinds_; }

 private:
  Cells split(const std::string& text) const;

  char delimiter_ = '\0';
  char separator_ = ',';
  std::vector<std::string> rows_;
  std::vector<Cells> cells_;
  std::vector<RowKind> kinds_;
};

/// The column of a printed table.
struct PrintColumn {
  bool rightAligned = false;
  int width = 0;  ///< Twips.
};

/// A print and preview facility: one document of a header, a table and a footer. A table is one text: rows end with
/// ";", and "|" separates cells. The first row describes the columns ("<3000|>1500;": left-aligned and 3000 twips wide,
/// right-aligned and 1500 twips wide), the second the headings.
class PrintEngine : public Control {
 public:
  using Control::Control;
  using Cells = std::vector<std::string>;

  /// Starts a new document, which replaces the old one.
  void startDocument();
  void endDocument();

  void setHeader(std::string header) { header_ = std::move(header); }
  void setFooter(std::string footer) { footer_ = std::move(footer); }
  void setFont(int points, bool bold, bool italic);
  /// The rows of these titles are totals; the kinds of the others follow from their cells.
  void addTable(std::string table, const std::vector<std::string>& totals = {});
  void setZoom(int percent);

  const std::string& header() const { return header_; }
  const std::string& footer() const { return footer_; }
  int fontPoints() const { return fontPoints_; }
  bool bold() const { return bold_; }
  bool italic() const { return italic_; }
  const std::string& table() const { return table_; }
  const std::vector<PrintColumn>& columns() const { return columns_; }
  /// The table as it is laid out, heading row first.
  const std::vector<Cells>& cells() const { return cells_; }
  const std::vector<RowKind>& kinds() const { return kinds_; }
  int zoom() const { return zoom_; }
  /// Pages of the document; 0 before the first.
  int pages() const { return pages_; }

 private:
  std::string header_;
  std::string footer_;
  int fontPoints_ = 12;
  bool bold_ = false;
  bool italic_ = false;
  std::string table_;
  std::vector<PrintColumn> columns_;
  std::vector<Cells> cells_;
  std::vector<RowKind> kinds_;
  int zoom_ = 100;
  int pages_ = 0;
};

}  // namespace tallyfin
