#include <gmock/gmock.h>

#include "support/program.h"

namespace tallyfin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using Shell = ProgramTest;

TEST_F(Shell, OpensPersonalInformationOnAFreshStore) {
  program.start();
  EXPECT_EQ(activeDocument(), "frmName");
  EXPECT_TRUE(desk.use<frmName>().maximized());
  EXPECT_EQ(desk.find<frmMain>(), nullptr);
  EXPECT_EQ(desk.use<MDIOpen>().title(), "Tallyfin 99");
}

TEST_F(Shell, OpensTheMainScreenOrNothingAsStored) {
  for (const auto& [text, screen] :
       {std::pair{"0", "frmName"}, {"1", "frmMain"}, {"2", ""}, {"-1", ""}, {"no", "frmName"}}) {
    store.write(section::user, "DontShow", text);
    program.start();
    EXPECT_EQ(activeDocument(), screen) << text;
  }
}

TEST_F(Shell, BeginsOnAFreshRecordAndLeavesTheLastOne) {
  payData.grossPay = 1000;
  start();
  EXPECT_EQ(payData.grossPay, 0);
  payData.grossPay = 1000;
  desk.end();
  EXPECT_EQ(payData.grossPay, 1000);
}

TEST_F(Shell, PutsBackWhatItFound) {
  const ActWatcher* former = desk.actWatcher;
  {
    MemoryStore another;
    FakePlatform elsewhere;
    DeskWatcher watcher;
    Program within(another, {&elsewhere, &elsewhere, &elsewhere, &elsewhere, &elsewhere}, &watcher);
    within.start();
    EXPECT_EQ(settingsStore, &another);
    EXPECT_EQ(tallyfin::platform.clock, &elsewhere);
    EXPECT_EQ(desk.watcher, &watcher);
    EXPECT_NE(desk.actWatcher, former);
    EXPECT_EQ(&worksheet(), &desk.use<frmMain>());
    desk.use<frmMain>().txtIncome.setFocus();  // without a watcher
  }
  EXPECT_FALSE(desk.running());
  EXPECT_EQ(settingsStore, &store);
  EXPECT_EQ(tallyfin::platform.clock, &platform);
  EXPECT_EQ(desk.watcher, nullptr);
  EXPECT_EQ(desk.actWatcher, former);
  start();
  EXPECT_EQ(&worksheet(), &main());
}

TEST_F(Shell, MakesEachActOneForTheStore) {
  struct : MemoryStore {
    void write(std::string_view section, std::string_view key, const std::string& text) override {
      EXPECT_TRUE(acting());
      MemoryStore::write(section, key, text);
    }
    using MemoryStore::acting;
  } acts;
  Program within(acts, {&platform, &platform, &platform, &platform, &platform});
  within.start();
  desk.use<frmName>().chkShow.userClick();
  EXPECT_EQ(acts.read(section::user, "DontShow"), "1");
  EXPECT_FALSE(acts.acting());
}

TEST_F(Shell, SpringsBackToItsSize) {
  start();
  MDIOpen& frame = desk.use<MDIOpen>();
  for (const WindowState state : {WindowState::maximized, WindowState::minimized, WindowState::normal}) {
    EXPECT_EQ(frame.userResize(state), Refusal::none);
    EXPECT_FALSE(frame.maximized());
  }
  EXPECT_EQ(MDIOpen::width, 8790);
  EXPECT_EQ(MDIOpen::height, 5895);
}

TEST_F(Shell, HasFourGroupsOfItems) {
  start();
  std::vector<std::string> items;
  for (const ListBarItem& item : desk.use<MDIOpen>().SSListBar1) {
    items.push_back(item.group() + "|" + item.caption() + "|" + item.address() + "|" + item.shortcut());
  }
  EXPECT_THAT(
      items,
      ElementsAre("File|New|SSListBar1(NewFile)|Ctrl+N", "File|Set State Options|SSListBar1(StateInfo)|Ctrl+4",
                  "File|Personal Information|SSListBar1(Personal)|Ctrl+5", "File|Exit|SSListBar1(ExitProgram)|Ctrl+Q",
                  "Calculations|Calculations|SSListBar1(Calc)|Ctrl+1",
                  "Calculations|Multiple Paychecks|SSListBar1(Multi)|Ctrl+2",
                  "Calculations|Analysis|SSListBar1(Analysis)|Ctrl+3",
                  "Form W4|Personal Allowances Worksheet|SSListBar1(Pers)|Ctrl+6",
                  "Form W4|Deductions and Adjustments|SSListBar1(Ded)|Ctrl+7",
                  "Form W4|Two Workers|SSListBar1(TwoWork)|Ctrl+8", "Form W4|Form W4|SSListBar1(W4)|Ctrl+9",
                  "Form W4|Form W4 Help|SSListBar1(W4Help)|Shift+F1", "Help|Help|SSListBar1(Help)|Ctrl+F1",
                  "Help|About|SSListBar1(About)|Ctrl+0"));
}

TEST_F(Shell, NamesTheItemThatLeadsToAPage) {
  start();
  const MDIOpen& frame = desk.use<MDIOpen>();
  const auto keyOf = [&](const char* page) { return frame.itemOf(page) == nullptr ? "" : frame.itemOf(page)->key(); };
  EXPECT_EQ(keyOf("frmMain"), "Calc");
  EXPECT_EQ(keyOf("frmMisc"), "Calc");
  EXPECT_EQ(keyOf("frmTableOne"), "TwoWork");
  EXPECT_EQ(keyOf("frmW4"), "W4");
  EXPECT_EQ(keyOf("frmAbt"), "");
}

TEST_F(Shell, ClosesTheActiveDocumentForTheNextScreen) {
  start();
  payData.grossPay = 1000;
  std::string last = "frmMain";
  for (const auto& [key, screen] : {std::pair{"Multi", "frmMultiCheck"},
                                    {"Pers", "frmPersWkSht"},
                                    {"Ded", "frmDednAdj"},
                                    {"TwoWork", "frm2Workers"},
                                    {"StateInfo", "frmState"},
                                    {"Personal", "frmName"},
                                    {"Analysis", "frmAnalysis"},
                                    {"Calc", "frmMain"}}) {
    choose(key);
    ASSERT_EQ(activeDocument(), screen);
    EXPECT_TRUE(desk.activeDocument()->maximized()) << key;
    EXPECT_EQ(desk.documents().size(), 1U) << key;
    const Screen* closed = desk.find(last);
    EXPECT_TRUE(closed == nullptr || !closed->shown()) << last;
    last = screen;
  }
}

TEST_F(Shell, ShowsTheFormOverWhatIsThere) {
  start();
  choose("W4");
  EXPECT_EQ(activeDocument(), "frmW4");
  EXPECT_FALSE(desk.use<frmW4>().maximized());
  EXPECT_TRUE(main().shown());
}

TEST_F(Shell, EmptiesTheBoxesForANewPaycheck) {
  put("IncAmt", "1000");
  put("Frequency", "0");
  put("Deps", "2");
  put("State", "1");
  put("MaritalStat", "1");
  start();
  const auto settings = store.all();
  choose("NewFile");
  EXPECT_EQ(activeDocument(), "frmMain");
  for (const MaskedBox* box : main().boxes()) EXPECT_EQ(box->text(), "") << box->address();
  EXPECT_EQ(main().cboState.index(), 0);
  EXPECT_EQ(main().cboExemptions.index(), 0);
  EXPECT_EQ(payData.frequency, 0);
  EXPECT_EQ(payData.maritalStat, 1);
  EXPECT_EQ(payData.depsDed, dollars("105.76"));
  EXPECT_EQ(store.all().at("Settings"), settings.at("Settings"));
}

TEST_F(Shell, CalculatesANewPaycheckOnTheOldGross) {
  start();
  main().lstFrequency.userPick(0);
  main().txtIncome.userType("1000");
  calculate();
  choose("NewFile");
  EXPECT_THAT(main().dbgDisplay.rows(), IsEmpty());
  EXPECT_EQ(payData.grossPay, 1000);
  calculate();
  EXPECT_EQ(payData.grossPay, 1000);
  EXPECT_EQ(payData.fica, dollars("76.5"));
  EXPECT_EQ(payData.taxableWage, 0);
  EXPECT_EQ(payData.fedTax, 0);
  EXPECT_EQ(stored("Hours"), "");
}

TEST_F(Shell, WarnsWhereThereIsNothingToAnalyse) {
  put("IncAmt", "1000");
  start();
  choose("Analysis");
  MsgBox* box = desk.find<MsgBox>();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->Title.caption(), "Nothing to Work With!");
  EXPECT_EQ(box->Text.caption(), "You have to make some calculations for me to analyze!");
  EXPECT_EQ(activeDocument(), "frmMain");
  EXPECT_EQ(main().cmdToolBar[frmMain::calculate].userClick(), Refusal::blocked);
  EXPECT_EQ(box->OK.userClick(), Refusal::none);
  EXPECT_EQ(desk.find<MsgBox>(), nullptr);
  calculate();
  choose("Analysis");
  EXPECT_EQ(activeDocument(), "frmAnalysis");
}

TEST_F(Shell, LetsThePointerLeaveTheItemThatWarned) {
  start();
  ListBarItem& item = desk.use<MDIOpen>().SSListBar1[6];
  ASSERT_EQ(item.address(), "SSListBar1(Analysis)");
  item.userEnter();
  item.userClick();
  ASSERT_NE(desk.find<MsgBox>(), nullptr);
  EXPECT_EQ(item.userEnter(), Refusal::blocked);
  item.userLeave();
  EXPECT_FALSE(item.highlighted());
}

TEST_F(Shell, WarnsAfterAClear) {
  start();
  main().txtIncome.userType("1000");
  calculate();
  main().cmdToolBar[frmMain::clear].userClick();
  choose("Analysis");
  EXPECT_NE(desk.find<MsgBox>(), nullptr);
  EXPECT_EQ(activeDocument(), "frmMain");
}

TEST_F(Shell, EndsAtOnceAndSavesNothing) {
  start();
  choose("StateInfo");
  desk.use<frmState>().cboDeps[0].userPick(3);
  const auto settings = store.all();
  choose("ExitProgram");
  EXPECT_FALSE(desk.running());
  EXPECT_EQ(store.all(), settings);
}

TEST_F(Shell, EndsWhereItsWindowIsClosed) {
  start();
  EXPECT_EQ(desk.userClose(desk.use<MDIOpen>()), Refusal::none);
  EXPECT_FALSE(desk.running());
}

TEST_F(Shell, ShowsTheAboutBoxAboveEverything) {
  start();
  choose("About");
  EXPECT_EQ(desk.use<frmAbt>().title(), "About Tallyfin 99");
  EXPECT_EQ(activeDocument(), "frmMain");
  choose("Multi");
  EXPECT_TRUE(desk.use<frmAbt>().shown());
  EXPECT_EQ(desk.userClose(desk.use<frmAbt>()), Refusal::none);
  EXPECT_EQ(desk.find<frmAbt>(), nullptr);
}

TEST_F(Shell, OpensTheHelpFiles) {
  start();
  choose("Help");
  choose("W4Help");
  EXPECT_THAT(platform.help, ElementsAre(Pair("Tallyfin.hlp", 0), Pair("W4.hlp", 10)));
}

TEST_F(Shell, LeavesHiddenScreensAndThoseBeneath) {
  start();
  choose("W4");
  choose("Multi");
  EXPECT_EQ(desk.find<frmW4>(), nullptr);
  EXPECT_TRUE(main().shown());
  EXPECT_NE(desk.find<frmMisc>(), nullptr);
  EXPECT_FALSE(desk.find<frmMisc>()->shown());
}

using PersonalInformation = ProgramTest;

TEST_F(PersonalInformation, ShowsDashesOnAnUntouchedFirstRun) {
  program.start();
  frmName& screen = desk.use<frmName>();
  EXPECT_EQ(screen.title(), "Personal Information");
  for (const TextBox* box : {&screen.txtName, &screen.txtSSN, &screen.txtAddress, &screen.txtCity}) {
    EXPECT_EQ(box->text(), "-");
  }
  EXPECT_TRUE(screen.optMaritalStatus[0].value());
  EXPECT_TRUE(screen.chkShow.value());
  screen.cmdExit.userClick();
  EXPECT_EQ(storedUser("UName"), "-");
  EXPECT_EQ(desk.find<frmName>(), nullptr);
  EXPECT_EQ(activeDocument(), "frmMain");
  EXPECT_FALSE(main().maximized());
}

TEST_F(PersonalInformation, WantsANameAndNothingElse) {
  program.start();
  frmName& screen = desk.use<frmName>();
  screen.txtName.userType("");
  screen.txtCity.userType("Port Ellery");
  screen.cmdExit.userClick();
  EXPECT_EQ(activeDocument(), "frmName");
  EXPECT_TRUE(screen.txtName.focused());
  EXPECT_THAT(store.all(), IsEmpty());
  screen.txtName.userType("Ann Lee");
  for (TextBox* box : {&screen.txtSSN, &screen.txtAddress, &screen.txtCity}) box->userType("");
  screen.cmdExit.userClick();
  EXPECT_EQ(storedUser("UName"), "Ann Lee");
  EXPECT_EQ(storedUser("UCity"), "");
}

TEST_F(PersonalInformation, SavesWhatWasEntered) {
  program.start();
  frmName& screen = desk.use<frmName>();
  screen.txtName.userType("Ann Lee");
  screen.txtSSN.userType("123456789");
  screen.txtAddress.userType("12 Harbor Street");
  screen.txtCity.userType("Port Ellery");
  screen.optMaritalStatus[1].userClick();
  EXPECT_EQ(payData.maritalStat, 1);
  EXPECT_EQ(stored("MaritalStat"), "(none)");
  screen.cmdExit.userClick();
  EXPECT_EQ(storedUser("UAdd"), "12 Harbor Street");
  EXPECT_EQ(storedUser("UCity"), "Port Ellery");
  EXPECT_EQ(storedUser("USSN"), "123456789");
  EXPECT_EQ(stored("MaritalStat"), "1");
  choose("Personal");
  EXPECT_EQ(desk.use<frmName>().txtSSN.text(), "123-45-6789");
}

TEST_F(PersonalInformation, SetsNoOptionForAStoredStatusThatHasNone) {
  for (const char* status : {"-1", "3"}) {
    put("MaritalStat", status);
    program.start();
    for (const OptionButton& option : desk.use<frmName>().optMaritalStatus) EXPECT_FALSE(option.value()) << status;
  }
}

TEST_F(PersonalInformation, ShowsAtStartUntilTheBoxIsCleared) {
  program.start();
  desk.use<frmName>().chkShow.userClick();
  EXPECT_EQ(payData.dontShow, 1);
  EXPECT_EQ(storedUser("DontShow"), "1");
  program.start();
  EXPECT_EQ(activeDocument(), "frmMain");
  choose("Personal");
  EXPECT_FALSE(desk.use<frmName>().chkShow.value());
  desk.use<frmName>().chkShow.userClick();
  EXPECT_EQ(payData.dontShow, 0);
  EXPECT_EQ(storedUser("DontShow"), "0");
}

TEST_F(PersonalInformation, LosesStatusTwoWhereTheMainScreenIsLoadedAgain) {
  start();
  choose("Personal");  // closes the main screen
  desk.use<frmName>().optMaritalStatus[2].userClick();
  EXPECT_EQ(payData.maritalStat, 2);
  desk.use<frmName>().cmdExit.userClick();
  EXPECT_EQ(stored("MaritalStat"), "2");
  EXPECT_EQ(payData.maritalStat, 1);
}

TEST_F(PersonalInformation, KeepsStatusTwoOverALoadedMainScreen) {
  put("Frequency", "0");
  start();
  choose("W4");
  choose("Personal");  // closes the form; the main screen stays beneath
  desk.use<frmName>().optMaritalStatus[2].userClick();
  desk.use<frmName>().cmdExit.userClick();
  EXPECT_EQ(payData.maritalStat, 2);
  main().txtIncome.userType("5000");
  calculate();
  EXPECT_EQ(payData.fedTax, 0);
  EXPECT_EQ(stored("MaritalStat"), "2");
}

TEST_F(PersonalInformation, SelectsTheWholeTextOfABoxThatGainsTheFocus) {
  store.write(section::user, "UName", "Ann Lee");
  program.start();
  desk.use<frmName>().txtName.userFocus();
  EXPECT_EQ(desk.use<frmName>().txtName.selLength(), 7);
}

class Report : public ProgramTest {
 protected:
  static frmPrint& print() {
    main().cmdToolBar[frmMain::print].userClick();
    return desk.use<frmPrint>();
  }
};

TEST_F(Report, IsMadeAtOnceWithNothingCalculatedYet) {
  start();
  const PrintEngine& engine = print().vsPrinter1;
  EXPECT_EQ(activeDocument(), "frmPrint");
  EXPECT_EQ(engine.header(), " Prepared for - on Monday, May 17, 1999");
  EXPECT_EQ(engine.footer(), "Calculations by Tallyfin 99 Norvane Works");
  EXPECT_EQ(engine.table(),
            "<3000|>1500;Category|Amount;  Gross Pay|$0.00;  401k Deduction|$0.00;  Federal Tax|$0.00;"
            "  State Tax|$0.00;  Local Tax|$0.00;  FICA|$0.00;|;Total of Deductions|$0.00;Check Amount|$0.00;|;"
            "Included in FICA|;  Social Security|$0.00;  Medicare|$0.00;|;Protected Amounts|;  Non-Taxable|$0.00;"
            "  Pre-FICA|$0.00;");
  EXPECT_EQ(engine.pages(), 1);
  EXPECT_EQ(engine.fontPoints(), 12);
  EXPECT_FALSE(engine.bold());
  EXPECT_FALSE(engine.italic());
}

TEST_F(Report, NamesTheUserAndTheFigures) {
  store.write(section::user, "UName", "Ann Lee");
  put("Frequency", "0");
  put("MaritalStat", "1");
  put("Deps", "1");
  start();
  main().txtIncome.userType("1000");
  main().txt401k.userType("6");
  calculate();
  const PrintEngine& engine = print().vsPrinter1;
  EXPECT_EQ(engine.header(), " Prepared for Ann Lee on Monday, May 17, 1999");
  EXPECT_THAT(engine.cells()[0], ElementsAre("Category", "Amount"));
  EXPECT_THAT(engine.cells()[1], ElementsAre("  Gross Pay", "$1,000.00"));
  EXPECT_THAT(engine.cells()[3], ElementsAre("  Federal Tax", "$172.49"));
  EXPECT_THAT(engine.cells()[8], ElementsAre("Total of Deductions", "$308.99"));
  EXPECT_THAT(engine.cells()[9], ElementsAre("Check Amount", "$691.01"));
  const RowKind line = RowKind::line;
  EXPECT_THAT(engine.kinds(), ElementsAre(RowKind::heading, line, line, line, line, line, line, RowKind::blank,
                                          RowKind::total, RowKind::total, RowKind::blank, RowKind::group, line, line,
                                          RowKind::blank, RowKind::group, line, line));
}

TEST_F(Report, BearsTheDateOfEachMakingAndNotThatOfTheFirst) {
  start();
  const PrintEngine& engine = print().vsPrinter1;
  EXPECT_EQ(engine.header(), " Prepared for - on Monday, May 17, 1999");
  platform.time += std::chrono::days{1};
  desk.use<frmPrint>().cmdPrintMenu[0].userClick();
  EXPECT_EQ(engine.header(), " Prepared for - on Tuesday, May 18, 1999");
  platform.time += std::chrono::days{1};
  desk.use<frmPrint>().cmdPrintMenu[1].userClick();
  EXPECT_EQ(print().vsPrinter1.header(), " Prepared for - on Wednesday, May 19, 1999");
}

TEST_F(Report, BeepsAndStaysWhereNoDocumentCanBeStarted) {
  start();
  platform.printerWorks = false;
  EXPECT_EQ(print().vsPrinter1.table(), "");
  EXPECT_EQ(platform.beeps, 1);
  EXPECT_THAT(platform.pointer, IsEmpty());
  EXPECT_EQ(activeDocument(), "frmPrint");
}

TEST_F(Report, IsQuietlyMissingWithoutAPlatform) {
  start();
  platform.printerWorks = false;
  tallyfin::platform.beeper = plainPlatform().beeper;
  EXPECT_EQ(print().vsPrinter1.table(), "");
}

TEST_F(Report, ShowsTheHourglassMeanwhile) {
  start();
  main().cmdToolBar[frmMain::print].userClick();
  EXPECT_THAT(platform.pointer, ElementsAre(true, false));
}

TEST_F(Report, ZoomsByTheLabel) {
  start();
  frmPrint& screen = print();
  EXPECT_EQ(screen.lblShowSize.caption(), "100");
  EXPECT_EQ(screen.udZoom.userPick(250), Refusal::none);
  EXPECT_EQ(screen.lblShowSize.caption(), "250");
  EXPECT_EQ(screen.vsPrinter1.zoom(), 250);
  EXPECT_EQ(screen.udZoom.userPick(401), Refusal::noEntry);
}

TEST_F(Report, Closes) {
  start();
  print().cmdPrintMenu[1].userClick();
  EXPECT_EQ(desk.find<frmPrint>(), nullptr);
  EXPECT_EQ(activeDocument(), "frmMain");
}

}  // namespace
}  // namespace tallyfin
