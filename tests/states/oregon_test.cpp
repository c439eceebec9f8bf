#include "states/states.h"
#include "support/paycheck.h"

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

}  // namespace
}  // namespace tallyfin
