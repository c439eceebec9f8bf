#include "ui/qt/explanation.h"

#include <QAction>
#include <QClipboard>
#include <QPrinter>
#include <QTextBrowser>

#include "desktoptest.h"

/// The window that tells how a figure was worked out, opened from the results by hand.

namespace tallyfin::qt {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class ExplanationOfTheResults : public DesktopTest {
 protected:
  ExplanationOfTheResults() {
    startOnMain();
    choose("frmMain", "lstFrequency", "Weekly");
    click("frmMain", "optStatus(1)");
    choose("frmMain", "cboState", "Pennsylvania");
    type("frmMain", "txtIncome", "1000");
    calculate();
  }

  void calculate() const {
    frame().activateWindow();
    click("frmMain", "cmdToolBar(0)");
    settle();
  }
  QTableWidget& grid() const { return find<QTableWidget>("frmMain", "dbgDisplay"); }
  ExplanationWindow* window() const {
    return static_cast<ExplanationWindow*>(frame().findChild<QDialog*>("explanation"));
  }
  void doubleClick(int row) const {
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualItemRect(grid().item(row, 0)).center());
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, grid().visualItemRect(grid().item(row, 0)).center());
    settle();
  }
  std::string told() const { return window()->chosenText().toStdString(); }
};

TEST_F(ExplanationOfTheResults, OpensByADoubleClickOnARow) {
  EXPECT_EQ(window(), nullptr);
  doubleClick(5);
  ASSERT_NE(window(), nullptr);
  EXPECT_TRUE(window()->isVisible());
  EXPECT_THAT(told(), StartsWith("State Tax\nPennsylvania."));
  EXPECT_THAT(told(), HasSubstr("Pennsylvania tax, 2.8% of the wage: of $1,000.00 it is $28.00."));
  EXPECT_EQ(front(), "Calculations");
}

TEST_F(ExplanationOfTheResults, OpensByEnter) {
  grid().setFocus();
  grid().setCurrentCell(7, 0);
  QTest::keyClick(&grid(), Qt::Key_Return);
  ASSERT_NE(window(), nullptr);
  EXPECT_THAT(told(), StartsWith("FICA\n"));
}

TEST_F(ExplanationOfTheResults, OpensByTheContextMenu) {
  grid().setCurrentCell(0, 0);
  ASSERT_EQ(grid().contextMenuPolicy(), Qt::ActionsContextMenu);
  ASSERT_EQ(grid().actions().size(), 3);
  EXPECT_EQ(grid().actions()[0]->text(), "&How this was worked out");
  grid().actions()[0]->trigger();
  ASSERT_NE(window(), nullptr);
  EXPECT_THAT(told(), StartsWith("Gross Pay\n"));
}

TEST_F(ExplanationOfTheResults, FollowsTheNextCalculateWithItsRowChosen) {
  doubleClick(5);
  frame().activateWindow();
  type("frmMain", "txtIncome", "2000");
  calculate();
  EXPECT_THAT(told(), HasSubstr("of $2,000.00 it is $56.00."));
  EXPECT_EQ(window()->findChild<QTableWidget*>("figures")->item(0, 1)->text(), "$2,000.00");
  EXPECT_THAT(window()->findChild<QLabel*>("shares")->text().toStdString(),
              StartsWith("Of the gross pay of $2,000.00: "));
}

TEST_F(ExplanationOfTheResults, TheKeyboardChoosesAnotherFigure) {
  doubleClick(5);
  auto& figures = *window()->findChild<QTableWidget*>("figures");
  EXPECT_EQ(figures.rowCount(), 12);
  EXPECT_EQ(figures.currentRow(), 5);
  QTest::keyClick(&figures, Qt::Key_Up);
  EXPECT_THAT(told(), StartsWith("Federal Tax\n"));
}

TEST_F(ExplanationOfTheResults, NothingOpensForTheSponsorsRows) {
  click("frmMain", "cmdToolBar(4)");
  doubleClick(0);
  EXPECT_EQ(window(), nullptr);
}

TEST_F(ExplanationOfTheResults, HidesTheBarWhereThereIsNothingToShareOut) {
  doubleClick(0);
  EXPECT_TRUE(window()->findChild<QWidget*>("bar")->isVisible());
  frame().activateWindow();
  type("frmMain", "txtIncome", "0");
  calculate();
  EXPECT_FALSE(window()->findChild<QWidget*>("bar")->isVisible());
}

TEST_F(ExplanationOfTheResults, CopiesTheRowsAndTheExplanation) {
  grid().setFocus();
  QTest::keySequence(&grid(), QKeySequence::Copy);
  EXPECT_THAT(QApplication::clipboard()->text().toStdString(), StartsWith("Gross Pay\t$1,000.00\n401k Deduction\t"));
  doubleClick(9);
  for (QPushButton* button : window()->findChildren<QPushButton*>()) {
    if (button->text() == "&Copy") click(*button);
  }
  EXPECT_THAT(QApplication::clipboard()->text().toStdString(), StartsWith("Medicare\n"));
}

}  // namespace

}  // namespace tallyfin::qt
