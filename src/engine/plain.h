#pragma once

#include <concepts>
#include <optional>

#include "engine/bands.h"
#include "engine/failure.h"
#include "engine/int16.h"
#include "engine/money.h"
#include "engine/numbertext.h"
#include "engine/title.h"

/// The plain kind of figures: bare numbers. What the other kind remembers costs nothing here.

namespace tallyfin::plain {

using Amount = Money;
using Count = Int16;
using Rate = double;
using Single = float;
template <class Row>
using RowsOf = Rows<Row>;
using TaxTable = RowsOf<Band>;

/// A constant of the rules by its name.
template <class T>
constexpr T named(const char* /*name*/, T value) {
  return value;
}
/// Whole dollars of the 16-bit arithmetic.
constexpr Int16 dollars16(const char* /*name*/, int dollars) { return dollars; }
template <class T>
constexpr const T& figureOf(const char* /*name*/, const T& value, const char* /*period*/) {
  return value;
}
constexpr Money figureOf(const char* /*name*/, const Dollars& value, const char* /*period*/) { return value.amount; }

/// A figure within a statement that an explanation shows in a line of its own.
template <class T>
constexpr T line(const char* /*title*/, T value) {
  return value;
}

/// The same for a figure that is another one again under its own title.
template <class T>
constexpr T asMuch(const char* /*title*/, T value) {
  return value;
}

constexpr Rate asRate(Single x) { return x; }
template <class T>
constexpr T least(T a, std::type_identity_t<T> b) {
  return b < a ? b : a;
}
template <class T>
constexpr T greatest(T a, std::type_identity_t<T> b) {
  return a < b ? b : a;
}
/// x, but at least `low` and at most `high`.
constexpr Amount within(Amount x, Amount low, Amount high) { return x < low ? low : high < x ? high : x; }
constexpr bool isFrom(Count low, Count x, Count high) { return low <= x && x <= high; }

template <class Row>
const Row& bandOf(Rows<Row> table, Money x) {
  return rowFor(table, x);
}
template <class Row>
const Row& bandOf(const TableOf<Row>& table, Money x) {
  return rowFor(table.rows, x);
}

/// Says that a statement assigns nothing, and why.
constexpr std::nullopt_t keep(const char* /*why*/) { return std::nullopt; }
constexpr bool keepAll(const char* /*why*/) { return false; }
/// Remarks for the explanation: of the running statement, of a field, of the statement where the amount isn't 0.
constexpr void note(const char* /*remark*/) {}
template <class T>
constexpr void noteOn(const T& /*field*/, const char* /*remark*/) {}
constexpr void noteIfAny(Amount /*amount*/, const char* /*remark*/) {}

constexpr void stateIs(const char* /*caption*/) {}

namespace detail {

template <class T, class Value>
void assign(T& target, const std::optional<Value>& value) {
  if (value) target = *value;
}
template <class T, class Value>
void assign(T& target, const Value& value) {
  target = value;
}

}  // namespace detail

/// Runs one statement; where it fails, what it had not assigned yet stays as it was. The targets are what it may
/// assign; a statement that returns false has assigned none of them.
template <class Statement, class... Targets>
requires std::invocable<Statement&>
[[gnu::always_inline]] inline void step(Title /*title*/, Statement&& statement, const Targets&... /*targets*/) {
  try {
    statement();
  } catch (const FailedStatement&) {
  }
}

/// Assigns a value to the target; where the value can't be worked out, or there is none, the target stays as it was.
template <class T, class Value>
requires(std::invocable<Value&> && !std::invocable<T&>)
    [[gnu::always_inline]] inline void step(Title title, T& target, Value&& value) {
  step(
      title, [&target, &value] { detail::assign(target, value()); }, target);
}

/// Assigns a value to the target as a part of a statement: a failure is that of the whole statement.
template <class T, class Value>
void part(Title /*title*/, T& target, Value&& value) {
  detail::assign(target, value());
}

}  // namespace tallyfin::plain

/// Who isn't a rule uses the plain kind.
namespace tallyfin {
using namespace plain;
}
