#include "states/states.h"
#include "support/paycheck.h"

/// The year's wage by status, ending in whole dollars.

namespace tallyfin {
namespace {

class WholeDollarStates : public PaycheckTest {};

TEST_F(WholeDollarStates, IowaDeductsAndCreditsByTheExemptions) {
  struct Case {
    const char* exemptions;
    int deduction;
    int tax;
  };
  payData.frequency = -1;  // no multiplication: the gross is the annual wage
  payData.payPeriods = 1;
  payData.grossPay = 10000;
  // 63.77 + (x - 4,300) at 4.86 percent, less the credit.
  for (const Case& each :
       {Case{"0", 1500, 268}, {"1", 1500, 248}, {"2", 3600, 126}, {"3", 3600, 86}, {"4", 3600, 46}}) {
    sheet.exemptionsEntry = each.exemptions;
    IowaTax();
    EXPECT_EQ(payData.stateDepsDed, each.deduction) << each.exemptions;
    EXPECT_EQ(payData.stateTax, each.tax) << each.exemptions;
  }
}

TEST_F(WholeDollarStates, IowaBeyondFifteenExemptionsKeepsTheDeductionAndHasNoCredit) {
  payData.frequency = -1;
  payData.payPeriods = 1;
  payData.grossPay = 10000;
  payData.stateDepsDed = 1000;
  sheet.exemptionsEntry = "16";
  IowaTax();
  EXPECT_EQ(payData.stateDepsDed, 1000);
  EXPECT_EQ(payData.stateTax, 292);  // 63.77 + 4,700 at 4.86 percent = 292.19
}

TEST_F(WholeDollarStates, IowaDeductsTheFederalTaxOfThePeriod) {
  payData.payPeriods = 52;
  payData.grossPay = 600;
  payData.fedTax = 100;
  IowaTax();
  EXPECT_EQ(sheet.stateWage, 24500);  // 500 * 52 - 1,500
  EXPECT_EQ(payData.stateTax, 26);    // (1,154.44 + 2,500 at 7.52 percent) / 52 = 25.8162
}

TEST_F(WholeDollarStates, AnIntegerRoundingBeyondSixteenBitsLeavesTheCents) {
  payData.frequency = -1;
  payData.payPeriods = 1;
  payData.grossPay = 500000;
  IowaTax();
  EXPECT_EQ(payData.stateTax, dollars("43693.94"));  // 3,328.84 + 449,500 at 8.98 percent
}

TEST_F(WholeDollarStates, MaineDeductsElevenExemptionsButNotTwelve) {
  payData.maritalStat = 1;
  payData.payPeriods = 1;
  payData.grossPay = 40000;
  sheet.exemptionsEntry = "11";
  MaineTax();
  EXPECT_EQ(sheet.stateWage, 9750);
  EXPECT_EQ(payData.stateTax, 268);
  sheet.exemptionsEntry = "12";
  MaineTax();
  EXPECT_EQ(sheet.stateWage, 40000);
  EXPECT_EQ(payData.stateTax, 2716);
}

TEST_F(WholeDollarStates, MaineForgivesAnAnnualTaxOfForty) {
  payData.maritalStat = 1;
  payData.payPeriods = 1;
  payData.grossPay = 3500;
  MaineTax();
  EXPECT_EQ(payData.stateTax, 0);
  for (const auto& [status, wage] : {std::pair{0, "6350.01"}, {1, "3500.01"}, {2, "4175.01"}}) {
    payData.maritalStat = status;
    payData.grossPay = dollars(wage);
    MaineTax();
    EXPECT_EQ(payData.stateTax, 40) << wage;  // 40.0002
  }
}

TEST_F(WholeDollarStates, MaineKeepsTheLastTaxInItsGaps) {
  struct Gap {
    int maritalStat;
    const char* wage;
  };
  payData.payPeriods = 1;
  for (const Gap& gap : {Gap{0, "37350"}, {1, "18000"}, {2, "18675"}, {2, "18700"}, {2, "18875"}}) {
    payData.maritalStat = gap.maritalStat;
    payData.grossPay = dollars(gap.wage);
    payData.stateTax = 77;
    MaineTax();
    EXPECT_EQ(payData.stateTax, 77) << gap.wage;
  }
  for (const Gap& joined :
       {Gap{0, "37349.99"}, {0, "37350.01"}, {1, "17999.99"}, {1, "18000.01"}, {2, "18674.99"}, {2, "18875.01"}}) {
    payData.maritalStat = joined.maritalStat;
    payData.grossPay = dollars(joined.wage);
    payData.stateTax = 77;
    MaineTax();
    EXPECT_GT(payData.stateTax, 800) << joined.wage;
  }
}

TEST_F(WholeDollarStates, MaineTakesTheLastTaxInAGapForAnAnnualOne) {
  payData.maritalStat = 2;
  payData.payPeriods = 10;
  payData.grossPay = 1870;
  payData.stateTax = 100;
  MaineTax();
  EXPECT_EQ(payData.stateTax, 10);
  MaineTax();
  EXPECT_EQ(payData.stateTax, 0);  // 10 is forgiven now
}

TEST_F(WholeDollarStates, MinnesotaLetsTheLastTaxShrinkForMarriedClaimingSingle) {
  payData.maritalStat = 2;
  payData.payPeriods = 52;
  payData.stateTax = 5200;
  payData.staAdd = 7;
  Minnesota();
  EXPECT_EQ(payData.stateTax, 107);
  Minnesota();
  EXPECT_EQ(payData.stateTax, 9);  // 2.0577 + 7
  Minnesota();
  EXPECT_EQ(payData.stateTax, 7);  // 0.1731 + 7
}

TEST_F(WholeDollarStates, MinnesotaRoundsTheAdditionalAmountToo) {
  payData.maritalStat = 1;
  payData.payPeriods = 1;
  payData.staAdd = dollars("10.40");
  Minnesota();
  EXPECT_EQ(payData.stateTax, 10);
  payData.grossPay = 1555;  // 0.30
  Minnesota();
  EXPECT_EQ(payData.stateTax, 11);
}

TEST_F(WholeDollarStates, MinnesotaAppliesEachRowFromTheBoundOfTheOneBefore) {
  struct Join {
    int maritalStat;
    const char* wage;
    const char* additional;
    int sum;
  };
  payData.payPeriods = 1;
  for (const Join& join : {Join{0, "4450.99", "0.45", 1},     // 0.0594
                           {0, "29670", "0.40", 1514},        // 1,513.20
                           {0, "29670.99", "0.30", 1513},     // 1,513.0792
                           {1, "1550.99", "0.45", 1},         // 0.0594
                           {1, "18800.99", "0.43", 1036},     // 1,035.0792
                           {1, "58220.99", "0.45", 4190}}) {  // 4,189.0842
    payData.maritalStat = join.maritalStat;
    payData.grossPay = dollars(join.wage);
    payData.staAdd = dollars(join.additional);
    Minnesota();
    EXPECT_EQ(payData.stateTax, join.sum) << join.wage;
  }
}

TEST_F(WholeDollarStates, MinnesotaKeepsTheLastDeductionFromTwelveExemptionsOn) {
  payData.payPeriods = 1;
  payData.grossPay = 40000;
  sheet.exemptionsEntry = "11";
  Minnesota();
  EXPECT_EQ(payData.stateDepsDed, 30250);
  sheet.exemptionsEntry = "12";
  payData.stateDepsDed = 123;
  Minnesota();
  EXPECT_EQ(payData.stateDepsDed, 123);
  EXPECT_EQ(sheet.stateWage, 39877);
}

TEST_F(WholeDollarStates, MinnesotaRoundsWithoutASixteenBitLimit) {
  payData.payPeriods = 1;
  payData.grossPay = 504650;
  payData.staAdd = dollars("0.4");
  Minnesota();
  EXPECT_EQ(payData.stateTax, 41512);  // 7,512 + 400,000 at 8.5 percent
}

TEST_F(WholeDollarStates, MississippiUsesTheAdditionalAmountTwice) {
  payData.payPeriods = 1;
  payData.grossPay = 12400;
  payData.staAdd = 100;
  Mississippi();
  EXPECT_EQ(sheet.stateWage, 10000);  // less 2,300 and 100
  EXPECT_EQ(payData.stateTax, 450);
}

TEST_F(WholeDollarStates, MississippiEndsItsThreePercentAtFiveThousand) {
  payData.payPeriods = 12;
  payData.grossPay = dollars("608.3347");
  Mississippi();
  EXPECT_EQ(sheet.stateWage, dollars("5000.0164"));
  EXPECT_EQ(payData.stateTax, 13);  // 150.0007 / 12 is 12.5001
}

TEST_F(WholeDollarStates, MississippiChoosesTheStandardDeductionByTheButton) {
  payData.payPeriods = 1;
  for (const auto& [choice, deduction] : {std::pair{0, 2300}, {7, 4200}, {8, 2100}, {9, 3400}}) {
    payData.staMarried = choice;
    Mississippi();
    EXPECT_EQ(sheet.stateStdDed, deduction);
  }
  payData.staMarried = 3;
  Mississippi();
  EXPECT_EQ(sheet.stateStdDed, 3400);  // unchanged
}

TEST_F(WholeDollarStates, MississippiKeepsTheLastDeductionBeyondSixteenBits) {
  payData.payPeriods = 1;
  payData.staDeps = 21;
  Mississippi();
  EXPECT_EQ(payData.stateDepsDed, 31500);
  payData.staDeps = 22;
  Mississippi();
  EXPECT_EQ(payData.stateDepsDed, 31500);
}

}  // namespace
}  // namespace tallyfin
