#pragma once

#include <span>

#include "engine/failure.h"
#include "engine/money.h"

namespace tallyfin {

/// A dollar figure of a table: a constant with at most four decimals, turned into Money by the compiler.
struct Dollars {
  template <std::integral T>
  consteval Dollars(T dollars) : amount(dollars) {}  // NOLINT(google-explicit-constructor)
  consteval Dollars(double dollars)                  // NOLINT(google-explicit-constructor)
      : amount(
            // mutation: < -> <= and 0 -> 1 and 0.5 -> 0.6: four decimals at most, so that the product is an integer but
            // for an error far below 0.4
            Money::ofUnits(static_cast<std::int64_t>(dollars * Money::unitsPerDollar + (dollars < 0 ? -0.5 : 0.5)))) {}

  Money amount;
};

/// How a row of a table compares x with its bound.
enum class Test { atMost, below, above, atLeast };

constexpr bool holds(Test test, Money bound, Money x) {
  if (test == Test::atMost) return x <= bound;
  if (test == Test::below) return x < bound;
  if (test == Test::above) return x > bound;
  return x >= bound;
}

/// One row of a band table: where its test holds for x, the tax is (x - lower) * rate + plus.
struct Band {
  Test test;
  Dollars bound;
  Dollars lower;
  double rate;      ///< Fraction.
  double plus = 0;  ///< Dollars.
};

/// Rows that are tested from top to bottom; the first row whose test holds applies. Each type of row has a test and a
/// bound.
template <class Row>
using Rows = std::span<const Row>;
using Bands = Rows<Band>;

/// Rows with the name of their table.
template <class Row>
struct TableOf {
  const char* name;
  Rows<Row> rows;
  const char* period = "";  ///< The pay frequency, for a table that depends on it.

  constexpr operator Rows<Row>() const { return rows; }  // NOLINT(google-explicit-constructor): a table is its rows
};
using Table = TableOf<Band>;

/// The row that applies to x. Fails where x is in a gap of the table.
template <class Row>
const Row& rowFor(Rows<Row> rows, Money x) {
  for (const Row& row : rows) {
    if (holds(row.test, row.bound.amount, x)) return row;
  }
  throw FailedStatement{"no row of the table holds for that amount"};
}

}  // namespace tallyfin
