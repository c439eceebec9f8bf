#include "states/states.h"
#include "support/paycheck.h"

namespace tallyfin {
namespace {

class ConnecticutTest : public PaycheckTest {};

TEST_F(ConnecticutTest, JumpsAtTenThousand) {
  payData.frequency = 3;
  payData.payPeriods = 12;
  payData.grossPay = 2000;
  Connecticut();
  EXPECT_EQ(sheet.stateWage, 12000);                // 24,000 less the exemption of 12,000
  EXPECT_EQ(payData.stateTax, dollars("218.875"));  // (3,000 + 2,000 at 4.5 percent), less 15 percent, by 12
}

TEST_F(ConnecticutTest, IgnoresTheLetterOfTheStateOptions) {
  store.write(section::stateInfo, "staRate", "2");
  payData.frequency = 3;
  payData.payPeriods = 12;
  payData.grossPay = 2000;
  Connecticut();
  EXPECT_EQ(payData.stateTax, dollars("218.875"));
}

TEST_F(ConnecticutTest, HasNoScheduleBeyondTheLetters) {
  payData.payPeriods = 52;
  payData.grossPay = 1000;
  payData.stateTax = 5200;
  sheet.staRate = 4;
  Connecticut();
  EXPECT_EQ(sheet.stateWage, 52000);
  EXPECT_EQ(payData.stateTax, 100);
}

TEST_F(ConnecticutTest, CreditsInSinglePrecision) {
  payData.frequency = -1;
  payData.payPeriods = 1;
  payData.grossPay = dollars("47000.0333");  // taxed 4,665.0015
  Connecticut();
  EXPECT_EQ(payData.stateTax, dollars("4198.5013"));  // 10 percent in double precision would leave 4,198.50135, a tie
}

}  // namespace
}  // namespace tallyfin
