#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>
#include <regex.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "engine/money.h"
#include "engine/numbertext.h"

/// Properties of amounts and number texts, compared with wider or exact arithmetic.

namespace tallyfin {
namespace {

__extension__ using Wide = __int128;

template <class Narrow>
bool fits(Wide number) {
  return number >= std::numeric_limits<Narrow>::min() && number <= std::numeric_limits<Narrow>::max();
}

/// Any 64-bit number, small or huge.
rc::Gen<std::int64_t> anyUnits() {
  return rc::gen::oneOf(
      rc::gen::arbitrary<std::int64_t>(),
      rc::gen::inRange(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()),
      rc::gen::element(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()));
}

rc::Gen<std::int16_t> anyInt16() {
  return rc::gen::oneOf(rc::gen::arbitrary<std::int16_t>(), rc::gen::inRange<std::int16_t>(-32768, 32767),
                        rc::gen::element<std::int16_t>(-32768, 32767));
}

/// The statement has the wide result where that fits, and fails where it doesn't. It never wraps.
template <class Narrow, class Statement>
void holdsOrFails(Wide wide, Statement statement) {
  if (fits<Narrow>(wide)) {
    RC_ASSERT(Wide(statement()) == wide);
  } else {
    RC_ASSERT_THROWS_AS(statement(), FailedStatement);
  }
}

RC_GTEST_PROP(MoneyLaws, NoOperationWraps, ()) {
  const std::int64_t a = *anyUnits();
  const std::int64_t b = *anyUnits();
  const std::int16_t count = *anyInt16();
  const Money left = Money::ofUnits(a);
  const Money right = Money::ofUnits(b);
  holdsOrFails<std::int64_t>(Wide(a) + b, [&] { return (left + right).units(); });
  holdsOrFails<std::int64_t>(Wide(a) - b, [&] { return (left - right).units(); });
  holdsOrFails<std::int64_t>(Wide(a) * count, [&] { return (left * count).units(); });
  holdsOrFails<std::int64_t>(Wide(a) * 10000, [&] { return Money(a).units(); });
  RC_ASSERT((left < right) == (a < b));
}

RC_GTEST_PROP(Int16Laws, NoOperationWraps, ()) {
  const int a = *anyInt16();
  const int b = *anyInt16();
  holdsOrFails<std::int16_t>(a + b, [&] { return (Int16(a) + b).value(); });
  holdsOrFails<std::int16_t>(a - b, [&] { return (Int16(a) - b).value(); });
  holdsOrFails<std::int16_t>(Wide(a) * b, [&] { return (Int16(a) * b).value(); });
}

/// The whole number nearest to a double, an exact half to the even one, by comparing the exact fraction with a half.
Wide nearestEven(double value) {
  const double floor = std::floor(value);
  const double fraction = value - floor;  // exact
  const auto whole = static_cast<Wide>(floor);
  if (fraction > 0.5 || (fraction == 0.5 && whole % 2 != 0)) return whole + 1;
  return whole;
}

void fromRealIsNearest(double dollars) {
  const double product = dollars * 10000;
  if (!(std::fabs(product) <= 1E19)) {
    RC_ASSERT_THROWS_AS(fromReal(dollars), FailedStatement);
    return;
  }
  holdsOrFails<std::int64_t>(nearestEven(product), [&] { return fromReal(dollars).units(); });
}

RC_GTEST_PROP(FromRealLaws, IsTheExactRoundingOfTheDoubleProduct, ()) {
  // Multiples of 1/32 times small integers give exact halves; the others are of any size.
  fromRealIsNearest(static_cast<double>(*rc::gen::arbitrary<std::int32_t>()) / 32);
  fromRealIsNearest(std::ldexp(static_cast<double>(*anyUnits()), *rc::gen::inRange(-90, 60)));
}

RC_GTEST_PROP(TextLaws, AnAmountComesBackFromItsText, ()) {
  const Money amount = Money::ofUnits(*anyUnits());
  RC_ASSERT(toMoney(toText(amount)) == amount);
}

/// The number that a function reads from a text, or none.
template <class Read>
auto reading(Read read, const std::string& text) {
  std::optional<decltype(read(text))> number;
  unlessItFails([&] { number = read(text); });
  return number;
}

RC_GTEST_PROP(TextLaws, AShortTextIsReadAsWithASign, ()) {
  // Short texts of digits are parsed by a special function, those with a sign by the general one.
  const auto text =
      *rc::gen::container<std::string>(*rc::gen::inRange(0, 18), rc::gen::elementOf(std::string("0123456789.")));
  const std::string withSign = "+" + text;
  RC_ASSERT(reading(toMoney, text) == reading(toMoney, withSign));
  RC_ASSERT(reading(realOf, text) == reading(realOf, withSign));
  RC_ASSERT(reading(toInt16, text) == reading(toInt16, withSign));
}

RC_GTEST_PROP(TextLaws, AnAmountHasItsDigitsWithoutTrailingZeros, ()) {
  const auto units =
      *rc::gen::oneOf(rc::gen::arbitrary<std::int64_t>(), rc::gen::inRange<std::int64_t>(-200'000, 200'000));
  std::string digits =
      std::to_string(units < 0 ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units));
  if (digits.size() < 5) digits.insert(0, 5 - digits.size(), '0');
  std::string text =
      (units < 0 ? "-" : "") + digits.substr(0, digits.size() - 4) + "." + digits.substr(digits.size() - 4);
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  RC_ASSERT(toText(Money::ofUnits(units)) == text);
}

RC_GTEST_PROP(TextLaws, CurrencyComesBackAsWholeCentsHalfAwayFromZero, ()) {
  const std::int64_t units = *anyUnits();
  const Wide size = units < 0 ? -Wide(units) : Wide(units);
  const Wide cents = (size + 50) / 100 * (units < 0 ? -1 : 1);
  const Money amount = Money::ofUnits(units);
  RC_ASSERT(Wide(toMoney(currency(amount)).units()) == cents * 100);
  RC_ASSERT(roundCents(amount) == toMoney(currency(amount)));
  RC_ASSERT(currency(toText(amount)) == currency(amount));
}

RC_GTEST_PROP(TextLaws, ACountComesBackFromItsText, ()) {
  const Int16 count = *anyInt16();
  RC_ASSERT(toInt16(toText(count)) == count);
}

RC_GTEST_PROP(TextLaws, ADoubleComesBackToFifteenDigits, ()) {
  const double value = std::ldexp(static_cast<double>(*anyUnits()), *rc::gen::inRange(-200, 200));
  const double back = realOf(toText(value));
  RC_ASSERT(std::fabs(back - value) <= std::fabs(value) * 5E-15);
  RC_ASSERT(toText(back) == toText(value));
}

/// Whether the text is a number, by a regular expression.
bool matchesTheGrammar(const std::string& text) {
  // A digit among the commas of the whole part, or a bare fraction; then an exponent.
  static const std::string number = R"((,*[0-9][0-9,]*\.?[0-9]*|\.[0-9]+)([Ee][-+]?[0-9]+)?)";
  static const regex_t grammar = [] {
    const std::string whole = "^[ \t]*(([-+]?\\$?|\\$[-+])" + number + "|\\(\\$?" + number + "\\))[ \t]*$";
    regex_t compiled{};
    EXPECT_EQ(regcomp(&compiled, whole.c_str(), REG_EXTENDED | REG_NOSUB), 0);
    return compiled;
  }();
  return regexec(&grammar, text.c_str(), 0, nullptr, 0) == 0;
}

RC_GTEST_PROP(TextLaws, ANumberIsWhatTheGrammarSays, ()) {
  const std::string text = *rc::gen::container<std::string>(rc::gen::weightedElement<char>({{6, '1'},
                                                                                            {3, '0'},
                                                                                            {2, '.'},
                                                                                            {2, ','},
                                                                                            {2, '$'},
                                                                                            {1, '('},
                                                                                            {1, ')'},
                                                                                            {2, '-'},
                                                                                            {1, '+'},
                                                                                            {1, 'E'},
                                                                                            {1, 'e'},
                                                                                            {1, ' '},
                                                                                            {1, '\t'},
                                                                                            {1, '%'}}));
  RC_ASSERT(isNumber(text) == matchesTheGrammar(text));
  if (!isNumber(text)) {
    RC_ASSERT_THROWS_AS(toMoney(text), FailedStatement);
    RC_ASSERT_THROWS_AS(realOf(text), FailedStatement);
    RC_ASSERT_THROWS_AS(toInt16(text), FailedStatement);
    RC_ASSERT(currency(text) == text);
  }
}

}  // namespace
}  // namespace tallyfin
