#include "explain/explain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <span>
#include <string_view>

#include "engine/doubletext.h"
#include "engine/numbertext.h"

namespace tallyfin {

namespace {

/// A field by its name in the record: its number in the trace.
std::size_t numberOf(std::string_view wanted) {
  std::size_t found = fieldCount;
  std::size_t number = 0;
  Fields::each(Fields{}, [&](const char* name, const auto& /*field*/) {
    if (wanted == name) found = number;
    ++number;
  });
  return found;
}

const auto grossPay = numberOf("grossPay");
const auto taxableWage = numberOf("taxableWage");
const auto rate401k = numberOf("rate401k");
const auto amt401k = numberOf("amt401k");
const auto preTax = numberOf("preTax");
const auto preFica = numberOf("preFica");
const auto depsDed = numberOf("depsDed");
const auto fedBase = numberOf("fedBase");
const auto fedTax = numberOf("fedTax");
const auto stateTax = numberOf("stateTax");
const auto localTax = numberOf("localTax");
const auto fica = numberOf("fica");
const auto socSec = numberOf("socSec");
const auto medicare = numberOf("medicare");
const auto totalDed = numberOf("totalDed");
const auto checkAmt = numberOf("checkAmt");
const auto stateWage = numberOf("stateWage");
const auto staExmp = numberOf("staExmp");

/// Whether a whole number that a statement works out is dollars. The routines assign counts to fields; a figure of
/// their own, and what they leave in `staExmp`, is an amount.
bool isDollars(std::optional<std::size_t> field) { return !field || field == staExmp; }

std::string textOf(const Figure& figure, std::optional<std::size_t> field) {
  if (const auto* amount = std::get_if<Money>(&figure)) return amountText(*amount);
  if (const auto* count = std::get_if<Int16>(&figure)) return isDollars(field) ? amountText(*count) : toText(*count);
  const double rate = std::get<double>(figure);
  return field == rate401k && rate >= 1 ? toText(rate) : rateText(rate);  // a percentage as it was typed
}

/// The dollars of a figure; none of a count or a rate.
std::optional<Money> amountOf(const Figure& figure, std::optional<std::size_t> field) {
  if (const auto* amount = std::get_if<Money>(&figure)) return *amount;
  if (const auto* count = std::get_if<Int16>(&figure); count != nullptr && isDollars(field)) return Money(*count);
  return std::nullopt;
}

/// What a statement assigned, or would have.
std::span<const Outcome> outcomesOf(const Trace& trace, const TracedStatement& statement) {
  return std::span(trace.outcomes).subspan(statement.firstOutcome, statement.outcomes);
}

bool says(std::string_view title, std::string_view word) { return title.find(word) != std::string_view::npos; }

/// "a, b and c".
std::string listed(const std::vector<std::string>& texts) {
  std::string list;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0) list += i + 1 == texts.size() ? " and " : ", ";
    list += texts[i];
  }
  return list;
}

/// "is over $525.00 and up to $1,125.00".
std::string reachOf(const AppliedRow& row) {
  const std::string bound = amountText(row.bound);
  if (row.test == Test::above) return "is over " + bound;
  if (row.test == Test::atLeast) return "is " + bound + " or more";
  const bool atMost = row.test == Test::atMost;
  if (row.lower == 0 || row.x < row.lower) return (atMost ? "is at most " : "is below ") + bound;
  const std::string from = row.x == row.lower ? amountText(row.lower) + " or more" : "over " + amountText(row.lower);
  return "is " + from + (atMost ? " and up to " : " and below ") + bound;
}

std::string inDollars(double dollars) { return amountText(fromReal(dollars)); }

std::string sumOf(const AppliedRow& row, const std::string& result) {
  const std::string reach = amountText(row.x) + " " + reachOf(row) + ": ";
  if (row.gives != AppliedRow::Gives::tax) return reach + result;
  if (row.rate == 0 && row.plus == 0 && row.credit == 0) return reach + "no tax";
  std::string sum = rateText(row.rate) + " of " + amountText(row.x - row.lower);
  if (row.plus > 0) sum += ", plus " + inDollars(row.plus);
  if (row.plus < 0) sum += ", less " + inDollars(-row.plus);
  if (row.credit != 0) sum += ", less a credit of " + inDollars(row.credit);
  return reach + sum + (row.plus == 0 && row.credit == 0 ? " is " : ", is ") + result;
}

/// A sum in words: "$1,800.00 less $108.00 leaves $1,692.00; times 24 it is $40,608.00". A step that changes nothing
/// is left out.
class Sum {
 public:
  explicit Sum(Money from) : value_(from) {}

  void to(Money next, const std::string& how, const char* verb) {
    if (next == value_) return;
    words_ += words_.empty() ? amountText(value_) + " " + how + " " + verb : "; " + how + " it is";
    words_ += " " + amountText(next);
    value_ = next;
  }
  void plus(Money amount) {
    if (amount < 0) return less(Money{} - amount);
    to(value_ + amount, "plus " + amountText(amount), "makes");
  }
  void less(Money amount) {
    if (amount < 0) return plus(Money{} - amount);
    to(value_ - amount, "less " + amountText(amount), "leaves");
  }
  void times(Int16 count) { to(value_ * count, "times " + toText(count), "is"); }
  void dividedBy(Int16 count) { to(fromReal(toReal(value_) / toReal(count)), "divided by " + toText(count), "is"); }
  void atLeastZero() {
    if (!words_.empty()) return to(tallyfin::atLeastZero(value_), "at least 0", "is");
    value_ = tallyfin::atLeastZero(value_);  // the title has said it
  }

  Money value() const { return value_; }
  const std::string& words() const { return words_; }

 private:
  Money value_;
  std::string words_;
};

/// Which fields' figures the reader knows, because a statement that assigns them has been shown.
using Known = std::array<bool, fieldCount>;

/// The value of a field before the calculation, and which calculation or entry set it.
std::string standing(const Trace& trace, std::size_t field, const std::string& theOneBefore) {
  std::string value;
  std::size_t number = 0;
  Fields::each(trace.before, [&](const char* /*name*/, const auto& figure) {
    if (number++ == field) value = textOf(figure, field);
  });
  const int by = trace.touchedBefore.at(field);
  if (const int set = trace.setBefore.at(field); set > by) {
    if (set == trace.number) return value + " as it was set since the last calculation";
    if (set == trace.number - 1) return value + " as it was set before the last calculation";
    return value + " as it was set before the last " + std::to_string(trace.number - set) + " calculations";
  }
  if (by == 0) return value + " from the start";
  const int ago = trace.number - by;
  return value + " from " + (ago == 1 ? theOneBefore : std::to_string(ago) + " calculations ago");
}

std::string whyNot(const TracedStatement& statement) {
  if (!statement.badText) return statement.why;
  return statement.badText->empty() ? "no number is entered" : "\"" + *statement.badText + "\" isn't a number";
}

/// The sum that leads from the old amount to the new one. The words of the title say which terms it has; it is empty
/// where these don't add up to the new amount.
std::string sumOf(const Trace& trace, const TracedStatement& statement, bool known) {
  const PayData& record = trace.after.record;
  const std::string_view title = statement.title;
  const auto outcomes = outcomesOf(trace, statement);
  const Outcome& last = outcomes.back();
  const Money result = *amountOf(last.value, last.field);

  Money from = *amountOf(last.before, last.field);
  if (says(title, "year's federal tax")) from = record.fedTax;
  if (!known && last.field == fedBase) from = record.taxableWage;
  if (!known && (last.field == stateWage || last.field == checkAmt)) from = record.grossPay;
  if (says(title, "less the credit")) from = std::get<Money>(outcomes.front().value);
  const Money more = says(title, "additional amount") ? record.staAdd : Money{};
  const bool share = says(title, "share");

  Sum sum(from);
  if (!known && last.field == stateWage && says(title, "wage")) sum.less(record.statePreTax + record.state401k);
  if (says(title, "year's wage") || says(title, "year's federal tax")) sum.times(record.payPeriods);
  if (says(title, "That for each exemption")) sum.times(trace.after.work.exemptions);
  if (share && outcomes.size() == 2) {
    sum.less(from - std::get<Money>(outcomes.front().value));  // the first figure is the tax after its credit
  } else if (says(title, "Less") || says(title, "less")) {
    sum.less(sum.value() - (result - more));
  } else if (says(title, "Plus") && !says(title, "additional amount")) {
    sum.plus(result - from);
  }
  if (share) sum.dividedBy(record.payPeriods);
  sum.plus(more);
  if (says(title, "at least 0")) sum.atLeastZero();
  return sum.value() == result ? sum.words() : "";
}

/// Whether the reader knows the figure from before the statement: a field from a statement that was shown, a figure of
/// the routine's own where it isn't 0.
bool isKnown(const Known& known, const Outcome& outcome) {
  if (outcome.field) return known.at(*outcome.field);
  return amountOf(outcome.before, outcome.field) != Money{};
}

/// The sum or figure that follows a title; empty where the statement left a figure that the reader knows unchanged.
std::string figuresOf(const Trace& trace, const Known& known, const TracedStatement& statement) {
  if (statement.outcomes == 0) return "";
  const std::string_view title = statement.title;
  std::vector<std::string> texts;
  const auto outcomes = outcomesOf(trace, statement);
  for (const Outcome& outcome : outcomes) texts.push_back(textOf(outcome.value, outcome.field));
  if (statement.row) return sumOf(*statement.row, texts[0]);
  if (std::holds_alternative<double>(outcomes.front().value) && texts.size() == 3) {
    return texts[0] + " of " + texts[1] + " is " + texts[2];
  }
  const bool credit = texts.size() == 2 && says(title, "credit");
  if (texts.size() == 2 && says(title, "% of") && !credit) return "of " + texts[0] + " it is " + texts[1];
  if (texts.size() > 1 && !credit) return listed(texts);

  const Outcome& last = outcomes.back();
  if (isKnown(known, last) && last.before == last.value) return "";
  if (statement.counted && statement.counted->count != 1 &&
      amountOf(last.value, last.field) == fromReal(toReal(statement.counted->count) * statement.counted->each)) {
    return toText(statement.counted->count) + " times " + inDollars(statement.counted->each) + " is " + texts.back();
  }
  std::string sum;
  try {
    if (amountOf(last.value, last.field)) sum = sumOf(trace, statement, isKnown(known, last));
  } catch (const FailedStatement&) {
    sum.clear();  // an intermediate amount is beyond Money's range
  }
  return sum.empty() ? texts.back() : sum;
}

/// Whether the next statement that assigns the field takes it from a table, whatever it was before.
bool isWorkedOutAnew(const Trace& trace, std::size_t position, std::size_t field) {
  for (std::size_t i = position + 1; i < trace.statements.size(); ++i) {
    const TracedStatement& statement = trace.statements[i];
    for (const Outcome& outcome : outcomesOf(trace, statement)) {
      if (outcome.field == field) return statement.row.has_value();
    }
  }
  return false;
}

/// What a statement did, as a line for a row; none where there is nothing to say.
std::optional<ExplanationLine> lineOf(const Trace& trace, const Known& known, std::size_t position, std::size_t row) {
  const TracedStatement& statement = trace.statements[position];
  const std::string title = statement.title;
  const auto outcomes = outcomesOf(trace, statement);
  if (!statement.done || !statement.assigned) {
    std::vector<std::string> stays;
    for (const auto& [field, before, value] : outcomes) {
      if (!field || isWorkedOutAnew(trace, position, *field)) continue;
      stays.push_back(known.at(*field) ? textOf(value, field) : standing(trace, *field, "the calculation before"));
    }
    const std::string why = statement.done ? "doesn't apply" : "left out, because " + whyNot(statement);
    const std::string rest = stays.empty() ? "" : "; " + listed(stays) + (stays.size() == 1 ? " stays" : " stay");
    return ExplanationLine{title, why + rest};
  }
  // Nothing entered, nothing left untaxed: not worth a line under another figure.
  if (outcomes.size() == 1 && !statement.row && outcomes.front().field != row && !isKnown(known, outcomes.front()) &&
      amountOf(outcomes.front().value, outcomes.front().field) == Money{}) {
    return std::nullopt;
  }
  const std::string figures = figuresOf(trace, known, statement);
  if (figures.empty()) return std::nullopt;
  return ExplanationLine{title, figures};
}

/// A row of the results, and the fields whose statements lead to it.
struct Row {
  const char* title;
  std::size_t field;
  std::vector<std::size_t> ledBy;
};

const std::vector<Row>& rows() {
  static const std::vector<Row> all{
      {"Gross Pay", grossPay, {taxableWage, grossPay}},
      {"401k Deduction", amt401k, {rate401k, amt401k}},
      {"Non-Taxable", preTax, {preTax}},
      {"Pre-FICA", preFica, {preFica}},
      {"Federal Tax", fedTax, {taxableWage, amt401k, preFica, preTax, fedBase, fedTax}},
      {"State Tax", stateTax, {}},
      {"Local Tax", localTax, {localTax}},
      {"FICA", fica, {fica}},
      {"Social Security", socSec, {socSec}},
      {"Medicare", medicare, {medicare}},
      {"Total Ded", totalDed, {totalDed}},
      {"Check Amt", checkAmt, {checkAmt}},
  };
  return all;
}

bool leadsTo(const Trace& trace, const Row& row, const TracedStatement& statement, std::size_t position) {
  const bool ofTheState = position >= trace.firstOfState && position < trace.endOfState;
  if (row.field == stateTax) return ofTheState;
  for (const Outcome& outcome : outcomesOf(trace, statement)) {
    const auto field = outcome.field;
    if (!field || std::find(row.ledBy.begin(), row.ledBy.end(), *field) == row.ledBy.end()) continue;
    if (!ofTheState || *field == row.field) return true;
  }
  return false;
}

/// The position after the last statement that has the field as its target.
std::size_t endOf(const Trace& trace, std::size_t field) {
  std::size_t end = 0;
  for (std::size_t i = 0; i < trace.statements.size(); ++i) {
    for (const Outcome& outcome : outcomesOf(trace, trace.statements[i])) {
      if (outcome.field == field) end = i + 1;
    }
  }
  return end;
}

/// What the record says about a row beside its statements.
void addBackground(const Trace& trace, const Row& row, std::vector<ExplanationLine>& lines) {
  const PayData& record = trace.after.record;
  if (row.field == stateTax) {
    lines.insert(lines.begin(), {*trace.state == '\0' ? "No state is chosen" : trace.state});
  }
  if (row.field == grossPay && trace.touchedBy.at(grossPay) != trace.number) {
    lines.push_back({"No income is entered"});
  }
  if (row.field == totalDed && trace.touchedBy.at(totalDed) == trace.number) {
    lines.insert(lines.begin(), {"401(k) " + amountText(record.amt401k) + ", FICA " + amountText(record.fica) +
                                 ", federal tax " + amountText(record.fedTax) + ", state tax " +
                                 amountText(record.stateTax) + ", local tax " + amountText(record.localTax)});
  }
  if (row.field != fedTax || !trace.allowance) return;
  const std::int64_t each = trace.allowance->units();
  if (record.depsDed != 0 && record.depsDed.units() % each == 0) {
    const std::int64_t count = record.depsDed.units() / each;
    lines.push_back({"The federal allowance of " + amountText(record.depsDed) + " is for " + std::to_string(count) +
                     (count == 1 ? " exemption" : " exemptions")});
  }
  if (!trace.exemptions) return;
  const Money chosen = *trace.allowance * *trace.exemptions;
  if (chosen != record.depsDed) {
    lines.push_back({"What is chosen now, " + toText(*trace.exemptions) +
                     (*trace.exemptions == 1 ? " exemption" : " exemptions") + " at " + amountText(*trace.allowance) +
                     " each, makes an allowance of " + amountText(chosen) +
                     ". It counts once the main screen is loaded again; until then the allowance stays " +
                     amountText(record.depsDed)});
  }
}

}  // namespace

std::string ExplanationLine::text() const { return (sum.empty() ? what : what + ": " + sum) + "."; }

std::vector<std::string> Explanation::sentences() const {
  std::vector<std::string> texts;
  for (const ExplanationLine& line : lines) texts.push_back(line.text());
  return texts;
}

std::vector<Share> sharesOf(const Trace& trace) {
  const PayData& record = trace.after.record;
  if (record.grossPay <= 0) return {};
  const auto share = [&](const char* name, Money amount) {
    return Share{name, amount, toReal(amount) / toReal(record.grossPay)};
  };
  std::vector<Share> shares{share("401(k)", record.amt401k),     share("federal tax", record.fedTax),
                            share("state tax", record.stateTax), share("local tax", record.localTax),
                            share("FICA", record.fica),          share("check", record.checkAmt)};
  for (const Share& part : shares) {
    if (part.amount < 0) return {};
  }
  return shares;
}

std::string shareText(const Share& share) {
  return std::string(share.name) + " " + toText(std::round(share.fraction * 1000) / 10) + "%";
}

std::string sharesText(const Trace& trace) {
  const PayData& record = trace.after.record;
  if (record.grossPay <= 0)
    return "The gross pay is " + amountText(record.grossPay) + ": there is nothing to share out.";
  const auto shares = sharesOf(trace);
  if (shares.empty()) {
    return "The gross pay is " + amountText(record.grossPay) + "; a part of it is negative, so the parts make no bar.";
  }
  std::string parts;
  for (const Share& share : shares) {
    if (share.amount == 0) continue;
    parts += (parts.empty() ? "" : ", ") + shareText(share);
  }
  return "Of the gross pay of " + amountText(record.grossPay) + ": " + parts + ".";
}

std::string amountText(Money amount) {
  const bool negative = amount < 0;
  const auto units = amount.units();
  std::string text = currency(Money::ofUnits(units - units % 100));
  if (negative) text = text.front() == '(' ? text.substr(1, text.size() - 2) : text;
  if (const auto rest = std::abs(units % 100); rest != 0) {
    text += static_cast<char>('0' + rest / 10);
    if (rest % 10 != 0) text += static_cast<char>('0' + rest % 10);
  }
  return negative ? "(" + text + ")" : text;
}

std::string rateText(double fraction) {
  if (!std::isfinite(fraction * 100)) return toText(fraction);
  // A rate in single precision is shown as it was written.
  const auto single = static_cast<float>(fraction);
  if (static_cast<double>(single) != fraction) return toText(fraction * 100) + "%";
  return toText(realOf(shortestTextOf(single)) * 100) + "%";
}

std::vector<Explanation> explain(const Trace& trace) {
  std::vector<Explanation> all;
  for (const Row& row : rows()) {
    Known known{};
    std::vector<ExplanationLine> lines;
    const std::size_t end = row.field == stateTax ? trace.endOfState : endOf(trace, row.field);
    const TracedStatement* whole = nullptr;
    for (std::size_t i = 0; i < end; ++i) {
      const TracedStatement& statement = trace.statements[i];
      const bool hasParts = !statement.part && i + 1 < trace.statements.size() && trace.statements[i + 1].part;
      if (!statement.part) whole = &statement;
      if (hasParts) continue;
      if (leadsTo(trace, row, statement, i)) {
        if (auto line = lineOf(trace, known, i, row.field)) lines.push_back(std::move(*line));
        if (statement.part && !statement.done && !whole->done) lines.push_back({"The rest is given up"});
      }
      for (const Outcome& outcome : outcomesOf(trace, statement)) {
        if (outcome.field) known.at(*outcome.field) = true;
      }
    }
    const bool touched = trace.touchedBy.at(row.field) == trace.number;
    addBackground(trace, row, lines);
    if (!touched) lines.push_back({"Not touched by this calculation", standing(trace, row.field, "the one before")});
    Money amount;
    std::size_t number = 0;
    Fields::each(trace.after, [&](const char* /*name*/, const auto& field) {
      if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field)>, Money>) {
        if (number == row.field) amount = field;
      }
      ++number;
    });
    all.push_back({row.title, amount, std::move(lines)});
  }
  return all;
}

}  // namespace tallyfin
