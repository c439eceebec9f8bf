#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/trace.h"
#include "explain/operand.h"

/// The explanation of each figure of the results: a worksheet like those of tax forms, written from the tape of the
/// calculation alone. No code here is for a single state.

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
