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

class Analysis : public ProgramTest {
 protected:
  /// The figures of a calculation, independent of any table.
  static void setFigures() {
    payData.grossPay = 1000;
    payData.fedTax = 100;
    payData.stateTax = 30;
    payData.localTax = 10;
    payData.socSec = 62;
    payData.medicare = dollars("14.5");
    payData.fica = dollars("76.5");
    payData.amt401k = 60;
    payData.preTax = 40;
  }
  static void expectRows(const std::array<const char*, 10>& rows) {
    for (int i = 0; i < 10; ++i) {
      EXPECT_EQ(desk.use<frmAnalysis>().lblOne[i].caption(), rows[static_cast<std::size_t>(i)]) << i;
    }
  }
};

TEST_F(Analysis, ShowsTenRatiosOfTheLastCalculation) {
  put("Frequency", "0");
  start();
  setFigures();
  choose("Analysis");
  EXPECT_TRUE(desk.use<frmAnalysis>().maximized());
  expectRows({"$25.00", "$21.50", "$17.45", "14.%", "30.2%", "10.2%", "10.%", "3.%", "$52,000.00", "$44,720.00"});
}

TEST_F(Analysis, LeavesTheHourlyRowsEmptyWithoutHours) {
  put("Hours", "0");
  start();
  setFigures();
  choose("Analysis");
  expectRows({"", "", "", "14.%", "30.2%", "10.2%", "10.%", "3.%", "", ""});
}

TEST_F(Analysis, LeavesAShareOfNothingEmpty) {
  put("Frequency", "0");
  start();
  payData.grossPay = 100;
  payData.amt401k = 100;
  choose("Analysis");
  expectRows({"$2.50", "$2.50", "$0.00", ".%", "100.%", "", ".%", ".%", "$5,200.00", "$5,200.00"});
}

TEST_F(Analysis, GoesByTheHoursOfTheFrequencyOnceTheMainScreenIsClosed) {
  put("Frequency", "0");
  start();
  setFigures();
  main().txtHours.userType("10");
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$25.00");
}

TEST_F(Analysis, GoesByTheHoursInTheBoxOfAMainScreenBeneath) {
  put("Frequency", "0");
  start();
  setFigures();
  main().txtHours.userType("10");
  choose("W4");
  choose("Analysis");  // closes the form only
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$100.00");
}

TEST_F(Analysis, GoesByTheHoursOfEachOpeningAndNotThoseOfTheFirst) {
  put("Frequency", "0");
  start();
  setFigures();
  choose("W4");
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$25.00");
  EXPECT_EQ(desk.userClose(desk.use<frmAnalysis>()), Refusal::none);
  EXPECT_EQ(main().txtHours.userType("10"), Refusal::none);
  choose("W4");
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$100.00");
}

TEST_F(Analysis, MultipliesTheCentsThatItShows) {
  put("Frequency", "1");  // 86.66 hours
  start();
  payData.grossPay = 1000;
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$11.54");  // 11.5393
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[8].caption(), "$24,003.20");
}

TEST_F(Analysis, IsMadeOnceForEachOpening) {
  put("Frequency", "0");
  start();
  setFigures();
  choose("Analysis");
  payData.grossPay = 2000;
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$25.00");
  choose("Analysis");
  EXPECT_EQ(desk.use<frmAnalysis>().lblOne[0].caption(), "$50.00");
}

}  // namespace
}  // namespace tallyfin
