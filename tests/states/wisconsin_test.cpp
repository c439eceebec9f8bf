#include "states/states.h"
#include "support/paycheck.h"

/// Wisconsin's tables and its credit.

namespace tallyfin {
namespace {

class WisconsinTest : public PaycheckTest {};

TEST_F(WisconsinTest, CreditsExemptionsAgainstTheAnnualTax) {
  payData.payPeriods = 52;
  payData.grossPay = dollars("769.2308");
  sheet.exemptionsEntry = "2";
  Wisconsin();
  EXPECT_EQ(payData.stateTax, dollars("49.0548"));  // (2,590.85 - 40) / 52
}

TEST_F(WisconsinTest, FallsAtFourteenThousand) {
  payData.payPeriods = 1;
  payData.grossPay = dollars("13999.99");
  Wisconsin();
  EXPECT_EQ(payData.stateTax, dollars("768.9993"));
  payData.grossPay = 14000;
  Wisconsin();
  EXPECT_EQ(payData.stateTax, 525);
}

TEST_F(WisconsinTest, ChargesTheLowestBandOnlyWithoutExemptions) {
  payData.payPeriods = 1;
  payData.grossPay = 5000;
  Wisconsin();
  EXPECT_EQ(payData.stateTax, dollars("127.5"));
  payData.grossPay = dollars("5099.99");
  Wisconsin();
  EXPECT_EQ(payData.stateTax, dollars("130.0497"));
  payData.grossPay = 5100;
  Wisconsin();
  EXPECT_EQ(payData.stateTax, 0);

  sheet.exemptionsEntry = "1";
  payData.grossPay = 5000;
  Wisconsin();
  EXPECT_EQ(payData.stateTax, 0);  // -20
  payData.staAdd = 25;
  Wisconsin();
  EXPECT_EQ(payData.stateTax, 5);
}

TEST_F(WisconsinTest, TakesTheLastTaxOfMarriedClaimingSingleForAnAnnualOne) {
  payData.maritalStat = 2;
  payData.payPeriods = 52;
  payData.stateTax = 100;
  sheet.exemptionsEntry = "1";
  Wisconsin();
  EXPECT_EQ(payData.stateTax, dollars("1.5385"));  // 80 / 52
}

TEST_F(WisconsinTest, CreditsTheSameInTheYearForAllFrequencies) {
  // 39,000 a year, Married: 2,279 + 3,500 at 6.93 percent.
  payData.payPeriods = 12;
  payData.grossPay = 3250;
  sheet.exemptionsEntry = "3";
  Wisconsin();
  EXPECT_EQ(payData.stateTax, dollars("205.1292"));  // 2,461.55 / 12
  payData.payPeriods = 52;
  payData.grossPay = 750;
  Wisconsin();
  EXPECT_EQ(payData.stateTax, dollars("47.3375"));  // 2,461.55 / 52
}

}  // namespace
}  // namespace tallyfin
