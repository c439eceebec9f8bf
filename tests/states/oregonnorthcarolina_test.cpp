#include "states/states.h"
#include "support/paycheck.h"

/// Allowances that depend on more than a count.

namespace tallyfin {
namespace {

class OregonTest : public PaycheckTest {};

TEST_F(OregonTest, AllowsTheFederalTaxForEachExemption) {
  payData.fedTax = 40;
  payData.grossPay = 600;
  sheet.exemptionsEntry = "2";
  Oregon();
  EXPECT_EQ(payData.stateDepsDed, 80);
  EXPECT_EQ(payData.stateTax, dollars("34.8"));  // 14 + (520 - 250) at 9 percent - 3.50
}

TEST_F(OregonTest, CapsTheFederalTaxForEachExemption) {
  payData.fedTax = 100;
  sheet.exemptionsEntry = "2";
  Oregon();
  EXPECT_EQ(payData.stateDepsDed, 116);
  sheet.exemptionsEntry = "0";
  Oregon();
  EXPECT_EQ(payData.stateDepsDed, 0);
}

TEST_F(OregonTest, AllowsTheCappedTaxOnceInAMonth) {
  payData.frequency = 3;
  payData.fedTax = 400;
  for (const char* exemptions : {"0", "3"}) {
    sheet.exemptionsEntry = exemptions;
    Oregon();
    EXPECT_EQ(payData.stateDepsDed, 250);
  }
}

TEST_F(OregonTest, GivesASinglePersonOtherTablesFromThreeExemptionsOn) {
  payData.maritalStat = 1;
  payData.grossPay = 100;
  sheet.exemptionsEntry = "2";
  Oregon();
  EXPECT_EQ(payData.stateTax, dollars("2.03"));
  payData.staAdd = 5;
  sheet.exemptionsEntry = "3";
  Oregon();
  EXPECT_EQ(payData.stateTax, dollars("2.9"));  // -2.1 + 5
  payData.staAdd = 0;
  Oregon();
  EXPECT_EQ(payData.stateTax, 0);
}

TEST_F(OregonTest, HasNoTableForMarriedClaimingSingle) {
  payData.maritalStat = 2;
  payData.grossPay = 1000;
  payData.staAdd = 4;
  Oregon();
  Oregon();
  EXPECT_EQ(payData.stateTax, 8);
}

TEST_F(OregonTest, KeepsTheLastDeductionWithoutAFrequency) {
  payData.frequency = -1;
  payData.stateDepsDed = 30;
  payData.fedTax = 40;
  payData.grossPay = 100;
  sheet.exemptionsEntry = "2";
  Oregon();
  EXPECT_EQ(payData.stateDepsDed, 30);
  EXPECT_EQ(sheet.stateWage, 70);
}

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
