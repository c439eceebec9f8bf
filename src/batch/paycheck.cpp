#include "batch/paycheck.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <span>

#include "engine/entries.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/statelist.h"
#include "states/handover.h"
#include "states/shapes.h"

namespace tallyfin::batch {

namespace {

enum class Kind { box, choice, flag, count };

constexpr std::string_view frequencies[] = {"weekly", "twice a month", "every two weeks", "monthly"};
constexpr std::string_view statuses[] = {"married", "single", "married claiming single"};
constexpr std::string_view flags[] = {"n", "y"};

struct ColumnRule {
  std::string_view name;
  Kind kind;
  int first = 0;  ///< The numbers of a choice.
  int last = 0;
  int byDefault = 0;
};

constexpr std::array<ColumnRule, columnCount> rules{{
    {"income", Kind::box},
    {"rate_401k", Kind::box},
    {"pre_tax", Kind::box},
    {"pre_fica", Kind::box},
    {"frequency", Kind::choice, 0, 3, -1},
    {"status", Kind::choice, 0, 2},
    {"exemptions", Kind::choice, 0, 15},
    {"state", Kind::choice, 0, 41},
    {"self_employed", Kind::flag},
    {"state_401k", Kind::flag},
    {"state_pre_tax", Kind::flag},
    {"local_rate", Kind::box},
    {"local_base", Kind::choice, 1, 5, 1},
    {"state_dependents", Kind::count},
    {"illinois_dependents", Kind::count},
    {"state_exemptions", Kind::count},
    {"state_marital", Kind::count},
    {"state_method", Kind::count},
    {"state_additional", Kind::box},
}};

/// The names of the results, in their order.
constexpr std::array<std::string_view, resultRows.size()> resultNames{
    "gross_pay", "amt_401k", "non_taxable",     "pre_fica_pay", "federal_tax",      "state_tax",
    "local_tax", "fica",     "social_security", "medicare",     "total_deductions", "check_amount"};
constexpr std::string_view problemName = "problem";

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

std::string_view trimmed(std::string_view text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

const std::vector<std::string>& states() {
  static const std::vector<std::string> captions = [] {
    std::vector<std::string> all;
    for (const State& entry : stateList) all.push_back(lowered(entry.caption));
    return all;
  }();
  return captions;
}

/// The place of a text among captions, which are written small.
template <class Captions>
std::optional<int> entryNamed(std::string_view text, const Captions& captions) {
  std::array<char, 32> buffer{};  // longer than every caption
  if (text.size() > buffer.size()) return std::nullopt;
  std::transform(text.begin(), text.end(), buffer.begin(), lower);
  const std::string_view name(buffer.data(), text.size());
  const auto found = std::find_if(std::begin(captions), std::end(captions), [&](std::string_view caption) {
    return caption.size() == name.size() && caption == name;
  });
  if (found == std::end(captions)) return std::nullopt;
  return static_cast<int>(found - std::begin(captions));
}

std::optional<int> wholeNumberOf(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// The number of the entry that a cell names, by its caption or by its number.
std::optional<int> entryOf(Column column, std::string_view cell) {
  const std::string_view text = trimmed(cell);
  if (const auto number = wholeNumberOf(text)) {
    const bool inList = *number >= rules[column].first && *number <= rules[column].last;
    return inList ? number : std::nullopt;
  }
  switch (column) {
    case frequency: return entryNamed(text, frequencies);
    case status: return entryNamed(text, statuses);
    case state: return entryNamed(text, states());
    default: return std::nullopt;
  }
}

std::optional<int> countOf(std::string_view text) {
  std::optional<int> count;
  unlessItFails([&] { count = toInt16(text).value(); });
  return count;
}

template <class Read>
bool can(Read read) {
  bool done = false;
  unlessItFails([&] {
    read();
    done = true;
  });
  return done;
}

}  // namespace

std::optional<std::string> Header::take(const Row& row) {
  if (row.cells.empty()) return "there is no header";
  places_.fill(std::string_view::npos);
  size_ = row.cells.size();
  std::set<std::string> seen;
  std::string storage;
  for (std::size_t place = 0; place < size_; ++place) {
    const std::string name = lowered(trimmed(row.cells[place].text(storage)));
    if (!seen.insert(name).second) return "two columns are named " + name;
    if (name == problemName || std::find(resultNames.begin(), resultNames.end(), name) != resultNames.end()) {
      return "a column is named like a result: " + name;
    }
    const auto rule =
        std::find_if(rules.begin(), rules.end(), [&](const ColumnRule& known) { return known.name == name; });
    if (rule != rules.end()) places_[static_cast<std::size_t>(rule - rules.begin())] = place;
  }
  return std::nullopt;
}

const std::string& resultColumns() {
  static const std::string columns = [] {
    std::string all;
    for (const std::string_view name : resultNames) (all += ',') += name;
    (all += ',') += problemName;
    return all;
  }();
  return columns;
}

const std::string& Paycheck::exemptionsText() const {
  static const std::vector<std::string> entries = [] {
    std::vector<std::string> all;
    for (int entry = rules[exemptionCount].first; entry <= rules[exemptionCount].last; ++entry) {
      all.push_back(std::to_string(entry));
    }
    return all;
  }();
  return entries[static_cast<std::size_t>(numbers_[exemptionCount])];
}

bool Paycheck::work(const Header& header, const Row& row, std::string& out) {
  problem_.clear();
  if (row.cells.size() > header.size()) problem_ = "more cells than the header has columns";
  if (take(header, row) && problem_.empty()) {
    calculate();
    nameUnreadTexts();
    for (const ResultRow& result : resultRows) (out += ',') += toText(payData.*result.amount);
  } else {
    out.append(resultRows.size(), ',');
  }
  (out += ',') += problem_;
  return !problem_.empty();
}

bool Paycheck::take(const Header& header, const Row& row) {
  for (std::size_t i = 0; i < columnCount; ++i) {
    const auto column = static_cast<Column>(i);
    const Cell* cell = header.cell(column, row);
    const std::string_view text = cell != nullptr ? cell->text(storage_) : std::string_view();
    if (text.empty() && isDefault_[column]) continue;
    takeCell(column, text);
    isDefault_[column] = text.empty();
  }
  return problem_.empty();
}

void Paycheck::takeCell(Column column, std::string_view text) {
  const ColumnRule& rule = rules[column];
  if (rule.kind == Kind::box || rule.kind == Kind::count) texts_[column] = text.empty() ? std::string_view("0") : text;
  if (rule.kind == Kind::box) return;
  numbers_[column] = rule.byDefault;
  if (text.empty()) return;
  std::optional<int> number;
  switch (rule.kind) {
    case Kind::choice: number = entryOf(column, text); break;
    case Kind::flag: number = entryNamed(trimmed(text), flags); break;
    default: number = countOf(text); break;
  }
  if (number) {
    numbers_[column] = *number;
  } else if (rule.kind == Kind::flag) {
    problem(column, "neither Y nor N");
  } else {
    problem(column, rule.kind == Kind::choice ? "no such entry" : "no 16-bit number");
  }
}

/// As the program does it when it is started with these choices stored, the boxes are filled and Calculate is pressed.
void Paycheck::calculate() {
  payData = PayData{};
  static_cast<WorksheetFields&>(*this) = WorksheetFields{};
  setOption("sta401", numbers_[state401k] != 0, stored401k_);
  setOption("staPreTax", numbers_[statePreTax] != 0, storedPreTax_);

  payData.frequency = numbers_[frequency];
  payData.mMethod = numbers_[stateMethod];
  exemptions = numbers_[exemptionCount];
  takeAllowance(exemptions);
  takeStatus(numbers_[status], false);
  // The options of a state that doesn't open their screen by itself aren't handed over.
  if (opensStateOptions(numbers_[state])) {
    payData.staMarried = numbers_[stateMarital];
    if (numbers_[state] == tallyfin::state::mississippi) {
      const char* exemption = mississippiExemption(numbers_[stateMarital]);
      if (exemption != nullptr) {
        texts_[stateAdditional] = *exemption != '\0' ? exemption : "0";
        isDefault_[stateAdditional] = false;
      }
    }
    takeStateOptions(
        {texts_[stateDependents], texts_[illinoisDependents], texts_[stateExemptions], texts_[stateAdditional]});
  }
  payData.applyTo = numbers_[localBase];
  takeLocalRate(texts_[localRate]);

  calculatePaycheck();
  makeTotals();
}

void Paycheck::nameUnreadTexts() {
  // A text that can't be read leaves its field at 0, where a fresh record has it: only those have to be looked at.
  const auto name = [this](Column column, bool isZero, auto read) {
    if (isZero && texts_[column] != "0" && !can([&] { read(texts_[column]); })) problem(column, "not a number");
  };
  name(income, payData.grossPay == 0, toMoney);
  name(rate401k, payData.rate401k == 0, realOf);
  name(preTax, payData.preTax == 0, toMoney);
  name(preFica, payData.preFica == 0, toMoney);
  name(localRate, payData.localRate == 0, realOf);
  name(stateAdditional, payData.staAdd == 0, toMoney);
}

void Paycheck::problem(Column column, const char* why) {
  if (!problem_.empty()) problem_ += "; ";
  ((problem_ += rules[column].name) += ": ") += why;
}

void Paycheck::setOption(const char* key, bool chosen, bool& stored) {
  if (chosen == stored) return;
  store_.write(section::stateInfo, key, chosen ? "Y" : "N");
  stored = chosen;
}

}  // namespace tallyfin::batch
