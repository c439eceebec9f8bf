#include "states/states.h"
#include "support/paycheck.h"

/// The long schedules.

namespace tallyfin {
namespace {

class LongScheduleStates : public PaycheckTest {};

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
