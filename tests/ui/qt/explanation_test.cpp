#include "ui/qt/explanation/explanation.h"

#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include <QPdfWriter>
#include <QPrinter>
#include <QProcess>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTreeWidget>
#include <QWindow>
#include <ctime>

#include "controls/desk.h"
#include "desktoptest.h"
#include "engine/settings.h"
#include "paints.h"
#include "picture.h"
#include "ui/frmMain.h"
#include "ui/qt/explanation/formview.h"
#include "ui/qt/paper/formpages.h"
#include "ui/qt/widgets/look.h"

/// The window that tells how a figure was worked out, opened from the results by hand.

namespace tallyfin::qt {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

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
  /// The federal tax with a contribution of $60.00: its third line is the first less the second, the fourth has a
  /// table.
  void explainFederalTax() const {
    type("frmMain", "txt401k", "6");
    calculate();
    doubleClick(4);
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
  template <class Widget>
  Widget& part(const char* name) const {
    return *window()->findChild<Widget*>(name);
  }
  /// What a PDF file says, its pages divided by form feeds.
  static QString textOf(const QString& path) {
    QProcess reader;
    reader.start("pdftotext", {"-layout", path, "-"});
    EXPECT_TRUE(reader.waitForFinished()) << "pdftotext is needed";
    return QString::fromUtf8(reader.readAllStandardOutput());
  }
  std::string told() const { return window()->chosenText().toStdString(); }
};

TEST_F(ExplanationOfTheResults, OpensByADoubleClickOnARow) {
  EXPECT_EQ(window(), nullptr);
  doubleClick(5);
  ASSERT_NE(window(), nullptr);
  EXPECT_TRUE(window()->isVisible());
  EXPECT_THAT(told(), StartsWith("State Tax\nState: Pennsylvania\n"));
  EXPECT_THAT(told(), HasSubstr("2. Pennsylvania tax: 2.8% of line 1 = $28.00"));
  EXPECT_EQ(front(), "Calculations");
}

TEST_F(ExplanationOfTheResults, ShowsTheFigureOfEachRow) {
  for (int row = 0; row < grid().rowCount(); ++row) {
    doubleClick(row);
    EXPECT_THAT(told(), StartsWith(grid().item(row, 0)->text().toStdString() + "\n"));
    frame().activateWindow();
  }
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
  EXPECT_THAT(told(), StartsWith("Gross Pay\n"));
}

TEST_F(ExplanationOfTheResults, FollowsTheNextCalculateWithItsRowChosen) {
  doubleClick(5);
  frame().activateWindow();
  type("frmMain", "txtIncome", "2000");
  calculate();
  EXPECT_THAT(told(), HasSubstr("2.8% of line 1 = $56.00"));
  EXPECT_THAT(told(), HasSubstr("$56.00"));
  EXPECT_EQ(window()->findChild<QTableWidget*>("figures")->item(0, 1)->text(), "$2,000.00");
  EXPECT_THAT(window()->findChild<QLabel*>("shares")->text().toStdString(),
              StartsWith("Of the gross pay of $2,000.00: "));
}

TEST_F(ExplanationOfTheResults, DrawsTheSharesOfTheNextCalculate) {
  doubleClick(5);
  auto& bar = part<QWidget>("bar");
  paintNow(bar);
  const QImage before = bar.grab().toImage();
  Paints paints(bar);
  frame().activateWindow();
  type("frmMain", "txtIncome", "9000");
  paints.count = 0;
  calculate();
  paintNow(bar);
  EXPECT_GT(paints.count, 0);
  EXPECT_NE(bar.grab().toImage(), before);
}

TEST_F(ExplanationOfTheResults, ComesToTheFrontAgain) {
  doubleClick(5);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  frame().activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &frame(); }));
  doubleClick(0);
  EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == window(); }));
  EXPECT_THAT(told(), StartsWith("Gross Pay\n"));
}

TEST_F(ExplanationOfTheResults, F9InItCalculatesAsInTheFrame) {
  doubleClick(5);
  frame().activateWindow();
  type("frmMain", "txtIncome", "2000");
  window()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  QTest::keyClick(window()->windowHandle(), Qt::Key_F9);
  settle();
  EXPECT_THAT(told(), HasSubstr("Pennsylvania tax: 2.8% of line 1 = $56.00"));
}

TEST_F(ExplanationOfTheResults, CtrlWClosesItAndCtrlQEndsTheProgram) {
  doubleClick(5);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  QTest::keyClick(window()->windowHandle(), Qt::Key_W, Qt::ControlModifier);
  settle();
  EXPECT_FALSE(window()->isVisible());
  EXPECT_TRUE(shown("frmMain"));
  doubleClick(5);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  QTest::keyClick(window()->windowHandle(), Qt::Key_Q, Qt::ControlModifier);
  settle();
  EXPECT_FALSE(desk.running());
}

TEST_F(ExplanationOfTheResults, F1OpensItsOwnTopic) {
  doubleClick(5);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  QTest::keyClick(window()->windowHandle(), Qt::Key_F1);
  settle();
  const auto* help = frame().findChild<QDialog*>("help");
  ASSERT_NE(help, nullptr);
  EXPECT_EQ(help->findChild<QTextBrowser*>("page")->source().path().toStdString(), "/Tallyfin.hlp/explained");
}

TEST_F(ExplanationOfTheResults, CtrlCCopiesTheRowWithItsAmountOrWhatIsSelected) {
  doubleClick(5);
  const auto copied = [](QWidget& widget) {
    QTest::keyClick(&widget, Qt::Key_C, Qt::ControlModifier);
    settle();
    return QGuiApplication::clipboard()->text().toStdString();
  };
  EXPECT_EQ(copied(part<QTableWidget>("figures")), "State Tax\t$28.00");
  auto& page = part<QTreeWidget>("page");
  EXPECT_EQ(copied(page), "State: Pennsylvania");
  page.setCurrentItem(page.topLevelItem(2));
  EXPECT_EQ(copied(page), "Pennsylvania tax. 2.8% of line 1\t$28.00");
  auto& shares = part<QLabel>("shares");
  EXPECT_EQ(copied(shares), "State Tax\t$28.00");
  shares.setSelection(0, 2);
  EXPECT_EQ(copied(shares), "Of");
  EXPECT_EQ(part<QLabel>("notice").text(), "Copied");
}

TEST_F(ExplanationOfTheResults, ShowsTheEntriesAbove) {
  doubleClick(5);
  EXPECT_THAT(part<QLabel>("heading").text().toStdString(),
              HasSubstr("Tax year: 1999 \u00b7 Pay frequency: Weekly \u00b7 Marital status: Single \u00b7 "
                        "Exemptions: 0 \u00b7 State: Pennsylvania"));
}

TEST_F(ExplanationOfTheResults, TakesNoNameForMarkup) {
  stored(section::user, "UName", "<b>Pat</b> &amp; Co");
  doubleClick(5);
  const auto& heading = part<QLabel>("heading");
  QTextDocument shown;
  heading.textFormat() == Qt::PlainText ? shown.setPlainText(heading.text()) : shown.setHtml(heading.text());
  EXPECT_THAT(shown.toPlainText().toStdString(), StartsWith("Name: <b>Pat</b> &amp; Co \u00b7 Date: "));
}

/// As a store or a box may hold them. The processor's time, because the clock's depends on what else the computer does.
TEST_F(ExplanationOfTheResults, IsDrawnAtOnceWithTextsOfMegabytes) {
  std::string name = "Pat";
  while (name.size() < 7'900'000) name += " Quincy";
  stored(section::user, "UName", name);
  const std::string amount(7'900'000, 'x');
  desk.use<frmMain>().txtPreTax.userType(amount);
  const QTemporaryDir folder;
  dialogs.path = folder.filePath("explanation.pdf");
  const std::clock_t before = std::clock();
  calculate();
  ExplanationWindow::open(frame(), "Non-Taxable");
  settle();
  EXPECT_THAT(part<QLabel>("heading").text().toStdString(), StartsWith("Name: Pat Quincy Quincy"));
  EXPECT_LT(window()->width(), 800);
  click(part<QPushButton>("print"));
  EXPECT_LT(std::clock() - before, 20 * CLOCKS_PER_SEC);
  const QString paper = textOf(dialogs.path);
  EXPECT_TRUE(paper.contains(QStringLiteral("\u2026")));
  EXPECT_LT(paper.size(), 100'000);
  EXPECT_EQ(settings::uName.text(), name);
  EXPECT_NE(told().find('"' + amount + "\" isn't a number"), std::string::npos);
}

TEST_F(ExplanationOfTheResults, AWordThatIsWiderThanTheWindowDoesNotWidenIt) {
  stored(section::user, "UName", std::string(32'767, 'W'));
  doubleClick(5);
  EXPECT_LT(window()->width(), 800);
  EXPECT_LT(window()->minimumSizeHint().width(), 800);
}

TEST_F(ExplanationOfTheResults, IsReadLineByLine) {
  explainFederalTax();
  auto& page = part<QTreeWidget>("page");
  QAccessibleInterface& face = *QAccessible::queryAccessibleInterface(&page);
  EXPECT_EQ(face.role(), QAccessible::Tree);
  std::vector<std::string> spoken;
  for (int i = 0; i < face.childCount(); ++i) spoken.push_back(face.child(i)->text(QAccessible::Name).toStdString());
  EXPECT_THAT(spoken, Contains("Line 3. Wage less the amounts that are not taxed. Line 1 less line 2. 940 dollars."));
}

TEST_F(ExplanationOfTheResults, PointingAtALineMarksIt) {
  doubleClick(5);
  auto& page = part<FormView>("page");
  const QRect row = page.visualItemRect(page.topLevelItem(2));
  std::set<std::vector<int>> marks;
  for (int x = row.left(); x < row.right(); x += 3) {
    QTest::mouseMove(page.viewport(), QPoint(x, row.center().y()));
    marks.insert(page.marked());
  }
  EXPECT_THAT(marks, ElementsAre(IsEmpty(), ElementsAre(1)));
  QTest::mouseMove(page.viewport(), QPoint(row.left() + 3, row.top() - 1));
  EXPECT_THAT(page.marked(), IsEmpty());
}

TEST_F(ExplanationOfTheResults, TheKeyboardMarksTheLinesThatTheCurrentOneNames) {
  explainFederalTax();
  auto& page = part<FormView>("page");
  EXPECT_THAT(page.marked(), IsEmpty());
  page.setFocus();
  press(Qt::Key_Home);
  EXPECT_THAT(page.marked(), IsEmpty());
  for (int i = 0; i < 4; ++i) press(Qt::Key_Down);
  EXPECT_EQ(page.currentItem()->text(0).toStdString(), "Wage less the amounts that are not taxed. Line 1 less line 2");
  EXPECT_THAT(page.marked(), ElementsAre(1, 2));
  const QRect marked = page.visualItemRect(page.topLevelItem(2));
  EXPECT_EQ(colourAt(pictureOf(page), page.viewport()->mapTo(&page, marked.topRight() - QPoint(2, -2))),
            look::lightBlue);
}

TEST_F(ExplanationOfTheResults, TheTableOpensInPlaceWithItsRowMarked) {
  explainFederalTax();
  auto& page = part<QTreeWidget>("page");
  page.setFocus();
  QTreeWidgetItem& line = *page.topLevelItem(5);
  ASSERT_EQ(line.childCount(), 6);
  page.setCurrentItem(&line);
  EXPECT_FALSE(line.isExpanded());
  press(Qt::Key_Right);
  EXPECT_TRUE(line.isExpanded());
  EXPECT_EQ(line.child(2)->data(0, Qt::AccessibleTextRole).toString(),
            "Used: Line 3 over 525 dollars but not over 1,125 dollars: 71 dollars 10 plus 28% of the amount over 525 "
            "dollars");
  EXPECT_EQ(line.child(1)->data(0, Qt::AccessibleTextRole).toString(),
            "Line 3 over 51 dollars but not over 525 dollars: 15% of the amount over 51 dollars");
  const QImage picture = pictureOf(page);
  const auto ground = [&](int row) {
    const QPoint corner = page.visualItemRect(line.child(row)).topRight() - QPoint(2, -2);
    return colourAt(picture, page.viewport()->mapTo(&page, corner));
  };
  EXPECT_EQ(ground(2), look::lightBlue);
  EXPECT_NE(ground(1), look::lightBlue);
  // The widest row is whole.
  QFont bold = page.font();
  bold.setBold(true);
  const QFontMetrics metrics(bold);
  int first = 0;
  for (int i = 0; i < line.childCount(); ++i)
    first = std::max(first, metrics.horizontalAdvance(line.child(i)->text(0)));
  const int second = metrics.horizontalAdvance(line.child(5)->data(0, Qt::UserRole).toString());
  const QRect place = page.visualItemRect(line.child(5));
  EXPECT_TRUE(first + second < place.width() || place.height() > 2 * metrics.height()) << place.width();
  press(Qt::Key_Down);
  QTest::keyClick(&page, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "not over $51.00\t$0.00");
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
  click(part<QPushButton>("copy"));
  EXPECT_THAT(QApplication::clipboard()->text().toStdString(), StartsWith("Medicare\n"));
}

TEST_F(ExplanationOfTheResults, PrintsAllTwelveAsTheReportIsPrinted) {
  QTemporaryDir folder;
  dialogs.path = folder.filePath("explanation.pdf");
  doubleClick(5);
  click(part<QPushButton>("print"));
  EXPECT_EQ(dialogs.offered, "How this was worked out.pdf");
  const std::string paper = textOf(dialogs.path).simplified().toStdString();
  EXPECT_THAT(paper, StartsWith("How this was worked out Date: "));
  EXPECT_THAT(paper, HasSubstr("Pay frequency: Weekly Marital status: Single Exemptions: 0 State: Pennsylvania Of the "
                               "gross pay of $1,000.00: "));
  std::size_t from = 0;
  for (int row = 0; row < 12; ++row) {
    const std::string title = part<QTableWidget>("figures").item(row, 0)->text().toStdString();
    const std::size_t place = paper.find(title + " ", from);
    EXPECT_NE(place, std::string::npos) << title;
    from = place;
  }
  EXPECT_THAT(paper, HasSubstr("Pennsylvania tax. 2.8% of line 1"));
  EXPECT_THAT(paper, HasSubstr("$71.10 plus 28% of the amount of line 1 over $525.00, "));
}

TEST_F(ExplanationOfTheResults, TheNoticeOfAFileGoesWithTheNextCalculation) {
  const QTemporaryDir folder;
  dialogs.path = folder.filePath("explanation.pdf");
  doubleClick(5);
  click(part<QPushButton>("print"));
  EXPECT_TRUE(part<QLabel>("notice").isVisible());
  EXPECT_EQ(part<QLabel>("notice").text(), "Saved as " + dialogs.path);
  calculate();
  EXPECT_FALSE(part<QLabel>("notice").isVisible());
}

TEST_F(ExplanationOfTheResults, NoTitleEndsAPage) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("explanation.pdf");
  for (int lines = 4; lines < 30; ++lines) {
    FormPages pages{"Worksheets", {{"Name", "Pat Smith"}}, "Nothing.", {}};
    for (int i = 0; i < 9; ++i) {
      Form form{"Title", "$1.00", {}};
      for (int number = 1; number <= lines - i % 3; ++number) {
        form.lines.push_back({number, {{"Line", {}}}, "$1.00", "", {}});
      }
      pages.forms.push_back(form);
    }
    QPdfWriter writer(path);
    ASSERT_TRUE(pages.draw(writer));
    for (const QString& page : textOf(path).split('\f', Qt::SkipEmptyParts)) {
      QStringList rows = page.split('\n', Qt::SkipEmptyParts);
      EXPECT_THAT(rows.takeLast().toStdString(), HasSubstr("Page "));
      EXPECT_THAT(rows.takeLast().toStdString(), HasSubstr("Line")) << lines;
      EXPECT_THAT(rows.takeLast().toStdString(), HasSubstr("Line")) << lines;
    }
  }
}

TEST_F(ExplanationOfTheResults, PrintsThePagesThatAreWanted) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("explanation.pdf");
  FormPages pages{"Worksheets", {{"Name", "Pat Smith"}}, "Nothing.", {}};
  Form form{"Title", "$1.00", {}};
  for (int number = 1; number < 200; ++number) form.lines.push_back({number, {{"Line", {}}}, "$1.00", "", {}});
  pages.forms = {form};
  QPdfWriter writer(path);
  writer.setPageRanges(QPageRanges::fromString("2,4"));
  ASSERT_TRUE(pages.draw(writer));
  const QStringList papers = textOf(path).split('\f', Qt::SkipEmptyParts);
  ASSERT_EQ(papers.size(), 2);
  EXPECT_THAT(papers[0].toStdString(), HasSubstr("Page 2 of "));
  EXPECT_THAT(papers[1].toStdString(), HasSubstr("Page 4 of "));
}

TEST_F(ExplanationOfTheResults, PrintsNothingForOneWhoDoesNotWantToAfterAll) {
  QTemporaryDir folder;
  dialogs.onPrinter = [&](QPrinter& printer) {
    printer.setOutputFileName(folder.filePath("explanation.pdf"));
    return false;
  };
  doubleClick(5);
  click(part<QPushButton>("print"));
  EXPECT_EQ(dialogs.asked, 1);
  EXPECT_EQ(dialogs.somePages, true);
  EXPECT_FALSE(QFile::exists(folder.filePath("explanation.pdf")));
}

TEST_F(ExplanationOfTheResults, TheKeyboardReachesEverythingAndAScreenReaderNamesIt) {
  doubleClick(5);
  std::vector<std::string> reached;
  for (int i = 0; i < 6; ++i) {
    reached.push_back(focused());
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
    ASSERT_NE(face, nullptr) << focused();
    EXPECT_NE(face->role(), QAccessible::NoRole) << focused();
    EXPECT_FALSE(face->text(QAccessible::Name).isEmpty()) << focused();
    press(Qt::Key_Tab);
  }
  EXPECT_THAT(reached, UnorderedElementsAre("shares", "figures", "page", "copy", "print", "close"));
  EXPECT_EQ(reached.front(), "figures");
  EXPECT_EQ(window()->windowTitle(), "How this was worked out");
  const auto role = [](QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget)->role(); };
  EXPECT_EQ(role(part<QTableWidget>("figures")), QAccessible::Table);
  EXPECT_EQ(role(part<QTreeWidget>("page")), QAccessible::Tree);
  QAccessibleInterface& bar = *QAccessible::queryAccessibleInterface(&part<QWidget>("bar"));
  EXPECT_EQ(bar.text(QAccessible::Name), "Where the gross pay goes");
  EXPECT_EQ(bar.text(QAccessible::Description), part<QLabel>("shares").text());
  press(Qt::Key_Escape);
  EXPECT_FALSE(window()->isVisible());
  doubleClick(7);
  EXPECT_TRUE(window()->isVisible());
  EXPECT_THAT(told(), StartsWith("FICA\n"));
}

TEST_F(ExplanationOfTheResults, SaysInWordsWhyThereIsNoBar) {
  doubleClick(7);
  frame().activateWindow();
  type("frmMain", "txtPreFICA", "2000");
  calculate();
  EXPECT_FALSE(part<QWidget>("bar").isVisible());
  EXPECT_EQ(part<QLabel>("shares").text(),
            "The gross pay is $1,000.00; a part of it is negative or out of range, so the parts make no bar.");
}

TEST_F(ExplanationOfTheResults, CutsNothingOffAtALargerFont) {
  const QFont normal = QApplication::font();
  QFont large = normal;
  large.setPointSizeF(2 * normal.pointSizeF());
  QApplication::setFont(large);
  doubleClick(4);
  auto& figures = part<QTableWidget>("figures");
  EXPECT_FALSE(figures.horizontalScrollBar()->isVisible());
  EXPECT_FALSE(part<QTreeWidget>("page").horizontalScrollBar()->isVisible());
  for (int row = 0; row < figures.rowCount(); ++row) {
    for (int column = 0; column < 2; ++column) {
      const QTableWidgetItem& item = *figures.item(row, column);
      EXPECT_LE(QFontMetrics(figures.font()).horizontalAdvance(item.text()), figures.visualItemRect(&item).width());
      EXPECT_LE(QFontMetrics(figures.font()).height(), figures.visualItemRect(&item).height());
    }
  }
  for (const char* name : {"copy", "print", "close"}) {
    EXPECT_GE(part<QPushButton>(name).width(), part<QPushButton>(name).minimumSizeHint().width()) << name;
  }
  QApplication::setFont(normal);
}

}  // namespace

}  // namespace tallyfin::qt
