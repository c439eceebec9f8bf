#define TALLYFIN_ALONG
#include <gtest/gtest.h>

#include "engine/figures.h"

namespace tallyfin::along {
namespace {

/// An amount that rises with the income, by that many dollars for each cent.
Amount rising(Money value, double slope = 0.01, double slack = 0) { return {value, {slope, slack}}; }

class AlongTheIncome : public testing::Test {
 protected:
  AlongTheIncome() { range = unlimited; }
};

TEST_F(AlongTheIncome, SumsAddSlopesAndSlacks) {
  const Amount sum = rising(5, 0.01, 0.5) + rising(7, 0.02, 0.25);
  EXPECT_EQ(sum.plain(), 12);
  EXPECT_DOUBLE_EQ(sum.line().slope, 0.03);
  EXPECT_DOUBLE_EQ(sum.line().slack, 0.75);
  const Amount difference = rising(5, 0.01, 0.5) - rising(7, 0.03, 0.25);
  EXPECT_DOUBLE_EQ(difference.line().slope, -0.02);
  EXPECT_DOUBLE_EQ(difference.line().slack, 0.75);
}

TEST_F(AlongTheIncome, AProductWithAConstantStaysStraight) {
  const Amount year = rising(100) * Count(52);
  EXPECT_DOUBLE_EQ(year.line().slope, 0.52);
  const Rate share = Rate(0.5) * toReal(rising(100, 0.01, 2));
  EXPECT_DOUBLE_EQ(share.line().slope, 0.005);
  EXPECT_DOUBLE_EQ(share.line().slack, 1);
  EXPECT_DOUBLE_EQ((toReal(rising(100)) / Rate(4)).line().slope, 0.0025);
  EXPECT_GT(range, 1e9);
}

TEST_F(AlongTheIncome, WhatIsNoStraightLineEndsTheRange) {
  const Rate x = toReal(rising(100));
  EXPECT_EQ((x * x).plain(), 10000);
  EXPECT_EQ(range, 0);
  range = unlimited;
  EXPECT_EQ((Rate(1) / x).plain(), 0.01);
  EXPECT_EQ(range, 0);
  range = unlimited;
  EXPECT_EQ(integerRounded(rising(3)).value(), 3);  // a choice by a number that changes
  EXPECT_EQ(range, 0);
}

TEST_F(AlongTheIncome, AComparisonHoldsUntilTheBoundIsReached) {
  // 99 rises by a cent with each cent: at 100 cents more it is 100, and no longer below.
  EXPECT_TRUE(rising(99) < Amount(100));
  EXPECT_EQ(range, 99);
  range = unlimited;
  EXPECT_TRUE(rising(99) <= Amount(100));
  EXPECT_EQ(range, 99);
  range = unlimited;
  EXPECT_TRUE(rising(101) > Amount(100));  // it moves away
  EXPECT_TRUE(rising(101) >= Amount(100));
  EXPECT_FALSE(rising(101) == Amount(100));
  EXPECT_EQ(range, unlimited);
  EXPECT_TRUE(rising(101, -0.01) > Amount(100));  // it falls
  EXPECT_EQ(range, 99);
}

TEST_F(AlongTheIncome, RoundingsMakeAComparisonEndTheRangeSooner) {
  EXPECT_TRUE(rising(99, 0.01, 0.5) < Amount(100));
  EXPECT_EQ(range, 49);
  EXPECT_FALSE(rising(100, 0.01, 0.5) < Amount(100));
  EXPECT_EQ(range, 0);
  range = unlimited;
  EXPECT_TRUE(Amount(1) < Amount(2));
  EXPECT_TRUE(rising(1, 0, 0.5) < Amount(2));
  EXPECT_EQ(range, unlimited);
}

TEST_F(AlongTheIncome, ARowHoldsBetweenItsBounds) {
  using enum tallyfin::Test;
  static constexpr Band rows[] = {{atMost, 100, 0, 0}, {below, 200, 100, 0.1}};
  EXPECT_EQ(bandOf(TaxTable(rows), rising(150)).rate, 0.1);
  EXPECT_EQ(range, 4999);
  EXPECT_EQ(bandOf(TableOf<Band>{"named", rows}, rising(100)).rate, 0);
  EXPECT_EQ(range, 0);
  EXPECT_THROW(bandOf(TaxTable(rows), rising(200)), FailedStatement);
}

TEST_F(AlongTheIncome, WholeTenThousandthsAreNotRoundedAway) {
  const Amount contribution = fromReal(toReal(rising(100)) * Rate(0.06));
  EXPECT_EQ(contribution.plain(), 6);
  EXPECT_DOUBLE_EQ(contribution.line().slope, 0.0006);
  EXPECT_EQ(contribution.line().slack, 0);
  const Amount fica = fromReal(toReal(rising(100)) * Rate(0.0765));
  EXPECT_NEAR(fica.line().slack, 0.0001, 1e-6);
  const Amount odd = fromReal(Rate(0.00005, {0.01, 0}));  // 0.0000 here and 0.0100 a cent further
  EXPECT_NEAR(odd.line().slack, 0.0001, 1e-6);
  EXPECT_TRUE(fromReal(Rate(0.00005)).line().isConstant());
}

TEST_F(AlongTheIncome, RoundedFiguresAreOffByAUnitAtMost) {
  EXPECT_NEAR(roundCents(rising(1)).line().slack, 0.01, 1e-6);
  EXPECT_NEAR(roundedToDollars(rising(1, 0.01, 0.25)).line().slack, 1.25, 1e-6);
  EXPECT_NEAR(integerRounded(toReal(rising(1))).line().slack, 1, 1e-6);
  EXPECT_TRUE(roundedToDollars(Amount(Money::ofUnits(15000))).line().isConstant());
}

TEST_F(AlongTheIncome, TheLargerOfTwoIsThatUntilTheyMeet) {
  const Amount floored = greatest(rising(-1), 0);
  EXPECT_EQ(floored.plain(), 0);
  EXPECT_TRUE(floored.line().isConstant());
  EXPECT_EQ(range, 99);
  range = unlimited;
  EXPECT_DOUBLE_EQ(greatest(rising(1), 0).line().slope, 0.01);
  EXPECT_EQ(range, unlimited);
}

TEST_F(AlongTheIncome, OfTwoThatMeetHereTheFasterIsTheLarger) {
  for (const Amount& larger : {greatest(rising(0), 0), greatest(Amount(0), rising(0))}) {
    EXPECT_DOUBLE_EQ(larger.line().slope, 0.01);
    EXPECT_EQ(larger.line().slack, 0);
  }
  const Amount almost = greatest(rising(0, 0.01, 0.5), Amount(Money::ofUnits(2500)));
  EXPECT_EQ(almost.plain(), Money::ofUnits(2500));
  EXPECT_DOUBLE_EQ(almost.line().slope, 0.01);
  EXPECT_DOUBLE_EQ(almost.line().slack, 1.25);
  EXPECT_EQ(greatest(Amount(2), Amount(2)).plain(), 2);
  EXPECT_DOUBLE_EQ(greatest(rising(1, 0, 0.5), 1).line().slack, 1);
  EXPECT_EQ(range, unlimited);
}

TEST_F(AlongTheIncome, TheSmallerOfTwoIsThatUntilTheyMeet) {
  EXPECT_DOUBLE_EQ(least(rising(1), 2).line().slope, 0.01);
  EXPECT_EQ(range, 99);
  range = unlimited;
  EXPECT_TRUE(least(rising(3), 2).line().isConstant());
  for (const Amount& smaller : {least(rising(2), 2), least(Amount(2), rising(2))}) {
    EXPECT_TRUE(smaller.line().isConstant());
    EXPECT_EQ(smaller.plain(), 2);
  }
  EXPECT_DOUBLE_EQ(least(rising(1, 0, 0.5), 1).line().slack, 1);
  EXPECT_EQ(least(Amount(1), rising(1, 0.01, 0.5)).plain(), 1);
  EXPECT_EQ(least(rising(1, 0.01, 0.5), Amount(Money::ofUnits(7500))).plain(), Money::ofUnits(7500));
  EXPECT_EQ(range, unlimited);
}

TEST_F(AlongTheIncome, WithinAndFromWatchBothEnds) {
  EXPECT_DOUBLE_EQ(within(rising(5), 1, 10).line().slope, 0.01);
  EXPECT_EQ(range, 499);
  range = unlimited;
  EXPECT_TRUE(isFrom(1, integerRounded(rising(5)), 10));
  EXPECT_EQ(range, 399);  // 4.01 beyond what rounding may add
  EXPECT_FALSE(isFrom(1, 11, 10));
  EXPECT_FALSE(isFrom(1, 0, 10));
}

TEST_F(AlongTheIncome, AFigureThatMayLeaveItsTypeEndsTheRange) {
  const Count almost(32767 - 10, {0.1, 0});
  EXPECT_EQ((almost + Count(0)).plain(), 32757);
  EXPECT_EQ(range, 99);
  range = unlimited;
  EXPECT_EQ(integerRounded(rising(32766)).plain(), 32766);
  EXPECT_EQ(range, 149);
  EXPECT_THROW(almost + Count(11), FailedStatement);
}

}  // namespace
}  // namespace tallyfin::along
