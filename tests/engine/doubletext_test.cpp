#include "engine/doubletext.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>

/// Both implementations that write and read doubles have the same results.

namespace tallyfin {
namespace {

/// The user's locale, as on the desktop. In some locales numbers have a comma, or digits of several bytes.
[[maybe_unused]] const char* const usersLocale = std::setlocale(LC_ALL, "");

double anyDouble() { return std::bit_cast<double>(*rc::gen::arbitrary<std::uint64_t>()); }

RC_GTEST_PROP(DoubleText, IsWrittenAlikeByBothWays, ()) {
  const double value = anyDouble();
  RC_PRE(std::isfinite(value));
  RC_ASSERT(shortTextOf(value) == clibrary::shortTextOf(value));
}

RC_GTEST_PROP(DoubleText, IsReadAlikeByBothWays, ()) {
  const std::string digits = std::to_string(*rc::gen::arbitrary<std::uint64_t>());
  const std::string plain =
      digits.substr(0, 1) + "." + digits.substr(1) + "e" + std::to_string(*rc::gen::inRange(-340, 320));
  RC_ASSERT(doubleOf(plain) == clibrary::doubleOf(plain));
}

RC_GTEST_PROP(DoubleText, OfSinglePrecisionIsReadBackAsItself, ()) {
  const auto value = std::bit_cast<float>(*rc::gen::arbitrary<std::uint32_t>());
  RC_PRE(std::isfinite(value));
  RC_ASSERT(static_cast<float>(doubleOf(shortestTextOf(value)).value()) == value);
}

TEST(DoubleText, EndsOfTheRange) {
  for (const char* plain : {"1.7976931348623157e308", "1.7976931348623159e308", "9.e999", "-9.e999", "4.9e-324",
                            "2.4703282292062327e-324", "2.4703282292062328e-324", "1.e-400", "-1.e-400"}) {
    EXPECT_EQ(doubleOf(plain), clibrary::doubleOf(plain)) << plain;
  }
  EXPECT_EQ(clibrary::doubleOf("1.7976931348623157e308"), 1.7976931348623157e308);
  EXPECT_EQ(clibrary::doubleOf("9.e999"), std::nullopt);
  EXPECT_EQ(clibrary::doubleOf("1.e-400"), 0.0);
}

TEST(DoubleText, FifteenDigits) {
  EXPECT_EQ(clibrary::shortTextOf(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(clibrary::shortTextOf(1e15), "1e+15");
  EXPECT_EQ(clibrary::shortTextOf(0.00001), "1e-05");
  EXPECT_EQ(clibrary::shortTextOf(86.66), "86.66");
  EXPECT_EQ(shortestTextOf(0.028F), "0.028");
}

}  // namespace
}  // namespace tallyfin
