#include "ui/frmMain.h"

#include "controls/colours.h"
#include "support/program.h"

namespace tallyfin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MainScreen : public ProgramTest {
 protected:
  /// A week's paycheck of a single with one exemption.
  void startWithAWeek() {
    put("Frequency", "0");
    put("Deps", "1");
    put("MaritalStat", "1");
    start();
  }
};

TEST_F(MainScreen, ShowsDefaultsOnAFirstRun) {
  start();
  EXPECT_EQ(activeDocument(), "frmMain");
  EXPECT_TRUE(main().maximized());
  EXPECT_EQ(main().txtIncome.text(), "0");
  EXPECT_EQ(main().txtIncome.shown(), "$0.00");
  EXPECT_EQ(main().txt401k.text(), "0");
  EXPECT_EQ(main().txtPreTax.text(), "0");
  EXPECT_EQ(main().txtPreFICA.text(), "0");
  EXPECT_EQ(main().txtHours.text(), "80");
  EXPECT_EQ(main().lstFrequency.index(), -1);
  EXPECT_EQ(main().cboState.text(), "No State");
  EXPECT_EQ(main().cboExemptions.text(), "0");
  EXPECT_TRUE(main().optStatus[0].value());
  EXPECT_FALSE(main().chkSelfEmployed.value());
  EXPECT_EQ(payData.frequency, -1);
  EXPECT_EQ(payData.depsDed, 0);
  EXPECT_EQ(store.read(section::settings, "Frequency"), std::nullopt);
}

TEST_F(MainScreen, SavesTheEntriesOfACalculationOneByOne) {
  struct : MemoryStore {
    void write(std::string_view section, std::string_view key, const std::string& text) override {
      log.push_back(std::string(key) + '=' + text);
      MemoryStore::write(section, key, text);
    }
    std::vector<std::string> log;
  } watched;
  startWithAWeek();
  main().txtIncome.userType("1000");
  main().txt401k.userType("6");
  {
    const Installed<SettingsStore*> here(settingsStore, &watched);
    calculate();
  }
  EXPECT_THAT(watched.log, ElementsAre("IncAmt=1000", "401k=0.06", "NotTax=0", "SSExmp=0", "Hours=40", "State=0",
                                       "Deps=1", "Frequency=0", "MaritalStat=1", "LocalAmt=0"));
}

TEST_F(MainScreen, AppliesNoTableWithoutAFrequency) {
  start();
  main().txtIncome.userType("5000");
  calculate();
  EXPECT_EQ(payData.payPeriods, 0);
  EXPECT_EQ(payData.fedTax, 0);
  EXPECT_EQ(payData.fica, dollars("382.5"));
  EXPECT_EQ(stored("Frequency"), "-1");
}

TEST_F(MainScreen, MakesDepsDedAtItsLoadOnly) {
  start();
  main().cboExemptions.userPick(3);
  main().lstFrequency.userPick(3);
  EXPECT_EQ(payData.frequency, 3);
  EXPECT_EQ(payData.depsDed, 0);
  calculate();
  EXPECT_EQ(payData.depsDed, 0);
  choose("Calc");
  EXPECT_EQ(payData.depsDed, dollars("687.51"));
}

TEST_F(MainScreen, TakesTheAllowanceOfTheFrequencyForEachExemption) {
  put("Deps", "15");
  for (const auto& [frequency, amount] : std::initializer_list<std::pair<const char*, const char*>>{
           {"0", "793.2"}, {"1", "1718.7"}, {"2", "1586.55"}, {"3", "3437.55"}}) {
    put("Frequency", frequency);
    start();
    EXPECT_EQ(payData.depsDed, dollars(amount)) << frequency;
    EXPECT_EQ(main().exemptions, 15);
  }
}

TEST_F(MainScreen, CountsNewExemptionsOnlyAfterTheNextLoad) {
  startWithAWeek();
  main().txtIncome.userType("1000");
  calculate();
  EXPECT_EQ(payData.fedTax, dollars("189.29"));  // 947.12
  main().cboExemptions.userPick(3);
  calculate();
  calculate();
  EXPECT_EQ(payData.fedTax, dollars("189.29"));
  choose("Calc");
  calculate();
  EXPECT_EQ(payData.fedTax, dollars("159.68"));  // 841.36
}

TEST_F(MainScreen, SetsTheHoursByTheFrequency) {
  start();
  main().txtHours.userType("37.5");
  const char* const hours[] = {"40", "86.66", "80", "173.33"};
  for (int i = 0; i < 4; ++i) {
    main().lstFrequency.userPick(i);
    EXPECT_EQ(main().txtHours.text(), hours[i]);
    EXPECT_EQ(main().txtHours.shown(), hours[i]);
    EXPECT_EQ(payData.frequency, i);
    EXPECT_EQ(stored("Frequency"), std::to_string(i));
  }
  EXPECT_EQ(payData.payPeriods, 0);
  main().txtHours.userType("37.5");
  main().lstFrequency.userPick(3);  // the entry that is chosen
  EXPECT_EQ(main().txtHours.text(), "173.33");
}

TEST_F(MainScreen, KeepsStoredHoursOnlyWithoutAFrequency) {
  put("Hours", "37.5");
  start();
  EXPECT_EQ(main().txtHours.text(), "37.5");
  put("Frequency", "0");
  program.start();
  EXPECT_EQ(main().txtHours.text(), "40");
}

TEST_F(MainScreen, CalculatesTheSamplePaycheck) {
  startWithAWeek();
  main().cboState.userPick(34);
  main().txtIncome.userType("$1,000.00");
  main().txt401k.userType("6");
  calculate();
  EXPECT_EQ(payData.payPeriods, 52);
  EXPECT_EQ(payData.fedBase, dollars("887.12"));
  EXPECT_THAT(main().dbgDisplay.rows(),
              ElementsAre("!Gross Pay!,1000", "!401k Deduction!,60", "!Non-Taxable!,0", "!Pre-FICA!,0",
                          "!Federal Tax!,172.49", "!State Tax!,28", "!Local Tax!,0", "!FICA!,76.5",
                          "!Social Security!,62", "!Medicare!,14.5", "!Total Ded!,336.99", "!Check Amt!,663.01"));
  EXPECT_THAT(main().dbgDisplay.cells().front(), ElementsAre("Gross Pay", "$1,000.00"));
  EXPECT_THAT(main().dbgDisplay.cells().back(), ElementsAre("Check Amt", "$663.01"));
  const RowKind line = RowKind::line;
  EXPECT_THAT(main().dbgDisplay.kinds(), ElementsAre(RowKind::total, line, line, line, line, line, line, line, line,
                                                     line, RowKind::total, RowKind::result));
}

TEST_F(MainScreen, ShowsTheFiguresOnPlainLabels) {
  startWithAWeek();
  main().cboState.userPick(34);
  main().txtIncome.userType("1000");
  main().txt401k.userType("6");
  calculate();
  EXPECT_EQ(main().lbl1.caption(), "172.49");
  EXPECT_EQ(main().lbl2.caption(), "28");
  EXPECT_EQ(main().lbl3.caption(), "60");
  EXPECT_EQ(main().lbl4.caption(), "76.5");
  EXPECT_EQ(main().lbl5.caption(), "0");
  EXPECT_EQ(main().lbl6.caption(), "62");
  EXPECT_EQ(main().lbl7.caption(), "14.5");
  EXPECT_EQ(main().lbl8.caption(), "0");
}

TEST_F(MainScreen, TotalsWhatIsTakenOffTheCheck) {
  start();
  payData.maritalStat = 2;  // no table: the federal tax stays
  payData.fedTax = 100;
  main().txtIncome.userType("1000");
  main().txt401k.userType("6");
  main().txtPreTax.userType("40");  // listed, but no deduction from the check
  calculate();
  EXPECT_EQ(payData.totalDed, dollars("236.5"));
  EXPECT_EQ(payData.checkAmt, dollars("763.5"));
  EXPECT_EQ(main().dbgDisplay.rows()[2], "!Non-Taxable!,40");
}

TEST_F(MainScreen, WritesANegativeCheckTheSameWay) {
  start();
  payData.localRate = 2;
  main().txtIncome.userType("1000");
  calculate();
  EXPECT_EQ(main().dbgDisplay.rows().back(), "!Check Amt!,-1076.5");
  EXPECT_THAT(main().dbgDisplay.cells().back(), ElementsAre("Check Amt", "($1,076.50)"));
}

TEST_F(MainScreen, TakesANegativeLocalTaxIntoTheTotal) {
  put("Local", ".02");
  put("ApplyToDisp", "2");  // the gross less the pre-tax amount
  start();
  main().txtIncome.userType("1000");
  main().txtPreTax.userType("1200");
  calculate();
  EXPECT_EQ(main().dbgDisplay.rows()[6], "!Local Tax!,-4");
  EXPECT_EQ(payData.totalDed, dollars("72.5"));  // FICA of 76.5
  EXPECT_EQ(payData.checkAmt, dollars("927.5"));
}

TEST_F(MainScreen, SavesTheEntriesAtACalculation) {
  startWithAWeek();
  main().txtIncome.userType("$1,000.00");
  main().txt401k.userType("6");
  main().txtPreTax.userType("40.5");
  main().txtPreFICA.userType("(3)");
  main().txtHours.userType("38.5");
  main().cboState.userPick(34);
  main().cboExemptions.userPick(2);
  EXPECT_EQ(stored("IncAmt"), "(none)");
  calculate();
  EXPECT_EQ(stored("IncAmt"), "1000");
  EXPECT_EQ(stored("401k"), "0.06");
  EXPECT_EQ(stored("NotTax"), "40.5");
  EXPECT_EQ(stored("SSExmp"), "-3");
  EXPECT_EQ(stored("Hours"), "38.5");
  EXPECT_EQ(stored("State"), "34");
  EXPECT_EQ(stored("Deps"), "2");
  EXPECT_EQ(stored("Frequency"), "0");
  EXPECT_EQ(stored("MaritalStat"), "1");
  EXPECT_EQ(stored("LocalAmt"), "0");
}

TEST_F(MainScreen, BringsEntriesBackAfterARestart) {
  startWithAWeek();
  main().txtIncome.userType("1234.5");
  main().txt401k.userType("6");
  calculate();
  program.start();
  EXPECT_EQ(main().txtIncome.text(), "1234.5");
  EXPECT_EQ(main().txtIncome.shown(), "$1,234.50");
  EXPECT_EQ(main().txt401k.text(), "0.06");
  EXPECT_EQ(payData.grossPay, 0);
  calculate();
  EXPECT_EQ(payData.rate401k, 0.06);
  EXPECT_EQ(stored("401k"), "0.06");
}

TEST_F(MainScreen, ClearsFiguresButNoEntry) {
  startWithAWeek();
  main().cboState.userPick(34);
  main().txtIncome.userType("1000");
  main().txt401k.userType("6");
  main().txtPreTax.userType("40");
  calculate();
  const PayData calculated = payData;
  const auto rows = main().dbgDisplay.rows();

  main().cmdToolBar[frmMain::clear].userClick();
  PayData cleared = calculated;
  for (Money* field : {&cleared.grossPay, &cleared.amt401k, &cleared.preTax, &cleared.preFica, &cleared.fedTax,
                       &cleared.stateTax, &cleared.localTax, &cleared.socSec, &cleared.medicare, &cleared.fica}) {
    *field = 0;
  }
  EXPECT_EQ(payData, cleared);
  EXPECT_THAT(main().dbgDisplay.rows(), IsEmpty());
  EXPECT_EQ(main().txtIncome.text(), "1000");
  EXPECT_EQ(main().cboState.index(), 34);

  calculate();
  EXPECT_EQ(payData, calculated);
  EXPECT_EQ(main().dbgDisplay.rows(), rows);
}

TEST_F(MainScreen, KeepsTheStateTaxUnderNoStateUntilClear) {
  startWithAWeek();
  main().cboState.userPick(34);
  main().txtIncome.userType("1000");
  calculate();
  main().cboState.userPick(0);
  main().txtIncome.userType("500");
  calculate();
  EXPECT_EQ(payData.stateTax, 28);
  EXPECT_EQ(payData.fica, dollars("38.25"));
  main().cmdToolBar[frmMain::clear].userClick();
  calculate();
  EXPECT_EQ(payData.stateTax, 0);
}

TEST_F(MainScreen, YieldsTheSingleStatusForTheThirdOption) {
  start();
  for (const auto& [option, status] : {std::pair{0, 0}, {1, 1}, {2, 1}}) {
    main().optStatus[option].userClick();
    EXPECT_EQ(payData.maritalStat, status);
  }
  EXPECT_TRUE(main().optStatus[2].value());
  EXPECT_EQ(stored("MaritalStat"), "(none)");  // saved by Calculate
}

TEST_F(MainScreen, YieldsTwoOnceTheThirdOptionReadsOtherwise) {
  start();
  main().optStatus[2].setCaption("Married, Two Incomes");
  main().optStatus[2].userClick();
  EXPECT_EQ(payData.maritalStat, 2);
}

TEST_F(MainScreen, TurnsAStoredStatusOfTwoIntoOne) {
  put("MaritalStat", "2");
  start();
  EXPECT_TRUE(main().optStatus[2].value());
  EXPECT_EQ(payData.maritalStat, 1);
}

TEST_F(MainScreen, SelectsNoOptionForAStatusThatHasNone) {
  for (const char* status : {"7", "-1"}) {
    put("MaritalStat", status);
    start();
    EXPECT_EQ(toText(payData.maritalStat), status);
    for (const OptionButton& option : main().optStatus) EXPECT_FALSE(option.value());
  }
}

TEST_F(MainScreen, ListsSponsorsWithoutTouchingTheRecord) {
  startWithAWeek();
  main().txtIncome.userType("1000");
  calculate();
  const PayData record = payData;
  main().cmdToolBar[frmMain::sponsorInfo].userClick();
  EXPECT_EQ(payData, record);
  const auto& rows = main().dbgDisplay.rows();
  ASSERT_THAT(rows, SizeIs(8));
  for (std::size_t row = 0; row < 4; ++row) {
    EXPECT_THAT(rows[row], testing::HasSubstr(","));
    EXPECT_NE(main().dbgDisplay.cells()[row][1], "");
  }
  EXPECT_EQ(rows[4], "");
  EXPECT_EQ(rows[5], "Main Office");
  calculate();
  EXPECT_THAT(main().dbgDisplay.rows(), SizeIs(12));
  EXPECT_THAT(main().dbgDisplay.cells().front(), ElementsAre("Gross Pay", "$1,000.00"));
}

TEST_F(MainScreen, SavesSelfEmploymentAtTheClick) {
  start();
  main().chkSelfEmployed.userClick();
  EXPECT_EQ(stored("Self"), "-1");
  main().txtIncome.userType("1000");
  calculate();
  EXPECT_EQ(payData.fica, 153);
  main().chkSelfEmployed.userClick();
  EXPECT_EQ(stored("Self"), "0");
}

TEST_F(MainScreen, ReadsSelfEmploymentAsANumber) {
  for (const auto& [text, ticked] : {std::pair{"-1", true}, {"1", true}, {"7", true}, {"0", false}, {"yes", false}}) {
    put("Self", text);
    start();
    EXPECT_EQ(main().chkSelfEmployed.value(), ticked) << text;
  }
}

TEST_F(MainScreen, ShowsTheRaiseButtonFromTheFirstCalculationToTheNextLoad) {
  start();
  EXPECT_EQ(main().cmdAdditional[frmMain::raise].userClick(), Refusal::notShown);
  calculate();
  EXPECT_TRUE(main().cmdAdditional[frmMain::raise].visible());
  choose("Calc");
  EXPECT_FALSE(main().cmdAdditional[frmMain::raise].visible());
}

TEST_F(MainScreen, ClosesWithoutTheShell) {
  start();
  main().cmdToolBar[frmMain::exit].userClick();
  EXPECT_EQ(desk.find<frmMain>(), nullptr);
  EXPECT_TRUE(desk.running());
  EXPECT_EQ(activeDocument(), "");
}

TEST_F(MainScreen, SelectsTheWholeTextOfABoxThatGainsTheFocus) {
  put("IncAmt", "1234.5");
  start();
  for (MaskedBox* box : main().boxes()) {
    box->userFocus();
    EXPECT_EQ(box->selStart(), 0);
    EXPECT_EQ(box->selLength(), static_cast<int>(box->text().size())) << box->address();
  }
  EXPECT_EQ(main().txtIncome.selLength(), 6);
}

TEST_F(MainScreen, ColoursOptionsAndButtonsByTheFocus) {
  start();
  main().optStatus[0].userFocus();
  EXPECT_EQ(main().optStatus[0].foreColour(), (Colour{192, 192, 255}));
  main().optStatus[1].userFocus();
  EXPECT_EQ(main().optStatus[0].foreColour(), (Colour{192, 192, 255}));  // still set
  main().cmdAdditional[frmMain::localTax].userFocus();
  EXPECT_EQ(main().optStatus[1].foreColour(), (Colour{255, 255, 128}));
  EXPECT_EQ(main().cmdAdditional[frmMain::localTax].foreColour(), (Colour{192, 192, 255}));
  main().txtIncome.userFocus();
  EXPECT_EQ(main().cmdAdditional[frmMain::localTax].foreColour(), (Colour{255, 255, 128}));
}

TEST_F(MainScreen, LeavesWhatAStoredTextThatIsNoNumberWouldSet) {
  put("State", "99");
  put("Deps", "16");
  put("Frequency", "x");
  put("MaritalStat", "");
  start();
  EXPECT_EQ(main().cboState.index(), -1);
  EXPECT_EQ(main().cboExemptions.index(), -1);
  EXPECT_EQ(payData.frequency, 0);  // as in a fresh record
  EXPECT_EQ(main().lstFrequency.index(), 0);
  EXPECT_TRUE(main().optStatus[0].value());
}

TEST_F(MainScreen, SelectsNoFrequencyBeyondTheList) {
  put("Frequency", "9");
  put("Hours", "12");
  start();
  EXPECT_EQ(payData.frequency, 9);
  EXPECT_EQ(main().lstFrequency.index(), -1);
  EXPECT_EQ(main().txtHours.text(), "12");
  EXPECT_EQ(payData.depsDed, 0);
}

TEST_F(MainScreen, BringsTheOptionsOfASavedStateIntoTheRecord) {
  put("State", "1");
  putState("staDeps", "3");
  putState("staAdd", "12.5");
  putState("staMarried", "4");
  start();
  EXPECT_EQ(payData.staDeps, 3);
  EXPECT_EQ(payData.staAdd, dollars("12.5"));
  EXPECT_EQ(payData.staMarried, 4);
  EXPECT_EQ(desk.find<frmState>(), nullptr);
  EXPECT_EQ(activeDocument(), "frmMain");
  EXPECT_EQ(main().cboState.index(), 1);
}

TEST_F(MainScreen, LeavesTheOptionsOfAStateThatOpensNoScreenAtZero) {
  put("State", "34");
  putState("staDeps", "3");
  putState("staAdd", "12.5");
  putState("MMethod", "4");
  start();
  EXPECT_EQ(payData.staDeps, 0);
  EXPECT_EQ(payData.staAdd, 0);
  EXPECT_EQ(payData.mMethod, 4);  // this one the main screen reads itself
  choose("StateInfo");
  desk.use<frmState>().cmdAccept.userClick();
  EXPECT_EQ(payData.staDeps, 3);
  EXPECT_EQ(payData.staAdd, dollars("12.5"));
}

TEST_F(MainScreen, HasTooltips) {
  start();
  EXPECT_EQ(main().txtIncome.tooltip, "Enter your income amount.");
  EXPECT_EQ(main().txtHours.tooltip, "Enter the number of hours it took to earn the Income Amount.");
  EXPECT_EQ(main().lblHours.tooltip, "Enter the number of hours worked.");
  EXPECT_EQ(main().txtPreFICA.tooltip,
            "Enter an amount for which FICA is not paid. This amount might include the Pre-Tax amount also.");
  EXPECT_EQ(main().cmdAdditional[frmMain::localTax].caption(), "Local Tax  ");
  EXPECT_EQ(main().cmdAdditional[frmMain::raise].caption(), "Raise");
  const char* const tooltips[] = {"Calculate", "Print", "Clear", "Exit", "Exit"};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(main().cmdToolBar[i].tooltip, tooltips[i]);
  EXPECT_EQ(main().cmdToolBar[frmMain::sponsorInfo].caption(), "Sponsor Info");
  EXPECT_THAT(main().cboExemptions.entries(), SizeIs(16));
  EXPECT_THAT(main().cboState.entries(), SizeIs(42));
}

}  // namespace
}  // namespace tallyfin
