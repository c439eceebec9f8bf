#include "states/states.h"
#include "support/paycheck.h"

/// Tables of the period by status and frequency.

namespace tallyfin {
namespace {

class PeriodBandStates : public PaycheckTest {};

TEST_F(PeriodBandStates, ColoradoTaxesMarriedAboveTheThreshold) {
  payData.grossPay = 500;
  sheet.exemptionsEntry = "2";
  Colorado();
  EXPECT_EQ(payData.stateDepsDed, dollars("90.38"));
  EXPECT_EQ(payData.stateTax, dollars("16.781"));  // (409.62 - 74) at 5 percent
}

TEST_F(PeriodBandStates, ColoradoAddsToTheLastTaxOfASinglePersonAgainAndAgain) {
  payData.maritalStat = 1;
  payData.grossPay = 500;
  payData.staAdd = 5;
  Colorado();
  EXPECT_EQ(payData.stateTax, 5);
  Colorado();
  EXPECT_EQ(payData.stateTax, 10);
}

TEST_F(PeriodBandStates, DistrictOfColumbiaIsInclusive) {
  payData.staMarried = 6;
  payData.grossPay = dollars("19.23");
  DCTax();
  EXPECT_EQ(payData.stateTax, 0);
  payData.grossPay = dollars("19.24");
  DCTax();
  EXPECT_EQ(payData.stateTax, dollars("0.0006"));
}

TEST_F(PeriodBandStates, HawaiiFallsAboveThreeHundredAndEight) {
  payData.grossPay = 308;
  HawaiiTax();
  EXPECT_EQ(payData.stateTax, dollars("18.685"));  // 12.91 + 77 at 7.5 percent
  payData.grossPay = 309;
  HawaiiTax();
  EXPECT_EQ(payData.stateTax, dollars("5.388"));
}

TEST_F(PeriodBandStates, HawaiiTaxesFromTheFirstDollarAndBelow) {
  payData.grossPay = 30;
  HawaiiTax();
  EXPECT_EQ(payData.stateTax, dollars("0.48"));
  payData.grossPay = -50;
  HawaiiTax();
  EXPECT_EQ(payData.stateTax, 0);
  payData.staAdd = 1;
  HawaiiTax();
  EXPECT_EQ(payData.stateTax, dollars("0.2"));
}

TEST_F(PeriodBandStates, HawaiiParsesNoExemptions) {
  sheet.exemptionsEntry = "4";
  payData.staDeps = 2;
  HawaiiTax();
  EXPECT_EQ(sheet.exemptions, 0);
  EXPECT_EQ(payData.stateDepsDed, 40);
}

TEST_F(PeriodBandStates, HawaiiHasSixteenBitAmountsWeekly) {
  payData.staDeps = 1638;
  HawaiiTax();
  EXPECT_EQ(payData.stateDepsDed, 32760);
  payData.staDeps = 1639;
  HawaiiTax();
  EXPECT_EQ(payData.stateDepsDed, 32760);
}

TEST_F(PeriodBandStates, AStatusWithoutATableKeepsTheLastTax) {
  payData.grossPay = 1000;
  payData.maritalStat = 2;
  payData.staAdd = 5;
  Kansas();
  EXPECT_EQ(payData.stateTax, 5);
  Kansas();
  EXPECT_EQ(payData.stateTax, 10);
  payData.staMarried = 1;
  DCTax();
  EXPECT_EQ(payData.stateTax, 15);
  HawaiiTax();
  EXPECT_EQ(payData.stateTax, 20);
}

TEST_F(PeriodBandStates, KansasTaxesSingleLessSteeplyAtTheTop) {
  payData.maritalStat = 1;
  payData.grossPay = 735;
  Kansas();
  EXPECT_EQ(payData.stateTax, dollars("32.03"));  // 26.88 + 100 at 5.15 percent
}

}  // namespace
}  // namespace tallyfin
