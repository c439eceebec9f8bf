#include "states/states.h"
#include "support/paycheck.h"

/// Six and seven rows by status and frequency.

namespace tallyfin {
namespace {

class SixAndSevenBandStates : public PaycheckTest {};

TEST_F(SixAndSevenBandStates, RhodeIslandDeductsItsExemptions) {
  payData.maritalStat = 1;
  payData.grossPay = 400;
  sheet.exemptionsEntry = "1";
  RhodeIsland();
  EXPECT_EQ(payData.stateDepsDed, dollars("52.88"));
  EXPECT_EQ(payData.stateTax, dollars("11.8448"));
}

TEST_F(SixAndSevenBandStates, MarriedClaimingSingleAddsToTheLastTax) {
  payData.maritalStat = 2;
  payData.staAdd = 5;
  RhodeIsland();
  RhodeIsland();
  EXPECT_EQ(payData.stateTax, 10);
  Vermont();
  EXPECT_EQ(payData.stateTax, 15);
}

TEST_F(SixAndSevenBandStates, VermontsSingleWeeklyTableHasTheLowersOfMarried) {
  struct Case {
    const char* wage;
    const char* tax;
  };
  payData.maritalStat = 1;
  payData.staAdd = 10;
  for (const Case& each : {Case{"100", "9.1"},      // -0.9
                           {"517", "24.7375"},      // 14.7375
                           {"517.01", "0.6707"},    // -9.3293
                           {"5400", "432.629"}}) {  // 422.629
    payData.grossPay = dollars(each.wage);
    Vermont();
    EXPECT_EQ(payData.stateTax, dollars(each.tax)) << each.wage;
  }
  payData.staAdd = 0;
  payData.grossPay = 100;
  Vermont();
  EXPECT_EQ(payData.stateTax, 0);
}

TEST_F(SixAndSevenBandStates, VermontHasWholeExemptionsMonthly) {
  payData.frequency = 3;
  sheet.exemptionsEntry = "2";
  Vermont();
  EXPECT_EQ(payData.stateDepsDed, 450);
}

TEST_F(SixAndSevenBandStates, UtahGivesZeroOnBothSidesOfItsFirstBound) {
  for (const char* wage : {"28.99", "29"}) {
    payData.grossPay = dollars(wage);
    Utah();
    EXPECT_EQ(payData.stateTax, 0);
  }
}

TEST_F(SixAndSevenBandStates, UtahRoundsHalfToEvenBeforeTheAdditionalAmount) {
  payData.staAdd = dollars("0.4");
  payData.grossPay = dollars("99.8205");  // 2 + 12.8205 at 3.9 percent = 2.5
  Utah();
  EXPECT_EQ(payData.stateTax, dollars("2.4"));
  payData.grossPay = dollars("125.4167");  // 3 + 10.4167 at 4.8 percent = 3.5
  Utah();
  EXPECT_EQ(payData.stateTax, dollars("4.4"));
}

TEST_F(SixAndSevenBandStates, UtahRoundsTheLastTaxOfMarriedClaimingSingleToo) {
  payData.maritalStat = 2;
  payData.stateTax = dollars("12.6");
  Utah();
  EXPECT_EQ(payData.stateTax, 13);
}

TEST_F(SixAndSevenBandStates, UtahKeepsTheCentsBeyondSixteenBits) {
  payData.maritalStat = 2;
  payData.stateTax = dollars("32767.4");
  Utah();
  EXPECT_EQ(payData.stateTax, 32767);
  payData.stateTax = dollars("32767.5");
  Utah();
  EXPECT_EQ(payData.stateTax, dollars("32767.5"));
}

TEST_F(SixAndSevenBandStates, UtahKeepsTheLastDeductionBeyondSixteenBits) {
  sheet.exemptionsEntry = "863";  // times 38 is 32,794
  payData.stateDepsDed = 6;
  Utah();
  EXPECT_EQ(payData.stateDepsDed, 6);
}

}  // namespace
}  // namespace tallyfin
