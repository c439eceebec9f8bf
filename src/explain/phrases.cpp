#include "explain/phrases.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tallyfin {

namespace {

Operand result(const char* operation, std::vector<Operand> of) {
  Operand operand;
  operand.origin = Operand::Origin::result;
  operand.name = operation;
  operand.of = std::move(of);
  return operand;
}

/// Lines by their numbers, then the other phrases: "lines 2 to 4 plus $3.00".
std::string listed(const std::vector<Phrase>& phrases, const char* between) {
  std::vector<int> lines;
  std::string others;
  for (const Phrase& phrase : phrases) {
    if (phrase.isLine) lines.push_back(phrase.operand.line);
    if (!phrase.isLine) others += (others.empty() ? "" : between) + phrase.words;
  }
  if (lines.empty()) return others;
  std::sort(lines.begin(), lines.end());
  std::string words = lines.size() == 1 ? "line " : "lines ";
  if (lines.size() > 2 && lines.back() - lines.front() == static_cast<int>(lines.size()) - 1) {
    words += std::to_string(lines.front()) + " to " + std::to_string(lines.back());
  } else {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (i > 0) words += i + 1 == lines.size() ? " and " : ", ";
      words += std::to_string(lines[i]);
    }
  }
  return others.empty() ? words : words + between + others;
}

/// Whether a real number was rounded down to an amount or count, not at all, or up: -1, 0 or 1. A difference within the
/// precision of doubles doesn't count.
int roundingOf(double exact, double rounded, double unit) {
  const double off = (rounded - exact) / unit;
  const double noise = 1e-6 + std::abs(exact / unit) * 1e-14;
  if (std::abs(off) < noise) return 0;
  return off < 0 ? -1 : 1;
}

bool isHalf(double exact, double unit) {
  const double units = std::abs(exact / unit);
  return std::abs(units - std::floor(units) - 0.5) < 1e-9;
}

}  // namespace

std::string Phrases::direction(NodeId id) const {
  const Node& node = formula_.at(id);
  const double unit = node.op == Op::fromReal ? 0.0001 : node.op == Op::roundCents ? 0.01 : 1;
  const double exact = realOf(formula_.at(node.a).value);
  const int rounding = roundingOf(exact, realOf(node.value), unit);
  if (rounding == 0) return "";
  std::string words = rounding < 0 ? ", rounded down to " : ", rounded up to ";
  if (node.op == Op::fromReal) return words + "four decimals";
  const bool half = isHalf(exact, unit);
  if (node.op == Op::roundCents) return words + "whole cents" + (half ? ", since half a cent goes away from zero" : "");
  return words + "whole dollars" + (half ? ", since half a dollar goes to the even dollar" : "");
}

Phrase Phrases::phrase(NodeId id, Place place, As as) const {
  id = formula_.resolved(id, &notes_);
  if (!formula_.inlined(id, place)) return line(id);
  const Node& node = formula_.at(id);
  switch (node.op) {
    case Op::constant: return constant(node, as);
    case Op::toReal: return exact(node, place, as);
    case Op::add:
    case Op::subtract: return sum(id, place, as);
    case Op::multiply: return product(id);
    case Op::divide: return quotient(node);
    case Op::least: return bounded(node, "least", ", but at most ");
    case Op::greatest: return bounded(node, "greatest", ", but at least ");
    case Op::fromReal: return rounded(id, "fromReal");
    case Op::toInt16: return rounded(id, "toInt16");
    case Op::roundCents: return rounded(id, "roundCents");
    default: return rounded(id, "roundDollars");
  }
}

Phrase Phrases::line(NodeId id) const {
  Phrase phrase{"", {}, true};
  phrase.operand.origin = Operand::Origin::line;
  phrase.operand.line = lineOf_(id);
  phrase.words = "line " + std::to_string(phrase.operand.line);
  return phrase;
}

Phrase Phrases::constant(const Node& node, As as) {
  Phrase phrase{textOf(node.value, node.inDollars && as != As::number ? As::dollars : as), {}, false};
  phrase.operand.name = *node.name != '\0' ? node.name : "figure of the rules";
  phrase.operand.value = node.value;
  return phrase;
}

Phrase Phrases::exact(const Node& node, Place place, As as) const {
  const Phrase inner = phrase(node.a, place == Place::factor ? place : Place::alone, as);
  return {inner.words, result("toReal", {inner.operand}), inner.isLine};
}

Phrase Phrases::quotient(const Node& node) const {
  const Phrase a = phrase(node.a, Place::alone, As::number);
  const Phrase b = phrase(node.b, Place::alone, As::number);
  return {a.words + " divided by " + b.words, result("/", {a.operand, b.operand}), false};
}

Phrase Phrases::rounded(NodeId id, const char* operation) const {
  const Phrase inner = phrase(formula_.at(id).a, Place::own, As::dollars);
  return {inner.words + direction(id), result(operation, {inner.operand}), false};
}

Phrase Phrases::bounded(const Node& node, const char* operation, const char* how) const {
  const Phrase x = phrase(node.a, Place::alone, As::dollars);
  const Phrase bound = phrase(node.b, Place::alone, As::dollars);
  return {x.words + how + bound.words, result(operation, {x.operand, bound.operand}), false};
}

Operand Phrases::addTerms(NodeId id, bool less, As as, std::vector<Term>& terms) const {
  id = formula_.resolved(id, &notes_);
  const Node& node = formula_.at(id);
  if (node.op != Op::add && node.op != Op::subtract) {
    terms.push_back({less, phrase(id, Place::term, as)});
    Term& term = terms.back();
    Operand operand = term.phrase.operand;
    if (node.op == Op::constant && realOf(node.value) < 0) {
      // The words show it without its sign.
      term.less = !less;
      const auto negated = [](auto number) -> Value { return decltype(number){} - number; };
      term.phrase.words = textOf(std::visit(negated, node.value), as);
    }
    return operand;
  }
  Operand a = addTerms(node.a, less, as, terms);
  Operand b = addTerms(node.b, node.op == Op::subtract ? !less : less, as, terms);
  return result(node.op == Op::add ? "+" : "-", {std::move(a), std::move(b)});
}

Phrase Phrases::sum(NodeId id, Place place, As as) const {
  const Node& node = formula_.at(id);
  if (place == Place::factor) {
    const Phrase x = phrase(node.a, Place::alone, As::dollars);
    const Phrase bound = phrase(node.b, Place::alone, As::dollars);
    return {"the amount of " + x.words + " over " + bound.words, result("-", {x.operand, bound.operand}), false};
  }
  std::vector<Term> terms;
  Operand operand = addTerms(node.a, false, as, terms);
  Operand other = addTerms(node.b, node.op == Op::subtract, as, terms);
  std::vector<Phrase> plus;
  std::vector<Phrase> less;
  bool products = false;
  for (const Term& term : terms) {
    (term.less ? less : plus).push_back(term.phrase);
    products = products || term.phrase.operand.name == "*";
  }
  // Products come last, so that no further term looks like a part of them.
  std::stable_partition(plus.begin(), plus.end(), [](const Phrase& p) { return p.operand.name != "*"; });
  std::string words = listed(plus, " plus ");
  if (words.starts_with("lines "))
    words = plus.size() == 2 ? listed({plus[0]}, "") + " plus " + listed({plus[1]}, "") : "the sum of " + words;
  if (words.empty()) words = "nothing";
  if (!less.empty()) words += (products ? ", less " : " less ") + listed(less, ", less ");
  return {words, result(node.op == Op::add ? "+" : "-", {std::move(operand), std::move(other)}), false};
}

Phrase Phrases::product(NodeId id) const {
  const Node& node = formula_.at(id);
  const auto isAmount = [&](NodeId factor) {
    const Node& its = formula_.at(factor);
    return std::holds_alternative<Money>(its.value) ||
           (its.op == Op::toReal && std::holds_alternative<Money>(formula_.at(its.a).value));
  };
  const auto isConstant = [&](NodeId factor) { return formula_.at(formula_.resolved(factor)).op == Op::constant; };
  const auto asBeside = [&](NodeId other) {
    if (!isReal(node.value)) return isAmount(other) ? As::number : As::dollars;
    return isAmount(other) ? As::percent : As::dollars;
  };
  const Phrase a = phrase(node.a, Place::factor, asBeside(node.b));
  const Phrase b = phrase(node.b, Place::factor, asBeside(node.a));
  Operand operand = result("*", {a.operand, b.operand});
  if (isReal(node.value) && isConstant(node.b) && isAmount(node.a)) return {b.words + " of " + a.words, operand, false};
  if (isConstant(node.a)) return {b.words + " times " + a.words, operand, false};
  return {a.words + " times " + b.words, operand, false};
}

std::string Phrases::reason(const Comparison& comparison) const {
  struct Verb {
    const char* held;
    const char* notHeld;
  };
  constexpr std::array<Verb, 6> verbs{{{" is ", " is not "},
                                       {" is below ", " is not below "},
                                       {" is not over ", " is over "},
                                       {" is over ", " is not over "},
                                       {" is not below ", " is below "},
                                       {" is from ", " is not from "}}};
  const auto figure = [&](NodeId id) { return phrase(id, Place::alone, As::number).words; };
  const Verb& verb = verbs.at(static_cast<std::size_t>(comparison.how));
  std::string words = figure(comparison.a) + (comparison.held ? verb.held : verb.notHeld);
  words += comparison.b == noNode ? textOf(formula_.at(comparison.a).value, As::number) : figure(comparison.b);
  return comparison.c == noNode ? words : words + " to " + figure(comparison.c);
}

std::string Phrases::reach(const AppliedRow& used) const {
  std::string words =
      "where " + phrase(used.x, Place::alone, As::dollars).words + " is " + boundsText(used, used.number);
  const TableRow& row = used.row();
  const bool open = row.test == Test::above || row.test == Test::atLeast;
  if (open && used.before() && used.before()->bound != row.bound) {
    words += " and the row before it ends at " + amountText(used.before()->bound);
  }
  return words;
}

}  // namespace tallyfin
