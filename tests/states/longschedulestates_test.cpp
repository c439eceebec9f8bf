#include "states/states.h"
#include "support/paycheck.h"

/// The long schedules.

namespace tallyfin {
namespace {

class LongScheduleStates : public PaycheckTest {};

TEST_F(LongScheduleStates, ConnecticutJumpsAtTenThousand) {
  payData.frequency = 3;
  payData.payPeriods = 12;
  payData.grossPay = 2000;
  Connecticut();
  EXPECT_EQ(sheet.stateWage, 12000);                // 24,000 less the exemption of 12,000
  EXPECT_EQ(payData.stateTax, dollars("218.875"));  // (3,000 + 2,000 at 4.5 percent), less 15 percent, by 12
}

TEST_F(LongScheduleStates, ConnecticutIgnoresTheLetterOfTheStateOptions) {
  store.write(section::stateInfo, "staRate", "2");
  payData.frequency = 3;
  payData.payPeriods = 12;
  payData.grossPay = 2000;
  Connecticut();
  EXPECT_EQ(payData.stateTax, dollars("218.875"));
}

TEST_F(LongScheduleStates, ConnecticutHasNoScheduleBeyondTheLetters) {
  payData.payPeriods = 52;
  payData.grossPay = 1000;
  payData.stateTax = 5200;
  sheet.staRate = 4;
  Connecticut();
  EXPECT_EQ(sheet.stateWage, 52000);
  EXPECT_EQ(payData.stateTax, 100);
}

TEST_F(LongScheduleStates, ConnecticutCreditsInSinglePrecision) {
  payData.frequency = -1;
  payData.payPeriods = 1;
  payData.grossPay = dollars("47000.0333");  // taxed 4,665.0015
  Connecticut();
  EXPECT_EQ(payData.stateTax, dollars("4198.5013"));  // 10 percent in double precision would leave 4,198.50135, a tie
}

TEST_F(LongScheduleStates, GeorgiaDeductsTwiceWithADependent) {
  payData.grossPay = 100;
  Georgia();
  EXPECT_EQ(sheet.stateWage, dollars("55.75"));
  payData.staDeps = 1;
  Georgia();
  EXPECT_EQ(sheet.stateWage, dollars("-36.5"));  // 100 - 2 * 44.25 - 48
}

TEST_F(LongScheduleStates, GeorgiaTakesANegativeCountForDependents) {
  payData.grossPay = 100;
  payData.staDeps = -1;
  Georgia();
  EXPECT_EQ(sheet.stateWage, dollars("59.5"));  // 100 - 2 * 44.25 + 48
}

TEST_F(LongScheduleStates, GeorgiaGivesTheDoubleDeductionOfASeparateFilerBack) {
  payData.grossPay = 100;
  payData.staMarried = 6;
  Georgia();
  EXPECT_EQ(sheet.stateStdDed, dollars("28.75"));
  EXPECT_EQ(payData.stateDepsDed, dollars("57.5"));
  EXPECT_EQ(sheet.stateWage, dollars("71.25"));
}

TEST_F(LongScheduleStates, GeorgiaHasStrictTests) {
  payData.grossPay = dollars("64.25");
  Georgia();
  EXPECT_EQ(sheet.stateWage, 20);
  EXPECT_EQ(payData.stateTax, dollars("0.2"));
}

TEST_F(LongScheduleStates, GeorgiaLeavesBothDeductionsForAStatusThatIsNotOffered) {
  payData.grossPay = 1000;
  payData.staDeps = 1;
  payData.staMarried = 8;
  payData.stateDepsDed = 10;
  sheet.stateStdDed = 20;
  Georgia();
  EXPECT_EQ(sheet.stateWage, 922);  // 1,000 - 20 - 10 - 48
}

TEST_F(LongScheduleStates, IdahoHasNoTableForMarriedClaimingSingle) {
  payData.grossPay = 1000;
  payData.maritalStat = 2;
  payData.stateTax = 12;
  payData.staAdd = 5;
  Idaho();
  EXPECT_EQ(payData.stateTax, 17);
}

}  // namespace
}  // namespace tallyfin
