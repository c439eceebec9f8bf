#include <gmock/gmock.h>

#include "support/program.h"

namespace tallyfin {
namespace {

class MultipleChecks : public ProgramTest {
 protected:
  MultipleChecks() {
    start();
    choose("Multi");
  }
  static frmMultiCheck& screen() { return desk.use<frmMultiCheck>(); }
};

TEST_F(MultipleChecks, BringsEachCheckToAMonth) {
  screen().txtCheck1.userType("100");
  screen().optSelectWeek[0].userClick();
  EXPECT_EQ(screen().lblCheck1.caption(), "$433.33");
  screen().txtCheck2.userType("$1,000.00");
  screen().optSelectETW[1].userClick();
  EXPECT_EQ(screen().lblCheck2.caption(), "$2,166.67");
  screen().txtCheck3.userType("500");
  screen().optSelectTAW[2].userClick();
  EXPECT_EQ(screen().lblCheck3.caption(), "$1,000.00");
  screen().txtCheck4.userType("1000.555");
  screen().optSelectMonthly[3].userClick();
  EXPECT_EQ(screen().lblCheck4.caption(), "$1,000.56");
  screen().cmdCalc.userClick();
  EXPECT_EQ(payData.multiCheckTotal, dollars("4600.56"));
  EXPECT_EQ(screen().lblMultiTotal.caption(), "$4,600.56");
}

TEST_F(MultipleChecks, TotalsWeeklyAndMonthly) {
  screen().txtCheck1.userType("100");
  screen().optSelectWeek[0].userClick();
  screen().txtCheck2.userType("1000");
  screen().optSelectMonthly[1].userClick();
  screen().cmdCalc.userClick();
  EXPECT_EQ(screen().lblMultiTotal.caption(), "$1,433.33");
}

TEST_F(MultipleChecks, LeavesOutAnEmptiedBoxAndAnAmountWithoutAPeriod) {
  screen().txtCheck1.userType("100");
  screen().optSelectMonthly[0].userClick();
  screen().txtCheck2.userType("200");
  screen().optSelectMonthly[1].userClick();
  screen().txtCheck2.userType("");
  screen().txtCheck3.userType("400");
  screen().cmdCalc.userClick();
  EXPECT_EQ(payData.multiCheckTotal, 100);
}

TEST_F(MultipleChecks, ConvertAtTheClickOnly) {
  screen().txtCheck1.userType("100");
  screen().optSelectMonthly[0].userClick();
  screen().txtCheck1.userType("900");
  screen().cmdCalc.userClick();
  EXPECT_EQ(payData.multiCheckTotal, 100);
  screen().optSelectMonthly[0].userClick();
  screen().cmdCalc.userClick();
  EXPECT_EQ(payData.multiCheckTotal, 900);
}

TEST_F(MultipleChecks, KeepAnAmountWhereTheTextIsNoNumber) {
  screen().optSelectWeek[0].userClick();
  EXPECT_EQ(screen().lblCheck1.caption(), "$0.00");
  screen().txtCheck1.userType("100");
  screen().optSelectWeek[0].userClick();
  screen().txtCheck1.userType("abc");
  screen().optSelectMonthly[0].userClick();
  EXPECT_EQ(screen().lblCheck1.caption(), "$433.33");
}

TEST_F(MultipleChecks, HaveOnePeriodEach) {
  screen().optSelectWeek[0].userClick();
  screen().optSelectETW[1].userClick();
  screen().optSelectMonthly[0].userClick();
  EXPECT_FALSE(screen().optSelectWeek[0].value());
  EXPECT_TRUE(screen().optSelectMonthly[0].value());
  EXPECT_TRUE(screen().optSelectETW[1].value());
}

TEST_F(MultipleChecks, GoToTheMainScreenAsAMonthlyIncome) {
  screen().txtCheck1.userType("100");
  screen().optSelectWeek[0].userClick();
  screen().cmdCalc.userClick();
  screen().cmdGoBack.userClick();
  EXPECT_EQ(activeDocument(), "frmMain");
  EXPECT_FALSE(main().maximized());
  EXPECT_EQ(main().txtIncome.text(), "433.33");
  EXPECT_EQ(main().lstFrequency.index(), 3);
  EXPECT_EQ(main().txtHours.text(), "173.33");
  EXPECT_EQ(payData.frequency, 3);
  EXPECT_EQ(stored("Frequency"), "3");
  EXPECT_EQ(payData.grossPay, 0);  // nothing is calculated yet
  EXPECT_EQ(desk.find<frmMultiCheck>(), nullptr);
  choose("Multi");
  EXPECT_EQ(screen().lblCheck1.caption(), "");
  screen().cmdGoBack.userClick();
  EXPECT_EQ(main().txtIncome.text(), "433.33");  // the earlier total
}

TEST_F(MultipleChecks, AreInTheNormalTextColourOnPaper) {
  EXPECT_EQ(screen().backColour(), (Colour{255, 255, 204}));
  for (const Control* control : screen().controls()) {
    EXPECT_EQ(control->foreColour(), (Colour{64, 64, 64})) << control->address();
  }
}

TEST_F(MultipleChecks, ColourTheHeadingOfTheFocusedColumn) {
  screen().optSelectETW[2].userFocus();
  EXPECT_EQ(screen().lblMultiETW.foreColour(), (Colour{128, 128, 255}));
  screen().optSelectWeek[2].userFocus();
  EXPECT_EQ(screen().lblMultiETW.foreColour(), (Colour{64, 64, 64}));
  EXPECT_EQ(screen().lblMultiWeekly.foreColour(), (Colour{128, 128, 255}));
}

}  // namespace
}  // namespace tallyfin
