#pragma once

#include <span>

#include "engine/failure.h"
#include "engine/money.h"
#include "engine/step.h"

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

/// A table: its rows are tested from top to bottom, the first whose test holds applies.
using Bands = std::span<const Band>;

/// The row that applies to x; a row of any kind has a test and a bound. Where x lies in a gap of the table there is
/// none: the statement fails, and its target keeps the old value.
template <class Row>
const Row& bandOf(std::span<const Row> table, Money x) {
  for (const Row& row : table) {
    if (holds(row.test, row.bound.amount, x)) return row;
  }
  throw FailedStatement{"no row of the table holds for that amount"};
}

/// The row of a table that a statement applied to x.
struct AppliedRow {
  enum class Gives { tax, amount, fraction };

  Test test;
  Money bound;
  Money lower{};
  double rate{};  ///< Fraction.
  double plus{};  ///< Dollars; of a table of amounts the amount.
  Money x;
  double credit = 0;  ///< Dollars that come off.
  Gives gives = Gives::tax;
};

[[gnu::cold]] void reportRow(const AppliedRow& row);

/// Reports a row that a statement applied to the recorder, if there is one.
inline void rowApplied(const AppliedRow& row) {
  if (recorder != nullptr) [[unlikely]]
    reportRow(row);
}

/// An amount for each of a count, as a statement multiplied them.
struct AmountsCounted {
  Int16 count;
  double each;  ///< Dollars.
};

[[gnu::cold]] void reportAmounts(const AmountsCounted& counted);

/// Reports an amount that a statement multiplied by a count to the recorder, if there is one.
inline void amountsCounted(const AmountsCounted& counted) {
  if (recorder != nullptr) [[unlikely]]
    reportAmounts(counted);
}

/// The tax on x: the subtraction in Money, the rest in one real step.
inline Money taxOf(Bands table, Money x) {
  const Band& band = bandOf(table, x);
  const Money tax = fromReal(toReal(x - band.lower.amount) * band.rate + band.plus);
  rowApplied({band.test, band.bound.amount, band.lower.amount, band.rate, band.plus, x});
  return tax;
}

}  // namespace tallyfin
