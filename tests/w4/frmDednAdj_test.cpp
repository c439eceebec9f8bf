#include <gmock/gmock.h>

#include "support/program.h"
#include "w4/colours.h"

namespace tallyfin {
namespace {

class DeductionsAndAdjustments : public ProgramTest {
 protected:
  DeductionsAndAdjustments() {
    start();
    choose("Ded");
  }
  static frmDednAdj& sheet() { return desk.use<frmDednAdj>(); }
  static void calculateLines() { EXPECT_EQ(sheet().cmdPersWrkCalc.userClick(), Refusal::none); }
  static constexpr int singleCategory = 2;
};

TEST_F(DeductionsAndAdjustments, TakeTheDeductionOfTheCategory) {
  const char* const deductions[] = {"$7,200.00", "$6,350.00", "$4,300.00", "$3,600.00"};
  const char* const rests[] = {"$2,800.00", "$3,650.00", "$5,700.00", "$6,400.00"};
  sheet().txtGetItemized.userType("10000");
  for (int i = 0; i < 4; ++i) {
    sheet().optDedCategory[i].userClick();
    EXPECT_EQ(sheet().lblGetPersDed.caption(), deductions[i]);
    EXPECT_EQ(sheet().lblSubTotal.caption(), rests[i]);
  }
}

TEST_F(DeductionsAndAdjustments, ShowZeroForAnEmptyLineOne) {
  sheet().optDedCategory[singleCategory].userClick();
  EXPECT_EQ(sheet().lblSubTotal.caption(), "$0.00");
  calculateLines();
  EXPECT_EQ(sheet().lblDivide.caption(), "0");
}

TEST_F(DeductionsAndAdjustments, WorkThroughToTheAllowances) {
  sheet().txtGetItemized.userType("10,000");
  sheet().optDedCategory[singleCategory].userClick();
  sheet().txtAdjustments.userType("1000");
  sheet().txtNonWage.userType("$500");
  calculateLines();
  EXPECT_EQ(sheet().lblTotal5.caption(), "$6,700.00");
  EXPECT_EQ(sheet().lblTotal7.caption(), "$6,200.00");
  EXPECT_EQ(sheet().lblDivide.caption(), "2");
  EXPECT_EQ(sheet().lblTotal10.caption(), "2");
}

TEST_F(DeductionsAndAdjustments, DoNotFloorLineThree) {
  sheet().txtGetItemized.userType("1000");
  sheet().optDedCategory[singleCategory].userClick();
  EXPECT_EQ(sheet().lblSubTotal.caption(), "($3,300.00)");
  calculateLines();
  EXPECT_EQ(sheet().lblTotal5.caption(), "($3,300.00)");
  EXPECT_EQ(sheet().lblTotal7.caption(), "$0.00");
  EXPECT_EQ(sheet().lblDivide.caption(), "0");
}

TEST_F(DeductionsAndAdjustments, HoldLineThreeWhereLineOneIsZero) {
  sheet().txtGetItemized.userType("10000");
  sheet().optDedCategory[singleCategory].userClick();
  sheet().txtGetItemized.userType("0");
  sheet().optDedCategory[singleCategory].userClick();
  EXPECT_EQ(sheet().lblSubTotal.caption(), "$0.00");
  calculateLines();
  EXPECT_EQ(sheet().lblTotal5.caption(), "$5,700.00");
  sheet().txtGetItemized.userType("plenty");  // counts as 0
  sheet().optDedCategory[0].userClick();
  EXPECT_EQ(sheet().lblSubTotal.caption(), "$0.00");
}

TEST_F(DeductionsAndAdjustments, AddLineEightAtEveryPress) {
  payData.w4Allowances = 3;
  sheet().cmdW4Back[0].userClick();
  sheet().txtAdjustments.userType("6200");
  calculateLines();
  EXPECT_EQ(payData.w4Allowances, 5);
  calculateLines();
  EXPECT_EQ(payData.w4Allowances, 7);
  EXPECT_EQ(sheet().lblTotal10.caption(), "7");
  EXPECT_EQ(sheet().lblPersWrkShtDeps.caption(), "3");
}

TEST_F(DeductionsAndAdjustments, DropTheFraction) {
  for (const auto& [adjustments, allowances] : {std::pair{"2999.99", "0"}, {"3000", "1"}, {"5999.99", "1"}}) {
    sheet().txtAdjustments.userType(adjustments);
    calculateLines();
    EXPECT_EQ(sheet().lblDivide.caption(), allowances);
  }
}

TEST_F(DeductionsAndAdjustments, KeepLineEightBeyondItsRange) {
  sheet().txtAdjustments.userType("98303999.99");
  calculateLines();
  EXPECT_EQ(sheet().lblDivide.caption(), "32767");
  payData.w4Allowances = 0;
  sheet().txtAdjustments.userType("6000");
  calculateLines();
  EXPECT_EQ(sheet().lblDivide.caption(), "2");
  sheet().txtAdjustments.userType("98304000");
  calculateLines();
  EXPECT_EQ(sheet().lblDivide.caption(), "2");
}

TEST_F(DeductionsAndAdjustments, TakeTheOldTotalWhereTheSumOverflows) {
  sheet().txtAdjustments.userType("3000");
  calculateLines();
  EXPECT_EQ(payData.w4Allowances, 1);
  payData.w4Allowances = 32767;
  calculateLines();
  EXPECT_EQ(sheet().lblTotal10.caption(), "1");
  EXPECT_EQ(payData.w4Allowances, 1);
}

TEST_F(DeductionsAndAdjustments, KeepALineWhereItsTextIsNoNumber) {
  sheet().txtAdjustments.userType("6000");
  sheet().txtNonWage.userType("1000");
  calculateLines();
  sheet().txtAdjustments.userType("abc");
  sheet().txtNonWage.userType("%");
  calculateLines();
  EXPECT_EQ(sheet().lblTotal5.caption(), "$6,000.00");
  EXPECT_EQ(sheet().lblTotal7.caption(), "$5,000.00");
}

TEST_F(DeductionsAndAdjustments, TurnThePages) {
  payData.w4Allowances = 4;
  EXPECT_EQ(sheet().pnlDednAdj[1].left(), -10000);
  sheet().cmdW4Back[0].userClick();
  EXPECT_EQ(sheet().pnlDednAdj[1].left(), 0);
  EXPECT_EQ(sheet().pnlDednAdj[0].left(), -10000);
  EXPECT_EQ(sheet().lblPersWrkShtDeps.caption(), "4");
  EXPECT_TRUE(sheet().txtAdjustments.focused());
  sheet().cmdW4Back[1].userClick();
  EXPECT_EQ(sheet().pnlDednAdj[0].left(), 0);
  EXPECT_EQ(sheet().pnlDednAdj[1].left(), -10000);
  EXPECT_EQ(sheet().cmdW4Back[1].tooltip, "Calculate");
  sheet().optDedCategory[1].userEnter();
  EXPECT_EQ(sheet().optDedCategory[1].foreColour(), highlight);
  sheet().optDedCategory[1].userLeave();
  EXPECT_EQ(sheet().optDedCategory[1].foreColour(), grey);
}

}  // namespace
}  // namespace tallyfin
