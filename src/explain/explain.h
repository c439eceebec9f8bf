#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/trace.h"
#include "explain/operand.h"

/// Why a figure of the results is what it is: a worksheet as tax forms print them, written from the tape of the
/// calculation alone. There are no rules of a state here.

namespace tallyfin {

/// The row of a table that gave the figure of a line.
struct UsedRow {
  AppliedRow row;
  Operand x;
};

/// A line of a worksheet. One without a number is a remark: it has words alone.
struct ExplanationLine {
  int number = 0;
  std::string title;  ///< What the figure is; may be empty.
  std::string words;  ///< How it is made.
  Value value;
  std::string figure;  ///< The value as people write it.
  Operand from;
  std::optional<UsedRow> table;

  /// Title and words.
  std::string text() const;
  /// The whole line: "3. Less the allowance: line 1 less line 2 = $940.00".
  std::string print() const;
};

struct Explanation {
  const char* title;  ///< That of the row of the results.
  Money amount;
  std::vector<ExplanationLine> lines;

  std::vector<std::string> printed() const;
};

/// One explanation for each of the twelve rows of the results, in their order.
std::vector<Explanation> explain(const Trace& trace);

}  // namespace tallyfin
