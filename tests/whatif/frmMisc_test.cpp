#include <gmock/gmock.h>

#include "support/program.h"

namespace tallyfin {
namespace {

/// Two weeks of 80 hours at ten dollars, just calculated.
class RaiseCalculator : public ProgramTest {
 protected:
  RaiseCalculator() {
    put("IncAmt", "800");
    put("Frequency", "2");
    start();
    calculate();
    main().cmdAdditional[frmMain::raise].userClick();
  }

  static frmMisc& misc() { return desk.use<frmMisc>(); }
  static void press() { EXPECT_EQ(misc().cmdExit[1].userClick(), Refusal::none); }
  static TextBox& percent() { return misc().txtRaise[0]; }
  static TextBox& newWage() { return misc().txtRaise[1]; }
};

TEST_F(RaiseCalculator, ShowsTheHourlyWageOfItsLoad) {
  EXPECT_EQ(misc().lblOldShow.caption(), "$10.00");
  main().txtIncome.userType("1600");
  main().cmdAdditional[frmMain::raise].userClick();
  EXPECT_EQ(misc().lblOldShow.caption(), "$10.00");
  misc().imgSeal.userClick();
  main().cmdAdditional[frmMain::raise].userClick();
  EXPECT_EQ(misc().lblOldShow.caption(), "$20.00");
}

TEST_F(RaiseCalculator, GoesByTheHoursOfEachPressAndNotThoseOfTheFirst) {
  percent().userType("3");
  press();
  EXPECT_EQ(main().txtIncome.text(), "824");  // 80 hours
  misc().imgSeal.userClick();
  main().txtHours.userType("40");
  main().cmdAdditional[frmMain::raise].userClick();
  EXPECT_EQ(misc().lblOldShow.caption(), "$20.60");
  percent().userType("10");
  press();
  EXPECT_EQ(newWage().text(), "$22.66");
  EXPECT_EQ(main().txtIncome.text(), "906.4");
}

TEST_F(RaiseCalculator, TakesAPercentage) {
  percent().userType("3");
  press();
  EXPECT_EQ(percent().text(), "0.03");
  EXPECT_EQ(newWage().text(), "$10.30");
  EXPECT_EQ(main().txtIncome.text(), "824");
  EXPECT_EQ(payData.grossPay, 824);
  EXPECT_EQ(payData.taxableWage, 824);
  EXPECT_EQ(payData.incomeSource, 1);
}

TEST_F(RaiseCalculator, TakesAFractionBelowOneAsItIs) {
  percent().userType(".03");
  press();
  EXPECT_EQ(percent().text(), ".03");
  EXPECT_EQ(payData.grossPay, 824);
}

TEST_F(RaiseCalculator, TakesOneAsOnePercent) {
  percent().userType("1");
  press();
  EXPECT_EQ(percent().text(), "0.01");
  EXPECT_EQ(payData.grossPay, 808);
}

TEST_F(RaiseCalculator, DividesTheDifferenceByTheNewWage) {
  newWage().userType("11");
  press();
  EXPECT_EQ(percent().text(), "9.09%");
  EXPECT_EQ(newWage().text(), "$11.00");
  EXPECT_EQ(main().txtIncome.text(), "880");
  EXPECT_EQ(payData.grossPay, 800);  // the wage of the last calculation
}

TEST_F(RaiseCalculator, CalculatesANewWageOnTheReducedBaseUntilTheNextCalculation) {
  misc().cmdExit[2].userClick();
  main().txt401k.userType("6");
  calculate();
  EXPECT_EQ(payData.taxableWage, 752);
  main().cmdAdditional[frmMain::raise].userClick();
  newWage().userType("11");
  press();
  EXPECT_EQ(payData.grossPay, 752);
  EXPECT_EQ(payData.amt401k, dollars("45.12"));
  calculate();
  EXPECT_EQ(payData.grossPay, 880);
}

TEST_F(RaiseCalculator, RaisesNothingWithoutAnEntry) {
  press();
  EXPECT_EQ(percent().text(), "0");
  EXPECT_EQ(newWage().text(), "$10.00");
  EXPECT_EQ(payData.grossPay, 800);
  EXPECT_EQ(main().txtIncome.text(), "800");
}

TEST_F(RaiseCalculator, GoesByTheNewWageOnceBothBoxesAreFilled) {
  misc().cmdExit[2].userClick();
  main().txt401k.userType("6");
  calculate();
  main().cmdAdditional[frmMain::raise].userClick();
  percent().userType("3");
  press();
  EXPECT_EQ(payData.grossPay, 824);
  EXPECT_EQ(payData.taxableWage, dollars("774.56"));
  press();
  EXPECT_EQ(newWage().text(), "$10.30");
  EXPECT_EQ(main().txtIncome.text(), "824");
  EXPECT_EQ(payData.grossPay, dollars("774.56"));
}

TEST_F(RaiseCalculator, FailsToDivideByANewWageOfZero) {
  newWage().userType("0");
  press();
  EXPECT_EQ(percent().text(), "");
  EXPECT_EQ(main().txtIncome.text(), "0");
  EXPECT_EQ(newWage().text(), "$0.00");
}

TEST_F(RaiseCalculator, SkipsWhatATextThatIsNoNumberWouldMake) {
  percent().userType("3%");
  press();
  EXPECT_EQ(percent().text(), "3%");
  EXPECT_EQ(newWage().text(), "");
  EXPECT_EQ(main().txtIncome.text(), "800");
  EXPECT_EQ(payData.incomeSource, 1);
}

TEST_F(RaiseCalculator, RoundsTheIncomeToCents) {
  percent().userType("3.333");
  press();
  EXPECT_EQ(percent().text(), "0.03333");
  EXPECT_EQ(newWage().text(), "$10.33");
  EXPECT_EQ(main().txtIncome.text(), "826.66");  // 10.3333 * 80 = 826.664
  EXPECT_EQ(payData.grossPay, dollars("826.664"));
}

TEST_F(RaiseCalculator, RoundsTheTextOfTheIncomeBox) {
  misc().imgSeal.userClick();
  main().lstFrequency.userPick(3);
  main().txtIncome.userType("3466.60");
  main().cmdAdditional[frmMain::raise].userClick();
  EXPECT_EQ(misc().lblOldShow.caption(), "$20.00");
  percent().userType("2.5");
  press();
  EXPECT_EQ(main().txtIncome.text(), "3553.26");  // 20.5 times 173.33 is shown as 3553.265
}

TEST_F(RaiseCalculator, RoundsATieThatTheProductMisses) {
  main().txtHours.userType("37.5");
  newWage().userType("6.77");
  press();
  EXPECT_EQ(main().txtIncome.text(), "253.88");  // 253.875 as a text, slightly less as a product
}

TEST_F(RaiseCalculator, RoundsTheOldIncomeWhereTheProductFails) {
  main().txtIncome.userType("$1,000.126");
  newWage().userType("ten");
  press();
  EXPECT_EQ(main().txtIncome.text(), "1000.13");
}

TEST_F(RaiseCalculator, RunsNoneOfTheToolbarsSteps) {
  const auto rows = main().dbgDisplay.rows();
  const auto settings = store.all();
  const Money check = payData.checkAmt;
  const Money total = payData.totalDed;
  payData.payPeriods = 7;
  percent().userType("3");
  press();
  EXPECT_EQ(main().dbgDisplay.rows(), rows);
  EXPECT_EQ(store.all(), settings);
  EXPECT_EQ(payData.checkAmt, check);
  EXPECT_EQ(payData.totalDed, total);
  EXPECT_EQ(payData.payPeriods, 7);
  EXPECT_EQ(main().lbl4.caption(), "63.04");  // FICA of 824: 63.036
}

TEST_F(RaiseCalculator, PrintsTheTotalsOfTheGrid) {
  const std::string before = currency(payData.totalDed);
  percent().userType("50");
  press();
  misc().cmdExit[2].userClick();
  main().cmdToolBar[frmMain::print].userClick();
  EXPECT_EQ(desk.use<frmPrint>().vsPrinter1.cells()[1][1], "$1,200.00");
  EXPECT_EQ(desk.use<frmPrint>().vsPrinter1.cells()[8][1], before);
}

using RaiseWithoutAWage = ProgramTest;

TEST_F(RaiseWithoutAWage, HasNoOldWageWithoutAnIncome) {
  start();
  calculate();
  main().cmdAdditional[frmMain::raise].userClick();
  frmMisc& misc = desk.use<frmMisc>();
  EXPECT_EQ(misc.lblOldShow.caption(), "");
  misc.txtRaise[0].userType("3");
  misc.cmdExit[1].userClick();
  EXPECT_EQ(misc.txtRaise[1].text(), "");
  EXPECT_EQ(main().txtIncome.text(), "0");
}

TEST_F(RaiseWithoutAWage, HasNoOldWageOfNoHours) {
  put("IncAmt", "800");
  put("Hours", "0");
  start();
  EXPECT_EQ(desk.use<frmMisc>().lblOldShow.caption(), "");
}

/// The pages of the screen, opened over a fresh main screen.
class LocalTaxPage : public ProgramTest {
 protected:
  static frmMisc& misc() { return desk.use<frmMisc>(); }
  static void open() { EXPECT_EQ(main().cmdAdditional[frmMain::localTax].userClick(), Refusal::none); }
  static void enter(const char* rate) {
    open();
    misc().txtTaxPerCnt.userType(rate);
    EXPECT_EQ(misc().cmdExit[0].userClick(), Refusal::none);
  }
};

TEST_F(LocalTaxPage, ShowsOnePageAtATime) {
  start();
  open();
  EXPECT_EQ(activeDocument(), "frmMisc");
  EXPECT_FALSE(misc().maximized());
  EXPECT_EQ(misc().pnlContainerMisc[0].left(), 728);
  EXPECT_EQ(misc().pnlContainerMisc[0].top(), 135);
  EXPECT_EQ(misc().pnlContainerMisc[1].left(), -10000);
  EXPECT_EQ(misc().txtTaxPerCnt.text(), "0");
  EXPECT_TRUE(misc().txtTaxPerCnt.focused());
  EXPECT_EQ(misc().txtTaxPerCnt.selLength(), 1);
  EXPECT_EQ(misc().cmdExit[2].userClick(), Refusal::notShown);
  calculate();
  main().cmdAdditional[frmMain::raise].userClick();
  EXPECT_EQ(misc().pnlContainerMisc[1].left(), 728);
  EXPECT_EQ(misc().pnlContainerMisc[1].top(), 135);
  EXPECT_EQ(misc().pnlContainerMisc[0].left(), -10000);
  EXPECT_TRUE(misc().txtRaise[0].focused());
  EXPECT_EQ(misc().cmdExit[2].userClick(), Refusal::none);
  EXPECT_EQ(desk.find<frmMisc>(), nullptr);
}

TEST_F(LocalTaxPage, NormalisesTheRateAndStoresItAsTyped) {
  start();
  for (const auto& [typed, rate] : std::initializer_list<std::pair<const char*, double>>{
           {"1", 0.01}, {"0.999", 0.999}, {"2", 0.02}, {".02", 0.02}, {"", 0}}) {
    enter(typed);
    EXPECT_EQ(payData.localRate, rate) << typed;
    EXPECT_EQ(stored("Local"), typed);
    EXPECT_EQ(desk.find<frmMisc>(), nullptr);
  }
}

TEST_F(LocalTaxPage, ReadsTheStoredRateWithoutNormalisingItAfterARestart) {
  start();
  enter("2");
  program.start();
  EXPECT_EQ(payData.localRate, 2);
  main().txtIncome.userType("1000");
  calculate();
  EXPECT_EQ(payData.localTax, 2000);
  open();
  EXPECT_EQ(misc().txtTaxPerCnt.text(), "2");
  misc().cmdExit[0].userClick();
  calculate();
  EXPECT_EQ(payData.localTax, 20);
}

TEST_F(LocalTaxPage, ReadsTheStoredRateAgainForTheRaisePage) {
  start();
  enter("2");
  EXPECT_EQ(payData.localRate, 0.02);
  calculate();
  main().cmdAdditional[frmMain::raise].userClick();
  EXPECT_EQ(payData.localRate, 2);
  misc().imgSeal.userClick();
  EXPECT_EQ(payData.localRate, 2);
}

TEST_F(LocalTaxPage, LeavesTheRateOfAnEmptyTextAtItsInitialZero) {
  start();
  enter("");
  program.start();
  EXPECT_EQ(payData.localRate, 0);
}

TEST_F(LocalTaxPage, KeepsTheRateWhereTheTextIsNoNumber) {
  start();
  enter("3");
  open();
  EXPECT_EQ(payData.localRate, 3);  // its Load reads the stored text
  misc().txtTaxPerCnt.userType("abc");
  misc().cmdExit[0].userClick();
  EXPECT_EQ(payData.localRate, 0.03);  // normalised here
  EXPECT_EQ(stored("Local"), "abc");
}

TEST_F(LocalTaxPage, TaxesTheGrossUnlessChosenOtherwise) {
  start();
  EXPECT_EQ(payData.applyTo, 1);
  EXPECT_EQ(stored("ApplyTo"), "1");
  EXPECT_EQ(stored("ApplyToDisp"), "0");
  open();
  misc().lstGrossPay.userPick(3);
  EXPECT_EQ(payData.applyTo, 4);
  EXPECT_EQ(stored("ApplyTo"), "4");
  EXPECT_EQ(stored("ApplyToDisp"), "3");
  program.start();
  EXPECT_EQ(payData.applyTo, 4);
}

TEST_F(LocalTaxPage, GoesByTheStoredEntryOfTheList) {
  put("ApplyTo", "2");
  put("ApplyToDisp", "4");
  start();
  EXPECT_EQ(payData.applyTo, 5);
  EXPECT_EQ(stored("ApplyTo"), "5");
}

TEST_F(LocalTaxPage, KeepsTheStoredBaseWhereTheListHasNoSuchEntry) {
  put("ApplyTo", "7");
  put("ApplyToDisp", "5");
  put("Local", ".01");
  start();
  EXPECT_EQ(payData.applyTo, 7);
  main().txtIncome.userType("1000");
  calculate();
  EXPECT_EQ(payData.localTax, 0);
}

TEST_F(LocalTaxPage, KeepsTheStoredBaseWhereNoEntryIsStored) {
  put("ApplyTo", "3");
  put("ApplyToDisp", "-1");
  start();
  EXPECT_EQ(misc().lstGrossPay.index(), -1);
  EXPECT_EQ(payData.applyTo, 3);
  EXPECT_EQ(stored("ApplyTo"), "3");
}

TEST_F(LocalTaxPage, IsColouredByTheFocus) {
  start();
  open();
  const Colour boxes{252, 252, 240};
  EXPECT_EQ(misc().txtTaxPerCnt.backColour(), boxes);
  EXPECT_EQ(misc().txtRaise[0].backColour(), boxes);
  EXPECT_EQ(misc().txtRaise[1].backColour(), boxes);
  EXPECT_EQ(misc().lblOldShow.backColour(), boxes);
  EXPECT_EQ(misc().lstGrossPay.backColour(), boxes);
  misc().cmdExit[0].userFocus();
  EXPECT_EQ(misc().cmdExit[0].foreColour(), (Colour{128, 128, 255}));
  misc().txtTaxPerCnt.userFocus();
  EXPECT_EQ(misc().cmdExit[0].foreColour(), (Colour{64, 64, 64}));
}

}  // namespace
}  // namespace tallyfin
