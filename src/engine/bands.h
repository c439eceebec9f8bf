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
            Money::ofUnits(static_cast<std::int64_t>(dollars * Money::unitsPerDollar + (dollars < 0 ? -0.5 : 0.5)))) {}

  Money amount;
};

/// How a row of a band table compares x with its bound.
enum class Test { atMost, below, above, atLeast };

/// One row of a band table: where its test holds for x, the tax is (x - lower) * rate + plus.
struct Band {
  Test test;
  Dollars bound;
  Dollars lower;
  double rate;      ///< Fraction.
  double plus = 0;  ///< Dollars.

  constexpr bool holds(Money x) const {
    switch (test) {
      case Test::atMost: return x <= bound.amount;
      case Test::below: return x < bound.amount;
      case Test::above: return x > bound.amount;
      case Test::atLeast: return x >= bound.amount;
    }
    return false;
  }
};

/// A table: its rows are tested from top to bottom, the first whose test holds applies.
using Bands = std::span<const Band>;

/// The row that applies to x. A value in a gap of the table meets no row: the statement that asks fails, and what it
/// would have assigned keeps its old value.
inline const Band& bandOf(Bands table, Money x) {
  for (const Band& band : table) {
    if (band.holds(x)) return band;
  }
  throw FailedStatement{};
}

/// The tax on x in real dollars, not rounded yet.
inline double realTax(const Band& band, Money x) { return toReal(x - band.lower.amount) * band.rate + band.plus; }

/// The tax on x: the subtraction in Money, the rest in one real step.
inline Money taxOf(Bands table, Money x) { return fromReal(realTax(bandOf(table, x), x)); }

}  // namespace tallyfin
