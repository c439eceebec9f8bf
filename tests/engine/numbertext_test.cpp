#include "engine/numbertext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace tallyfin {
namespace {

TEST(TextToMoney, ReadsEveryFormOfTheGrammar) {
  for (const auto& [text, units] : std::initializer_list<std::pair<const char*, std::int64_t>>{
           {".5", 5000},
           {"5.", 50000},
           {"1,234.50", 12345000},
           {"$1,234.50", 12345000},
           {"($3,300.00)", -33000000},
           {"-$5", -50000},
           {"$-5", -50000},
           {"+5", 50000},
           {"1E3", 10000000},
           {"1.5e-2", 150},
           {" 5\t", 50000},
           {"(5)", -50000},
           {",5", 50000},
           {"1,,2", 120000},
           {"5.E2", 5000000},
           {"1,000E-2", 100000},
           {"$1e+1", 100000},
           {"(1E3)", -10000000},
           {"(.5)", -5000},
           {"-$.5", -5000},
           {"$+5", 50000},
           {"-0", 0},
           {"0E999999999999999999999", 0},
           {"1E-999999999999999999999", 0},
           {"922337203685477.5807", 9223372036854775807},
           {"-922337203685477.5808", -9223372036854775807 - 1},
       }) {
    EXPECT_EQ(toMoney(text).units(), units) << text;
  }
}

TEST(TextToMoney, RefusesWhatIsNoNumber) {
  for (const char* text : {"",
                           " ",
                           "%",
                           "abc",
                           "1.2.3",
                           "--5",
                           "(-5)",
                           "( 5 )",
                           "$(5)",
                           "5-",
                           "- 5",
                           "inf",
                           "nan",
                           "0x10",
                           "$",
                           ".",
                           ",",
                           ",.5",
                           "1.,5",
                           "E5",
                           "1E",
                           "$ 5",
                           "-$-5",
                           "(5",
                           "5)",
                           "$$5",
                           "()",
                           "($-5)",
                           "1 2",
                           "1E400",
                           "922337203685477.5808",
                           "+",
                           "-",
                           "$-",
                           "+-5",
                           "-(5)",
                           ".E5",
                           "1E3,000",
                           "1E5.0",
                           "1E+",
                           "5\n",
                           "\u00A05",
                           "\xD9\xA5",
                           "1_000",
                           "1'000",
                           "5 %",
                           "50%"}) {
    EXPECT_THROW(toMoney(text), FailedStatement) << text;
  }
}

TEST(TextToMoney, RoundsTheDigitsHalfToEvenAtTheFourthDecimal) {
  EXPECT_EQ(toMoney("0.00005").units(), 0);
  EXPECT_EQ(toMoney("0.00015").units(), 2);
  EXPECT_EQ(toMoney("0.000051").units(), 1);
  EXPECT_EQ(toMoney("0.000050").units(), 0);
  EXPECT_EQ(toMoney("0.000050000000000000000000001").units(), 1);
  EXPECT_EQ(toMoney("-0.00015").units(), -2);
  EXPECT_EQ(toMoney("9.99995").units(), 100000);
  EXPECT_EQ(toMoney("922337203685477.58065").units(), 9223372036854775806);
  EXPECT_THROW(toMoney("922337203685477.58075"), FailedStatement);  // the even unit lies beyond the range
  EXPECT_EQ(toMoney("-922337203685477.58085").units(), -9223372036854775807 - 1);
  EXPECT_THROW(toMoney("-922337203685477.5809"), FailedStatement);
  EXPECT_THROW(toMoney("1844674407370955.1621"), FailedStatement);  // would be 5 units in 64 bits
}

TEST(TextToMoney, LosesNoDigitOfALongText) {
  const std::string zeros(100000, '0');
  EXPECT_EQ(toMoney("0." + zeros + "1").units(), 0);
  EXPECT_EQ(toMoney("0.00005" + zeros + "1").units(), 1);
  EXPECT_EQ(toMoney(zeros + "12.5").units(), 125000);
  EXPECT_THROW(toMoney("1" + zeros), FailedStatement);
  EXPECT_EQ(toMoney("1" + zeros + "E-100000").units(), 10000);
}

TEST(TextToInt16, RoundsHalfToEvenWithinSixteenBits) {
  EXPECT_EQ(toInt16("2.5"), 2);
  EXPECT_EQ(toInt16("3.5"), 4);
  EXPECT_EQ(toInt16("25.0E-1"), 2);
  EXPECT_EQ(toInt16("25.1E-1"), 3);
  EXPECT_EQ(toInt16("32767.4"), 32767);
  EXPECT_EQ(toInt16("-32768.5"), -32768);
  EXPECT_THROW(toInt16("32767.5"), FailedStatement);
  EXPECT_THROW(toInt16("-32769"), FailedStatement);
}

TEST(TextToDouble, IsTheNearestDouble) {
  EXPECT_EQ(realOf("0.06"), 0.06);
  EXPECT_EQ(realOf("($1,234.5)"), -1234.5);
  EXPECT_EQ(realOf("9007199254740993"), 9007199254740992.0);  // halfway: the even one
  EXPECT_EQ(realOf("9007199254740993.0000001"), 9007199254740994.0);
  EXPECT_EQ(realOf("1E-400"), 0);
  EXPECT_EQ(realOf("-1E-999999999999999999999"), 0);
  EXPECT_EQ(realOf("0E999999999999999999999"), 0);
  EXPECT_EQ(realOf("4.9E-324"), 4.9E-324);
  EXPECT_EQ(realOf("1.7976931348623157E308"), 1.7976931348623157E308);
  EXPECT_THROW(realOf("1.8E308"), FailedStatement);
  EXPECT_THROW(realOf("1E400"), FailedStatement);
  EXPECT_THROW(realOf("1E999999999999999999999"), FailedStatement);
  EXPECT_THROW(realOf(""), FailedStatement);
}

TEST(MoneyToText, IsPlainWithoutTrailingZeros) {
  EXPECT_EQ(toText(toMoney("1234.5000")), "1234.5");
  EXPECT_EQ(toText(Money()), "0");
  EXPECT_EQ(toText(toMoney("-0.9")), "-0.9");
  EXPECT_EQ(toText(toMoney("71.1028")), "71.1028");
  EXPECT_EQ(toText(toMoney("0.0001")), "0.0001");
  EXPECT_EQ(toText(toMoney("1000000")), "1000000");
  EXPECT_EQ(toText(toMoney("-922337203685477.5808")), "-922337203685477.5808");
}

TEST(DoubleToText, HasFifteenSignificantDigitsAtMost) {
  for (const auto& [value, text] : std::initializer_list<std::pair<double, const char*>>{
           {0.06, "0.06"},
           {-0.0, "0"},
           {100, "100"},
           {-1.5, "-1.5"},
           {0.1 + 0.2, "0.3"},
           {1.0 / 3, "0.333333333333333"},
           {2.0 / 3, "0.666666666666667"},
           {123456789.123456789, "123456789.123457"},
           {999999999999999, "999999999999999"},
           {999999999999999.9, "1E+15"},
           {1E15, "1E+15"},
           {-1.5E22, "-1.5E+22"},
           {1E100, "1E+100"},
           {0.0001, "0.0001"},
           {0.00005, "5E-05"},
           {1.5E-10, "1.5E-10"},
           {1E-100, "1E-100"},
       }) {
    EXPECT_EQ(toText(value), text);
  }
}

constexpr double infinite = std::numeric_limits<double>::infinity();

TEST(DoubleToText, FailsForWhatIsNotFinite) {
  EXPECT_THROW(toText(infinite), FailedStatement);
  EXPECT_THROW(toText(std::nan("")), FailedStatement);
  EXPECT_THROW(currency(-infinite), FailedStatement);
  EXPECT_THROW(percentage(std::nan("")), FailedStatement);
}

TEST(Currency, RoundsAnAmountHalfAwayFromZero) {
  EXPECT_EQ(currency(toMoney("1234.5")), "$1,234.50");
  EXPECT_EQ(currency(toMoney("0")), "$0.00");
  EXPECT_EQ(currency(toMoney("0.005")), "$0.01");
  EXPECT_EQ(currency(toMoney("0.0049")), "$0.00");
  EXPECT_EQ(currency(toMoney("-0.005")), "($0.01)");
  EXPECT_EQ(currency(toMoney("-0.0049")), "$0.00");  // no parentheses around a zero
  EXPECT_EQ(currency(toMoney("-3300")), "($3,300.00)");
  EXPECT_EQ(currency(toMoney("999.995")), "$1,000.00");
  EXPECT_EQ(currency(toMoney("1234567.891")), "$1,234,567.89");
  EXPECT_EQ(currency(toMoney("922337203685477.5807")), "$922,337,203,685,477.58");
}

TEST(Currency, RoundsADoubleOnItsFifteenDigits) {
  EXPECT_EQ(currency(1.005), "$1.01");  // although the double lies below
  EXPECT_EQ(currency(2.675), "$2.68");
  EXPECT_EQ(currency(-0.004), "$0.00");
  EXPECT_EQ(currency(5E-05), "$0.00");
  EXPECT_EQ(currency(-44720.0), "($44,720.00)");
  EXPECT_EQ(currency(1.5E16), "$15,000,000,000,000,000.00");
}

TEST(Currency, FormatsTheDecimalThatATextHolds) {
  EXPECT_EQ(currency("1.005"), "$1.01");
  EXPECT_EQ(currency(" 5\t"), "$5.00");
  EXPECT_EQ(currency("($3,300.00)"), "($3,300.00)");
  EXPECT_EQ(currency("-0.001"), "$0.00");
  EXPECT_EQ(currency("0.00499999999999999999999999"), "$0.00");
  EXPECT_EQ(currency("1E20"), "$100,000,000,000,000,000,000.00");
}

TEST(Currency, LeavesATextThatHoldsNoNumberOrNoDouble) {
  for (const char* text : {"", " ", "abc", "%", "1.2.3", "1E400", "-1E400"}) EXPECT_EQ(currency(text), text);
}

TEST(Percentage, HasOptionalDigitsOnBothSidesOfThePoint) {
  for (const auto& [fraction, text] : std::initializer_list<std::pair<double, const char*>>{
           {0.14, "14.%"},
           {0.302, "30.2%"},
           {0.005, ".5%"},
           {0, ".%"},
           {-0.05, "-5.%"},
           {-0.00004, ".%"},
           {0.00005, ".01%"},  // half away from zero
           {0.12345, "12.35%"},
           {100.0 / 980, "10.2%"},
           {1, "100.%"},
           {12.5, "1250.%"},
           {0.001, ".1%"},
       }) {
    EXPECT_EQ(percentage(fraction), text);
  }
}

TEST(WholeNumber, RoundsHalfAwayFromZero) {
  EXPECT_EQ(wholeNumber("86.66"), "87");
  EXPECT_EQ(wholeNumber("2.5"), "3");
  EXPECT_EQ(wholeNumber("-2.5"), "-3");
  EXPECT_EQ(wholeNumber("-0.4"), "0");
  EXPECT_EQ(wholeNumber("$1,234.5"), "1235");
  EXPECT_EQ(wholeNumber("forty"), "forty");
  EXPECT_EQ(wholeNumber("1E400"), "1E400") << "beyond a double";
  EXPECT_EQ(wholeNumber(""), "");
}

TEST(SocialSecurityNumber, FormatsNineDigitsAndNothingElse) {
  EXPECT_EQ(socialSecurityNumber("123456789"), "123-45-6789");
  for (const char* text : {"", "-", "12345678", "1234567890", "123-45-6789", "12345678a", " 123456789"}) {
    EXPECT_EQ(socialSecurityNumber(text), text);
  }
}

}  // namespace
}  // namespace tallyfin
