#include "states/states.h"
#include "support/paycheck.h"

/// Missouri: deductions of the year, tables of the period.

namespace tallyfin {
namespace {

class MissouriTest : public PaycheckTest {
 protected:
  MissouriTest() {
    payData.frequency = 3;
    payData.payPeriods = 12;
  }
};

TEST_F(MissouriTest, CapsTheFederalDeduction) {
  payData.grossPay = 10000;
  payData.fedTax = 1000;
  Missouri();
  EXPECT_EQ(sheet.stateWage, dollars("8808.3333"));  // (120,000 - 4,300 - 10,000) / 12
  EXPECT_EQ(payData.stateTax, 510);                  // 26.46 + 8,052.3333 at 6 percent = 509.60
  payData.maritalStat = 1;
  Missouri();
  EXPECT_EQ(sheet.stateWage, dollars("9283.3333"));  // (120,000 - 3,600 - 5,000) / 12
}

TEST_F(MissouriTest, DeductsOnlyTheWholeFederalTaxForMarriedClaimingSingleAtFirst) {
  payData.maritalStat = 2;
  payData.grossPay = 5000;
  payData.fedTax = 1500;
  sheet.exemptionsEntry = "4";
  Missouri();
  EXPECT_EQ(sheet.stateWage, 3500);
  EXPECT_EQ(payData.stateTax, 191);  // 26.46 + 2,744 at 6 percent = 191.10
}

TEST_F(MissouriTest, LeavesMarriedClaimingSingleTheDeductionsOfTheLastRoutine) {
  payData.grossPay = 5000;
  sheet.exemptionsEntry = "2";
  Missouri();
  EXPECT_EQ(payData.stateDepsDed, 2400);
  EXPECT_EQ(sheet.stateStdDed, 4300);
  payData.maritalStat = 2;
  sheet.exemptionsEntry = "5";
  Missouri();
  EXPECT_EQ(sheet.stateWage, dollars("4441.6667"));  // (60,000 - 6,700) / 12
}

TEST_F(MissouriTest, KeepsTheExemptionDeductionBeyondFifteen) {
  sheet.exemptionsEntry = "15";
  Missouri();
  EXPECT_EQ(payData.stateDepsDed, 18000);
  sheet.exemptionsEntry = "16";
  Missouri();
  EXPECT_EQ(payData.stateDepsDed, 18000);
}

TEST_F(MissouriTest, RoundsBeforeTheAdditionalAmount) {
  payData.staAdd = dollars("7.25");
  Missouri();  // x is -358.3333, the first band gives -5.375
  EXPECT_EQ(payData.stateTax, dollars("2.25"));
}

TEST_F(MissouriTest, RoundsWithoutASixteenBitLimit) {
  payData.maritalStat = 2;
  payData.grossPay = 1000765;
  Missouri();
  EXPECT_EQ(payData.stateTax, 60027);  // 26.46 + 1,000,009 at 6 percent = 60,027.00
  payData.grossPay = 1000756;
  Missouri();
  EXPECT_EQ(payData.stateTax, 60026);  // 60,026.46
}

TEST_F(MissouriTest, KeepsTheAnnualWageWithoutPayPeriods) {
  payData.payPeriods = 0;
  payData.grossPay = 5000;
  payData.maritalStat = 2;
  Missouri();  // the year has no periods: the wage is 0, and dividing it is skipped
  EXPECT_EQ(sheet.stateWage, 0);
  EXPECT_EQ(payData.stateTax, 0);
}

}  // namespace
}  // namespace tallyfin
