#include "explain/explain.h"

#include <algorithm>

#include "engine/entries.h"
#include "explain/fieldwords.h"
#include "explain/figuretexts.h"
#include "explain/formula.h"
#include "explain/phrases.h"

namespace tallyfin {

namespace {

/// Writes the worksheet of one row of the results.
class Writer {
 public:
  Writer(const Trace& trace, NodeId own, std::map<NodeId, const char*> otherRows)
      : trace_(trace), formula_(trace.tape, std::move(otherRows)), own_(own) {}

  std::vector<ExplanationLine> write(bool ofState) {
    if (ofState && *trace_.state != '\0') remark("State", trace_.state);
    lineOf(formula_.resolved(own_, &notes_));
    number();
    for (const auto& [title, choice] : choices_) remark(title.c_str(), choice);
    for (const NodeId id : order_) lines_.push_back(line(id));
    for (const std::string& note : notes_) remark("", note);
    return std::move(lines_);
  }

 private:
  void remark(const char* title, const std::string& words) {
    ExplanationLine line;
    line.title = title;
    line.words = words;
    lines_.push_back(line);
  }

  const Node& at(NodeId id) const { return formula_.at(id); }

  /// The number of a figure's line. Before the lines have numbers it returns 0 and collects them: a line asks for those
  /// that it refers to, which are therefore collected before it.
  int lineOf(NodeId id) {
    const auto [known, isNew] = numbers_.try_emplace(id, 0);
    if (isNew) {
      line(id);
      takeChoices(id);
      (formula_.isLeaf(id) || isCount(id) ? first_ : order_).push_back(id);
    }
    return known->second;
  }

  /// Collects the choices of the user on which the figure depends.
  void takeChoices(NodeId id) {
    if (formula_.isLeaf(id) || at(id).op != Op::titled) return;
    for (const Comparison& comparison : formula_.circumstances(id).comparisons) {
      const NodeId a = formula_.resolved(comparison.a);
      auto choice = choiceOf(a);
      if (!choice) continue;
      if (*at(a).title != '\0') *choice = {at(a).title, comparison.held ? "Yes" : "No"};
      const auto same = [&](const ChoiceWords& other) { return other.title == choice->title; };
      if (std::none_of(choices_.begin(), choices_.end(), same)) choices_.push_back(*choice);
    }
  }

  std::optional<ChoiceWords> choiceOf(NodeId id) const {
    const Node& node = at(id);
    const auto* number = std::get_if<Int16>(&node.value);
    if (node.op != Op::left || number == nullptr) return std::nullopt;
    return choiceWords(node.name, number->value(), trace_.statusChosen);
  }

  /// Whether another comparison of the same figure, a choice, or the row of the table implies this one.
  bool isImplied(const Comparison& comparison, const Circumstances& its) const {
    const NodeId a = formula_.resolved(comparison.a);
    if (its.row && formula_.resolved(its.row->x) == a) return true;
    if (choiceOf(a) || (comparison.how == Comparison::How::equal && !comparison.held)) return true;
    if (comparison.how == Comparison::How::below && at(comparison.b).value == Value(Int16(0))) return true;
    const auto implies = [&](const Comparison& other) {
      const bool exact = other.how == Comparison::How::equal || other.how == Comparison::How::from;
      return exact && other.held && formula_.resolved(other.a) == a;
    };
    const auto other = std::find_if(its.comparisons.begin(), its.comparisons.end(), implies);
    return other != its.comparisons.end() && &*other != &comparison;
  }

  /// A count without a formula, like that of the pay periods. Its line is before the formulas, like those of entries.
  bool isCount(NodeId id) const {
    return at(id).op == Op::titled && std::holds_alternative<Int16>(at(id).value) && !formula_.isDollars(id) &&
           at(formula_.resolved(at(id).a)).op == Op::constant;
  }

  void number() {
    order_.insert(order_.begin(), first_.begin(), first_.end());
    int next = 0;
    for (const NodeId id : order_) numbers_[id] = ++next;
  }

  ExplanationLine line(NodeId id) {
    const Node& node = at(id);
    ExplanationLine line;
    line.number = numbers_.at(id);
    line.value = node.value;
    line.figure = textOf(node.value, asOf(id));
    if (formula_.isDollars(id)) line.value = Money(std::get<Int16>(node.value));
    if (formula_.isLeaf(id)) {
      writeLeaf(id, line);
      return line;
    }
    const bool titled = node.op == Op::titled;
    line.title = titleOf(node);
    Phrase phrase = phrases_.phrase(titled ? node.a : id, Place::own, asOf(id));
    line.words = phrase.words;
    line.from = std::move(phrase.operand);
    if (titled) writeCircumstances(formula_.circumstances(id), line);
    return line;
  }

  /// A figure without a title has a line of its own where it is a wage below the lower bound of the row used.
  std::string titleOf(const Node& node) const {
    if (node.op == Op::titled) return node.name;
    const bool excess = node.op == Op::subtract && at(node.b).op == Op::constant;
    return excess ? std::string("Amount over the ") + at(node.b).name : "";
  }

  As asOf(NodeId id) const {
    const Value& value = at(id).value;
    if (std::holds_alternative<Int16>(value)) return formula_.isDollars(id) ? As::dollars : As::number;
    if (!isReal(value)) return As::dollars;
    return at(id).op == Op::entry ? As::number : As::percent;
  }

  void writeLeaf(NodeId id, ExplanationLine& line) const {
    const Node& node = at(id);
    line.from.value = node.value;
    if (const char* row = formula_.rowOf(id)) {
      line.title = row;
      line.words = "from its own worksheet";
      line.from.origin = Operand::Origin::row;
      line.from.name = row;
      return;
    }
    const bool entered = node.op == Op::entry;
    const FieldWords words = entered ? entryWords(node.name) : fieldWords(node.name);
    line.title = *node.title == '\0' ? words.title : node.title;
    line.words = line.figure + ", " + words.origin;
    line.from.origin = entered ? Operand::Origin::entry : Operand::Origin::left;
    line.from.name = node.name;
  }

  void writeCircumstances(const Circumstances& its, ExplanationLine& line) const {
    if (its.row) {
      line.words += ", by the table \"" + its.row->table + "\", " + phrases_.reach(*its.row);
      line.table = UsedRow{*its.row, phrases_.phrase(its.row->x, Place::alone, As::dollars).operand};
    }
    std::vector<std::string> reasons;
    for (const Comparison& comparison : its.comparisons) {
      if (isImplied(comparison, its)) continue;
      const std::string reason = phrases_.reason(comparison);
      if (std::find(reasons.begin(), reasons.end(), reason) == reasons.end()) reasons.push_back(reason);
    }
    for (std::size_t i = 0; i < reasons.size(); ++i) line.words += (i == 0 ? ", as " : " and ") + reasons[i];
  }

  const Trace& trace_;
  Formula formula_;
  NodeId own_;
  std::map<NodeId, int> numbers_;
  std::vector<NodeId> first_;  ///< Entries, rows and counts, which come before the sums.
  std::vector<NodeId> order_;
  std::vector<ChoiceWords> choices_;
  Formula::Notes notes_;
  Phrases phrases_{formula_, [this](NodeId id) { return lineOf(id); }, notes_};
  std::vector<ExplanationLine> lines_;
};

/// The figures of the other rows; a figure that two rows share belongs to the first. Where a row equals an entry or the
/// figure of another statement, that entry or figure belongs to the row too.
std::map<NodeId, const char*> rowsBut(std::size_t own, const Trace& trace) {
  std::map<NodeId, const char*> rows;
  const Formula formula(trace.tape, {});
  const auto add = [&](NodeId id, std::size_t row) {
    if (row != own) rows.emplace(id, resultRows[row].title);
  };
  for (std::size_t row = 0; row < trace.results.size(); ++row) add(trace.results[row], row);
  for (std::size_t row = 0; row < trace.results.size(); ++row) {
    const NodeId same = formula.resolved(trace.results[row]);
    if (same != formula.resolved(trace.results[own]) || row < own) add(same, row);
  }
  return rows;
}

}  // namespace

std::string ExplanationLine::text() const { return title.empty() ? words : title + ": " + words; }

std::string ExplanationLine::print() const {
  if (number == 0) return text();
  return std::to_string(number) + ". " + text() + " = " + figure;
}

std::vector<std::string> Explanation::printed() const {
  std::vector<std::string> all;
  for (const ExplanationLine& line : lines) all.push_back(line.print());
  return all;
}

std::vector<Explanation> explain(const Trace& trace) {
  std::vector<Explanation> all;
  for (std::size_t row = 0; row < resultRows.size(); ++row) {
    Writer writer(trace, trace.results[row], rowsBut(row, trace));
    const bool ofState = resultRows[row].amount == &PayData::stateTax;
    all.push_back({resultRows[row].title, trace.after.*resultRows[row].amount, writer.write(ofState)});
  }
  return all;
}

}  // namespace tallyfin
