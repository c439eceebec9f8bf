#include "states/states.h"
#include "support/paycheck.h"

/// The year's wage through one schedule whatever the status.

namespace tallyfin {
namespace {

class AnnualScheduleStates : public PaycheckTest {};

TEST_F(AnnualScheduleStates, VirginiaRoundsToWholeDollars) {
  payData.payPeriods = 26;
  payData.grossPay = 1000;
  payData.staAdd = dollars("0.25");
  sheet.exemptionsEntry = "2";
  Virginia();
  EXPECT_EQ(sheet.stateWage, 21900);
  EXPECT_EQ(payData.stateTax, dollars("39.25"));  // 1,001.75 / 26 = 38.5288
}

TEST_F(AnnualScheduleStates, VirginiaJoinsItsRows) {
  payData.payPeriods = 1;
  for (const auto& [gross, tax] : {std::pair{5500, 60}, {7500, 120}, {19500, 720}}) {
    payData.grossPay = gross;
    Virginia();
    EXPECT_EQ(payData.stateTax, tax);
  }
}

TEST_F(AnnualScheduleStates, VirginiaEndsItsTwoPercentAtThreeThousand) {
  payData.payPeriods = 24;
  payData.grossPay = dollars("229.1685");
  Virginia();
  EXPECT_EQ(sheet.stateWage, dollars("3000.044"));
  EXPECT_EQ(payData.stateTax, 3);  // 60.0013 / 24 is 2.5001
}

TEST_F(AnnualScheduleStates, VirginiaRoundsANegativeTax) {
  payData.payPeriods = 52;
  payData.grossPay = 10;
  Virginia();
  EXPECT_EQ(payData.stateTax, 0);
  payData.staAdd = 3;
  Virginia();
  EXPECT_EQ(payData.stateTax, 2);  // -39.60 / 52 is -0.7615, rounded to -1
}

TEST_F(AnnualScheduleStates, VirginiaKeepsTheLastWageBeyondSixteenBits) {
  payData.payPeriods = 1;
  payData.grossPay = 100000;
  sheet.stateWage = 3000;
  sheet.exemptionsEntry = "38";  // 30,400 + 2,500 is 32,900
  Virginia();
  EXPECT_EQ(payData.stateTax, 60);
}

TEST_F(AnnualScheduleStates, SouthCarolinaCapsTheStandardDeduction) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  payData.staDeps = 7;
  sheet.exemptions = 5;
  sheet.exemptionsEntry = "2";
  SCarolina();
  EXPECT_EQ(sheet.stateStdDed, 2125);
  EXPECT_EQ(payData.stateDepsDed, 3800);
  EXPECT_EQ(sheet.stateWage, 20075);
  EXPECT_EQ(payData.stateTax, dollars("21.2548"));
  EXPECT_EQ(payData.staDeps, 2);
  EXPECT_EQ(sheet.exemptions, 5);
}

TEST_F(AnnualScheduleStates, SouthCarolinaCapsTheStandardDeductionFromTheFirstCentOn) {
  payData.payPeriods = 1;
  payData.grossPay = 21255;
  sheet.exemptionsEntry = "1";
  SCarolina();
  EXPECT_EQ(sheet.stateStdDed, 2125);  // 2,125.50 otherwise
  EXPECT_EQ(sheet.stateWage, 17230);
}

TEST_F(AnnualScheduleStates, SouthCarolinaTaxesTheWholeWageWithoutExemptions) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  SCarolina();
  EXPECT_EQ(sheet.stateStdDed, 0);
  EXPECT_EQ(sheet.stateWage, 26000);
  EXPECT_EQ(payData.stateTax, dollars("29.2308"));
}

TEST_F(AnnualScheduleStates, SouthCarolinaJoinsItsStrictFirstRow) {
  payData.payPeriods = 1;
  payData.grossPay = 2000;
  SCarolina();
  EXPECT_EQ(payData.stateTax, 40);
}

TEST_F(AnnualScheduleStates, SouthCarolinaLosesTheCapTogetherWithAProductBeyondSixteenBits) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  payData.stateDepsDed = 1;
  sheet.exemptionsEntry = "18";  // times 1,900 is 34,200
  SCarolina();
  EXPECT_EQ(payData.stateDepsDed, 1);
  EXPECT_EQ(sheet.stateStdDed, 2600);
  EXPECT_EQ(sheet.stateWage, 23399);
}

TEST_F(AnnualScheduleStates, SouthCarolinaLeavesTheDeductionsForANegativeCount) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  payData.stateDepsDed = 1;
  sheet.exemptionsEntry = "-1";
  SCarolina();
  EXPECT_EQ(payData.stateDepsDed, 1);
  EXPECT_EQ(sheet.stateStdDed, 2600);
}

TEST_F(AnnualScheduleStates, SouthCarolinaKeepsTheDependentsOfATextThatIsNoNumber) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  payData.staDeps = 2;
  sheet.exemptionsEntry = "none";
  SCarolina();
  EXPECT_EQ(payData.stateTax, dollars("21.2548"));
}

}  // namespace
}  // namespace tallyfin
