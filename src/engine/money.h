#pragma once

#include <compare>
#include <concepts>
#include <cstdint>

#include "engine/failure.h"
#include "engine/int16.h"

namespace tallyfin {

/// An amount in dollars with four decimals, kept as a signed 64-bit count of ten-thousandths.
///
/// Sums, differences and products with a whole number are exact; beyond the 64-bit range they fail. There is no
/// product with a rate: use `fromReal(toReal(amount) * rate)`, which rounds once, at the fourth decimal.
class Money {
 public:
  static constexpr std::int64_t unitsPerDollar = 10000;

  constexpr Money() = default;

  /// Whole dollars.
  template <std::integral T>
  constexpr Money(T dollars)  // NOLINT(google-explicit-constructor): a whole number of dollars is an amount
      : units_(times(dollars, unitsPerDollar)) {}
  constexpr Money(Int16 dollars)  // NOLINT(google-explicit-constructor): likewise
      : Money(dollars.value()) {}

  /// An amount given in ten-thousandths of a dollar.
  static constexpr Money ofUnits(std::int64_t units) {
    Money amount;
    amount.units_ = units;
    return amount;
  }
  constexpr std::int64_t units() const { return units_; }

  friend constexpr Money operator+(Money a, Money b) {
    std::int64_t sum{};
    if (__builtin_add_overflow(a.units_, b.units_, &sum)) throw FailedStatement{"the amount is too large"};
    return ofUnits(sum);
  }
  friend constexpr Money operator-(Money a, Money b) {
    std::int64_t difference{};
    if (__builtin_sub_overflow(a.units_, b.units_, &difference)) throw FailedStatement{"the amount is too large"};
    return ofUnits(difference);
  }
  friend constexpr Money operator*(Money amount, Int16 count) { return ofUnits(times(amount.units_, count.value())); }

  friend constexpr bool operator==(Money, Money) = default;
  friend constexpr auto operator<=>(Money, Money) = default;

 private:
  static constexpr std::int64_t times(std::int64_t a, std::int64_t b) {
    std::int64_t product{};
    if (__builtin_mul_overflow(a, b, &product)) throw FailedStatement{"the amount is too large"};
    return product;
  }

  std::int64_t units_ = 0;
};

/// The amount, or 0 where it is negative.
// mutation: < -> <=: zero stays zero
constexpr Money atLeastZero(Money amount) { return amount < 0 ? Money{} : amount; }

/// Dollars as a double: the count of ten-thousandths divided by 10000.
constexpr double toReal(Money amount) {
  return static_cast<double>(amount.units()) / static_cast<double>(Money::unitsPerDollar);
}
/// A count as a double, for a product that isn't 16-bit.
constexpr double toReal(Int16 count) { return count.value(); }

/// The amount nearest to a double in dollars: the value times 10000, in double, to the nearest integer, an exact half
/// to the even one. Fails for a value that isn't finite or is beyond the 64-bit range.
Money fromReal(double dollars);

/// Whole cents, an exact half away from zero, as the currency text shows them: 1.0050 is 1.01, -1.0050 is -1.01.
Money roundCents(Money amount);

/// Two decimals for a caption, an exact half to the even digit: 0.125 is 0.12. Never written back to the record.
Money roundedForDisplay(Money amount);
double roundedForDisplay(double value);

/// Whole dollars, an exact half to the even one, without a limit.
Money roundedToDollars(Money amount);

/// Whole dollars as a 16-bit integer, an exact half to the even one; fails beyond the 16-bit range.
Int16 integerRounded(Money amount);
Int16 integerRounded(double value);

}  // namespace tallyfin
