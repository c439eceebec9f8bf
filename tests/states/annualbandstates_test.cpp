#include "states/states.h"
#include "support/paycheck.h"

/// The year's wage through one schedule, with an annual credit.

namespace tallyfin {
namespace {

class AnnualBandStates : public PaycheckTest {};

TEST_F(AnnualBandStates, AlabamaTaxesTheWageLessFourDeductions) {
  payData.payPeriods = 52;
  payData.staMarried = 1;
  payData.grossPay = 500;
  payData.fedTax = 50;
  payData.staDeps = 1;
  Alabama();
  EXPECT_EQ(payData.staExmp, 2000);
  EXPECT_EQ(payData.stateDepsDed, 1500);
  EXPECT_EQ(sheet.stateWage, 19600);                // 26,000 - (2,600 + 1,500 + 2,000 + 300)
  EXPECT_EQ(payData.stateTax, dollars("18.0769"));  // (16,600 at 5 percent + 110) / 52
}

TEST_F(AnnualBandStates, AlabamaCapsTheStandardDeduction) {
  payData.payPeriods = 1;
  for (const int annualBase : {10000, 10010}) {
    payData.grossPay = annualBase;
    payData.staMarried = 0;
    Alabama();
    EXPECT_EQ(payData.staExmp, annualBase == 10000 ? 2000 : 2002);
    payData.staMarried = 1;
    Alabama();
    EXPECT_EQ(payData.staExmp, 2000);
  }
}

TEST_F(AnnualBandStates, AlabamaRoundsTheStandardDeductionHalfToEven) {
  payData.payPeriods = 1;
  payData.grossPay = dollars("12.5");
  Alabama();
  EXPECT_EQ(payData.staExmp, 2);
  payData.grossPay = dollars("17.5");
  Alabama();
  EXPECT_EQ(payData.staExmp, 4);
}

TEST_F(AnnualBandStates, AlabamaKeepsStaExmpWhereTheDeductionDoesNotFit) {
  payData.payPeriods = 1;
  payData.grossPay = dollars("163837.49");
  Alabama();
  EXPECT_EQ(payData.staExmp, 32767);
  payData.staExmp = 123;
  payData.grossPay = dollars("163837.50");
  Alabama();
  EXPECT_EQ(payData.staExmp, 123);
}

TEST_F(AnnualBandStates, AlabamaFloorsATaxThatFederalWithholdingMakesNegative) {
  payData.payPeriods = 52;
  payData.staMarried = 3;
  payData.grossPay = 500;
  payData.fedTax = 490;
  Alabama();
  EXPECT_LT(sheet.stateWage, 0);
  EXPECT_EQ(payData.stateTax, 0);
}

TEST_F(AnnualBandStates, AlabamaWithoutAnOptionShrinksTheLastTax) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  payData.stateTax = 520;
  Alabama();
  EXPECT_EQ(payData.stateTax, 10);
  Alabama();
  EXPECT_EQ(payData.stateTax, dollars("0.1923"));
}

TEST_F(AnnualBandStates, AlabamaLosesADependentDeductionBeyondSixteenBits) {
  payData.payPeriods = 1;
  payData.grossPay = 50000;
  payData.staMarried = 2;
  payData.staDeps = 109;
  Alabama();
  EXPECT_EQ(sheet.stateWage, 15300);  // 50,000 - (2,000 + 32,700)
  payData.staDeps = 110;
  Alabama();
  EXPECT_EQ(sheet.stateWage, 48000);
}

TEST_F(AnnualBandStates, ArkansasStartsNegativeBelowTwoThousand) {
  payData.payPeriods = 52;
  payData.grossPay = 10;
  Arkansas();
  EXPECT_EQ(payData.stateTax, 0);
  payData.staAdd = 1;
  Arkansas();
  EXPECT_EQ(payData.stateTax, dollars("0.7154"));  // -14.80 / 52 + 1
}

TEST_F(AnnualBandStates, ArkansasSubtractsTheDeductionThatLouisianaLeft) {
  payData.payPeriods = 52;
  payData.staDeps = 2;
  payData.grossPay = 500;
  Louisiana();
  sheet.exemptionsEntry = "1";
  Arkansas();
  EXPECT_EQ(payData.stateTax, dollars("18.4911"));  // (1,020 - (38.4614 + 20)) / 52
}

TEST_F(AnnualBandStates, ArkansasOnItsOwnSubtractsOnlyTheCredit) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  sheet.exemptionsEntry = "1";
  Arkansas();
  EXPECT_EQ(payData.stateTax, dollars("19.2308"));  // 1,000 / 52
}

TEST_F(AnnualBandStates, WithoutPayPeriodsTheDivisionIsLostAndTheAdditionInItsStepToo) {
  payData.grossPay = 1000;
  payData.staAdd = 5;
  Arkansas();
  EXPECT_EQ(payData.stateTax, 2830);  // the annual tax of 50,000
}

TEST_F(AnnualBandStates, DelawareHasStrictTests) {
  payData.payPeriods = 1;
  payData.staMarried = 1;  // no standard deduction
  payData.grossPay = 2000;
  Delaware();
  EXPECT_EQ(payData.stateTax, 0);
  payData.grossPay = 5000;
  Delaware();
  EXPECT_EQ(payData.stateTax, 78);
}

TEST_F(AnnualBandStates, DelawareLeavesAnAnnualCredit) {
  payData.payPeriods = 52;
  payData.staMarried = 3;
  payData.staDeps = 3;
  payData.grossPay = 500;
  Delaware();
  EXPECT_EQ(payData.stateDepsDed, 300);
  EXPECT_EQ(payData.stateTax, dollars("12.0192"));  // (813 + 2,000 at 5.6 percent - 300) / 52
}

TEST_F(AnnualBandStates, KentuckyHasAStrictThirdRow) {
  payData.payPeriods = 1;
  payData.grossPay = 5650;
  Kentucky();
  EXPECT_EQ(payData.stateTax, 130);
}

TEST_F(AnnualBandStates, KentuckyCreditsTwentyForEachExemption) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  sheet.exemptionsEntry = "2";
  Kentucky();
  EXPECT_EQ(payData.stateTax, dollars("24.6346"));  // (17,350 at 6 percent + 280 - 40) / 52
}

TEST_F(AnnualBandStates, KentuckyLosesTheDivisionTogetherWithAProductBeyondSixteenBits) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  sheet.exemptionsEntry = "1639";  // times 20 is 32,780
  Kentucky();
  EXPECT_EQ(payData.stateTax, 1321);  // the annual tax
}

}  // namespace
}  // namespace tallyfin
