#include "states/states.h"
#include "support/paycheck.h"

/// Eight rows by status and frequency.

namespace tallyfin {
namespace {

class EightBandStates : public PaycheckTest {};

TEST_F(EightBandStates, NebraskaIsFreeUpToItsFirstBound) {
  payData.grossPay = 101;
  NebraskaTax();
  EXPECT_EQ(payData.stateTax, 0);
  payData.grossPay = dollars("101.01");
  NebraskaTax();
  EXPECT_EQ(payData.stateTax, dollars("0.0002"));
}

TEST_F(EightBandStates, MarriedClaimingSingleAddsToTheLastTax) {
  payData.maritalStat = 2;
  payData.grossPay = 1000;
  payData.stateTax = 12;
  payData.staAdd = 5;
  NebraskaTax();
  EXPECT_EQ(payData.stateTax, 17);
  NebraskaTax();
  EXPECT_EQ(payData.stateTax, 22);
  NewMexico();
  EXPECT_EQ(payData.stateTax, 27);
}

TEST_F(EightBandStates, NewMexicoHasWholeExemptionsMonthly) {
  payData.frequency = 3;
  sheet.exemptionsEntry = "2";
  NewMexico();
  EXPECT_EQ(payData.stateDepsDed, 450);
  sheet.exemptionsEntry = "146";  // times 225 is 32,850
  NewMexico();
  EXPECT_EQ(payData.stateDepsDed, 450);
}

TEST_F(EightBandStates, NewMexicoHasATopRateOfItsOwnForSingleMonthly) {
  payData.frequency = 3;
  payData.maritalStat = 1;
  payData.grossPay = 6000;
  NewMexico();
  EXPECT_EQ(payData.stateTax, dollars("376.72"));
}

TEST_F(EightBandStates, AWageBelowTheExemptionsIsTaxedZero) {
  payData.staAdd = 3;
  sheet.exemptionsEntry = "5";
  NebraskaTax();
  EXPECT_EQ(payData.stateTax, 3);
  NewMexico();
  EXPECT_EQ(payData.stateTax, 3);
}

}  // namespace
}  // namespace tallyfin
