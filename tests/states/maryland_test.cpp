#include "states/states.h"
#include "support/paycheck.h"

/// Maryland and its counties.

namespace tallyfin {
namespace {

class MarylandTest : public PaycheckTest {};

TEST_F(MarylandTest, LiftsASmallDeductionToTheLowBound) {
  payData.grossPay = 100;
  Maryland();
  EXPECT_EQ(sheet.stateWage, 71);
  EXPECT_EQ(payData.stateTax, dollars("2.389"));  // 1.71 + 14 at 4.85 percent
}

TEST_F(MarylandTest, CutsALargeDeductionToTheHighBound) {
  payData.grossPay = 1000;
  Maryland();
  EXPECT_EQ(sheet.stateWage, dollars("961.5"));
}

TEST_F(MarylandTest, LeavesADeductionBetweenTheBounds) {
  payData.grossPay = 200;
  Maryland();
  EXPECT_EQ(sheet.stateWage, 170);
}

TEST_F(MarylandTest, HasATenfoldFirstLocalRateInCounty48) {
  payData.grossPay = 39;
  payData.mMethod = 48;
  Maryland();
  EXPECT_EQ(payData.localTax, dollars("0.96"));
  EXPECT_EQ(payData.stateTax, dollars("1.16"));  // 10 at 2 percent, and the local part
}

TEST_F(MarylandTest, WritesAZeroLocalTaxBeforeAPick) {
  payData.grossPay = 39;
  payData.localTax = 12;
  for (const int rate : {0, 3, 49}) {
    payData.mMethod = rate;
    Maryland();
    EXPECT_EQ(payData.localTax, 0);
    EXPECT_EQ(payData.stateTax, dollars("0.2"));
  }
}

TEST_F(MarylandTest, FloorsTheStatePartBeforeTheLocalPart) {
  payData.grossPay = 39;
  payData.mMethod = 50;
  payData.staAdd = -100;
  Maryland();
  EXPECT_EQ(payData.stateTax, dollars("0.1"));
}

TEST_F(MarylandTest, ClearsANegativeLocalTax) {
  payData.mMethod = 60;
  payData.staAdd = 5;
  Maryland();  // a base of -29
  EXPECT_EQ(payData.localTax, 0);
  EXPECT_EQ(payData.stateTax, dollars("4.42"));
}

TEST_F(MarylandTest, DeductsExemptionsOfItsOwnFromEachBase) {
  payData.grossPay = dollars("1000.1");
  payData.mMethod = 50;
  sheet.exemptionsEntry = "2";
  Maryland();
  EXPECT_EQ(payData.stateDepsDed, dollars("71.2"));
  EXPECT_EQ(payData.localTax, dollars("22.32"));    // 0.86 + (961.6 - 46.2 - 57) at 2.5 percent
  EXPECT_EQ(payData.stateTax, dollars("64.4499"));  // 1.71 + (961.6 - 71.2 - 57) at 4.85 percent, and the local part
}

TEST_F(MarylandTest, LosesTheLocalStepWholeBeyondSixteenBits) {
  payData.frequency = 1;
  payData.mMethod = 50;
  payData.grossPay = 100;
  sheet.exemptionsEntry = "656";  // times 50 is 32,800: neither the exemption nor the limits take effect
  Maryland();
  EXPECT_EQ(payData.localTax, dollars("1.08"));  // 85: 1.04 + 2 at 2 percent
}

TEST_F(MarylandTest, WithoutAFrequencyKeepsTheUnclampedDeductionAndTheLastTax) {
  payData.frequency = -1;
  payData.grossPay = 100;
  payData.stateDepsDed = 5;
  payData.stateTax = 30;
  payData.localTax = 4;
  payData.mMethod = 50;
  Maryland();
  EXPECT_EQ(sheet.stateWage, 80);  // less 15 and 5
  EXPECT_EQ(payData.stateTax, 30);
  EXPECT_EQ(payData.localTax, 0);
}

}  // namespace
}  // namespace tallyfin
