#include "states/states.h"
#include "support/paycheck.h"

/// New Jersey's Rate A.

namespace tallyfin {
namespace {

class NewJerseyTest : public PaycheckTest {};

TEST_F(NewJerseyTest, AppliesRateAWhicheverLetterWasPicked) {
  payData.staDeps = 1;
  payData.grossPay = 500;
  for (const char* letter : {"0", "2", "4"}) {
    store.write(section::stateInfo, "staRate", letter);
    NewJersey();
    EXPECT_EQ(payData.stateDepsDed, dollars("19.2"));
    EXPECT_EQ(payData.stateTax, dollars("7.696"));  // 5.76 + (480.8 - 384) at 2 percent
  }
}

TEST_F(NewJerseyTest, KeepsItsFirstBoundInTheFirstRow) {
  payData.grossPay = 384;
  NewJersey();
  EXPECT_EQ(payData.stateTax, dollars("5.76"));
}

TEST_F(NewJerseyTest, SeesTheCountThatNewYorkLeft) {
  payData.staDeps = 1;
  sheet.exemptionsEntry = "3";
  NewJersey();
  EXPECT_EQ(payData.stateDepsDed, dollars("19.2"));
  NewYork();
  NewJersey();
  EXPECT_EQ(payData.stateDepsDed, dollars("57.6"));
}

TEST_F(NewJerseyTest, RemovesANegativeTax) {
  payData.staDeps = 1;
  NewJersey();
  EXPECT_EQ(payData.stateTax, 0);
}

TEST_F(NewJerseyTest, HasNoTableBeyondTheLetters) {
  payData.grossPay = 500;
  payData.stateTax = 9;
  for (const int letter : {-1, 5}) {
    sheet.staRate = letter;
    NewJersey();
    EXPECT_EQ(payData.stateTax, 9);
  }
}

}  // namespace
}  // namespace tallyfin
