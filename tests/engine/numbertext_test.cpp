#include "engine/numbertext.h"

#include <gtest/gtest.h>

#include <functional>
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
           {"0E999999999999999999999", 0},
           {"922337203685477.5807", 9223372036854775807},
           {"-922337203685477.5808", -9223372036854775807 - 1},
       }) {
    EXPECT_EQ(toMoney(text).units(), units) << text;
  }
}

TEST(TextToMoney, RefusesWhatIsNoNumber) {
  for (const char* text : {"",    " ",    "%",    "abc",  "1.2.3", "--5",  "(-5)", "( 5 )", "$(5)", "5-",  "- 5", "inf",
                           "nan", "0x10", "$",    ".",    ",",     ",.5",  "1.,5", "E5",    "1E",   "$ 5", "-$-5",
                           "(5",  "5)",   "$$5",  "()",   "($-5)", "1 2",  "1E400", "922337203685477.5808"}) {
    EXPECT_THROW(toMoney(text), FailedStatement) << text;
  }
}

TEST(TextToMoney, RoundsTheDigitsHalfToEvenAtTheFourthDecimal) {
  EXPECT_EQ(toMoney("0.00005").units(), 0);
  EXPECT_EQ(toMoney("0.00015").units(), 2);
  EXPECT_EQ(toMoney("0.000050000000000000000000001").units(), 1);
  EXPECT_EQ(toMoney("-0.00015").units(), -2);
  EXPECT_EQ(toMoney("9.99995").units(), 100000);
}

TEST(TextToInt16, RoundsHalfToEvenWithinSixteenBits) {
  EXPECT_EQ(toInt16("2.5"), 2);
  EXPECT_EQ(toInt16("3.5"), 4);
  EXPECT_EQ(toInt16("32767.4"), 32767);
  EXPECT_EQ(toInt16("-32768.5"), -32768);
  EXPECT_THROW(toInt16("32767.5"), FailedStatement);
  EXPECT_THROW(toInt16("-32769"), FailedStatement);
}

TEST(TextToDouble, IsTheNearestDouble) {
  EXPECT_EQ(realOf("0.06"), 0.06);
}

}  // namespace
}  // namespace tallyfin
