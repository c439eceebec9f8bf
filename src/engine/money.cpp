#include "engine/money.h"

#include <cmath>
#include <cstdlib>

namespace tallyfin {

namespace {

/// The multiple of `step` units nearest to the amount, an exact half to the even multiple; counted in steps.
std::int64_t nearestEven(Money amount, std::int64_t step) {
  const std::int64_t steps = amount.units() / step;
  const std::int64_t rest = amount.units() % step;
  const std::int64_t twice = 2 * std::abs(rest);
  const bool farther = twice > step || (twice == step && steps % 2 != 0);
  if (!farther) return steps;
  // mutation: < -> <= and 0 -> 1: the rest isn't zero, and of what is below one only the sign counts
  return rest < 0 ? steps - 1 : steps + 1;
}

Money ofSteps(std::int64_t steps, std::int64_t step) {
  std::int64_t units{};
  if (__builtin_mul_overflow(steps, step, &units)) throw FailedStatement{"the amount is too large"};
  return Money::ofUnits(units);
}

constexpr std::int64_t cent = Money::unitsPerDollar / 100;

}  // namespace

Money fromReal(double dollars) {
  const double units = std::nearbyint(dollars * static_cast<double>(Money::unitsPerDollar));
  // mutation: 9223372036854775808.0 -> *: the next double is farther away
  constexpr double limit = 9223372036854775808.0;  // 2^63; the comparison is false for what is not a number
  if (!(units >= -limit && units < limit)) throw FailedStatement{"the amount is too large, or divided by 0"};
  return Money::ofUnits(static_cast<std::int64_t>(units));
}

Money roundCents(Money amount) {
  const std::int64_t cents = amount.units() / cent;
  const std::int64_t rest = amount.units() % cent;
  // mutation: < -> <= and 0 -> 1: what is rounded away from zero isn't zero
  const std::int64_t away = rest < 0 ? -1 : 1;
  return ofSteps(std::abs(rest) * 2 < cent ? cents : cents + away, cent);
}

Money roundedForDisplay(Money amount) { return ofSteps(nearestEven(amount, cent), cent); }

double roundedForDisplay(double value) {
  const double rounded = std::nearbyint(value * 100) / 100;
  if (!std::isfinite(rounded)) throw FailedStatement{"the amount is too large"};
  return rounded;
}

Money roundedToDollars(Money amount) {
  return ofSteps(nearestEven(amount, Money::unitsPerDollar), Money::unitsPerDollar);
}

Int16 integerRounded(Money amount) { return nearestEven(amount, Money::unitsPerDollar); }

Int16 integerRounded(double value) { return integerRounded(fromReal(std::nearbyint(value))); }

}  // namespace tallyfin
