#include "states/states.h"
#include "support/paycheck.h"

namespace tallyfin {
namespace {

class NorthCarolinaTest : public PaycheckTest {};

TEST_F(NorthCarolinaTest, LosesTheHigherAllowanceAtTheIncomeTest) {
  payData.staDeps = 2;
  payData.grossPay = dollars("1153.84");
  NCarolina();
  EXPECT_EQ(payData.stateDepsDed, dollars("96.16"));
  EXPECT_EQ(sheet.stateWage, dollars("1057.68"));
  payData.grossPay = dollars("1153.85");
  NCarolina();
  EXPECT_EQ(payData.stateDepsDed, dollars("76.92"));
  EXPECT_EQ(sheet.stateWage, dollars("1076.93"));
}

TEST_F(NorthCarolinaTest, IsFreeUpToTheFirstBound) {
  payData.staMarried = 9;
  payData.frequency = 3;
  payData.grossPay = dollars("366.67");
  NCarolina();
  EXPECT_EQ(payData.stateTax, 0);
  payData.grossPay = dollars("366.68");
  NCarolina();
  EXPECT_EQ(payData.stateTax, dollars("0.0008"));
}

TEST_F(NorthCarolinaTest, AllowsNothingWithoutDependents) {
  for (const int gross : {1000, 2000}) {
    payData.grossPay = gross;
    payData.stateDepsDed = 5;
    NCarolina();
    EXPECT_EQ(payData.stateDepsDed, 0);
  }
}

TEST_F(NorthCarolinaTest, HasNoTableForAStatusOfAnotherState) {
  payData.staMarried = 5;
  payData.grossPay = 1000;
  payData.staDeps = 2;
  payData.stateDepsDed = 100;
  payData.stateTax = 12;
  payData.staAdd = 4;
  NCarolina();
  EXPECT_EQ(sheet.stateWage, 900);
  EXPECT_EQ(payData.stateDepsDed, 100);
  EXPECT_EQ(payData.stateTax, 16);
}

}  // namespace
}  // namespace tallyfin
