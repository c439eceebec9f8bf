#pragma once

#include <functional>
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
  /// `lineOf` gives the number of a figure's line. Notes on figures that the words leave out are added to `notes`.
  Phrases(const Formula& formula, std::function<int(NodeId)> lineOf, Formula::Notes& notes)
      : formula_(formula), lineOf_(std::move(lineOf)), notes_(notes) {}

  Phrase phrase(NodeId id, Place place, As as) const;

  /// A comparison with its result: "line 4 is below $1,153.85".
  std::string reason(const Comparison& comparison) const;

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
  Phrase quotient(const Node& node) const;
  Phrase line(NodeId id) const;
  static Phrase constant(const Node& node, As as);
  Phrase exact(const Node& node, Place place, As as) const;
  Phrase rounded(NodeId id, const char* operation) const;
  Phrase bounded(const Node& node, const char* operation, const char* how) const;
  std::string direction(NodeId id) const;

  const Formula& formula_;
  std::function<int(NodeId)> lineOf_;
  Formula::Notes& notes_;
};

}  // namespace tallyfin
