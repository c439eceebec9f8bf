#include "controls/output.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "engine/numbertext.h"

namespace tallyfin {

const char* nameOf(RowKind kind) {
  constexpr std::array names{"line", "heading", "group", "total", "result", "blank"};
  return names.at(static_cast<std::size_t>(kind));
}

Grid::Cells Grid::split(const std::string& text) const {
  Cells fields(1);
  bool enclosed = false;
  for (const char c : text) {
    if (delimiter_ != '\0' && c == delimiter_) {
      enclosed = !enclosed;
    } else if (c == separator_ && !enclosed) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  fields.resize(2);
  fields[1] = currency(fields[1]);
  return fields;
}

void Grid::setRows(const std::vector<GridRow>& rows) {
  rows_.clear();
  cells_.clear();
  kinds_.clear();
  for (const GridRow& row : rows) {
    rows_.push_back(row.text);
    cells_.push_back(split(row.text));
    kinds_.push_back(row.kind);
  }
  changed();
}

namespace {

std::vector<std::string> splitAt(const std::string& text, char divider) {
  std::vector<std::string> pieces(1);
  for (const char c : text) {
    if (c == divider) {
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return pieces;
}

/// The kind of a row below the heading.
RowKind kindOf(const PrintEngine::Cells& cells, const std::vector<std::string>& totals) {
  const std::string& title = cells.front();
  if (std::all_of(cells.begin() + 1, cells.end(), [](const std::string& cell) { return cell.empty(); })) {
    return title.empty() ? RowKind::blank : RowKind::group;
  }
  return std::find(totals.begin(), totals.end(), title) != totals.end() ? RowKind::total : RowKind::line;
}

}  // namespace

void PrintEngine::startDocument() {
  table_.clear();
  columns_.clear();
  cells_.clear();
  kinds_.clear();
}

void PrintEngine::endDocument() {
  pages_ = 1;  // the table fits on a page
  changed();
}

void PrintEngine::setFont(int points, bool bold, bool italic) {
  fontPoints_ = points;
  bold_ = bold;
  italic_ = italic;
}

void PrintEngine::addTable(std::string table, const std::vector<std::string>& totals) {
  table_ = std::move(table);
  std::vector<std::string> rows = splitAt(table_, ';');
  rows.pop_back();  // every row ends with the separator
  for (const std::string& column : splitAt(rows.front(), '|')) {
    int width = 0;
    std::from_chars(column.data() + 1, column.data() + column.size(), width);
    columns_.push_back({column.front() == '>', width});
  }
  for (std::size_t row = 1; row < rows.size(); ++row) {
    cells_.push_back(splitAt(rows[row], '|'));
    cells_.back().resize(columns_.size());
    kinds_.push_back(row == 1 ? RowKind::heading : kindOf(cells_.back(), totals));
  }
}

void PrintEngine::setZoom(int percent) {
  zoom_ = percent;
  changed();
}

}  // namespace tallyfin
