#pragma once

#include <string>
#include <vector>

#include "engine/trace.h"

/// Why a figure of the results is what it is, in words and sums. Written from the trace of the calculation alone; there
/// are no rules of a state here.

namespace tallyfin {

/// What was done, and the sum or figure that it came to, if it came to one.
struct ExplanationLine {
  std::string what;
  std::string sum = {};

  /// As a sentence.
  std::string text() const;
};

struct Explanation {
  const char* title;  ///< That of the row of the results.
  Money amount;
  std::vector<ExplanationLine> lines;  ///< What led to the amount, in order.

  std::vector<std::string> sentences() const;
};

/// One explanation for each of the twelve rows of the results, in their order.
std::vector<Explanation> explain(const Trace& trace);

/// A part of the gross pay.
struct Share {
  const char* name;
  Money amount;
  double fraction;  ///< Of the gross pay.
};

/// Where the gross pay of the calculation goes: 401(k), federal, state and local tax, FICA, and the check. None where
/// there is no gross pay to share out, or a part is negative.
std::vector<Share> sharesOf(const Trace& trace);

/// A part by its name and its percentage, which is rounded to a tenth: federal tax 17.2%.
std::string shareText(const Share& share);

/// All shares in one sentence, or why there are none.
std::string sharesText(const Trace& trace);

/// An amount as currency, with two decimals or as many more as it has: $1,000.00, $172.4936, ($5.00).
std::string amountText(Money amount);

/// A rate as percent, with as many decimals as it has: 7.65%.
std::string rateText(double fraction);

}  // namespace tallyfin
