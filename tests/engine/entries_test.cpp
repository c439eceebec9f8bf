#include "engine/entries.h"

#include <array>

#include "engine/calculate.h"
#include "support/paycheck.h"

namespace tallyfin {
namespace {

using EntriesTest = PaycheckTest;

TEST_F(EntriesTest, AllowsForEachExemptionByFrequency) {
  const std::array allowances{dollars("105.76"), dollars("229.16"), dollars("211.54"), dollars("458.34")};
  for (int frequency = 0; frequency < 4; ++frequency) {
    payData.frequency = frequency;
    takeAllowance(2);
    EXPECT_EQ(payData.depsDed, allowances.at(static_cast<std::size_t>(frequency)));
  }
  payData.frequency = -1;
  takeAllowance(3);
  EXPECT_EQ(payData.depsDed, dollars("458.34"));
}

TEST_F(EntriesTest, TakesTheThirdStatusForSingleUnlessItsCaptionSaysTwoIncomes) {
  for (const int option : {0, 1}) {
    takeStatus(option, false);
    EXPECT_EQ(payData.maritalStat, option);
  }
  takeStatus(2, false);
  EXPECT_EQ(payData.maritalStat, 1);
  takeStatus(2, true);
  EXPECT_EQ(payData.maritalStat, 2);
}

TEST_F(EntriesTest, TakesTheLocalRateAsAFractionOrAPercentage) {
  takeLocalRate("2");
  EXPECT_EQ(payData.localRate, 0.02);
  takeLocalRate(".5");
  EXPECT_EQ(payData.localRate, 0.5);
  takeLocalRate("");
  EXPECT_EQ(payData.localRate, 0);
}

}  // namespace
}  // namespace tallyfin
