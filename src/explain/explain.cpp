#include "explain/explain.h"

#include <algorithm>
#include <array>
#include <cmath>
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

/// What people call a field, where a statement assigns more than one.
std::string nameOf(std::size_t field) {
  if (field == numberOf("stateDepsDed")) return "allowance ";
  if (field == numberOf("stateStdDed")) return "deduction ";
  if (field == numberOf("staExmp")) return "standard deduction ";
  if (field == stateWage) return "wage ";
  return "";
}

std::string textOf(const Figure& figure) {
  if (const auto* amount = std::get_if<Money>(&figure)) return amountText(*amount);
  if (const auto* count = std::get_if<Int16>(&figure)) return toText(*count);
  const double rate = std::get<double>(figure);
  return rate < 1 ? rateText(rate) : toText(rate);  // 1 or more: a percentage as it was typed
}

bool says(std::string_view title, std::string_view word) { return title.find(word) != std::string_view::npos; }

std::optional<Money> difference(Money a, Money b) {
  try {
    return a - b;
  } catch (const FailedStatement&) {
    return std::nullopt;
  }
}

/// "over $525.00 up to $1,125.00".
std::string reachOf(const AppliedRow& row) {
  std::string bound = amountText(row.bound);
  const std::string from = row.lower > 0 && row.lower < row.bound ? "over " + amountText(row.lower) + " " : "";
  switch (row.test) {
    case Test::atMost: return from + "up to " + bound;
    case Test::below: return from + "below " + bound;
    case Test::above: return "over " + bound;
    case Test::atLeast: return "from " + bound;
  }
  return bound;
}

std::string inDollars(double dollars) { return amountText(fromReal(dollars)); }

std::string sumOf(const AppliedRow& row, const std::string& result) {
  const std::string reach = amountText(row.x) + " is " + reachOf(row) + ": ";
  if (row.gives != AppliedRow::Gives::tax) return reach + result;
  std::string sum = row.rate == 0 ? "" : rateText(row.rate) + " of " + amountText(row.x - row.lower);
  if (sum.empty() && row.plus == 0 && row.credit == 0) return reach + "no tax";
  if (row.plus > 0) sum += (sum.empty() ? "" : ", plus ") + inDollars(row.plus);
  if (row.plus < 0) sum += ", less " + inDollars(-row.plus);
  if (row.credit != 0) sum += ", less a credit of " + inDollars(row.credit);
  return reach + sum + ", is " + result;
}

/// The record while the statements of a trace are gone through again.
class Replay {
 public:
  explicit Replay(const Trace& trace) : trace_(trace) {
    std::size_t number = 0;
    Fields::each(trace.before, [&](const char* /*name*/, const auto& field) { now_.at(number++) = field; });
  }

  const Figure& at(std::size_t field) const { return now_.at(field); }
  Money amountAt(std::size_t field) const { return std::get<Money>(at(field)); }
  bool touched(std::size_t field) const { return touched_.at(field); }

  void carryOut(const TracedStatement& statement) {
    for (std::size_t i = 0; i < statement.changes; ++i) {
      const Change& change = trace_.changes[statement.firstChange + i];
      now_.at(change.field) = change.to;
      touched_.at(change.field) = true;
    }
    for (std::size_t i = 0; i < statement.outcomes; ++i) {
      const Outcome& outcome = trace_.outcomes[statement.firstOutcome + i];
      if (outcome.field && statement.done && statement.assigned) touched_.at(*outcome.field) = true;
    }
  }

 private:
  const Trace& trace_;
  std::array<Figure, fieldCount> now_;
  std::array<bool, fieldCount> touched_{};
};

/// Since when a field stands as it was before the calculation.
std::string standing(const Trace& trace, std::size_t field) {
  std::array<Figure, fieldCount> lastLeft;
  std::array<Figure, fieldCount> before;
  std::size_t number = 0;
  Fields::each(trace.afterLast, [&](const char* /*name*/, const auto& value) { lastLeft.at(number++) = value; });
  number = 0;
  Fields::each(trace.before, [&](const char* /*name*/, const auto& value) { before.at(number++) = value; });
  const std::string value = textOf(before.at(field));
  if (before.at(field) != lastLeft.at(field)) return value + " as it was set since the last calculation";
  const int by = trace.touchedBefore.at(field);
  if (by == 0) return value + " from the start";
  const int ago = trace.number - by;
  return value + (ago == 1 ? " from the one before" : " from " + std::to_string(ago) + " calculations ago");
}

std::string whyNot(const TracedStatement& statement) {
  return statement.badText ? "\"" + *statement.badText + "\" isn't a number" : statement.why;
}

/// The sum or figure behind a title; empty where the statement altered nothing that wasn't so already.
std::string figuresOf(const Trace& trace, const Replay& replay, const TracedStatement& statement) {
  const Outcome* outcomes = trace.outcomes.data() + statement.firstOutcome;
  if (statement.outcomes == 0) return "";
  std::string result = textOf(outcomes[0].value);
  if (statement.row) return sumOf(*statement.row, result);
  if (statement.outcomes == 2 && !outcomes[0].field && outcomes[1].field) {
    return "of " + result + " it is " + textOf(outcomes[1].value);
  }
  if (statement.outcomes > 1) {
    std::string list;
    for (std::size_t i = 0; i < statement.outcomes; ++i) {
      list += (i == 0 ? "" : ", ") + (outcomes[i].field ? nameOf(*outcomes[i].field) : "") + textOf(outcomes[i].value);
    }
    return list;
  }
  const auto* to = std::get_if<Money>(&outcomes[0].value);
  if (!outcomes[0].field || to == nullptr) return result;

  // What it starts from: its own figure so far, or the one that it is first made of.
  std::size_t source = *outcomes[0].field;
  const bool refines = replay.touched(source);
  if (!refines) {
    if (source != fedBase && source != stateWage && source != checkAmt) return result;
    source = source == fedBase ? taxableWage : grossPay;
  }
  Money from = replay.amountAt(source);
  if (from == *to) return refines ? "" : result;
  const std::string_view title = statement.title;
  const Int16 periods = std::get<Int16>(replay.at(numberOf("payPeriods")));
  if (!refines && says(title, "year's wage")) {
    from = from - (replay.amountAt(numberOf("statePreTax")) + replay.amountAt(numberOf("state401k")));
  }
  if (says(title, "year's wage") && periods != 0 && *to == from * periods) {
    return toText(periods) + " times " + amountText(from) + " is " + result;
  }
  if (says(title, "pay period's share") && periods != 0 && *to == fromReal(toReal(from) / toReal(periods))) {
    return amountText(from) + " divided by " + toText(periods) + " is " + result;
  }
  const bool sum = says(title, "Less") || says(title, "less") || says(title, "Plus");
  const auto more = difference(*to, from);
  const auto fewer = difference(from, *to);
  if (!sum || !more || !fewer || says(title, "year's") || says(title, "share")) return result;
  if (*more > 0) return amountText(from) + " plus " + amountText(*more) + " makes " + result;
  return amountText(from) + " less " + amountText(*fewer) + " leaves " + result;
}

/// What a statement did, as a sentence for a row; empty where it isn't worth one.
std::string sentence(const Trace& trace, const Replay& replay, const TracedStatement& statement, std::size_t row) {
  const std::string title = statement.title;
  const Outcome* outcomes = trace.outcomes.data() + statement.firstOutcome;
  if (!statement.done || !statement.assigned) {
    std::string stays;
    for (std::size_t i = 0; i < statement.outcomes; ++i) {
      const auto field = outcomes[i].field;
      if (!field) continue;
      stays += (stays.empty() ? "; " : ", ") +
               (replay.touched(*field) ? textOf(replay.at(*field)) : standing(trace, *field));
    }
    const std::string why = statement.done ? ": doesn't apply" : " left out: " + whyNot(statement);
    return title + why + (stays.empty() ? "" : stays + " stays") + ".";
  }
  // Nothing entered, nothing left untaxed: not worth a line under another figure.
  const bool nothing = statement.outcomes == 1 && outcomes[0].value == Figure(Money{});
  if (nothing && !statement.row && outcomes[0].field != row &&
      !(outcomes[0].field && replay.touched(*outcomes[0].field))) {
    return "";
  }
  const std::string figures = figuresOf(trace, replay, statement);
  return figures.empty() ? "" : title + ": " + figures + ".";
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
  for (std::size_t i = 0; i < statement.outcomes; ++i) {
    const auto field = trace.outcomes[statement.firstOutcome + i].field;
    if (!field || std::find(row.ledBy.begin(), row.ledBy.end(), *field) == row.ledBy.end()) continue;
    if (!ofTheState || *field == row.field) return true;
  }
  return false;
}

/// Behind the last statement that assigns a field, or would.
std::size_t endOf(const Trace& trace, std::size_t field) {
  std::size_t end = 0;
  for (std::size_t i = 0; i < trace.statements.size(); ++i) {
    const TracedStatement& statement = trace.statements[i];
    for (std::size_t k = 0; k < statement.outcomes; ++k) {
      if (trace.outcomes[statement.firstOutcome + k].field == field) end = i + 1;
    }
  }
  return end;
}

/// What the record says about a row beside its statements.
void addBackground(const Trace& trace, const Row& row, std::vector<std::string>& lines) {
  const PayData& record = trace.after.record;
  if (row.field == stateTax) {
    lines.insert(lines.begin(), *trace.state == '\0' ? "No state is chosen." : std::string(trace.state) + ".");
  }
  if (row.field == localTax) lines.insert(lines.begin(), "The local rate is " + rateText(record.localRate) + ".");
  if (row.field == grossPay && trace.touchedBy.at(grossPay) != trace.number) {
    lines.emplace_back("No income is entered.");
  }
  if (row.field == totalDed) {
    lines.push_back(amountText(record.amt401k) + " + " + amountText(record.fica) + " + " + amountText(record.fedTax) +
                    " + " + amountText(record.stateTax) + " + " + amountText(record.localTax) + ".");
  }
  if (row.field != fedTax || !trace.allowance) return;
  const std::int64_t each = trace.allowance->units();
  if (record.depsDed > 0 && record.depsDed.units() % each == 0) {
    const std::int64_t count = record.depsDed.units() / each;
    lines.push_back("The federal allowance of " + amountText(record.depsDed) + " is for " + std::to_string(count) +
                    (count == 1 ? " exemption." : " exemptions."));
  }
  if (!trace.exemptions) return;
  const Money chosen = *trace.allowance * *trace.exemptions;
  if (chosen != record.depsDed) {
    lines.push_back("The number of exemptions chosen now, " + toText(*trace.exemptions) + ", makes an allowance of " +
                    amountText(chosen) + "; it waits until it is saved and the screen is loaded again.");
  }
}

}  // namespace

std::vector<Share> sharesOf(const Trace& trace) {
  const PayData& record = trace.after.record;
  std::vector<Share> shares{{"401(k)", record.amt401k, 0},     {"federal tax", record.fedTax, 0},
                            {"state tax", record.stateTax, 0}, {"local tax", record.localTax, 0},
                            {"FICA", record.fica, 0},          {"check", record.checkAmt, 0}};
  if (record.grossPay <= 0) return {};
  for (Share& share : shares) {
    if (share.amount < 0) return {};
    share.fraction = toReal(share.amount) / toReal(record.grossPay);
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
  if (const auto rest = units % 100 < 0 ? -(units % 100) : units % 100; rest != 0) {
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
    Replay replay(trace);
    std::vector<std::string> lines;
    const std::size_t end = row.field == stateTax ? trace.endOfState : endOf(trace, row.field);
    const TracedStatement* whole = nullptr;
    for (std::size_t i = 0; i < end; ++i) {
      const TracedStatement& statement = trace.statements[i];
      const bool hasParts = !statement.part && i + 1 < trace.statements.size() && trace.statements[i + 1].part;
      if (!statement.part) whole = &statement;
      if (hasParts) continue;
      if (leadsTo(trace, row, statement, i)) {
        if (std::string line = sentence(trace, replay, statement, row.field); !line.empty()) {
          lines.push_back(std::move(line));
        }
        if (statement.part && !statement.done && !whole->done) lines.emplace_back("The rest is given up.");
      }
      replay.carryOut(statement);
    }
    const bool touched = trace.touchedBy.at(row.field) == trace.number;
    addBackground(trace, row, lines);
    if (!touched) lines.push_back("Not touched by this calculation: " + standing(trace, row.field) + ".");
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
