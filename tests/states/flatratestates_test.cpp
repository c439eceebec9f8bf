#include "states/states.h"
#include "support/paycheck.h"

/// Flat rates of the pay period.

namespace tallyfin {
namespace {

class FlatRateStates : public PaycheckTest {};

TEST_F(FlatRateStates, ArizonaTakesAPercentageOfTheFederalTax) {
  payData.fedTax = 100;
  payData.staExmp = 22;
  payData.staAdd = 3;
  Arizona();
  EXPECT_EQ(payData.stateTax, 25);
}

TEST_F(FlatRateStates, ArizonaWithoutFederalTaxOrWithoutAPercentageIsTheAdditionalAmount) {
  payData.staExmp = 32;
  payData.staAdd = 7;
  Arizona();
  EXPECT_EQ(payData.stateTax, 7);
  payData.fedTax = 500;
  payData.staExmp = 0;
  Arizona();
  EXPECT_EQ(payData.stateTax, 7);
}

TEST_F(FlatRateStates, IndianaCountsTheStateDependents) {
  payData.grossPay = 1000;
  payData.staDeps = 2;
  sheet.exemptionsEntry = "9";
  IndianaTax();
  EXPECT_EQ(payData.stateDepsDed, dollars("38.46"));
  EXPECT_EQ(payData.stateTax, dollars("32.6924"));  // 961.54 at 3.4 percent
}

TEST_F(FlatRateStates, IllinoisShowsOnlyItsFirstDeduction) {
  payData.grossPay = 500;
  payData.staDeps = 2;
  payData.illDeps = 1;
  Illinois();
  EXPECT_EQ(payData.stateDepsDed, dollars("63.46"));
  EXPECT_EQ(payData.stateTax, dollars("12.5193"));  // 500 - 63.46 - 19.23 at 3 percent
}

TEST_F(FlatRateStates, MichiganKeepsTheCountThatWasParsedLast) {
  sheet.exemptionsEntry = "2";
  parseExemptions();
  sheet.exemptionsEntry = "5";
  payData.grossPay = 1000;
  MichiganTax();
  EXPECT_EQ(payData.stateDepsDed, dollars("107.7"));
  EXPECT_EQ(payData.stateTax, dollars("39.2612"));  // 892.30 at 4.4 percent
}

TEST_F(FlatRateStates, MichiganDeductsTheFixedAmountOfAClaimedDependent) {
  sheet.exemptions = 3;
  payData.staMarried = 9;
  payData.grossPay = 1000;
  MichiganTax();
  EXPECT_EQ(payData.stateDepsDed, 0);
  EXPECT_EQ(payData.stateTax, dollars("43.1539"));  // 980.77 at 4.4 percent
}

TEST_F(FlatRateStates, MichiganLosesAMonthlySpecialDeductionBeyondSixteenBits) {
  payData.frequency = 3;
  payData.mMethod = 436;
  payData.grossPay = 40000;
  MichiganTax();
  EXPECT_EQ(payData.stateTax, dollars("321.2"));  // 436 * 75 = 32,700 comes off
  payData.mMethod = 437;
  MichiganTax();
  EXPECT_EQ(payData.stateTax, 1760);  // 437 * 75 doesn't fit
}

TEST_F(FlatRateStates, MassachusettsKeepsItsConstantWithoutExemptions) {
  sheet.exemptionsEntry = "3";
  Massachusetts();
  EXPECT_EQ(payData.stateDepsDed, dollars("123.5"));
  sheet.exemptionsEntry = "0";
  Massachusetts();
  EXPECT_EQ(payData.stateDepsDed, 65);
}

TEST_F(FlatRateStates, MassachusettsDeductsFica) {
  payData.grossPay = 1065;
  payData.fica = 100;
  Massachusetts();
  EXPECT_EQ(payData.stateTax, dollars("53.55"));  // 900 at 5.95 percent
}

TEST_F(FlatRateStates, MassachusettsHeadOfFamilyMayFallBelowItsCredit) {
  payData.grossPay = 65;
  payData.staMarried = 9;
  payData.staAdd = 2;
  Massachusetts();
  EXPECT_EQ(payData.stateTax, 0);  // -2.75 + 2
  payData.staAdd = 3;
  Massachusetts();
  EXPECT_EQ(payData.stateTax, dollars("0.25"));
}

TEST_F(FlatRateStates, LouisianaLeavesTheBracketInTheDeduction) {
  payData.frequency = 3;
  payData.payPeriods = 12;
  payData.staExmp = 2;
  payData.grossPay = 3000;
  Louisiana();
  EXPECT_EQ(sheet.stateWage, 2250);  // less 750
  EXPECT_EQ(payData.stateDepsDed, 1250);
  EXPECT_EQ(payData.stateTax, 55);  // 2 percent of 2,250 and 1 percent of 1,000
}

TEST_F(FlatRateStates, LouisianaHasALowerBracketForOneExemptionAtMostAndNoneBeyondTwo) {
  payData.frequency = 3;
  payData.payPeriods = 12;
  payData.grossPay = 3000;
  for (const int exemptions : {0, 1}) {
    payData.staExmp = exemptions;
    Louisiana();
    EXPECT_EQ(payData.stateDepsDed, dollars("416.6667"));
  }
  payData.staExmp = 3;
  Louisiana();
  EXPECT_EQ(payData.stateDepsDed, 1125);
}

TEST_F(FlatRateStates, LouisianaClipsTheSecondTaxAlone) {
  payData.frequency = 3;
  payData.payPeriods = 12;
  payData.staExmp = 2;
  payData.grossPay = 1000;
  Louisiana();
  EXPECT_EQ(payData.stateTax, 5);  // 2 percent of 250; the second tax would be -10
  payData.grossPay = 250;
  payData.staAdd = 11;
  Louisiana();
  EXPECT_EQ(payData.stateTax, 1);  // 2 percent of -500 stays
}

TEST_F(FlatRateStates, LouisianaHasSixteenBitExemptionsTwiceAMonth) {
  payData.frequency = 1;
  payData.stateDepsDed = 77;
  payData.staExmp = 176;
  Louisiana();
  EXPECT_EQ(payData.stateDepsDed, 77);  // 176 * 187 = 32,912
  payData.frequency = 0;
  Louisiana();
  EXPECT_EQ(payData.stateDepsDed, dollars("15230.6"));  // a real product has no such limit
}

TEST_F(FlatRateStates, WithoutAFrequencyOnlyTheStepsThatGoByItAreLost) {
  payData.frequency = -1;
  payData.stateDepsDed = 100;
  payData.staDeps = 2;
  payData.illDeps = 2;
  payData.mMethod = 2;
  payData.grossPay = 1100;
  IndianaTax();
  EXPECT_EQ(payData.stateTax, 34);
  Illinois();
  EXPECT_EQ(payData.stateTax, 30);
  MichiganTax();
  EXPECT_EQ(payData.stateTax, 44);
  Massachusetts();
  EXPECT_EQ(payData.stateTax, dollars("59.5"));
}

}  // namespace
}  // namespace tallyfin
