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

constexpr std::string_view frequencies[] = {"Weekly", "Twice A Month", "Every Two Weeks", "Monthly"};
constexpr std::string_view statuses[] = {"Married", "Single", "Married Claiming Single"};
constexpr std::string_view flags[] = {"N", "Y"};

struct ColumnRule {
  std::string_view name;
  Kind kind;
  int first = 0;  ///< `first` to `last`: the numbers of a choice.
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

/// The most characters that a row's results take, with the comma before each.
constexpr std::size_t longestResults = resultRows.size() * (1 + longestAmount);

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

/// The index of a text among captions.
std::optional<int> entryNamed(std::string_view text, std::span<const std::string_view> captions) {
  const auto same = [](char a, char b) { return a == b || lower(a) == lower(b); };
  const auto found = std::find_if(captions.begin(), captions.end(), [&](std::string_view caption) {
    return std::equal(caption.begin(), caption.end(), text.begin(), text.end(), same);
  });
  if (found == captions.end()) return std::nullopt;
  return static_cast<int>(found - captions.begin());
}

std::span<const std::string_view> states() {
  static const auto captions = [] {
    std::array<std::string_view, stateList.size()> all;
    std::transform(stateList.begin(), stateList.end(), all.begin(), [](const State& entry) { return entry.caption; });
    return all;
  }();
  return captions;
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
    if (rule != rules.end()) known_.push_back({static_cast<Column>(rule - rules.begin()), place});
  }
  std::sort(known_.begin(), known_.end(), [](const Entry& a, const Entry& b) { return a.column < b.column; });
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

Paycheck::Paycheck() {
  for (std::size_t column = 0; column < columnCount; ++column) takeCell(static_cast<Column>(column), {});
}

bool Paycheck::work(const Header& header, const Row& row, std::string& out) {
  problem_.clear();
  if (row.cells.size() > header.size()) problem_ = "more cells than the header has columns";
  if (take(header, row)) {
    calculate();
    nameUnreadTexts();
    std::array<char, longestResults> results;
    char* end = results.data();
    for (const ResultRow& result : resultRows) {
      *end++ = ',';
      end = writeText(end, payData.*result.amount);
    }
    out.append(results.data(), end);
  } else {
    out.append(resultRows.size(), ',');
  }
  (out += ',') += problem_;
  return !problem_.empty();
}

bool Paycheck::take(const Header& header, const Row& row) {
  for (const auto& [column, place] : header.known()) {
    takeCell(column, place < row.cells.size() ? row.cells[place].text(storage_) : std::string_view());
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

/// Does what the program does when it starts with these choices stored, its boxes are filled and Calculate is pressed.
void Paycheck::calculate() {
  payData = PayData{};
  static_cast<WorksheetFields&>(*this) = WorksheetFields{};
  setOption(settings::sta401, numbers_[state401k] != 0, stored401k_);
  setOption(settings::staPreTax, numbers_[statePreTax] != 0, storedPreTax_);

  payData.frequency = numbers_[frequency];
  payData.mMethod = numbers_[stateMethod];
  exemptions = numbers_[exemptionCount];
  exemptionsText_ = std::to_string(numbers_[exemptionCount]);
  takeAllowance(exemptions);
  takeStatus(numbers_[status], false);
  additional_ = texts_[stateAdditional];
  // The options of a state that doesn't open their screen by itself aren't handed over.
  if (opensStateOptions(numbers_[state])) {
    payData.staMarried = numbers_[stateMarital];
    if (numbers_[state] == tallyfin::state::mississippi) {
      const char* exemption = mississippiExemption(numbers_[stateMarital]);
      if (exemption != nullptr) additional_ = *exemption != '\0' ? exemption : "0";
    }
    takeStateOptions({texts_[stateDependents], texts_[illinoisDependents], texts_[stateExemptions], additional_});
  }
  payData.applyTo = numbers_[localBase];
  takeLocalRate(texts_[localRate]);

  calculatePaycheck();
  makeTotals();
}

void Paycheck::nameUnreadTexts() {
  // A text that isn't a number leaves its field at 0, as in a fresh record: only texts with such a field are looked at.
  const auto name = [this](Column column, const std::string& text, bool isZero, auto read) {
    if (isZero && text != "0" && !can([&] { read(text); })) problem(column, "not a number");
  };
  name(income, texts_[income], payData.grossPay == 0, toMoney);
  name(rate401k, texts_[rate401k], payData.rate401k == 0, realOf);
  name(preTax, texts_[preTax], payData.preTax == 0, toMoney);
  name(preFica, texts_[preFica], payData.preFica == 0, toMoney);
  name(localRate, texts_[localRate], payData.localRate == 0, realOf);
  name(stateAdditional, additional_, payData.staAdd == 0, toMoney);
}

void Paycheck::problem(Column column, const char* why) {
  if (!problem_.empty()) problem_ += "; ";
  ((problem_ += rules[column].name) += ": ") += why;
}

void Paycheck::setOption(const settings::Text& option, bool chosen, bool& stored) {
  if (chosen == stored) return;
  option.save(chosen ? "Y" : "N");
  stored = chosen;
}

}  // namespace tallyfin::batch
