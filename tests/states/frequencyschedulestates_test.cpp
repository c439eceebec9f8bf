#include "states/states.h"
#include "support/paycheck.h"

/// One table for each frequency.

namespace tallyfin {
namespace {

class FrequencyScheduleStates : public PaycheckTest {};

TEST_F(FrequencyScheduleStates, WestVirginiaJoinsAtItsFirstBound) {
  payData.grossPay = 192;
  WestVirginia();
  EXPECT_EQ(payData.stateTax, dollars("5.76"));
  payData.grossPay = dollars("192.01");
  WestVirginia();
  EXPECT_EQ(payData.stateTax, dollars("5.7604"));
}

TEST_F(FrequencyScheduleStates, WestVirginiaTaxesAMonthWithTheRowsOfHalfAMonth) {
  payData.grossPay = 3000;
  payData.frequency = 3;
  WestVirginia();
  EXPECT_EQ(payData.stateTax, dollars("148.12"));
  payData.frequency = 1;
  WestVirginia();
  EXPECT_EQ(payData.stateTax, dollars("148.12"));
  payData.frequency = 2;
  WestVirginia();
  EXPECT_EQ(payData.stateTax, dollars("151.73"));
}

TEST_F(FrequencyScheduleStates, OhioJumpsAtItsWeeklyTop) {
  payData.grossPay = 1923;
  Ohio();
  EXPECT_EQ(payData.stateTax, dollars("96.2752"));
  payData.grossPay = dollars("1923.01");
  Ohio();
  EXPECT_EQ(payData.stateTax, dollars("120.5058"));
}

TEST_F(FrequencyScheduleStates, OhioHasWholeExemptionsEveryTwoWeeks) {
  payData.frequency = 2;
  sheet.exemptionsEntry = "3";
  Ohio();
  EXPECT_EQ(payData.stateDepsDed, 75);
  sheet.exemptionsEntry = "1311";  // times 25 is 32,775
  Ohio();
  EXPECT_EQ(payData.stateDepsDed, 75);
}

TEST_F(FrequencyScheduleStates, AWageBelowTheExemptionsGivesANegativeTaxUntilTheFinish) {
  payData.staAdd = 1;
  sheet.exemptionsEntry = "1";
  WestVirginia();
  EXPECT_EQ(payData.stateTax, 0);  // -38.46 at 3 percent is -1.1538
  payData.staAdd = 2;
  WestVirginia();
  EXPECT_EQ(payData.stateTax, dollars("0.8462"));
  Ohio();
  EXPECT_EQ(payData.stateTax, dollars("1.899"));  // -12.50 at 0.808 percent
}

}  // namespace
}  // namespace tallyfin
