#include <gmock/gmock.h>

#include "support/program.h"
#include "w4/colours.h"

namespace tallyfin {
namespace {

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

}  // namespace
}  // namespace tallyfin
