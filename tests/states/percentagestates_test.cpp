#include "states/states.h"
#include "support/paycheck.h"

namespace tallyfin {
namespace {

class Pennsylvania : public PaycheckTest {};

TEST_F(Pennsylvania, TakesTwentyEightDollarsOfAThousand) {
  payData.grossPay = 1000;
  Penn();
  EXPECT_EQ(payData.stateTax, 28);
}

TEST_F(Pennsylvania, LosesThePreTaxAmountWhereTheUserChoseSo) {
  payData.grossPay = 1000;
  payData.preTax = 100;
  store.write(section::stateInfo, "staPreTax", "Y");
  Penn();
  EXPECT_EQ(payData.stateTax, dollars("25.2"));
}

TEST_F(Pennsylvania, OffsetsASmallAdditionalAmountWithANegativeBase) {
  payData.grossPay = 100;
  payData.preTax = 300;
  payData.staAdd = 5;
  store.write(section::stateInfo, "staPreTax", "Y");
  Penn();
  EXPECT_EQ(payData.stateTax, 0);  // -5.6 + 5
}

class NorthDakotaTest : public PaycheckTest {};

TEST_F(NorthDakotaTest, TakesFourteenPercentOfTheFederalTax) {
  payData.fedTax = 100;
  NorthDakota();
  EXPECT_EQ(payData.stateTax, 14);
  payData.fedTax = dollars("33.33");
  NorthDakota();
  EXPECT_EQ(payData.stateTax, dollars("4.6662"));
}

TEST_F(NorthDakotaTest, LeavesTheAdditionalAmountAloneWithoutFederalTax) {
  payData.grossPay = 100000;
  payData.staAdd = 7;
  NorthDakota();
  EXPECT_EQ(payData.stateTax, 7);
}

}  // namespace
}  // namespace tallyfin
