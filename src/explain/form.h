#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "explain/explain.h"

/// Worksheets set as forms: the same texts for a window, for paper, for a web app and for speech.

namespace tallyfin {

/// A part of a line's text. One that refers to lines ("line 4", "lines 2 to 4") has their numbers.
struct FormPart {
  std::string text;
  std::vector<int> lines;
};

/// A published table, with the row that was used.
struct FormTable {
  struct Row {
    std::string where;  ///< "over $525.00 but not over $1,125.00"
    std::string given;  ///< "$71.10 plus 28% of the amount over $525.00"
  };
  std::string name;
  std::string of;  ///< The heading of `where`: the figure that was looked up, "Line 6".
  std::vector<Row> rows;
  std::size_t used = 0;  ///< The number of the row, from 0.
};

/// A line. One without a number is a remark: it has only a text.
struct FormLine {
  int number = 0;
  std::vector<FormPart> parts;
  std::string figure;
  std::string spoken;  ///< "Line 5. Line 3 less line 4. 887 dollars 12."
  std::optional<FormTable> table;

  /// The whole text.
  std::string text() const;
};

/// The worksheet of a row of the results.
struct Form {
  std::string title;
  std::string figure;
  std::vector<FormLine> lines;
};

/// The entries above the worksheets, each with its title.
using FormHeading = std::vector<std::pair<std::string, std::string>>;

std::vector<Form> formsOf(const std::vector<Explanation>& explanations);

/// Name, date, tax year, pay frequency, marital status, exemptions, state, and the state options that counted. A name
/// that isn't stored is left out.
FormHeading headingOf(const Trace& trace, const std::vector<Explanation>& explanations);

/// A text cut into parts at its references to lines.
std::vector<FormPart> partsOf(const std::string& text);

/// A text as it is spoken: its amounts in words, "887 dollars 12".
std::string spoken(const std::string& text);

}  // namespace tallyfin
