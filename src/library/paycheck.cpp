#include "library/paycheck.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "engine/calculate.h"
#include "engine/doubletext.h"
#include "engine/incomesearch.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/recorder.h"
#include "engine/services.h"
#include "engine/settings.h"
#include "library/cells.h"
#include "library/options.h"
#include "stateoptions/handover.h"
#include "stateoptions/shapes.h"

namespace tallyfin::library {

namespace {

template <class Read>
bool can(Read read) {
  bool done = false;
  unlessItFails([&] {
    read();
    done = true;
  });
  return done;
}

constexpr const char* whyUnusable(Kind kind) {
  switch (kind) {
    case Kind::choice: return "no such entry";
    case Kind::flag: return "neither Y nor N";
    default: return "no 16-bit number";
  }
}

constexpr std::int64_t unitsPerCent = Money::unitsPerDollar / 100;

}  // namespace

// --- The columns -----------------------------------------------------------------------------------------------------

void Paycheck::clear() {
  for (std::size_t column = 0; column < columnCount; ++column) change(static_cast<Column>(column), {});
}

void Paycheck::change(Column column, std::string_view text) {
  const std::size_t index = indexOf(column);
  const Kind kind = columnRules[index].kind;
  given_[index] = !text.empty();
  const bool isText = kind == Kind::box || kind == Kind::wanted || kind == Kind::count;
  texts_[index] = text.empty() && isText ? std::string_view("0") : text;
  if (kind == Kind::box || kind == Kind::wanted) return;
  if (text.empty()) return setNumber(column, columnRules[index].byDefault);
  setNumber(column, kind == Kind::count ? countOf(text) : entryOf(column, text));
}

void Paycheck::setInteger(Column column, std::int64_t number) {
  const Kind kind = ruleOf(column).kind;
  if (kind == Kind::choice || kind == Kind::flag) {
    given_.set(indexOf(column));
    texts_[indexOf(column)].clear();
    return setNumber(column, entryOf(column, number));
  }
  std::array<char, 24> digits{};
  const auto written = std::to_chars(digits.begin(), digits.end(), number);
  set(column, {digits.data(), static_cast<std::size_t>(written.ptr - digits.data())});
}

void Paycheck::setReal(Column column, double number) {
  set(column, std::isnan(number) ? std::string() : shortestTextOf(number));
}

const std::string& Paycheck::exemptionsText() const {
  static const auto texts = [] {
    std::vector<std::string> all;
    for (int number = 0; number <= ruleOf(Column::exemptions).last; ++number) all.push_back(std::to_string(number));
    return all;
  }();
  return texts[static_cast<std::size_t>(number(Column::exemptions))];
}

void Paycheck::setNumber(Column column, std::optional<int> number) {
  unusable_[indexOf(column)] = !number;
  numbers_[indexOf(column)] = number.value_or(0);
}

// --- The work --------------------------------------------------------------------------------------------------------

bool Paycheck::work() {
  reports_.clear();
  const bool usable = unusable_.none();
  if (usable) {
    const Services services(options_, *this);
    takeIncome();
    takeChoices();
    calculatePaycheck();
    makeTotals();
    std::transform(resultRows.begin(), resultRows.end(), results_.begin(),
                   [](const ResultRow& row) { return payData.*row.amount; });
    reportUnread();
    reportWhatCannotBeMeant();
  } else {
    clearResults();
    reportUnusable();
  }
  makeProblem();
  return usable;
}

std::vector<Explanation> Paycheck::explain() {
  if (unusable_.any()) return {};
  const Services services(options_, *this);
  takeIncome();
  takeChoices();
  forgetTraces();
  {
    recordAllowance(exemptions);
    const Recorder recording;
    Recorder::calculatePaycheck();
    Recorder::makeTotals();
  }
  std::vector<Explanation> all = tallyfin::explain(*lastTrace());
  forgetTraces();
  return all;
}

/// The income's text, or that of the smallest income that gives the check wanted.
void Paycheck::takeIncome() {
  income_ = &text(Column::income);
  if (isEmpty(Column::net)) return;
  if (!isEmpty(Column::income)) return report(Column::net, "the income is given too and counts");
  Money wanted;
  if (!can([&] { wanted = toMoney(text(Column::net)); })) return report(Column::net, "not a number");
  if (wanted <= 0) return report(Column::net, "not above 0");
  if (wanted.units() % unitsPerCent != 0) return report(Column::net, "not of whole cents");
  takeChoices();
  const auto found = smallestIncomeFor(wanted, largestIncome);
  if (!found) return report(Column::net, "no income up to 1000000.00 gives that check");
  found_ = toText(*found);
  income_ = &found_;
}

/// Does the same as the program from its start to the Calculate button, with these choices stored and typed.
void Paycheck::takeChoices() {
  payData = PayData{};
  static_cast<WorksheetFields&>(*this) = WorksheetFields{};
  options_.deducts401k = number(Column::state401k) != 0;
  options_.deductsPreTax = number(Column::statePreTax) != 0;

  payData.frequency = number(Column::frequency);
  payData.mMethod = number(Column::stateMethod);
  exemptions = number(Column::exemptions);
  takeAllowance(exemptions);
  takeStatus(number(Column::status), false);
  takeOptions();
  payData.applyTo = number(Column::localBase);
  takeLocalRate(text(Column::localRate));
}

/// Without effect for a state whose options screen doesn't open by itself: its options don't reach the record.
void Paycheck::takeOptions() {
  additional_ = &text(Column::stateAdditional);
  if (!opensStateOptions(stateIndex())) return;
  const int marital = number(Column::stateMarital);
  payData.staMarried = marital;
  if (stateIndex() == tallyfin::state::mississippi) {
    const char* exemption = mississippiExemption(marital);
    if (exemption != nullptr) {
      exemption_ = *exemption != '\0' ? exemption : "0";
      additional_ = &exemption_;
    }
  }
  takeStateOptions(
      {text(Column::stateDependents), text(Column::illinoisDependents), text(Column::stateExemptions), *additional_});
}

// --- What is wrong ---------------------------------------------------------------------------------------------------

void Paycheck::reportUnusable() {
  for (std::size_t column = 0; column < columnCount; ++column) {
    if (unusable_[column]) report(static_cast<Column>(column), whyUnusable(columnRules[column].kind));
  }
}

/// Reports the boxes whose text isn't a number: the statement that reads such a text is skipped.
void Paycheck::reportUnread() {
  // Such a text leaves its field at 0. So texts with another value in their field needn't be parsed again.
  const auto name = [this](Column column, const std::string& text, bool isZero, auto read) {
    if (isZero && text != "0" && !can([&] { read(text); })) report(column, "not a number");
  };
  name(Column::income, *income_, payData.grossPay == 0, toMoney);
  name(Column::rate401k, text(Column::rate401k), payData.rate401k == 0, realOf);
  name(Column::preTax, text(Column::preTax), payData.preTax == 0, toMoney);
  name(Column::preFica, text(Column::preFica), payData.preFica == 0, toMoney);
  name(Column::localRate, text(Column::localRate), payData.localRate == 0, realOf);
  name(Column::stateAdditional, *additional_, payData.staAdd == 0, toMoney);
}

/// Reports choices that mean nothing for a paycheck, although there are results.
void Paycheck::reportWhatCannotBeMeant() {
  if (isEmpty(Column::frequency)) report(Column::frequency, "none is chosen and so there is no federal tax");
  reportOptions();
}

/// Reports numbers that the state doesn't offer on its options screen.
void Paycheck::reportOptions() {
  const auto& reports = optionReports(stateIndex());
  for (std::size_t i = 0; i < optionColumns.size(); ++i) {
    const Column column = optionColumns[i];
    if (!isEmpty(column)) {
      if (!isOffered(stateIndex(), column, number(column))) report(column, reports[i].notOffered);
    } else if (!reports[i].notChosen.empty()) {
      report(column, reports[i].notChosen);
    }
  }
}

/// Keeps the reports in the order of the columns.
void Paycheck::report(Column column, std::string_view why) {
  auto place = reports_.end();
  while (place != reports_.begin() && column < (place - 1)->column) --place;
  reports_.insert(place, {column, why});
}

void Paycheck::makeProblem() {
  problem_.clear();
  if (reports_.empty()) return;
  for (const Report& report : reports_) {
    if (!problem_.empty()) problem_ += "; ";
    ((problem_ += ruleOf(report.column).name) += ": ") += report.why;
  }
}

// --- The options as the state routines read them ---------------------------------------------------------------------

std::optional<std::string> Paycheck::Options::read(std::string_view /*section*/, std::string_view key) const {
  const bool chosen = key == settings::sta401.key ? deducts401k : deductsPreTax;
  return chosen ? "Y" : "N";
}

}  // namespace tallyfin::library
