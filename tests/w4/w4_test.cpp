#include <gmock/gmock.h>

#include "support/program.h"
#include "support/table.h"

namespace tallyfin {
namespace {

using testing::Contains;
using testing::Not;

constexpr Colour paper{255, 255, 204};
constexpr Colour grey{64, 64, 64};
constexpr Colour highlight{128, 128, 255};

class PersonalAllowances : public ProgramTest {
 protected:
  PersonalAllowances() {
    start();
    choose("Pers");
  }
  static frmPersWkSht& sheet() { return desk.use<frmPersWkSht>(); }
  /// The total on line H after a press of Calculate.
  static std::string total() {
    EXPECT_EQ(sheet().cmdPersWrkCalc[0].userClick(), Refusal::none);
    return sheet().lblTotalDepsClaim.caption();
  }
};

TEST_F(PersonalAllowances, AreNoneOfAnEmptyWorksheet) {
  EXPECT_EQ(sheet().backColour(), paper);
  EXPECT_EQ(total(), "0");
}

TEST_F(PersonalAllowances, AddTheLines) {
  for (int line : {0, 1, 2}) sheet().chkPersWkShtA[line].userClick();
  sheet().txtPersWkEnterDeps.userType("2");
  sheet().txtChild.userType("1");
  EXPECT_EQ(total(), "6");
  EXPECT_EQ(payData.w4Allowances, 6);
  sheet().chkPersWkShtA[3].userClick();
  sheet().chkPersWkShtA[4].userClick();
  EXPECT_EQ(total(), "8");
}

TEST_F(PersonalAllowances, KeepALineThatWasTickedOnce) {
  sheet().chkPersWkShtA[0].userClick();
  EXPECT_EQ(total(), "1");
  sheet().chkPersWkShtA[0].userClick();
  EXPECT_FALSE(sheet().chkPersWkShtA[0].value());
  EXPECT_EQ(total(), "1");
  choose("Pers");
  EXPECT_EQ(payData.w4Allowances, 1);
  EXPECT_EQ(total(), "0");
}

TEST_F(PersonalAllowances, KeepLineGWhereItsTextIsNoNumber) {
  sheet().txtChild.userType("3");
  EXPECT_EQ(total(), "3");
  sheet().txtChild.userType("three");
  EXPECT_EQ(total(), "3");
  sheet().txtChild.userType("");
  EXPECT_EQ(total(), "0");
}

TEST_F(PersonalAllowances, KeepTheTotalWhereLineDIsNoNumber) {
  sheet().txtPersWkEnterDeps.userType("4");
  EXPECT_EQ(total(), "4");
  sheet().chkPersWkShtA[0].userClick();
  sheet().txtPersWkEnterDeps.userType("four");
  EXPECT_EQ(total(), "4");
  sheet().txtPersWkEnterDeps.userType("4");
  EXPECT_EQ(total(), "5");
}

TEST_F(PersonalAllowances, AddInDoubleAndRoundOnceToTheEven) {
  sheet().txtPersWkEnterDeps.userType("2.5");
  EXPECT_EQ(total(), "2");
  sheet().chkPersWkShtA[0].userClick();
  EXPECT_EQ(total(), "4");  // 3.5
  sheet().txtPersWkEnterDeps.userType("32766.6");
  EXPECT_EQ(total(), "4");  // 32767.6 doesn't fit
}

TEST_F(PersonalAllowances, ArePassedOnCurrent) {
  sheet().txtPersWkEnterDeps.userType("3");
  sheet().cmdInstructions[2].userClick();
  EXPECT_EQ(activeDocument(), "frmW4");
  EXPECT_EQ(desk.use<frmW4>().lblW4Line5.caption(), "3");
  EXPECT_EQ(sheet().lblTotalDepsClaim.caption(), "3");
  sheet().txtPersWkEnterDeps.userType("4");
  sheet().cmdInstructions[1].userClick();
  EXPECT_EQ(desk.use<frm2Workers>().lblDedFromG.caption(), "4");
  sheet().txtPersWkEnterDeps.userType("5");
  sheet().cmdInstructions[0].userClick();
  EXPECT_EQ(activeDocument(), "frmDednAdj");
  EXPECT_FALSE(desk.use<frmDednAdj>().maximized());
  EXPECT_EQ(payData.w4Allowances, 5);
  EXPECT_EQ(sheet().txtPersWkEnterDeps.text(), "5");
}

TEST_F(PersonalAllowances, TurnThePages) {
  EXPECT_EQ(sheet().pnlW4PersWkSht[1].left(), -10000);
  sheet().cmdW4Back[0].userClick();
  EXPECT_EQ(sheet().pnlW4PersWkSht[0].left(), -10000);
  EXPECT_EQ(sheet().pnlW4PersWkSht[1].left(), 0);
  EXPECT_FALSE(sheet().pnlW4PersWkSht[0].inSight());
  EXPECT_TRUE(sheet().pnlW4PersWkSht[1].inSight());
  EXPECT_EQ(sheet().pnlW4PersWkSht[1].top(), 0);
  EXPECT_TRUE(sheet().txtPersWkEnterDeps.focused());  // out of view
  sheet().txtChild.userFocus();
  sheet().cmdW4Back[1].userClick();
  EXPECT_EQ(sheet().pnlW4PersWkSht[0].left(), 0);
  EXPECT_EQ(sheet().pnlW4PersWkSht[1].left(), -10000);
  EXPECT_TRUE(sheet().txtChild.focused());
}

TEST_F(PersonalAllowances, AreInTheNormalTextColour) {
  sheet().cmdInstructions[0].userClick();
  sheet().cmdInstructions[1].userClick();
  desk.use<frm2Workers>().cmdTable1Show[0].userClick();
  for (const Screen* screen : std::initializer_list<Screen*>{&sheet(), desk.find<frmDednAdj>(),
                                                             desk.find<frm2Workers>(), desk.find<frmTableOne>()}) {
    EXPECT_EQ(screen->backColour(), paper) << screen->name();
    for (const Control* control : screen->controls()) {
      EXPECT_EQ(control->foreColour(), grey) << screen->name() << " " << control->address();
    }
  }
}

TEST_F(PersonalAllowances, KeepTheFocusInTheBoxThatHasMovedAway) {
  sheet().cmdW4Back[0].userClick();
  EXPECT_TRUE(sheet().txtPersWkEnterDeps.focused());
  EXPECT_EQ(sheet().pnlW4PersWkSht[0].left(), -10000);
  EXPECT_EQ(sheet().txtPersWkEnterDeps.userType("2"), Refusal::none);
  sheet().cmdW4Back[1].userClick();
  EXPECT_TRUE(sheet().txtPersWkEnterDeps.focused());
  EXPECT_EQ(sheet().txtPersWkEnterDeps.text(), "2");
}

TEST_F(PersonalAllowances, HighlightWhatThePointerIsOver) {
  sheet().lblPersWrkChildCare.userMove();
  EXPECT_EQ(sheet().lblPersWrkChildCare.foreColour(), highlight);
  EXPECT_EQ(sheet().lblChildCare[0].foreColour(), highlight);
  EXPECT_EQ(sheet().lblChildCare[1].foreColour(), highlight);
  sheet().lblPersWrkTotal.userMove();
  EXPECT_EQ(sheet().lblPersWrkChildCare.foreColour(), grey);
  EXPECT_EQ(sheet().lblChildCare[1].foreColour(), grey);
  sheet().txtPersWkEnterDeps.userMove();
  EXPECT_EQ(sheet().lblPersWrkNoDeps.foreColour(), highlight);

  sheet().chkPersWkShtA[1].userEnter();
  EXPECT_EQ(sheet().chkPersWkShtA[1].foreColour(), highlight);
  EXPECT_EQ(sheet().lblPersWrkNoDeps.foreColour(), grey);
  for (const Label* part : {&sheet().lblPart1of3, &sheet().lblPart2of3, &sheet().lblPart3of3}) {
    EXPECT_EQ(part->foreColour(), highlight);
  }
  EXPECT_EQ(sheet().lblItem1.foreColour(), grey);
  sheet().chkPersWkShtA[1].userLeave();
  EXPECT_EQ(sheet().chkPersWkShtA[1].foreColour(), grey);
  EXPECT_EQ(sheet().lblPart2of3.foreColour(), grey);

  sheet().chkPersWkShtA[0].userEnter();
  EXPECT_EQ(sheet().lblItem1.foreColour(), highlight);
  sheet().chkPersWkShtA[0].userLeave();
  EXPECT_EQ(sheet().lblItem1.foreColour(), grey);
  sheet().chkPersWkShtA[2].userEnter();
  EXPECT_EQ(sheet().lblItem3.foreColour(), highlight);
  sheet().lblPersWrkChildCare.userMove();
  sheet().chkPersWkShtA[4].userEnter();  // has no labels of its own
  EXPECT_EQ(sheet().chkPersWkShtA[4].foreColour(), highlight);
  EXPECT_EQ(sheet().lblChildCare[0].foreColour(), grey);

  sheet().cmdInstructions[2].userEnter();
  EXPECT_EQ(sheet().cmdInstructions[2].foreColour(), (Colour{0, 0, 192}));
  sheet().cmdInstructions[2].userLeave();
  EXPECT_EQ(sheet().cmdInstructions[2].foreColour(), grey);
}

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

/// The Two-Earner worksheet, opened with that number of allowances on line 1.
class TwoEarners : public ProgramTest {
 protected:
  TwoEarners() { start(); }

  static frm2Workers& sheet() { return desk.use<frm2Workers>(); }
  static void openWith(int allowances) {
    payData.w4Allowances = allowances;
    choose("TwoWork");
  }
  /// Picks a row of a table, counted from 0.
  static void take(int table, int filing, int row) {
    EXPECT_EQ(sheet().cmdTable1Show[table - 1].userClick(), Refusal::none);
    frmTableOne& screen = desk.use<frmTableOne>();
    EXPECT_EQ(screen.optTableOne[filing].userClick(), Refusal::none);
    EXPECT_EQ(screen.lstTableOne.userPick(row), Refusal::none);
    EXPECT_EQ(desk.find<frmTableOne>(), nullptr);
  }
};

TEST_F(TwoEarners, StartWithTheAllowancesSoFar) {
  openWith(3);
  EXPECT_EQ(sheet().lblDedFromG.caption(), "3");
  EXPECT_EQ(sheet().lbl2WkerT1.caption(), "0");
  EXPECT_EQ(sheet().backColour(), paper);
  EXPECT_FALSE(sheet().cmdPersWrkCalc[2].visible());
  payData.w4Allowances = 8;
  EXPECT_EQ(sheet().lblDedFromG.caption(), "3");
}

TEST_F(TwoEarners, FillTheShellAtEveryActivation) {
  openWith(0);
  sheet().maximized = false;
  sheet().cmdW4Back[2].userClick();
  desk.close<frmCalendar>();
  EXPECT_TRUE(sheet().maximized());
}

TEST_F(TwoEarners, GoOnWhereLineOneIsBelowLineTwo) {
  openWith(3);
  take(1, 0, 3);
  EXPECT_EQ(sheet().lbl2WkerT1.caption(), "4");
  EXPECT_EQ(sheet().lbl2Wker3.caption(), "0");
  EXPECT_TRUE(sheet().cmdW4Back[0].enabled());
  EXPECT_FALSE(sheet().cmdPersWrkCalc[2].visible());
  EXPECT_EQ(payData.w4Allowances, 0);
}

TEST_F(TwoEarners, StopWhereLineOneIsAboveLineTwo) {
  openWith(5);
  take(1, 0, 3);
  EXPECT_EQ(payData.w4TableValue, 1);
  EXPECT_EQ(sheet().lbl2Wker3.caption(), "1");
  EXPECT_EQ(sheet().cmdW4Back[0].userClick(), Refusal::disabled);
  EXPECT_TRUE(sheet().cmdPersWrkCalc[2].visible());
  EXPECT_EQ(payData.w4Allowances, 1);
}

TEST_F(TwoEarners, StopWhereBothLinesAreEqual) {
  openWith(4);
  take(1, 0, 3);
  EXPECT_EQ(payData.w4TableValue, 0);
  EXPECT_FALSE(sheet().cmdW4Back[0].enabled());
}

TEST_F(TwoEarners, CompareTheLinesAsTexts) {
  openWith(10);
  take(1, 0, 8);  // "10" sorts below "9"
  EXPECT_EQ(sheet().lbl2Wker3.caption(), "0");
  EXPECT_TRUE(sheet().cmdW4Back[0].enabled());
  EXPECT_EQ(payData.w4TableValue, 0);

  openWith(9);
  take(1, 0, 9);  // "9" sorts above "10"
  EXPECT_EQ(payData.w4TableValue, -1);
  EXPECT_EQ(payData.w4Allowances, -1);
  EXPECT_EQ(sheet().lbl2Wker3.caption(), "0");
  EXPECT_FALSE(sheet().cmdW4Back[0].enabled());
}

TEST_F(TwoEarners, WorkOutTheAmountOfEachPaycheck) {
  openWith(0);
  take(1, 0, 2);
  sheet().cmdW4Back[0].userClick();
  EXPECT_EQ(sheet().lbl2WkerResult4.caption(), "3");
  EXPECT_EQ(sheet().lbl2WkerResult5.caption(), "0");
  EXPECT_EQ(sheet().lbl2WkerResult6.caption(), "3");
  take(2, 0, 0);
  EXPECT_EQ(sheet().lblTable2.shown(), "$400.00");
  sheet().txtNumPayDays.userType("26");
  sheet().cmdPersWrkCalc[0].userClick();
  EXPECT_EQ(sheet().lblMultiply8.shown(), "$1,200.00");
  EXPECT_EQ(payData.w4TwoEarnerAmt, dollars("46.1538"));
  EXPECT_EQ(sheet().lblDollarAmt.text(), "46.1538");
  EXPECT_EQ(sheet().lblDollarAmt.shown(), "$46.15");
}

TEST_F(TwoEarners, TakeLineTwoForLineSix) {
  openWith(3);
  take(1, 0, 3);
  sheet().cmdW4Back[0].userClick();
  EXPECT_EQ(sheet().lbl2WkerResult5.caption(), "0");  // not line 1
  EXPECT_EQ(sheet().lbl2WkerResult6.caption(), "4");
}

TEST_F(TwoEarners, WriteOneForAnEmptyNumberOfPaydays) {
  openWith(0);
  take(1, 0, 2);
  sheet().cmdW4Back[0].userClick();
  sheet().lblTable2.userType("$400");
  sheet().cmdPersWrkCalc[0].userClick();
  EXPECT_EQ(sheet().txtNumPayDays.text(), "1");
  EXPECT_EQ(sheet().lblDollarAmt.shown(), "$1,200.00");
}

TEST_F(TwoEarners, ShowZeroWithoutLineSeven) {
  openWith(0);
  sheet().cmdPersWrkCalc[0].userClick();
  EXPECT_EQ(sheet().lbl2WkerResult6.caption(), "0");
  EXPECT_EQ(sheet().lblTable2.text(), "0");
  EXPECT_EQ(sheet().lblMultiply8.text(), "0");
  EXPECT_EQ(sheet().lblDollarAmt.text(), "0");
}

TEST_F(TwoEarners, KeepTheAmountWherePaydaysAreNoneOrNoNumber) {
  openWith(0);
  take(1, 0, 0);
  sheet().cmdW4Back[0].userClick();
  take(2, 0, 0);
  sheet().txtNumPayDays.userType("4");
  sheet().cmdPersWrkCalc[0].userClick();
  EXPECT_EQ(payData.w4TwoEarnerAmt, 100);
  for (const char* paydays : {"0", "many", " "}) {
    sheet().txtNumPayDays.userType(paydays);
    sheet().cmdPersWrkCalc[0].userClick();
    EXPECT_EQ(payData.w4TwoEarnerAmt, 100) << paydays;
    EXPECT_EQ(sheet().lblDollarAmt.text(), "100");
  }
}

TEST_F(TwoEarners, ComeOutNegativeAfterASecondChoice) {
  openWith(15);
  take(1, 0, 0);  // "15" is above "1": 14 remain
  EXPECT_EQ(payData.w4Allowances, 14);
  take(1, 0, 1);  // "15" is below "2"
  sheet().cmdW4Back[0].userClick();
  EXPECT_EQ(sheet().lbl2WkerResult6.caption(), "-12");
  take(2, 0, 0);
  sheet().cmdPersWrkCalc[0].userClick();
  EXPECT_EQ(sheet().lblMultiply8.shown(), "($4,800.00)");
  EXPECT_EQ(payData.w4TwoEarnerAmt, -4800);
}

TEST_F(TwoEarners, TurnThePages) {
  openWith(2);
  take(1, 0, 6);
  sheet().cmdW4Back[0].userClick();
  EXPECT_EQ(sheet().pnl2Workers[0].left(), -10000);
  EXPECT_EQ(sheet().pnl2Workers[1].left(), 0);
  sheet().cmdW4Back[1].userClick();
  EXPECT_EQ(sheet().pnl2Workers[0].left(), 0);
  EXPECT_EQ(sheet().pnl2Workers[1].left(), -10000);
  EXPECT_EQ(sheet().lbl2WkerResult4.caption(), "7");
}

TEST_F(TwoEarners, FillEmptyLinesOfPageTwoWithZeros) {
  openWith(2);
  sheet().cmdW4Back[2].userClick();
  EXPECT_EQ(sheet().lbl2WkerResult4.caption(), "0");
  EXPECT_EQ(sheet().lbl2WkerResult5.caption(), "0");
  EXPECT_EQ(activeDocument(), "frmCalendar");
  using namespace std::chrono;
  EXPECT_EQ(desk.use<frmCalendar>().mthTwoWorkers.date(), May / 17 / 1999);
}

TEST_F(TwoEarners, LeadToTheFormFromPageTwo) {
  openWith(0);
  take(1, 0, 2);
  sheet().cmdW4Back[0].userClick();
  take(2, 1, 1);
  sheet().txtNumPayDays.userType("26");
  sheet().cmdPersWrkCalc[0].userClick();
  sheet().cmdPersWrkCalc[1].userClick();
  EXPECT_EQ(desk.find<frm2Workers>(), nullptr);
  EXPECT_EQ(activeDocument(), "frmW4");
  EXPECT_EQ(desk.use<frmW4>().lblW4Line5.caption(), "0");
  EXPECT_EQ(desk.use<frmW4>().lblW4Line6.caption(), "$88.85");  // 770 * 3 / 26
  desk.use<frmW4>().cmdW4Exit.userClick();
  choose("W4");
  EXPECT_EQ(desk.use<frmW4>().lblW4Line6.caption(), "");
}

TEST_F(TwoEarners, LeadToTheFormFromPageOne) {
  openWith(5);
  take(1, 0, 3);
  sheet().cmdPersWrkCalc[2].userClick();
  EXPECT_EQ(activeDocument(), "frmW4");
  EXPECT_EQ(desk.use<frmW4>().lblW4Line5.caption(), "1");
  EXPECT_EQ(desk.use<frmW4>().lblW4Line6.caption(), "");
  EXPECT_TRUE(sheet().shown());
}

TEST_F(TwoEarners, LoadAClosedWorksheetForAChoice) {
  openWith(5);
  sheet().cmdTable1Show[0].userClick();
  desk.close<frm2Workers>();
  desk.use<frmTableOne>().lstTableOne.userPick(3);
  EXPECT_EQ(sheet().lbl2WkerT1.caption(), "4");
  EXPECT_FALSE(sheet().shown());
}

TEST_F(TwoEarners, HaveTheTablesOfTheForm) {
  openWith(0);
  std::map<std::pair<int, int>, std::vector<Row>> tables;
  for (const Row& row : tableOf("w4/data/tables.tsv")) {
    tables[{std::stoi(row.at("table")), std::stoi(row.at("filing"))}].push_back(row);
  }
  ASSERT_EQ(tables.size(), 4U);
  for (const auto& [key, rows] : tables) {
    const auto [table, filing] = key;
    sheet().cmdTable1Show[table - 1].userClick();
    frmTableOne& screen = desk.use<frmTableOne>();
    EXPECT_EQ(screen.lblCboTable.caption(), "Table " + std::to_string(table));
    EXPECT_EQ(screen.title(),
              table == 1 ? "If wages from LOWEST paying job are -" : "If wages from HIGHEST paying job are -");
    EXPECT_TRUE(screen.optTableOne[0].value());
    screen.optTableOne[filing].userClick();
    ASSERT_EQ(screen.lstTableOne.entries().size(), rows.size());
    desk.close(screen);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      sheet().cmdTable1Show[table - 1].userClick();
      frmTableOne& again = desk.use<frmTableOne>();
      again.optTableOne[filing].userClick();
      EXPECT_EQ(again.lstTableOne.entries()[i], rows[i].at("wages"));
      again.lstTableOne.userPick(static_cast<int>(i));
      const std::string& written = table == 1 ? sheet().lbl2WkerT1.caption() : sheet().lblTable2.text();
      EXPECT_EQ(written, rows[i].at("value")) << rows[i].at("wages");
    }
  }
}

TEST_F(TwoEarners, TakeTheAllowancesOfTheTableValueAfterTableTwoAsWell) {
  openWith(6);
  payData.w4TableValue = 2;
  take(2, 1, 2);
  EXPECT_EQ(sheet().lblTable2.shown(), "$850.00");
  EXPECT_EQ(payData.w4Allowances, 2);
}

TEST_F(TwoEarners, LightUpUnderThePointer) {
  openWith(5);
  sheet().cmdTable1Show[0].userClick();
  CommandButton& back = sheet().cmdW4Back[0];
  OptionButton& option = desk.use<frmTableOne>().optTableOne[1];
  for (Control* control : std::initializer_list<Control*>{&back, &option}) {
    control->userEnter();
    EXPECT_EQ(control->foreColour(), highlight) << control->address();
    control->userLeave();
    EXPECT_EQ(control->foreColour(), grey) << control->address();
  }
}

TEST_F(TwoEarners, HaveNoTableButTheirTwo) {
  openWith(5);
  payData.w4TableMode = 3;
  frmTableOne& screen = desk.use<frmTableOne>();
  desk.show(screen);
  EXPECT_EQ(screen.title(), "");
  EXPECT_EQ(screen.optTableOne[1].userClick(), Refusal::none);
  EXPECT_EQ(screen.lstTableOne.userPick(0), Refusal::none);
  EXPECT_EQ(sheet().lbl2WkerT1.caption(), "0");
  EXPECT_EQ(sheet().lblTable2.text(), "");
}

TEST_F(TwoEarners, ChangeNothingWhereATableIsClosedWithoutAChoice) {
  openWith(5);
  sheet().cmdTable1Show[0].userClick();
  frmTableOne& screen = desk.use<frmTableOne>();
  EXPECT_EQ(screen.backColour(), paper);
  EXPECT_EQ(desk.userClose(screen), Refusal::none);
  EXPECT_EQ(payData.w4Allowances, 5);
  EXPECT_EQ(sheet().lbl2WkerT1.caption(), "0");
}

class FormW4 : public ProgramTest {
 protected:
  static frmW4& form() { return desk.use<frmW4>(); }
  void open() {
    start();
    choose("W4");
  }
};

TEST_F(FormW4, ShowsDashesWhereNothingIsSaved) {
  open();
  for (const TextBox* box : {&form().txtName, &form().txtAddress, &form().txtCity, &form().txtSSN}) {
    EXPECT_EQ(box->text(), "-");
  }
  EXPECT_EQ(form().lblW4Line5.caption(), "0");
  EXPECT_EQ(form().lblW4Line6.caption(), "");
  EXPECT_EQ(form().lblDate.caption(), "5/17/1999 2:30:00 PM");
  EXPECT_FALSE(form().optSingle.value());
  EXPECT_FALSE(form().optMarried.value());
}

TEST_F(FormW4, ShowsTheUserAsSaved) {
  store.write(section::user, "UName", "Ann Lee");
  store.write(section::user, "USSN", "123456789");
  store.write(section::user, "UAdd", "12 Harbor Street");
  store.write(section::user, "UCity", "Port Ellery");
  open();
  EXPECT_EQ(form().txtName.text(), "Ann Lee");
  EXPECT_EQ(form().txtSSN.text(), "123456789");
  EXPECT_EQ(form().txtAddress.text(), "12 Harbor Street");
  EXPECT_EQ(form().txtCity.text(), "Port Ellery");
  form().txtName.userType("Somebody Else");
  form().cmdW4Exit.userClick();
  EXPECT_EQ(storedUser("UName"), "Ann Lee");
}

TEST_F(FormW4, IsUsableWithoutAPlatform) {
  tallyfin::platform = plainPlatform();
  open();
  EXPECT_EQ(form().userDblClick(), Refusal::none);
  EXPECT_TRUE(form().cmdW4Exit.visible());
}

TEST_F(FormW4, PrintsItselfWithoutTheButtonAndTheHint) {
  open();
  EXPECT_EQ(form().userDblClick(), Refusal::none);
  EXPECT_EQ(platform.pages, 1);
  EXPECT_THAT(platform.printed, Contains("Label1"));
  EXPECT_THAT(platform.printed, Not(Contains("cmdW4Exit")));
  EXPECT_THAT(platform.printed, Not(Contains("lblPrint")));
  EXPECT_TRUE(form().cmdW4Exit.visible());
  EXPECT_TRUE(form().lblPrint.visible());
  form().userClick();
  EXPECT_EQ(platform.pages, 1);
}

TEST_F(FormW4, PrintsItselfWhereAFixedTextIsDoubleClicked) {
  open();
  EXPECT_EQ(form().Label22.userDblClick(), Refusal::none);
  EXPECT_EQ(platform.pages, 1);
  EXPECT_EQ(form().Label22.userClick(), Refusal::none);
  EXPECT_EQ(form().Label27.userDblClick(), Refusal::notShown);
  EXPECT_EQ(platform.pages, 1);
}

TEST_F(FormW4, SaysExemptAfterADoubleClick) {
  open();
  EXPECT_FALSE(form().Label27.visible());
  form().Label20.userDblClick();
  EXPECT_TRUE(form().Label27.visible());
  form().Label20.userDblClick();
  EXPECT_TRUE(form().Label27.visible());
  form().Label20.userClick();
  EXPECT_FALSE(form().Label27.visible());
  EXPECT_EQ(platform.pages, 0);
}

TEST_F(FormW4, ReadsTheStatusAsTrueOrFalse) {
  for (const auto& [text, selected] : {std::pair{"True", true},
                                       {"-1", true},
                                       {"1", true},
                                       {"2.5", true},
                                       {"false", false},
                                       {"0", false},
                                       {"FALSE", false},
                                       {"yes", false},
                                       {"", false}}) {
    store.write(section::user, "Marital0", text);
    open();
    EXPECT_EQ(form().optMarried.value(), selected) << text;
    EXPECT_FALSE(form().optSingle.value());
  }
}

TEST_F(FormW4, LetsTheMarriedKeyWinWhereBothAreTrue) {
  store.write(section::user, "Marital0", "true");
  store.write(section::user, "Marital1", "true");
  open();
  EXPECT_TRUE(form().optMarried.value());
  EXPECT_FALSE(form().optSingle.value());
}

TEST_F(FormW4, ShowsTheAllowancesOfItsLoad) {
  start();
  payData.w4Allowances = 7;
  choose("W4");
  EXPECT_EQ(form().lblW4Line5.caption(), "7");
  payData.w4Allowances = 8;
  choose("W4");  // shown already
  EXPECT_EQ(form().lblW4Line5.caption(), "7");
}

}  // namespace
}  // namespace tallyfin
