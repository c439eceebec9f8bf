#include "engine/localtax.h"

#include "support/paycheck.h"

namespace tallyfin {
namespace {

class LocalTaxTest : public PaycheckTest {
 protected:
  LocalTaxTest() {
    payData.grossPay = 1000;
    payData.amt401k = 60;
    payData.preTax = 40;
    payData.stateDepsDed = 300;
    payData.depsDed = 500;  // the federal deduction isn't used
    payData.localRate = 0.02;
  }

  Money on(int applyTo) {
    payData.applyTo = applyTo;
    LocalTaxCalc();
    return payData.localTax;
  }
};

TEST_F(LocalTaxTest, TakesTheRateOfTheChosenBase) {
  EXPECT_EQ(on(1), 20);
  EXPECT_EQ(on(2), dollars("18.8"));
  EXPECT_EQ(on(3), dollars("19.2"));
  EXPECT_EQ(on(4), 18);
  EXPECT_EQ(on(5), 14);
}

TEST_F(LocalTaxTest, TakesAPercentOfTheGross) {
  payData.localRate = 0.01;
  EXPECT_EQ(on(1), 10);
}

TEST_F(LocalTaxTest, StaysAsItWasForAnyOtherBase) {
  payData.localTax = 7;
  for (const int applyTo : {0, 6, -1}) EXPECT_EQ(on(applyTo), 7);
}

TEST_F(LocalTaxTest, HasNoFloorAndNoCap) {
  payData.preTax = 1200;
  EXPECT_EQ(on(3), -4);
  payData.localRate = 2;
  EXPECT_EQ(on(1), 2000);
}

TEST_F(LocalTaxTest, KeepsFourDecimals) {
  payData.localRate = 0.0123456;
  EXPECT_EQ(on(1), dollars("12.3456"));
}

}  // namespace
}  // namespace tallyfin
