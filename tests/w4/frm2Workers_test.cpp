#include <gmock/gmock.h>

#include "support/program.h"
#include "support/table.h"
#include "w4/colours.h"

namespace tallyfin {
namespace {

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

}  // namespace
}  // namespace tallyfin
