#pragma once

#include <map>
#include <string>

#include "explain/figuretexts.h"
#include "explain/formula.h"
#include "explain/operand.h"

/// Formulas in words: "$71.10 plus 28% of the amount of line 7 over $525.00".

namespace tallyfin {

/// A formula, or an operand of one, in words and as plain data.
struct Phrase {
  std::string words;
  Operand operand;
  bool isLine = false;  ///< "line 7"
};

class Phrases {
 public:
  /// `numbers` are those of the figures that have a line.
  Phrases(const Formula& formula, const std::map<NodeId, int>& numbers) : formula_(formula), numbers_(numbers) {}

  Phrase phrase(NodeId id, Place place, As as) const;

  /// A question and its answer: "line 4 is below $1,153.85"; empty where the answer is a matter of course.
  std::string answer(const Asked& asked) const;

  /// Where the row of a table holds: "where line 7 is over $525.00 but not over $1,125.00".
  std::string reach(const AppliedRow& used) const;

 private:
  struct Term {
    bool less;
    Phrase phrase;
  };

  Phrase sum(NodeId id, Place place, As as) const;
  Operand addTerms(NodeId id, bool less, As as, std::vector<Term>& terms) const;
  Phrase product(NodeId id) const;
  Phrase rounded(NodeId id, const char* operation, const std::string& how) const;
  Phrase bounded(NodeId id, const char* operation, const char* how) const;
  std::string direction(NodeId id) const;

  const Formula& formula_;
  const std::map<NodeId, int>& numbers_;
};

}  // namespace tallyfin
