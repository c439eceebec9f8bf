#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace tallyfin {

/// A row of a table of test data: its cells by the name of their column.
using Row = std::map<std::string, std::string>;

/// The parts of a text between its separators; none for an empty text.
inline std::vector<std::string> splitAt(const std::string& text, char divider) {
  std::vector<std::string> pieces;
  std::istringstream stream(text);
  for (std::string piece; std::getline(stream, piece, divider);) pieces.push_back(piece);
  if (text.ends_with(divider)) pieces.emplace_back();
  return pieces;
}

/// The rows of a table of test data, tests/NAME: cells separated by tabs, a heading line, comments behind "#".
inline std::vector<Row> tableOf(const std::string& name) {
  std::ifstream file(std::string(TESTS_FOLDER) + "/" + name);
  EXPECT_TRUE(file) << name;
  std::vector<std::string> columns;
  std::vector<Row> rows;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.front() == '#') continue;
    const std::vector<std::string> cells = splitAt(line, '\t');
    if (columns.empty()) {
      columns = cells;
      continue;
    }
    EXPECT_EQ(cells.size(), columns.size()) << line;
    Row& row = rows.emplace_back();
    for (std::size_t i = 0; i < columns.size(); ++i) row[columns[i]] = cells.at(i);
  }
  return rows;
}

}  // namespace tallyfin
