#include <QAbstractItemView>

#include "controls/desk.h"
#include "desktoptest.h"
#include "engine/paydata.h"
#include "ui/frmMain.h"

/// The main screen, by mouse and keyboard.

namespace tallyfin::qt {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MainScreen : public DesktopTest {
 protected:
  void enterSample() {
    choose("frmMain", "lstFrequency", "Weekly");
    choose("frmMain", "cboExemptions", "1");
    click("frmMain", "optStatus(1)");
    choose("frmMain", "cboState", "Pennsylvania");
    type("frmMain", "txtIncome", "1000");
    type("frmMain", "txt401k", "6");
  }
  void calculate() { click("frmMain", "cmdToolBar(0)"); }
};

TEST_F(MainScreen, ThePaycheckOfAWeekInPennsylvania) {
  startOnMain();
  enterSample();
  calculate();
  // The deduction for the exemption counts once it is saved and the screen is loaded again.
  clickItem("Calc");
  calculate();
  EXPECT_THAT(results(),
              ElementsAre("Gross Pay $1,000.00", "401k Deduction $60.00", "Non-Taxable $0.00", "Pre-FICA $0.00",
                          "Federal Tax $172.49", "State Tax $28.00", "Local Tax $0.00", "FICA $76.50",
                          "Social Security $62.00", "Medicare $14.50", "Total Ded $336.99", "Check Amt $663.01"));
  EXPECT_EQ(text("frmMain", "lbl1"), "172.49");
  EXPECT_EQ(text("frmMain", "lbl4"), "76.5");
}

TEST_F(MainScreen, ClearEmptiesTheGridAndKeepsTheEntries) {
  startOnMain();
  enterSample();
  calculate();
  ASSERT_EQ(results().size(), 12U);
  click("frmMain", "cmdToolBar(2)");
  EXPECT_THAT(results(), IsEmpty());
  EXPECT_EQ(text("frmMain", "txtIncome"), "$1,000.00");
}

TEST_F(MainScreen, TheEntriesSurviveARestart) {
  startOnMain();
  enterSample();
  calculate();
  restart();
  press(Qt::Key_Tab);
  EXPECT_EQ(text("frmMain", "txtIncome"), "$1,000.00");
  EXPECT_EQ(text("frmMain", "txt401k"), "0.06");
  EXPECT_EQ(text("frmMain", "txtHours"), "40");
  EXPECT_EQ(text("frmMain", "cboExemptions"), "1");
  EXPECT_EQ(text("frmMain", "cboState"), "Pennsylvania");
  EXPECT_TRUE(find<QRadioButton>("frmMain", "optStatus(1)").isChecked());
  EXPECT_EQ(find<QListWidget>("frmMain", "lstFrequency").currentItem()->text(), "Weekly");
  EXPECT_THAT(results(), IsEmpty());
}

TEST_F(MainScreen, AnAmountIsPlainWhileItIsEditedAndCurrencyWhileItIsNot) {
  startOnMain();
  type("frmMain", "txtIncome", "1234.5");
  EXPECT_EQ(text("frmMain", "txtIncome"), "1234.5");
  click("frmMain", "txtHours");
  EXPECT_EQ(text("frmMain", "txtIncome"), "$1,234.50");
  click("frmMain", "txtIncome");
  EXPECT_EQ(text("frmMain", "txtIncome"), "1234.5");
}

TEST_F(MainScreen, GainingTheFocusSelectsTheWholeText) {
  stored(section::settings, "IncAmt", "1234.5");
  startOnMain();
  for (const char* box : {"txtHours", "txt401k", "txtPreTax", "txtPreFICA", "txtIncome"}) {
    click("frmMain", box);
    const auto& edit = find<QLineEdit>("frmMain", box);
    EXPECT_EQ(edit.selectedText(), edit.text()) << box;
  }
}

TEST_F(MainScreen, AmountsThatAreNoNumbersAreShownAsTyped) {
  startOnMain();
  type("frmMain", "txtIncome", "lots");
  click("frmMain", "txtHours");
  EXPECT_EQ(text("frmMain", "txtIncome"), "lots");
  choose("frmMain", "lstFrequency", "Weekly");
  calculate();
  EXPECT_EQ(results().front(), "Gross Pay $0.00");
}

TEST_F(MainScreen, TabGoesThroughTheScreenInReadingOrder) {
  stored(section::settings, "Frequency", "0");
  startOnMain();
  std::vector<std::string> order{focused()};
  for (int i = 1; i < 18; ++i) {
    press(Qt::Key_Tab);
    order.push_back(focused());
  }
  EXPECT_THAT(order, ElementsAre("txtIncome", "txtHours", "txt401k", "txtPreTax", "txtPreFICA", "lstFrequency",
                                 "optStatus(0)", "cboExemptions", "cboState", "chkSelfEmployed", "cmdAdditional(0)",
                                 "cmdToolBar(2)", "cmdToolBar(0)", "cmdToolBar(1)", "cmdToolBar(3)", "cmdToolBar(4)",
                                 "dbgDisplay", "group File"));
}

TEST_F(MainScreen, AKeyboardIsEnough) {
  startOnMain();
  QTest::keyClicks(QApplication::focusWidget(), "1000");
  for (int i = 0; i < 5; ++i) press(Qt::Key_Tab);
  ASSERT_EQ(focused(), "lstFrequency");
  press(Qt::Key_Down);
  EXPECT_EQ(text("frmMain", "txtHours"), "40");
  press(Qt::Key_Tab);
  ASSERT_EQ(focused(), "optStatus(0)");
  press(Qt::Key_Down);
  EXPECT_TRUE(find<QRadioButton>("frmMain", "optStatus(1)").isChecked());
  find("frmMain", "cmdToolBar(0)").setFocus();
  press(Qt::Key_Space);
  EXPECT_EQ(results().size(), 12U);
  find("frmMain", "cmdToolBar(2)").setFocus();
  press(Qt::Key_Return);
  EXPECT_THAT(results(), IsEmpty());
  find("frmMain", "cmdToolBar(0)").setFocus();
  press(Qt::Key_Return);
  // Single, weekly, no exemption: (1000 - 525) * 0.28 + 71.1 = 204.1
  EXPECT_EQ(results().at(4), "Federal Tax $204.10");
}

TEST_F(MainScreen, WhateverTakesTheFocusAControlLosesIt) {
  startOnMain();
  auto& income = find<QLineEdit>("frmMain", "txtIncome");
  click("frmMain", "txtIncome");
  settle();
  auto& header = *frame().findChild<QAbstractButton*>("group File");
  click(header);
  settle();
  EXPECT_EQ(desk.focused(), nullptr);
  click("frmMain", "txtIncome");
  settle();
  EXPECT_EQ(income.selectedText(), income.text());

  QWidget& option = find("frmMain", "optStatus(2)");
  option.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(desk.find<frmMain>()->optStatus[2].foreColour(), (Colour{192, 192, 255}));
  header.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(desk.find<frmMain>()->optStatus[2].foreColour(), (Colour{255, 255, 128}));
}

TEST_F(MainScreen, ABoxThatIsGivenBackTheFocusIsLeftAsItWas) {
  startOnMain();
  auto& income = find<QLineEdit>("frmMain", "txtIncome");
  type("frmMain", "txtIncome", "1000");
  income.setCursorPosition(2);
  income.clearFocus();
  income.setFocus(Qt::ActiveWindowFocusReason);
  settle();
  EXPECT_FALSE(income.hasSelectedText());
  EXPECT_EQ(income.cursorPosition(), 2);
}

TEST_F(MainScreen, TheFocusAloneChoosesNothingInAList) {
  startOnMain();
  find("frmMain", "lstFrequency").setFocus(Qt::TabFocusReason);
  settle();
  EXPECT_EQ(payData.frequency, -1);
  EXPECT_EQ(find<QListWidget>("frmMain", "lstFrequency").currentRow(), -1);
}

TEST_F(MainScreen, AltAndALetterGoToABox) {
  startOnMain();
  QTest::keyClick(&frame(), Qt::Key_F, Qt::AltModifier);
  settle();
  EXPECT_EQ(focused(), "txtPreFICA");
  QTest::keyClick(&frame(), Qt::Key_S, Qt::AltModifier);
  settle();
  EXPECT_EQ(focused(), "cboState");
}

TEST_F(MainScreen, TheRaiseButtonComesWithTheFirstCalculateAndMovesNothing) {
  startOnMain();
  choose("frmMain", "lstFrequency", "Weekly");
  const QRect before = find("frmMain", "cmdAdditional(0)").geometry();
  EXPECT_FALSE(find("frmMain", "cmdAdditional(1)").isVisible());
  calculate();
  EXPECT_TRUE(find("frmMain", "cmdAdditional(1)").isVisible());
  EXPECT_EQ(find("frmMain", "cmdAdditional(0)").geometry(), before);
}

TEST_F(MainScreen, EveryFigureOfTheStripIsBesideItsName) {
  startOnMain();
  const std::vector<std::pair<const char*, std::string>> names{
      {"lbl1", "Federal"},  {"lbl2", "State"},     {"lbl3", "401(k)"},   {"lbl4", "FICA"},
      {"lbl5", "Pre-FICA"}, {"lbl6", "Soc. Sec."}, {"lbl7", "Medicare"}, {"lbl8", "Local"}};
  for (const auto& [figure, name] : names) {
    const QRect place = find("frmMain", figure).geometry();
    const QLabel* nearest = nullptr;
    for (const auto* label : view("frmMain").findChildren<QLabel*>()) {
      const QRect other = label->geometry();
      const bool before = other.right() < place.left() && other.center().y() == place.center().y();
      if (before && (nearest == nullptr || other.right() > nearest->geometry().right())) nearest = label;
    }
    ASSERT_NE(nearest, nullptr) << figure;
    EXPECT_EQ(nearest->text().toStdString(), name) << figure;
    EXPECT_EQ(find("frmMain", figure).accessibleName().toStdString(), name) << figure;
  }
}

TEST_F(MainScreen, SponsorInfoShowsEightRows) {
  startOnMain();
  click("frmMain", "cmdToolBar(4)");
  EXPECT_EQ(results().size(), 8U);
  EXPECT_EQ(results().at(5), "Main Office ");
}

TEST_F(MainScreen, OptionsAreLightYellowAndLightBlueWithTheFocus) {
  startOnMain();
  const auto colour = [this](const char* name) {
    return find(("frmMain"), name).palette().color(QPalette::Active, QPalette::WindowText);
  };
  EXPECT_EQ(colour("optStatus(2)"), QColor(255, 255, 128));
  find("frmMain", "optStatus(2)").setFocus();
  settle();
  EXPECT_EQ(colour("optStatus(2)"), QColor(192, 192, 255));
  click("frmMain", "txtIncome");
  EXPECT_EQ(colour("optStatus(2)"), QColor(255, 255, 128));
}

TEST_F(MainScreen, ADoubleClickOnALabelIsOneClickAndOneDoubleClick) {
  startOnMain();
  int clicks = 0;
  int doubleClicks = 0;
  Label& label = desk.find<frmMain>()->lblIncome;
  label.onClick = [&] { ++clicks; };
  label.onDblClick = [&] { ++doubleClicks; };
  QTest::mouseClick(&find("frmMain", "lblIncome"), Qt::LeftButton);
  QTest::mouseDClick(&find("frmMain", "lblIncome"), Qt::LeftButton);  // the second press and its release
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(doubleClicks, 1);
}

TEST_F(MainScreen, AWheelChoosesNothingInAClosedBox) {
  stored(section::settings, "Deps", "3");
  startOnMain();
  auto& box = find<QComboBox>("frmMain", "cboExemptions");
  const QPointF middle = box.rect().center();
  const auto turn = [&] {
    QWheelEvent wheel(middle, box.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&box, &wheel);
    settle();
    return text("frmMain", "cboExemptions");
  };
  EXPECT_EQ(turn(), "3");
  box.setFocus();
  EXPECT_EQ(turn(), "3");
}

TEST_F(MainScreen, TheArrowKeysPassOverStatesWithoutOpeningTheirOptions) {
  startOnMain();
  auto& box = find<QComboBox>("frmMain", "cboState");
  box.setFocus();
  press(Qt::Key_Down);
  ASSERT_TRUE(box.view()->isVisible());
  for (int i = 0; i < 5; ++i) QTest::keyClick(box.view(), Qt::Key_Down);
  EXPECT_EQ(front(), "Calculations");
  QTest::keyClick(box.view(), Qt::Key_Return);
  settle();
  EXPECT_EQ(text("frmMain", "cboState"), "Colorado");
  EXPECT_EQ(front(), "Calculations");
}

TEST_F(MainScreen, TheLongestStateNamesAreNotCutOff) {
  startOnMain();
  const auto& box = find<QComboBox>("frmMain", "cboState");
  QStyleOptionComboBox option;
  option.initFrom(&box);
  const int room =
      box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box).width();
  for (const char* name : {"Dist of Columbia", "Massachusettes"}) {
    ASSERT_GE(box.findText(name), 0);
    EXPECT_LE(box.fontMetrics().horizontalAdvance(name), room) << name;
  }
}

TEST_F(MainScreen, TheGridShowsItsTwelveRowsWithoutScrolling) {
  startOnMain();
  choose("frmMain", "lstFrequency", "Weekly");
  calculate();
  const auto& table = find<QTableWidget>("frmMain", "dbgDisplay");
  EXPECT_TRUE(table.viewport()->rect().contains(table.visualItemRect(table.item(11, 1))));
}

}  // namespace

}  // namespace tallyfin::qt
