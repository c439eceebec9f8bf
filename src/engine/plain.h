#pragma once

#include <concepts>

#include "engine/bands.h"
#include "engine/failure.h"
#include "engine/int16.h"
#include "engine/money.h"
#include "engine/numbertext.h"
#include "engine/unrecorded.h"

/// The plain kind of figures: numbers. Names and remarks compile to nothing.

namespace tallyfin::plain {

using namespace unrecorded;

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
/// Whole dollars in 16-bit arithmetic.
constexpr Int16 dollars16(const char* /*name*/, int dollars) { return dollars; }
template <class T>
constexpr const T& figureOf(const char* /*name*/, const T& value, const char* /*period*/) {
  return value;
}
constexpr Money figureOf(const char* /*name*/, const Dollars& value, const char* /*period*/) { return value.amount; }

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

}  // namespace tallyfin::plain

/// Code outside the rules uses the plain kind.
namespace tallyfin {
using namespace plain;
}
