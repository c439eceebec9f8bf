#pragma once

#include <array>
#include <concepts>
#include <optional>
#include <span>
#include <type_traits>

#include "engine/failure.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "engine/tape.h"
#include "engine/title.h"
#include "engine/worksheet.h"

/// The recorded kind of figures: each holds a number and the index of its node on the tape of the calculation. The
/// names are those of the plain kind.

namespace tallyfin::recorded {

using ::tallyfin::FailedStatement;
using ::tallyfin::Title;

/// Add a node or a comparison to the tape of the running calculation. They are out of line to keep the routines small.
NodeId made(Op op, Value value, NodeId a = noNode, NodeId b = noNode, const char* name = "", bool inDollars = false);
bool compared(Comparison comparison);

template <class T>
class Recorded {
 public:
  constexpr Recorded() = default;
  constexpr Recorded(T value) : value_(value) {}  // NOLINT(google-explicit-constructor): a number is a figure
  template <std::integral Number>
  constexpr Recorded(Number value)  // NOLINT(google-explicit-constructor): likewise
      : value_(static_cast<T>(value)) {}
  template <std::same_as<Int16> C>
  requires std::same_as<T, Money> Recorded(const Recorded<C>& count)  // NOLINT(google-explicit-constructor): likewise
      : value_(count.plain()), node_(count.node()) {}
  Recorded(T value, NodeId node) : value_(value), node_(node) {}

  const T& plain() const { return value_; }
  /// Its node on the tape. A number without a node becomes a constant.
  NodeId node() const {
    if (node_ == noNode) node_ = made(Op::constant, value_);
    return node_;
  }

  /// The number, for a switch. An explanation names it.
  int value() const requires std::same_as<T, Int16> {
    compared({Comparison::How::equal, node()});
    return value_.value();
  }

  friend Recorded operator+(const Recorded& a, const Recorded& b) { return a.with(Op::add, b, a.value_ + b.value_); }
  friend Recorded operator-(const Recorded& a, const Recorded& b) {
    return a.with(Op::subtract, b, a.value_ - b.value_);
  }
  friend Recorded operator*(const Recorded& a, const Recorded& b) requires(!std::same_as<T, Money>) {
    return a.with(Op::multiply, b, a.value_ * b.value_);
  }
  friend Recorded operator*(const Recorded& a, const Recorded<Int16>& b) requires std::same_as<T, Money> {
    return a.with(Op::multiply, b, a.value_ * b.plain());
  }
  friend Recorded operator/(const Recorded& a, const Recorded& b) requires std::same_as<T, double> {
    return a.with(Op::divide, b, a.value_ / b.value_);
  }

  friend bool operator==(const Recorded& a, const Recorded& b) {
    return a.ask(Comparison::How::equal, b, a.value_ == b.value_);
  }
  friend bool operator<(const Recorded& a, const Recorded& b) {
    return a.ask(Comparison::How::below, b, a.value_ < b.value_);
  }
  friend bool operator<=(const Recorded& a, const Recorded& b) {
    return a.ask(Comparison::How::atMost, b, a.value_ <= b.value_);
  }
  friend bool operator>(const Recorded& a, const Recorded& b) {
    return a.ask(Comparison::How::above, b, a.value_ > b.value_);
  }
  friend bool operator>=(const Recorded& a, const Recorded& b) {
    return a.ask(Comparison::How::atLeast, b, a.value_ >= b.value_);
  }

  /// The result of an operation on this figure and another.
  template <class Other, class Result>
  Recorded<Result> with(Op op, const Recorded<Other>& other, Result result) const {
    const NodeId a = node();
    return {result, made(op, result, a, other.node())};
  }
  template <class Result>
  Recorded<Result> as(Op op, Result result) const {
    return {result, made(op, result, node())};
  }

 private:
  bool ask(Comparison::How how, const Recorded& other, bool held) const {
    const NodeId a = node();
    return compared({how, a, other.node(), noNode, held});
  }

  T value_{};
  mutable NodeId node_ = noNode;
};

using Amount = Recorded<Money>;
using Count = Recorded<Int16>;
using Rate = Recorded<double>;
using Single = Recorded<float>;
template <class Row>
using RowsOf = TableOf<Row>;
using TaxTable = RowsOf<Band>;

template <class T>
Recorded<T> named(const char* name, T value) {
  return {value, made(Op::constant, value, noNode, noNode, name)};
}
inline Count dollars16(const char* name, int dollars) {
  return {dollars, made(Op::constant, Int16(dollars), noNode, noNode, name, true)};
}
inline Count figureOf(const char* name, int value, const char* /*period*/) { return named(name, Int16(value)); }
inline Rate figureOf(const char* name, double value, const char* /*period*/) { return named(name, value); }
inline Amount figureOf(const char* name, const Dollars& value, const char* /*period*/) {
  return named(name, value.amount);
}
template <class Row>
TableOf<Row> figureOf(const char* name, const Rows<Row>& rows, const char* period) {
  return {name, rows, period};
}

inline Rate toReal(const Amount& x) { return x.as(Op::toReal, tallyfin::toReal(x.plain())); }
inline Rate toReal(const Count& x) { return x.as(Op::toReal, tallyfin::toReal(x.plain())); }
inline Amount fromReal(const Rate& x) { return x.as(Op::fromReal, tallyfin::fromReal(x.plain())); }
inline Amount roundCents(const Amount& x) { return x.as(Op::roundCents, tallyfin::roundCents(x.plain())); }
inline Amount roundedToDollars(const Amount& x) {
  return x.as(Op::roundDollars, tallyfin::roundedToDollars(x.plain()));
}
inline Count integerRounded(const Amount& x) { return x.as(Op::toInt16, tallyfin::integerRounded(x.plain())); }
inline Count integerRounded(const Rate& x) { return x.as(Op::toInt16, tallyfin::integerRounded(x.plain())); }
inline Money roundedForDisplay(const Amount& x) { return tallyfin::roundedForDisplay(x.plain()); }
/// Adds a remark where the number in single precision differs from its shortest text.
Rate asRate(const Single& x);

template <class T>
Recorded<T> least(const Recorded<T>& a, const std::type_identity_t<Recorded<T>>& b) {
  return a.with(Op::least, b, b.plain() < a.plain() ? b.plain() : a.plain());
}
template <class T>
Recorded<T> greatest(const Recorded<T>& a, const std::type_identity_t<Recorded<T>>& b) {
  return a.with(Op::greatest, b, a.plain() < b.plain() ? b.plain() : a.plain());
}
inline Amount within(const Amount& x, const Amount& low, const Amount& high) { return least(greatest(x, low), high); }
inline Amount atLeastZero(const Amount& x) { return greatest(x, 0); }
inline bool isFrom(const Count& low, const Count& x, const Count& high) {
  const bool held = low.plain() <= x.plain() && x.plain() <= high.plain();
  return compared({Comparison::How::from, x.node(), low.node(), high.node(), held});
}

/// A text that the user entered: the address of its control, and the text.
struct Entry {
  const char* where;
  const std::string& text;
  bool empty() const { return text.empty(); }
};
Amount toMoney(const Entry& entry);
Rate realOf(const Entry& entry);
Count toInt16(const Entry& entry);

/// The record and the working fields in figures of this kind. A Recorder copies them from the plain ones, and each
/// statement copies them back.
using PayData = PayDataOf<Amount, Count, Rate>;
struct Worksheet : WorksheetFieldsOf<Amount, Count> {
  static Entry incomeText() { return {"frmMain.txtIncome", tallyfin::worksheet().incomeText()}; }
  static Entry rate401kText() { return {"frmMain.txt401k", tallyfin::worksheet().rate401kText()}; }
  static Entry preTaxText() { return {"frmMain.txtPreTax", tallyfin::worksheet().preTaxText()}; }
  static Entry preFicaText() { return {"frmMain.txtPreFICA", tallyfin::worksheet().preFicaText()}; }
  static Entry exemptionsText() { return {"frmMain.cboExemptions", tallyfin::worksheet().exemptionsText()}; }
  static int stateIndex() { return tallyfin::worksheet().stateIndex(); }
  static bool selfEmployed() { return tallyfin::worksheet().selfEmployed(); }
  static void showFigure(int label, Money figure) { tallyfin::worksheet().showFigure(label, figure); }
};
inline constinit thread_local PayData payData;
inline constinit thread_local Worksheet theWorksheet;
inline Worksheet& worksheet() { return theWorksheet; }

/// A figure within a statement that has a line of its own in an explanation, with the comparisons since the last line.
NodeId titled(const char* title, Value value, NodeId node);
template <class T>
Recorded<T> line(const char* title, const Recorded<T>& figure) {
  return {figure.plain(), titled(title, figure.plain(), figure.node())};
}

/// A choice of the state options, with a title for what it means in the rule.
Count called(const char* title, const Count& choice);

inline void goesBy(const Count& choice) { compared({Comparison::How::equal, choice.node()}); }

std::nullopt_t keep(const char* why);
inline bool keepAll(const char* why) { return keep(why), false; }
void note(const char* remark);
inline void noteIfAny(const Amount& amount, const char* remark) {
  if (amount.plain() != 0) note(remark);
}
NodeId noted(Value value, NodeId node, const char* remark);
template <class T>
void noteOn(Recorded<T>& field, const char* remark) {
  field = {field.plain(), noted(field.plain(), field.node(), remark)};
}

/// The state whose routine is called.
void stateIs(const char* caption);

template <class Row>
TableRow published(const Row& row) {
  TableRow all{.test = row.test, .bound = row.bound.amount};
  if constexpr (requires { row.lower; }) {
    all.lower = row.lower.amount;
    all.rate = row.rate;
    all.plus = row.plus;
  }
  if constexpr (requires { row.credit; }) all.credit = row.credit;
  if constexpr (requires { row.amount; }) {
    all.gives = TableRow::Gives::amount;
    all.plus = tallyfin::toReal(row.amount.amount);
  }
  if constexpr (requires { row.fraction; }) {
    all.gives = TableRow::Gives::part;
    all.rate = static_cast<double>(row.fraction);
  }
  return all;
}

void applied(AppliedRow row);
template <class Row>
const Row& bandOf(const TableOf<Row>& table, const Amount& x) {
  const Row& row = rowFor(table.rows, x.plain());
  AppliedRow used{.table = table.name, .rows = {}, .number = 0, .x = x.node()};
  if (*table.period != '\0') used.table += std::string(", ") + table.period;
  used.number = static_cast<std::size_t>(&row - table.rows.data());
  for (const Row& each : table.rows) used.rows.push_back(published(each));
  applied(std::move(used));
  return row;
}

/// What a statement may assign.
using Target = std::variant<Amount*, Count*, Rate*, Single*>;

/// After a failure the statement is skipped, or the statement around it fails too.
enum class OnFailure { skip, passOn };

/// Runs a statement, which returns true if it assigned something, and records it.
void runStatement(OnFailure onFailure, const char* title, std::span<const Target> targets, bool (*run)(void*),
                  void* statement);

namespace detail {

template <class T, class Value>
bool assign(T& target, const std::optional<Value>& value) {
  if (value) target = *value;
  return value.has_value();
}
template <class T, class Value>
bool assign(T& target, const Value& value) {
  target = value;
  return true;
}

template <class Statement>
bool carriedOut(Statement& statement) {
  if constexpr (std::same_as<std::invoke_result_t<Statement&>, bool>) {
    return statement();
  } else {
    statement();
    return true;
  }
}

template <class Statement, class... Targets>
void run(OnFailure onFailure, const char* title, Statement& statement, Targets&... targets) {
  const std::array<Target, sizeof...(Targets)> all{&targets...};
  runStatement(
      onFailure, title, all, [](void* it) { return carriedOut(*static_cast<Statement*>(it)); }, &statement);
}

}  // namespace detail

template <class Statement, class... Targets>
requires std::invocable<Statement&>
void step(Title title, Statement&& statement, Targets&... targets) {
  detail::run(OnFailure::skip, title.words(), statement, targets...);
}
template <class T, class Value>
requires(std::invocable<Value&> && !std::invocable<T&>) void step(Title title, T& target, Value&& value) {
  step(
      title, [&target, &value] { return detail::assign(target, value()); }, target);
}
template <class T, class Value>
void part(Title title, T& target, Value&& value) {
  auto whole = [&target, &value] { return detail::assign(target, value()); };
  detail::run(OnFailure::passOn, title.words(), whole, target);
}

}  // namespace tallyfin::recorded
