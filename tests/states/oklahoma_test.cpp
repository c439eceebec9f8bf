#include "states/states.h"
#include "support/paycheck.h"

/// Oklahoma's limit and its federal estimate.

namespace tallyfin {
namespace {

class OklahomaTest : public PaycheckTest {};

TEST_F(OklahomaTest, TaxesFlatAboveTheCeiling) {
  payData.payPeriods = 1;
  payData.grossPay = 40000;
  payData.staMarried = 3;
  payData.staDeps = 2;
  Oklahoma();
  EXPECT_EQ(sheet.stateStdDed, 2000);
  EXPECT_EQ(sheet.stateWage, 17081);  // 22,560 - 2,000 - 2,000 - 1,479
  EXPECT_EQ(payData.stateTax, 1770);  // 635.98 + 17,440 at 6.5 percent = 1,769.58

  payData.payPeriods = 52;
  payData.grossPay = dollars("769.2308");
  Oklahoma();
  EXPECT_EQ(payData.stateTax, 34);  // 34.0304
}

TEST_F(OklahomaTest, EstimatesTheFederalTaxOfASinglePersonAtFarAboveTheWage) {
  payData.payPeriods = 1;
  payData.grossPay = 20000;
  payData.staDeps = 1;
  Oklahoma();
  EXPECT_EQ(sheet.stateWage, dollars("-8231942.5"));
  EXPECT_EQ(payData.stateTax, 0);

  payData.payPeriods = 52;
  payData.grossPay = dollars("384.6154");
  payData.staAdd = 792;  // offset by -791.5329, rounded
  Oklahoma();
  EXPECT_EQ(payData.stateTax, 0);
  payData.staAdd = 800;
  Oklahoma();
  EXPECT_EQ(payData.stateTax, 8);
}

TEST_F(OklahomaTest, HasNothingAboveTheCeilingAtExactlyTheCeiling) {
  payData.payPeriods = 12;
  payData.grossPay = 1880;
  payData.staMarried = 3;
  Oklahoma();
  EXPECT_EQ(sheet.stateWage, 18256);  // 22,560 - 2,000 - 15 percent of 15,360
  EXPECT_EQ(payData.stateTax, 61);    // (709.5 + 256 at 9 percent) / 12 = 61.045
}

TEST_F(OklahomaTest, LimitsTheStandardDeduction) {
  payData.payPeriods = 1;
  for (const auto& [wage, deduction] : {std::pair{"6666.66", "1000"},
                                        {"6666.67", "1000.0005"},
                                        {"13333.33", "1999.9995"},
                                        {"13333.34", "2000"},
                                        {"-500", "1000"}}) {
    payData.grossPay = dollars(wage);
    Oklahoma();
    EXPECT_EQ(sheet.stateStdDed, dollars(deduction)) << wage;
  }
}

TEST_F(OklahomaTest, LosesAllDeductionsFromTwelveDependentsOn) {
  payData.payPeriods = 12;
  payData.grossPay = 1880;
  payData.staMarried = 3;
  payData.staDeps = 11;
  Oklahoma();
  EXPECT_EQ(sheet.stateWage, dollars("11793.5"));
  EXPECT_EQ(payData.stateTax, 22);
  payData.staDeps = 12;
  Oklahoma();
  EXPECT_EQ(sheet.stateWage, 22560);
  EXPECT_EQ(payData.stateTax, 93);
  payData.staMarried = 8;
  Oklahoma();
  EXPECT_EQ(sheet.stateWage, 22560);
}

TEST_F(OklahomaTest, RoundsWithoutASixteenBitLimit) {
  payData.payPeriods = 1;
  payData.grossPay = 1022560;
  payData.staMarried = 3;
  Oklahoma();
  EXPECT_EQ(payData.stateTax, 65733);  // 732.54 + 1,000,000 at 6.5 percent
}

TEST_F(OklahomaTest, LetsTheLastTaxShrinkForAStatusOfAnotherState) {
  payData.payPeriods = 12;
  payData.grossPay = 2880;
  payData.staMarried = 1;
  payData.stateTax = 1200;
  Oklahoma();
  EXPECT_EQ(payData.stateTax, 165);  // (1,200 + 12,000 at 6.5 percent) / 12
  payData.payPeriods = 1;
  payData.grossPay = 22561;
  payData.stateTax = dollars("164.44");
  Oklahoma();
  EXPECT_EQ(payData.stateTax, 165);  // 0.065 more
  payData.payPeriods = 12;
  payData.grossPay = 1880;
  Oklahoma();
  EXPECT_EQ(payData.stateTax, 14);  // 13.75
  Oklahoma();
  EXPECT_EQ(payData.stateTax, 1);
}

}  // namespace
}  // namespace tallyfin
