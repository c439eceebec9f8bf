#include <cstdint>
#include <limits>

#include "states/states.h"
#include "support/paycheck.h"

/// New York, which a failure ends.

namespace tallyfin {
namespace {

class NewYorkTest : public PaycheckTest {};

TEST_F(NewYorkTest, DeductsTheExemptionsAndTheStandardDeduction) {
  payData.maritalStat = 1;
  payData.grossPay = 500;
  payData.staDeps = 8;
  sheet.exemptions = 6;
  sheet.exemptionsEntry = "1";
  NewYork();
  EXPECT_EQ(sheet.stateStdDed, dollars("19.25"));
  EXPECT_EQ(payData.stateDepsDed, dollars("134.15"));
  EXPECT_EQ(sheet.stateWage, dollars("346.6"));
  EXPECT_EQ(payData.stateTax, dollars("16.4694"));
  EXPECT_EQ(payData.staDeps, 1);
  EXPECT_EQ(sheet.exemptions, 6);
}

TEST_F(NewYorkTest, FallsAFractionOfACentAtItsFirstBound) {
  payData.grossPay = dollars("297.75");  // less 143.75
  NewYork();
  EXPECT_EQ(payData.stateTax, dollars("6.15"));
  payData.grossPay = dollars("297.74");
  NewYork();
  EXPECT_EQ(payData.stateTax, dollars("6.1596"));
}

TEST_F(NewYorkTest, LeavesMarriedClaimingSingleTheDeductionOfTheLastRoutine) {
  payData.maritalStat = 2;
  payData.grossPay = 500;
  NewYork();
  EXPECT_EQ(sheet.stateWage, 500);
  payData.maritalStat = 0;
  NewYork();
  payData.maritalStat = 2;
  NewYork();
  EXPECT_EQ(sheet.stateWage, dollars("356.25"));
  sheet.exemptionsEntry = "2";
  WestVirginia();
  sheet.exemptionsEntry = "0";
  NewYork();
  EXPECT_EQ(sheet.stateWage, dollars("423.08"));  // 500 - 76.92
}

TEST_F(NewYorkTest, AbandonsEverythingWhereTheExemptionsAreNoNumber) {
  store.write(section::stateInfo, "staPreTax", "Y");
  payData.preTax = 50;
  payData.grossPay = 500;
  payData.staDeps = 3;
  payData.staAdd = 5;
  payData.stateTax = 12;
  sheet.exemptionsEntry = "many";
  const PayData before = payData;
  NewYork();
  EXPECT_EQ(payData, before);
  EXPECT_EQ(sheet.stateStdDed, 0);
  EXPECT_EQ(sheet.stateWage, 0);
}

TEST_F(NewYorkTest, AbandonsTheTableAndTheFinishWhereTheWageOverflows) {
  payData.grossPay = Money::ofUnits(std::numeric_limits<std::int64_t>::min());
  payData.stateTax = 12;
  payData.staAdd = 5;
  NewYork();
  EXPECT_EQ(payData.stateDepsDed, dollars("143.75"));
  EXPECT_EQ(payData.stateTax, 12);
}

TEST_F(NewYorkTest, GoesOnWithoutAFrequency) {
  payData.frequency = -1;
  payData.grossPay = 500;
  payData.stateDepsDed = 100;
  payData.stateTax = 12;
  payData.staAdd = 5;
  sheet.stateStdDed = 30;
  sheet.exemptionsEntry = "2";
  NewYork();
  EXPECT_EQ(payData.staDeps, 2);
  EXPECT_EQ(sheet.stateStdDed, 30);
  EXPECT_EQ(sheet.stateWage, 370);
  EXPECT_EQ(payData.stateTax, 17);
}

TEST_F(NewYorkTest, RemovesANegativeTax) {
  payData.grossPay = 50;
  NewYork();
  EXPECT_EQ(payData.stateTax, 0);
}

}  // namespace
}  // namespace tallyfin
