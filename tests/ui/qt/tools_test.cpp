#include <QCursor>

#include "desktoptest.h"

/// Local tax, raise, several checks and the analysis, by mouse and keyboard.

namespace tallyfin::qt {

namespace {

class Tools : public DesktopTest {
 protected:
  /// $1,000 a week, Single, nothing else: federal tax (1000 - 525) * 0.28 + 71.1 = 204.1.
  void startWithAPaycheck() {
    stored(section::settings, "IncAmt", "1000");
    stored(section::settings, "Hours", "40");
    stored(section::settings, "Frequency", "0");
    stored(section::settings, "MaritalStat", "1");
    startOnMain();
    click("frmMain", "cmdToolBar(0)");
  }
};

TEST_F(Tools, LocalTaxShowsOnePageAndTakesTheRate) {
  startWithAPaycheck();
  click("frmMain", "cmdAdditional(0)");
  EXPECT_EQ(focused(), "txtTaxPerCnt");
  EXPECT_TRUE(inSight("frmMisc", "txtTaxPerCnt"));
  EXPECT_FALSE(inSight("frmMisc", "txtRaise(0)"));
  type("frmMisc", "txtTaxPerCnt", "2");
  choose("frmMisc", "lstGrossPay", "Gross pay only");
  click("frmMisc", "cmdExit(0)");
  EXPECT_FALSE(shown("frmMisc"));
  click("frmMain", "cmdToolBar(0)");
  EXPECT_EQ(results().at(6), "Local Tax $20.00");
}

TEST_F(Tools, ARaiseByPercentage) {
  startWithAPaycheck();
  click("frmMain", "cmdAdditional(1)");
  EXPECT_EQ(focused(), "txtRaise(0)");
  EXPECT_TRUE(inSight("frmMisc", "txtRaise(0)"));
  EXPECT_FALSE(inSight("frmMisc", "txtTaxPerCnt"));
  EXPECT_EQ(text("frmMisc", "lblOldShow"), "$25.00");
  QTest::keyClicks(QApplication::focusWidget(), "3");
  click("frmMisc", "cmdExit(1)");
  EXPECT_EQ(text("frmMisc", "txtRaise(0)"), "0.03");
  EXPECT_EQ(text("frmMisc", "txtRaise(1)"), "$25.75");
  EXPECT_EQ(find<QLineEdit>("frmMain", "txtIncome").text(), "$1,030.00");
  // (1030 - 525) * 0.28 + 71.1 = 212.5; the grid stays until the next Calculate.
  EXPECT_EQ(text("frmMain", "lbl1"), "212.5");
  EXPECT_EQ(results().at(4), "Federal Tax $204.10");
  click("frmMisc", "cmdExit(2)");
  EXPECT_FALSE(shown("frmMisc"));
}

TEST_F(Tools, ThePageOutOfViewTakesKeysAndHasNoMnemonics) {
  startWithAPaycheck();
  click("frmMain", "cmdAdditional(1)");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::AltModifier);  // the mnemonic of the local tax
  EXPECT_EQ(focused(), "txtRaise(0)");
  auto& rate = find<QLineEdit>("frmMisc", "txtTaxPerCnt");
  rate.setFocus();
  settle();
  EXPECT_EQ(focused(), "txtTaxPerCnt");
  EXPECT_THAT(rate.accessibleDescription().toStdString(), testing::HasSubstr("(Local tax, out of view)"));
  rate.selectAll();
  QTest::keyClicks(&rate, "3");
  EXPECT_EQ(text("frmMisc", "txtTaxPerCnt"), "3");
}

TEST_F(Tools, BothPagesAreOfOneSize) {
  startWithAPaycheck();
  click("frmMain", "cmdAdditional(0)");
  const QSize size = view("frmMisc").size();
  click("frmMisc", "imgSeal");
  click("frmMain", "cmdAdditional(1)");
  EXPECT_EQ(view("frmMisc").size(), size);
}

TEST_F(Tools, TheSealClosesThePageByMouseAndByKey) {
  startWithAPaycheck();
  click("frmMain", "cmdAdditional(1)");
  click("frmMisc", "imgSeal");
  EXPECT_FALSE(shown("frmMisc"));
  click("frmMain", "cmdAdditional(0)");
  find("frmMisc", "imgSeal").setFocus();
  press(Qt::Key_Return);
  EXPECT_FALSE(shown("frmMisc"));
}

TEST_F(Tools, SeveralChecksBecomeAMonthlyIncome) {
  startWithAPaycheck();
  clickItem("Multi");
  type("frmMultiCheck", "txtCheck1", "100");
  click("frmMultiCheck", "optSelectWeek(0)");
  EXPECT_EQ(text("frmMultiCheck", "lblCheck1"), "$433.33");
  type("frmMultiCheck", "txtCheck2", "1000");
  click("frmMultiCheck", "optSelectMonthly(1)");
  click("frmMultiCheck", "cmdCalc");
  EXPECT_EQ(text("frmMultiCheck", "lblMultiTotal"), "$1,433.33");
  EXPECT_TRUE(find<QRadioButton>("frmMultiCheck", "optSelectWeek(0)").isChecked());
  click("frmMultiCheck", "cmdGoBack");
  EXPECT_EQ(front(), "Calculations");
  press(Qt::Key_Tab);
  EXPECT_EQ(text("frmMain", "txtIncome"), "$1,433.33");
  EXPECT_EQ(text("frmMain", "txtHours"), "173.33");
}

TEST_F(Tools, ThePeriodsOfACheckExcludeOneAnother) {
  startWithAPaycheck();
  clickItem("Multi");
  click("frmMultiCheck", "optSelectWeek(2)");
  click("frmMultiCheck", "optSelectTAW(3)");
  click("frmMultiCheck", "optSelectETW(2)");
  EXPECT_FALSE(find<QRadioButton>("frmMultiCheck", "optSelectWeek(2)").isChecked());
  EXPECT_TRUE(find<QRadioButton>("frmMultiCheck", "optSelectETW(2)").isChecked());
  EXPECT_TRUE(find<QRadioButton>("frmMultiCheck", "optSelectTAW(3)").isChecked());
}

TEST_F(Tools, APageThatLeavesUnderThePointerTakesTheHighlightBack) {
  startWithAPaycheck();
  clickItem("Ded");
  QWidget& option = find("frmDednAdj", "optDedCategory(0)");
  const auto colour = [&] { return option.palette().color(QPalette::Active, QPalette::WindowText); };
  QCursor::setPos(option.mapToGlobal(option.rect().center()));
  settle();
  EXPECT_EQ(colour(), QColor(128, 128, 255));
  QTest::keyClick(&frame(), Qt::Key_PageDown, Qt::ControlModifier);
  settle();
  EXPECT_FALSE(inSight("frmDednAdj", "optDedCategory(0)"));
  EXPECT_EQ(colour(), QColor(64, 64, 64));
}

TEST_F(Tools, TheHeadingLightsUpWithTheFocus) {
  startWithAPaycheck();
  clickItem("Multi");
  const auto colour = [this] {
    return find("frmMultiCheck", "lblMultiETW").palette().color(QPalette::Active, QPalette::WindowText);
  };
  find("frmMultiCheck", "optSelectETW(1)").setFocus();
  settle();
  EXPECT_EQ(colour(), QColor(128, 128, 255));
  click("frmMultiCheck", "txtCheck1");
  EXPECT_EQ(colour(), QColor(64, 64, 64));
}

TEST_F(Tools, TheAnalysisOfThePaycheck) {
  startWithAPaycheck();
  clickItem("Analysis");
  EXPECT_EQ(front(), "Analysis");
  EXPECT_EQ(text("frmAnalysis", "lblOne(0)"), "$25.00");
  EXPECT_EQ(text("frmAnalysis", "lblOne(6)"), "20.41%");
  EXPECT_EQ(text("frmAnalysis", "lblOne(8)"), "$52,000.00");
}

}  // namespace

}  // namespace tallyfin::qt
