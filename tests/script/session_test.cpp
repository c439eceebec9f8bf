#include "script/session.h"

#include <gmock/gmock.h>

#include "script/tokenizer.h"

namespace tallyfin::script {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class SessionTest : public testing::Test {
 protected:
  /// The answer to a command line.
  std::string ask(const std::string& line) { return session.answer(line).value_or("(none)"); }
  /// The first word of a refusal.
  std::string why(const std::string& line) {
    const std::string answer = ask(line);
    EXPECT_THAT(answer, StartsWith("! ")) << line;
    return answer.substr(2, answer.find(' ', 2) - 2);
  }
  void start() {
    store.write("User", "DontShow", "1");
    EXPECT_EQ(ask("start"), "ok");
  }

  MemoryStore store;
  Session session{store};
};

TEST_F(SessionTest, SkipsBlankLinesAndComments) {
  for (const char* line : {"", "   ", "\t", "\r", "# start", "  # start"}) EXPECT_EQ(ask(line), "(none)");
  EXPECT_EQ(ask("running"), "= false");
}

TEST_F(SessionTest, StartsAndKillsARun) {
  EXPECT_EQ(ask("running"), "= false");
  EXPECT_EQ(ask("start"), "ok");
  EXPECT_EQ(ask("running"), "= true");
  EXPECT_EQ(why("start"), "running");
  EXPECT_EQ(ask("kill"), "ok");
  EXPECT_EQ(why("kill"), "not-running");
}

TEST_F(SessionTest, KillsWithoutAHandler) {
  start();
  ask("click MDIOpen.SSListBar1(StateInfo)");
  ask("pick frmState.cboDeps(0) 3");
  const auto settings = store.all();
  EXPECT_EQ(ask("kill"), "ok");
  EXPECT_EQ(store.all(), settings);
}

TEST_F(SessionTest, StartsWithAFreshRecord) {
  start();
  ask("poke grossPay 5");
  ask("kill");
  start();
  EXPECT_EQ(ask("pay grossPay"), "= 0");
}

TEST_F(SessionTest, ReadsALineOrCallsItASyntaxError) {
  start();
  for (const char* line : {
           "start now",
           "running 1",
           "click",
           "click frmMain.cmdToolBar(0) twice",
           "type frmMain.txtIncome",
           "type frmMain.txtIncome 5",
           "type frmMain.txtIncome \"5",
           "type frmMain.txtIncome \"5\"x",
           "type frmMain.txtIncome \"\\q\"",
           "type frmMain.txtIncome \"\\u12\"",
           "type frmMain.txtIncome \"a\tb\"",
           "pick frmMain.cboState",
           "pick frmMain.cboState one",
           "pick frmMain.cboState 1.5",
           "pick frmMain.cboState \"1\"",
           "clock 1999-05-17T14:30:00",
           "clock \"1999-02-29T14:30:00\"",
           "clock \"1999-05-17T24:00:00\"",
           "clock \"1999-05-17 14:30:00\"",
           "clock \"1999-5-17T14:30:00\"",
           "resize MDIOpen normal",
           "resize MDIOpen \"huge\"",
           "get frmMain",
           "poke grossPay",
           "poke grossPay five",
           "poke grossPay 1E15",
           "poke frequency 32768",
           "poke rate401k 1E400",
           "store get Settings",
           "store put Settings Hours 40",
           "store put Settings Hours",
           "store erase Settings",
           "controls",
       }) {
    EXPECT_EQ(why(line), "syntax") << line;
  }
  EXPECT_EQ(ask("pay grossPay"), "= 0");
}

TEST_F(SessionTest, KnowsItsCommandsScreensControlsPropertiesAndFields) {
  start();
  for (const char* line : {
           "frobnicate",
           "\"start\"",
           "Start",
           "store frob",
           "click frmNone.cmd",
           "click frmMain.none",
           "click frmMain.cmdToolBar",
           "click frmMain.cmdToolBar(5)",
           "click frmMain.txtIncome",
           "type frmMain.lstFrequency \"x\"",
           "type frmMain.cboState \"x\"",
           "pick frmMain.txtIncome 0",
           "click frmMain.lstFrequency",
           "type frmMain \"x\"",
           "enter frmMain",
           "focus frmMain",
           "close frmNone",
           "close frmMain.txtIncome",
           "resize frmMain \"normal\"",
           "resize frmNone \"normal\"",
           "get frmMain.txtIncome caption",
           "get frmMain.lstFrequency editable",
           "get frmMain.lbl1 value",
           "get frmMain.cmdToolBar(0) value",
           "get frmMain.optStatus(0) text",
           "get frmMain.chkSelfEmployed text",
           "get frmMain.dbgDisplay caption",
           "get MDIOpen.SSListBar1(Calc) value",
           "get frmMisc.imgSeal caption",
           "get frmMisc.pnlContainerMisc(0) width",
           "get frmPrint.vsPrinter1 rows",
           "get frmPrint.udZoom index",
           "get frmCalendar.mthTwoWorkers value",
           "get frmMain caption",
           "get frmNone title",
           "pay nothing",
           "poke nothing 5",
           "controls frmNone",
           "controls frmMain.txtIncome",
       }) {
    EXPECT_EQ(why(line), "unknown") << line;
  }
}

TEST_F(SessionTest, NeedsARunForAlmostEverything) {
  for (const char* line : {"click frmMain.cmdToolBar(0)", "type frmMain.txtIncome \"5\"", "get frmMain title", "pay",
                           "pay grossPay", "pay stateWage", "poke grossPay 5", "screens", "controls frmMain", "printed",
                           "close frmMain", "resize MDIOpen \"normal\"", "kill"}) {
    EXPECT_EQ(why(line), "not-running") << line;
  }
  EXPECT_EQ(ask("store"), "= {}");
  EXPECT_EQ(ask("clock \"1999-05-17T14:30:00\""), "ok");
}

TEST_F(SessionTest, RefusesForTheFirstReasonThatApplies) {
  EXPECT_EQ(why("type frmNone.none x"), "syntax");
  EXPECT_EQ(why("poke nothing five"), "syntax");
  EXPECT_EQ(why("poke nothing 5"), "unknown");
  EXPECT_EQ(why("click frmNone.none"), "unknown");
  EXPECT_EQ(why("click frmState.cmdAccept"), "not-running");
  start();
  EXPECT_EQ(why("click frmState.cmdAccept"), "not-loaded");
  EXPECT_EQ(why("click frmMisc.cmdExit(0)"), "not-shown");        // loaded, not shown
  EXPECT_EQ(why("click frmMain.cmdAdditional(1)"), "not-shown");  // shown, but the button isn't visible
  ask("click MDIOpen.SSListBar1(StateInfo)");
  EXPECT_EQ(why("pick frmState.cboSpecialDeps 9"), "disabled");
  EXPECT_EQ(why("pick frmState.cboState 42"), "no-entry");
  EXPECT_EQ(why("pick frmState.cboState -1"), "no-entry");
  ask("click MDIOpen.SSListBar1(Analysis)");
  EXPECT_EQ(why("pick frmState.cboState one"), "syntax");
  EXPECT_EQ(why("click frmState.none"), "unknown");
  EXPECT_EQ(why("pick frmState.cboSpecialDeps 9"), "blocked");
  EXPECT_EQ(why("click frmPrint.cmdPrintMenu(0)"), "blocked");  // not loaded either
}

TEST_F(SessionTest, RefusesAQuestionForTheFirstReasonThatApplies) {
  const auto both = [&] {
    EXPECT_EQ(why("get frmNone.none none more"), "syntax");
    EXPECT_EQ(why("get"), "syntax");
    EXPECT_EQ(why("get frmNone title"), "unknown");
    EXPECT_EQ(why("get frmState.none text"), "unknown");
    EXPECT_EQ(why("get frmState.cboState none"), "unknown");
  };
  both();
  EXPECT_EQ(why("get frmState.cboState text"), "not-running");
  start();
  both();
  EXPECT_EQ(why("get frmState.cboState text"), "not-loaded");
  EXPECT_EQ(ask("get frmMisc.lstGrossPay visible"), "= true");  // loaded, not shown
  ask("click MDIOpen.SSListBar1(Analysis)");
  both();
  EXPECT_EQ(why("get frmState.cboState text"), "not-loaded");  // the box blocks no question
  EXPECT_EQ(ask("get frmMain.txtIncome text"), "= \"0\"");
}

TEST_F(SessionTest, KillsARunWhileTheWarningIsShown) {
  start();
  ask("click MDIOpen.SSListBar1(Analysis)");
  EXPECT_EQ(ask("get MsgBox front"), "= true");
  EXPECT_EQ(ask("kill"), "ok");
  EXPECT_EQ(ask("running"), "= false");
  EXPECT_EQ(why("close MsgBox"), "not-running");
  start();
  EXPECT_EQ(why("get MsgBox front"), "not-loaded");
  EXPECT_EQ(ask("type frmMain.txtIncome \"5\""), "ok");  // nothing is blocked
}

TEST_F(SessionTest, BlocksActionsButNoQuestionsUntilTheBoxIsAnswered) {
  start();
  ask("click MDIOpen.SSListBar1(Analysis)");
  for (const char* line :
       {"click frmMain.cmdToolBar(0)", "type frmMain.txtIncome \"5\"", "pick frmMain.cboState 1", "enter frmMain.lbl1",
        "focus frmMain.txtIncome", "close frmMain", "close MDIOpen", "resize MDIOpen \"normal\"", "click frmMain"}) {
    EXPECT_EQ(why(line), "blocked") << line;
  }
  EXPECT_EQ(ask("get frmMain.txtIncome text"), "= \"0\"");
  EXPECT_EQ(ask("get MsgBox front"), "= true");
  EXPECT_EQ(ask("poke grossPay 5"), "ok");
  EXPECT_EQ(ask("focus MsgBox.OK"), "ok");
  EXPECT_EQ(ask("close MsgBox"), "ok");
  EXPECT_EQ(ask("click frmMain"), "ok");
}

TEST_F(SessionTest, ChangesNothingWithARefusedAction) {
  start();
  ask("click MDIOpen.SSListBar1(W4)");
  EXPECT_EQ(why("click frmMain.cmdAdditional(1)"), "not-shown");
  EXPECT_THAT(ask("screens"), HasSubstr("[\"frmW4\",\"frmMain\"]"));
  EXPECT_EQ(ask("click frmMain"), "ok");
  EXPECT_THAT(ask("screens"), HasSubstr("[\"frmMain\",\"frmW4\"]"));
}

TEST_F(SessionTest, TypesPicksAndClicks) {
  start();
  EXPECT_EQ(ask("type frmMain.txtIncome \"1,000\""), "ok");
  EXPECT_EQ(ask("get frmMain.txtIncome text"), "= \"1,000\"");
  EXPECT_EQ(ask("get frmMain.txtIncome shown"), "= \"$1,000.00\"");
  EXPECT_EQ(ask("pick frmMain.lstFrequency 0"), "ok");
  EXPECT_EQ(ask("get frmMain.lstFrequency index"), "= 0");
  EXPECT_EQ(ask("get frmMain.lstFrequency list"), "= [\"Weekly\",\"Twice A Month\",\"Every Two Weeks\",\"Monthly\"]");
  EXPECT_EQ(ask("click frmMain.chkSelfEmployed"), "ok");
  EXPECT_EQ(ask("get frmMain.chkSelfEmployed value"), "= true");
  EXPECT_EQ(ask("click frmMain.optStatus(1)"), "ok");
  EXPECT_EQ(ask("get frmMain.optStatus(0) value"), "= false");
  EXPECT_EQ(ask("get frmMain.txtIncome focused"), "= false");
  EXPECT_EQ(ask("focus frmMain.txtIncome"), "ok");
  EXPECT_EQ(ask("get frmMain.txtIncome sellength"), "= 5");
  EXPECT_EQ(ask("click MDIOpen.SSListBar1(StateInfo)"), "ok");
  EXPECT_EQ(ask("type frmState.cboDeps(0) \"7\""), "ok");
  EXPECT_EQ(ask("get frmState.cboDeps(0) index"), "= 7");
  EXPECT_EQ(ask("get frmState.cboDeps(0) editable"), "= true");
}

TEST_F(SessionTest, MovesThePointerWithoutMovingTheScreens) {
  start();
  EXPECT_EQ(ask("enter MDIOpen.SSListBar1(Calc)"), "ok");
  EXPECT_EQ(ask("get MDIOpen.SSListBar1(Calc) highlighted"), "= true");
  EXPECT_EQ(ask("leave MDIOpen.SSListBar1(Calc)"), "ok");
  EXPECT_EQ(ask("get MDIOpen.SSListBar1(Calc) highlighted"), "= false");
  ask("click MDIOpen.SSListBar1(Pers)");
  ask("click MDIOpen.SSListBar1(W4)");
  EXPECT_EQ(ask("enter frmPersWkSht.lblPersWrkChildCare"), "ok");  // doesn't imply a move
  EXPECT_EQ(ask("get frmPersWkSht.lblPersWrkChildCare forecolor"), "= \"64,64,64\"");
  EXPECT_EQ(ask("move frmPersWkSht.lblPersWrkChildCare"), "ok");
  EXPECT_EQ(ask("get frmPersWkSht.lblPersWrkChildCare forecolor"), "= \"128,128,255\"");
  EXPECT_EQ(ask("get frmW4 front"), "= true");
}

TEST_F(SessionTest, RefusesTheLeavingPointerOnlyWhereThereIsNothingToLeave) {
  EXPECT_EQ(ask("leave MDIOpen.SSListBar1(Analysis)"), "! not-running");
  start();
  ask("enter MDIOpen.SSListBar1(Analysis)");
  ask("click MDIOpen.SSListBar1(Analysis)");
  EXPECT_EQ(ask("enter MDIOpen.SSListBar1(Calc)").substr(0, 9), "! blocked");
  EXPECT_EQ(ask("leave MDIOpen.SSListBar1(Analysis)"), "ok");
  EXPECT_EQ(ask("get MDIOpen.SSListBar1(Analysis) highlighted"), "= false");
  EXPECT_EQ(ask("leave frmState.optRateSelect(0)"), "! not-loaded");
  EXPECT_EQ(ask("leave frmState").substr(0, 9), "! unknown");
  EXPECT_EQ(ask("leave frmState.optRateSelect(5)").substr(0, 9), "! unknown");
}

TEST_F(SessionTest, ListsScreensFromFrontToBack) {
  start();
  EXPECT_EQ(ask("screens"), "= {\"shown\":[\"frmMain\"],\"hidden\":[\"frmMisc\"]}");
  ask("click MDIOpen.SSListBar1(W4)");
  ask("click MDIOpen.SSListBar1(About)");
  ask("click MDIOpen.SSListBar1(Analysis)");
  EXPECT_EQ(ask("screens"), "= {\"shown\":[\"MsgBox\",\"frmAbt\",\"frmW4\",\"frmMain\"],\"hidden\":[\"frmMisc\"]}");
}

TEST_F(SessionTest, ListsTheControlsOfALoadedScreenInItsOwnOrder) {
  start();
  EXPECT_EQ(why("controls frmPrint"), "not-loaded");
  EXPECT_THAT(ask("controls frmMain"),
              AllOf(StartsWith("= [\"frmMain."), HasSubstr("\"frmMain.cmdToolBar(0)\",\"frmMain.cmdToolBar(1)\"")));
  EXPECT_THAT(ask("controls frmMain"), Not(HasSubstr(", ")));
}

TEST_F(SessionTest, ReturnsTheRecordInDeclarationOrder) {
  start();
  ask("poke rate401k .06");
  ask("poke checkAmt ($1,234.50)");
  EXPECT_EQ(ask("pay"),
            "= {\"depsDed\":0,\"totalDed\":0,\"rate401k\":0.06,\"preFica\":0,\"preTax\":0,\"amt401k\":0,"
            "\"state401k\":0,\"taxableWage\":0,\"fedBase\":0,\"incomeSource\":0,\"maritalStat\":0,\"payPeriods\":0,"
            "\"grossPay\":0,\"fedTax\":0,\"stateTax\":0,\"fica\":0,\"socSec\":0,\"medicare\":0,\"frequency\":-1,"
            "\"multiCheckTotal\":0,\"w4Allowances\":0,\"w4TableMode\":0,\"w4TableValue\":0,\"w4TwoEarnerAmt\":0,"
            "\"localRate\":0,\"localTax\":0,\"applyTo\":1,\"staExmp\":0,\"staDeps\":0,\"staMarried\":0,\"staAdd\":0,"
            "\"mMethod\":0,\"stateDepsDed\":0,\"statePreTax\":0,\"checkAmt\":-1234.5,\"illDeps\":0,\"dontShow\":1}");
  EXPECT_EQ(ask("pay rate401k"), "= 0.06");
}

TEST_F(SessionTest, ReadsAndSetsTheWorkingFieldsOfALoadedMainScreen) {
  start();
  EXPECT_EQ(ask("pay stateWage"), "= 0");
  EXPECT_EQ(ask("poke stateWage 12.34565"), "ok");
  EXPECT_EQ(ask("pay stateWage"), "= 12.3456");
  EXPECT_EQ(ask("poke exemptions 15"), "ok");
  EXPECT_EQ(ask("pay exemptions"), "= 15");
  EXPECT_EQ(ask("poke staRate 4"), "ok");
  EXPECT_EQ(ask("poke stateStdDed -1"), "ok");
  EXPECT_EQ(ask("pay stateStdDed"), "= -1");
  EXPECT_EQ(why("poke staRate 40000"), "syntax");
  ask("click frmMain.cmdToolBar(3)");
  EXPECT_EQ(why("pay stateWage"), "not-loaded");
  EXPECT_EQ(why("poke stateWage 1"), "not-loaded");
  EXPECT_EQ(ask("pay grossPay"), "= 0");
}

TEST_F(SessionTest, ReachesTheStoreWithoutARun) {
  EXPECT_EQ(ask("store"), "= {}");
  EXPECT_EQ(ask("store get User UName"), "= null");
  EXPECT_EQ(ask("store put User UName \"Zo\\u00EB \\\"Z\\\"\\n\""), "ok");
  EXPECT_EQ(ask("store put \"Settings\" \"Hours\" \"\""), "ok");
  EXPECT_EQ(ask("store put Settings 401k \"6\""), "ok");
  EXPECT_EQ(ask("store get User UName"), "= \"Zo\u00EB \\\"Z\\\"\\n\"");
  EXPECT_EQ(ask("store"),
            "= {\"Settings\":{\"401k\":\"6\",\"Hours\":\"\"},\"User\":{\"UName\":\"Zo\u00EB \\\"Z\\\"\\n\"}}");
  EXPECT_EQ(ask("store erase User UName"), "ok");
  EXPECT_EQ(ask("store erase User UName"), "ok");
  EXPECT_EQ(ask("store"), "= {\"Settings\":{\"401k\":\"6\",\"Hours\":\"\"}}");
}

TEST_F(SessionTest, StopsTheClock) {
  EXPECT_EQ(ask("clock \"2000-02-29T00:00:05\""), "ok");
  start();
  ask("click MDIOpen.SSListBar1(W4)");
  EXPECT_EQ(ask("get frmW4.lblDate caption"), "= \"2/29/2000 12:00:05 AM\"");
  ask("clock \"1999-05-17T14:30:00\"");
  EXPECT_EQ(ask("get frmW4.lblDate caption"), "= \"2/29/2000 12:00:05 AM\"");
  ask("click MDIOpen.SSListBar1(TwoWork)");
  ask("click frm2Workers.cmdW4Back(2)");
  EXPECT_EQ(ask("get frmCalendar.mthTwoWorkers date"), "= \"1999-05-17\"");
}

TEST_F(SessionTest, CountsThePagesOfARun) {
  start();
  ask("click MDIOpen.SSListBar1(W4)");
  EXPECT_EQ(ask("printed"), "= 0");
  ask("dblclick frmW4");
  ask("dblclick frmW4");
  ask("click frmW4");
  EXPECT_EQ(ask("printed"), "= 2");
  ask("kill");
  start();
  EXPECT_EQ(ask("printed"), "= 0");
}

TEST_F(SessionTest, ClosesWindowsByTheirFrames) {
  start();
  EXPECT_EQ(ask("close frmMain"), "ok");
  EXPECT_EQ(why("close frmMain"), "not-loaded");
  EXPECT_EQ(why("close frmMisc"), "not-shown");
  EXPECT_EQ(ask("close MDIOpen"), "ok");
  EXPECT_EQ(ask("running"), "= false");
}

TEST_F(SessionTest, SpringsTheFrameBack) {
  start();
  EXPECT_EQ(ask("resize MDIOpen \"maximized\""), "ok");
  EXPECT_EQ(ask("get MDIOpen maximized"), "= false");
  EXPECT_EQ(ask("get MDIOpen title"), "= \"Tallyfin 99\"");
  EXPECT_EQ(ask("get MDIOpen front"), "= true");
}

TEST_F(SessionTest, ReturnsThePropertiesOfEveryKind) {
  start();
  ask("pick frmMain.lstFrequency 0");
  ask("type frmMain.txtIncome \"1000\"");
  ask("click frmMain.cmdToolBar(0)");
  EXPECT_EQ(ask("get frmMain.cmdToolBar(4) caption"), "= \"Sponsor Info\"");
  EXPECT_EQ(ask("get frmMain.cmdToolBar(4) tooltip"), "= \"Exit\"");
  EXPECT_EQ(ask("get frmMain.lbl4 caption"), "= \"76.5\"");
  EXPECT_EQ(ask("get frmMain.cboState text"), "= \"No State\"");
  EXPECT_EQ(ask("get frmMain.cboState editable"), "= false");
  EXPECT_THAT(ask("get frmMain.dbgDisplay rows"), StartsWith("= [\"!Gross Pay!,1000\",\"!401k Deduction!,0\","));
  EXPECT_THAT(ask("get frmMain.dbgDisplay cells"), StartsWith("= [[\"Gross Pay\",\"$1,000.00\"],["));
  EXPECT_EQ(ask("get frmMisc.pnlContainerMisc(0) left"), "= 745");
  EXPECT_EQ(ask("get frmMisc.pnlContainerMisc(1) left"), "= -10000");
  EXPECT_EQ(ask("get frmMisc.pnlContainerMisc(1) top"), "= 135");
  EXPECT_EQ(ask("get frmMisc.txtTaxPerCnt backcolor"), "= \"252,252,240\"");
  EXPECT_EQ(ask("get frmMain.txtIncome backcolor"), "= \"default\"");
  EXPECT_EQ(ask("get frmMain.txtIncome enabled"), "= true");
  EXPECT_EQ(ask("get frmMain.cmdAdditional(1) visible"), "= true");
  EXPECT_EQ(ask("get frmMain maximized"), "= true");
  EXPECT_EQ(ask("get frmMain backcolor"), "= \"default\"");
  EXPECT_EQ(ask("get frmMisc shown"), "= false");
  EXPECT_EQ(ask("get frmMisc front"), "= false");
  ask("click frmMain.cmdToolBar(1)");
  EXPECT_THAT(ask("get frmPrint.vsPrinter1 cells"),
              StartsWith("= [[\"Category\",\"Amount\"],[\"  Gross Pay\",\"$1,000.00\"]"));
  EXPECT_THAT(ask("get frmPrint.vsPrinter1 table"), StartsWith("= \"<3000|>1500;Category|Amount;"));
  EXPECT_EQ(ask("get frmPrint.vsPrinter1 columns"),
            "= [{\"align\":\"left\",\"width\":3000},{\"align\":\"right\",\"width\":1500}]");
  EXPECT_THAT(ask("get frmPrint.vsPrinter1 kinds"), StartsWith("= [\"heading\",\"line\","));
  EXPECT_EQ(ask("get frmPrint.vsPrinter1 zoom"), "= 100");
  EXPECT_EQ(ask("get frmPrint.udZoom value"), "= 100");
  ask("click MDIOpen.SSListBar1(About)");
  EXPECT_EQ(ask("get frmAbt title"), "= \"About Tallyfin 99\"");
}

TEST(Words, AreDividedByBlanksOutsideJsonStrings) {
  const auto words = wordsOf(" type\tfrmMain.txtIncome  \"a \\\"b\\\" \\u00e9\" \r");
  ASSERT_TRUE(words);
  ASSERT_EQ(words->size(), 3U);
  EXPECT_EQ((*words)[1].text, "frmMain.txtIncome");
  EXPECT_FALSE((*words)[1].quoted);
  EXPECT_EQ((*words)[2].text, "a \"b\" \u00E9");
  EXPECT_TRUE((*words)[2].quoted);
}

}  // namespace
}  // namespace tallyfin::script
