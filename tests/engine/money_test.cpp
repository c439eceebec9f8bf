#include "engine/money.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "engine/figures.h"
#include "engine/numbertext.h"

namespace tallyfin {
namespace {

constexpr auto most = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();

Money of(const char* text) { return toMoney(text); }

TEST(MoneyTest, CountsTenThousandthsOfADollar) {
  EXPECT_EQ(Money(1).units(), 10000);
  EXPECT_EQ(Money(-3).units(), -30000);
  EXPECT_EQ(Money(Int16(7)).units(), 70000);
  EXPECT_EQ(Money().units(), 0);
}

TEST(MoneyTest, HoldsWholeDollarsAsFarAsItsRangeGoes) {
  EXPECT_EQ(Money(922337203685477).units(), 9223372036854770000);
  EXPECT_THROW(Money(922337203685478), FailedStatement);
  EXPECT_THROW(Money(-922337203685478), FailedStatement);
}

TEST(MoneyTest, AddsAndSubtractsExactlyOrFails) {
  EXPECT_EQ(of("0.0001") + of("922337203685477.5806"), Money::ofUnits(most));
  EXPECT_EQ(Money(1000) - of("60.0001"), of("939.9999"));
  EXPECT_THROW(Money::ofUnits(most) + Money::ofUnits(1), FailedStatement);
  EXPECT_THROW(Money::ofUnits(least) - Money::ofUnits(1), FailedStatement);
  EXPECT_THROW(Money() - Money::ofUnits(least), FailedStatement);
}

TEST(MoneyTest, TimesAWholeNumberIsExactOrFails) {
  EXPECT_EQ(of("0.0001") * 32767, of("3.2767"));
  EXPECT_EQ(of("-500") * 52, of("-26000"));
  EXPECT_THROW(Money::ofUnits(most) * 2, FailedStatement);
  EXPECT_THROW(Money(1) * 40000, FailedStatement);  // the count is a 16-bit one
}

template <class A, class B>
concept Multiply = requires(A a, B b) {
  a* b;
};

TEST(MoneyTest, MeetsARateOnlyThroughADouble) {
  static_assert(Multiply<Money, Int16>);
  static_assert(!Multiply<Money, double>);
  static_assert(!Multiply<Money, Money>);
  static_assert(!std::is_constructible_v<Money, double>);
  static_assert(!std::is_constructible_v<Int16, double>);
  EXPECT_EQ(toReal(of("1234.56")), 1234.56);
}

TEST(MoneyTest, ComparesExactly) {
  EXPECT_GT(of("51.0001"), 51);
  EXPECT_LE(of("51"), 51);
  EXPECT_LT(of("50.9999"), 51);
  EXPECT_EQ(of("51.0000"), 51);
}

TEST(FromReal, RoundsOnceAtTheFourthDecimal) {
  EXPECT_EQ(fromReal(1234.56 * 0.0765), of("94.4438"));
  EXPECT_EQ(fromReal(71.10280000001), of("71.1028"));
  EXPECT_EQ(fromReal(10.00005), of("10"));  // 100000.5 units: the even one
  EXPECT_EQ(fromReal(10.0049), of("10.0049"));
}

TEST(FromReal, TakesAnExactHalfToTheEvenUnit) {
  EXPECT_EQ(fromReal(0.03125).units(), 312);  // 312.5
  EXPECT_EQ(fromReal(0.09375).units(), 938);  // 937.5
  EXPECT_EQ(fromReal(-0.03125).units(), -312);
  EXPECT_EQ(fromReal(-0.09375).units(), -938);
}

TEST(FromReal, FailsBeyondTheRange) {
  EXPECT_EQ(fromReal(-922337203685477.5808).units(), least);
  EXPECT_THROW(fromReal(922337203685477.5808), FailedStatement);
  EXPECT_THROW(fromReal(1E300), FailedStatement);
  EXPECT_THROW(fromReal(-1E300), FailedStatement);
}

TEST(FromReal, FailsForWhatIsNotFinite) {
  EXPECT_THROW(fromReal(std::numeric_limits<double>::quiet_NaN()), FailedStatement);
  EXPECT_THROW(fromReal(std::numeric_limits<double>::infinity()), FailedStatement);
  EXPECT_THROW(fromReal(-std::numeric_limits<double>::infinity()), FailedStatement);
  EXPECT_THROW(fromReal(1E305), FailedStatement);  // its product with 10000 isn't finite
}

TEST(RoundCents, TakesAnExactHalfAwayFromZero) {
  EXPECT_EQ(roundCents(of("10.0050")), of("10.01"));
  EXPECT_EQ(roundCents(of("10.0049")), of("10.00"));
  EXPECT_EQ(roundCents(of("1.0050")), of("1.01"));
  EXPECT_EQ(roundCents(of("1.0150")), of("1.02"));
  EXPECT_EQ(roundCents(of("2.0050")), of("2.01"));
  EXPECT_EQ(roundCents(of("-1.0050")), of("-1.01"));
  EXPECT_EQ(roundCents(of("-0.0049")), 0);
  EXPECT_EQ(roundCents(of("71.1028")), of("71.10"));
}

TEST(RoundCents, HoldsToTheEndsOfTheRange) {
  EXPECT_EQ(roundCents(Money::ofUnits(most)), of("922337203685477.58"));
  EXPECT_EQ(roundCents(Money::ofUnits(least)), of("-922337203685477.58"));
}

TEST(RoundedForDisplay, TakesAnExactHalfToTheEvenCent) {
  EXPECT_EQ(roundedForDisplay(of("0.125")), of("0.12"));
  EXPECT_EQ(roundedForDisplay(of("0.135")), of("0.14"));
  EXPECT_EQ(roundedForDisplay(of("0.1251")), of("0.13"));
  EXPECT_EQ(roundedForDisplay(of("-0.125")), of("-0.12"));
  EXPECT_EQ(roundedForDisplay(of("-0.135")), of("-0.14"));
}

TEST(RoundedForDisplay, TakesADoubleTimesAHundredToTheNearestEven) {
  EXPECT_EQ(roundedForDisplay(0.125), 0.12);
  EXPECT_EQ(roundedForDisplay(0.375), 0.38);
  EXPECT_EQ(roundedForDisplay(9.0909090909), 9.09);
  EXPECT_THROW(roundedForDisplay(1E308), FailedStatement);
  EXPECT_THROW(roundedForDisplay(std::nan("")), FailedStatement);
}

TEST(RoundedToDollars, TakesAnExactHalfToTheEvenDollarWithoutALimit) {
  EXPECT_EQ(roundedToDollars(of("2.5")), 2);
  EXPECT_EQ(roundedToDollars(of("3.5")), 4);
  EXPECT_EQ(roundedToDollars(of("-2.5")), -2);
  EXPECT_EQ(roundedToDollars(of("2.5001")), 3);
  EXPECT_EQ(roundedToDollars(of("40000.5")), 40000);
  EXPECT_THROW(roundedToDollars(Money::ofUnits(most)), FailedStatement);  // ...478 dollars don't fit
}

TEST(IntegerRounded, FailsBeyondSixteenBits) {
  EXPECT_EQ(integerRounded(of("2.5")), 2);
  EXPECT_EQ(integerRounded(of("3.5")), 4);
  EXPECT_EQ(integerRounded(of("32767.4999")), 32767);
  EXPECT_THROW(integerRounded(of("32767.5")), FailedStatement);
  EXPECT_EQ(integerRounded(of("-32768.5")), -32768);
  EXPECT_THROW(integerRounded(of("-32768.5001")), FailedStatement);
}

TEST(IntegerRounded, TakesADoubleLikewise) {
  EXPECT_EQ(integerRounded(2.5), 2);
  EXPECT_EQ(integerRounded(-3.5), -4);
  EXPECT_EQ(integerRounded(32767.4), 32767);
  EXPECT_THROW(integerRounded(32767.5), FailedStatement);
  EXPECT_EQ(integerRounded(-32768.5), -32768);
  EXPECT_THROW(integerRounded(-32768.6), FailedStatement);
  EXPECT_THROW(integerRounded(std::nan("")), FailedStatement);
}

TEST(Int16Test, FailsWhereAResultNeedsMoreThanSixteenBits) {
  EXPECT_EQ(Int16(11) * 2750, 30250);
  EXPECT_THROW(Int16(12) * 2750, FailedStatement);
  EXPECT_EQ(Int16(32767) - 32767, 0);
  EXPECT_THROW(Int16(32767) + 1, FailedStatement);
  EXPECT_THROW(Int16(-32768) - 1, FailedStatement);
  EXPECT_THROW(Int16(-32768) * -1, FailedStatement);
}

TEST(Int16Test, HoldsNothingBeyondItsRange) {
  EXPECT_EQ(Int16(-32768).value(), -32768);
  EXPECT_THROW(Int16(32768), FailedStatement);
  EXPECT_THROW(Int16(-32769), FailedStatement);
  EXPECT_THROW(Int16(std::int64_t{1} << 32), FailedStatement);
}

TEST(Step, LeavesTheTargetOfAFailedStatementAsItWas) {
  Money target = 5;
  step("A statement", [&] { target = toMoney("abc"); });
  EXPECT_EQ(target, 5);
  step("A statement", [&] { target = toMoney("7"); });
  EXPECT_EQ(target, 7);
}

}  // namespace
}  // namespace tallyfin
