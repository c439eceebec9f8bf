#include <cstdint>
#include <limits>

#include "engine/statelist.h"
#include "states/states.h"
#include "support/paycheck.h"

/// What all state routines share, and fields that one routine leaves for the next.

namespace tallyfin {
namespace {

class StateBaseTest : public PaycheckTest {
 protected:
  StateBaseTest() {
    payData.grossPay = 1000;
    payData.amt401k = 60;
    payData.preTax = 100;
  }
};

TEST_F(StateBaseTest, DeductsNothingByDefault) {
  payData.state401k = 1;
  payData.statePreTax = 2;
  StateBase();
  EXPECT_EQ(payData.state401k, 0);
  EXPECT_EQ(payData.statePreTax, 0);
  EXPECT_EQ(stateGross(), 1000);
}

TEST_F(StateBaseTest, DeductsEachAmountWhereItsOptionIsExactlyY) {
  store.write(section::stateInfo, "sta401", "Y");
  StateBase();
  EXPECT_EQ(stateGross(), 940);
  store.write(section::stateInfo, "staPreTax", "Y");
  StateBase();
  EXPECT_EQ(stateGross(), 840);
  store.write(section::stateInfo, "sta401", "y");
  store.write(section::stateInfo, "staPreTax", "Yes");
  StateBase();
  EXPECT_EQ(stateGross(), 1000);
}

TEST_F(StateBaseTest, IsReadAtEachCalculation) {
  Penn();
  EXPECT_EQ(payData.stateTax, 28);
  store.write(section::stateInfo, "sta401", "Y");
  Penn();
  EXPECT_EQ(payData.stateTax, dollars("26.32"));
}

class StateSequence : public PaycheckTest {
 protected:
  void calculateFor(int state) {
    sheet.state = state;
    callStateRoutine();
  }
};

TEST_F(StateSequence, NoStateKeepsTheLastTax) {
  payData.grossPay = 1000;
  calculateFor(34);
  EXPECT_EQ(payData.stateTax, 28);
  payData.grossPay = 2000;
  for (const int none : {0, -1}) {
    calculateFor(none);
    EXPECT_EQ(payData.stateTax, 28);
  }
}

TEST_F(StateSequence, ARunThroughSeveralStatesCarriesTheWorkingFieldsAlong) {
  payData.payPeriods = 52;
  payData.grossPay = 500;
  payData.staDeps = 2;
  sheet.exemptionsEntry = "1";

  calculateFor(17);  // Louisiana: two dependents
  EXPECT_EQ(sheet.stateStdDed, dollars("38.4614"));
  EXPECT_EQ(payData.stateDepsDed, dollars("96.1538"));  // 5,000 / 52

  calculateFor(16);  // Kentucky parses one exemption
  EXPECT_EQ(sheet.exemptions, 1);

  sheet.exemptionsEntry = "4";
  calculateFor(21);  // Michigan uses it
  EXPECT_EQ(payData.stateDepsDed, dollars("53.85"));

  payData.maritalStat = 2;
  calculateFor(28);  // New York uses Michigan's deduction as its own, and writes the dependents
  EXPECT_EQ(payData.staDeps, 4);
  EXPECT_EQ(sheet.stateWage, dollars("369.15"));  // 500 - 4 * 19.25 - 53.85

  calculateFor(13);  // Indiana counts New York's dependents
  EXPECT_EQ(payData.stateDepsDed, dollars("76.92"));

  calculateFor(24);                               // Missouri deducts New York's 77 and Indiana's 76.92 from the year
  EXPECT_EQ(sheet.stateWage, dollars("497.04"));  // (26,000 - 153.92) / 52

  calculateFor(3);                                  // Arkansas subtracts the 77 from the annual tax, and 4 * 20
  EXPECT_EQ(payData.stateTax, dollars("16.5962"));  // (1,020 - 157) / 52
}

TEST_F(StateSequence, AnAdditionalAmountIsNeverDivided) {
  payData.payPeriods = 52;
  payData.staAdd = 10;
  // Without a wage none of these owes a tax.
  for (const int state : {18, 22, 25, 38}) {
    calculateFor(state);
    EXPECT_EQ(payData.stateTax, 10) << state;
  }
}

TEST_F(StateSequence, ATextThatIsNoNumberLeavesTheExemptions) {
  sheet.exemptionsEntry = "3";
  calculateFor(25);
  EXPECT_EQ(payData.stateDepsDed, dollars("85.8"));
  sheet.exemptionsEntry = "three";
  payData.stateDepsDed = 0;
  calculateFor(25);
  EXPECT_EQ(sheet.exemptions, 3);
  EXPECT_EQ(payData.stateDepsDed, dollars("85.8"));
}

TEST_F(StateSequence, FourFrequenciesAreKnown) {
  for (const int frequency : {0, 1, 2, 3}) {
    payData.frequency = frequency;
    EXPECT_TRUE(frequencyKnown()) << frequency;
  }
  for (const int frequency : {-1, 4}) {
    payData.frequency = frequency;
    EXPECT_FALSE(frequencyKnown()) << frequency;
  }
}

TEST_F(StateSequence, WithoutAFrequencyTheTableIsSkipped) {
  payData.frequency = -1;
  payData.grossPay = 1000;
  payData.staAdd = 5;
  // District of Columbia, Georgia, Hawaii, Idaho, Kansas, New Jersey, Nebraska, Ohio, Rhode Island, West Virginia
  Money expected;
  for (const int state : {8, 9, 10, 11, 15, 26, 25, 31, 35, 40}) {
    calculateFor(state);
    expected = expected + 5;
    EXPECT_EQ(payData.stateTax, expected) << state;
  }
}

TEST_F(StateSequence, AStepThatOverflowsIsLostWhole) {
  const Money most = Money::ofUnits(std::numeric_limits<std::int64_t>::max());
  payData.payPeriods = 52;
  payData.grossPay = most;
  sheet.stateWage = 4000;
  calculateFor(16);  // Kentucky: the year's wage doesn't fit, and the last one counts
  EXPECT_EQ(sheet.stateWage, 4000);
  EXPECT_EQ(payData.stateTax, dollars("1.7308"));  // 90 / 52

  payData.grossPay = 1000;
  payData.stateTax = 0;
  payData.staAdd = most;
  calculateFor(34);  // Pennsylvania: the addition doesn't fit, and the tax is without it
  EXPECT_EQ(payData.stateTax, 28);
}

TEST_F(StateSequence, WithoutPayPeriodsTheAnnualTaxIsNotDivided) {
  payData.payPeriods = 0;
  payData.grossPay = 1000;
  payData.stateTax = 50;
  payData.maritalStat = 2;
  calculateFor(22);  // Minnesota has no table for the status
  EXPECT_EQ(payData.stateTax, 50);
  payData.staExmp = 2;
  payData.stateDepsDed = 7;
  calculateFor(17);  // Louisiana: 2 * 86.5375 stays, for the bracket can't be divided
  EXPECT_EQ(payData.stateDepsDed, dollars("173.075"));
}

}  // namespace
}  // namespace tallyfin
