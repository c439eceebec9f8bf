#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPdfWriter>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <ctime>

#include "controls/desk.h"
#include "engine/paydata.h"
#include "engine/settingsstore.h"
#include "fakedialogs.h"
#include "paints.h"
#include "standingclock.h"
#include "ui/frmMain.h"
#include "ui/frmPrint.h"
#include "ui/qt/desktop.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/help/helpfile.h"
#include "ui/qt/help/helpwindow.h"
#include "ui/qt/paper/printer.h"
#include "ui/qt/paper/reportpage.h"
#include "ui/qt/views/view.h"
#include "ui/qt/widgets/look.h"

/// What is on paper: the report's page, its preview and PDF file, and the help.

namespace tallyfin::qt {

namespace {

class CountingBeeper : public Beeper {
 public:
  void beep() override { ++beeps; }
  int beeps = 0;
};

/// A printer that can be out of order.
class FailingPrinter : public Printer {
 public:
  bool startDocument() override { return !outOfOrder; }
  bool outOfOrder = false;
};

/// The program on the desktop with an empty store, on a day in May 1999.
class PaperTest : public testing::Test {
 protected:
  void SetUp() override {
    desktop_ = std::make_unique<Desktop>(store_, dialogs_);
    platform.clock = &clock_;
    platform.beeper = &beeper_;
    platform.printer = &printer_;
  }
  void TearDown() override {
    desktop_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  /// Starts on the main screen, not on the personal information.
  void start(const std::string& name = "") {
    saveSetting(applicationKey, section::user, "DontShow", "1");
    if (!name.empty()) saveSetting(applicationKey, section::user, "UName", name);
    desktop_->start();
  }

  void openReport() {
    desk.use<frmMain>().cmdToolBar[frmMain::print].userClick();
    QCoreApplication::processEvents();
  }
  void openReportOfThreePages() {
    start();
    openReport();
    std::string table = "<3000|>1500;Title|Value;";
    for (int row = 1; row <= 80; ++row) table += "Row " + std::to_string(row) + "|1;";
    PrintEngine& engine = desk.use<frmPrint>().vsPrinter1;
    engine.startDocument();
    engine.addTable(table);
    engine.endDocument();
  }

  template <class Widget>
  Widget* widget(const char* name) {
    return desktop_->view("frmPrint")->findChild<Widget*>(QString::fromLatin1(name));
  }

  const PrintEngine& engine() { return desk.use<frmPrint>().vsPrinter1; }

  MemoryStore store_;
  StandingClock clock_{std::chrono::May / 7 / 1999};
  CountingBeeper beeper_;
  FailingPrinter printer_;
  FakeDialogs dialogs_;
  std::unique_ptr<Desktop> desktop_;
};

// --- The report as a PDF file

/// A word on a page and where it stands, in points.
struct Word {
  QString text;
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

class ReportFile : public PaperTest {
 protected:
  void save() { ASSERT_EQ(write(path()), QString()); }
  QString write(const QString& path) {
    Paper report;
    report.draw = [this](QPagedPaintDevice& device) { return drawReport(device, engine()); };
    return report.write(path);
  }
  QString path() const { return folder_.filePath("report.pdf"); }

  static QString outputOf(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    EXPECT_TRUE(process.waitForFinished()) << program << " is needed";
    EXPECT_EQ(process.exitCode(), 0);
    return QString::fromUtf8(process.readAllStandardOutput());
  }
  QString read(const QStringList& options) const { return outputOf("pdftotext", options + QStringList{path(), "-"}); }

  /// The lines that hold something, blanks made single.
  std::vector<std::string> lines() const {
    std::vector<std::string> lines;
    for (const QString& line : read({"-layout"}).split('\n')) {
      if (!line.simplified().isEmpty()) lines.push_back(line.simplified().toStdString());
    }
    return lines;
  }

  std::vector<Word> words() const {
    static const QRegularExpression word(
        "<word xMin=\"(.*?)\" yMin=\"(.*?)\" xMax=\"(.*?)\" yMax=\"(.*?)\">(.*?)</word>");
    std::vector<Word> words;
    const QString page = read({"-bbox"});
    for (auto next = word.globalMatch(page); next.hasNext();) {
      const auto match = next.next();
      words.push_back({match.captured(5), match.captured(1).toDouble(), match.captured(2).toDouble(),
                       match.captured(3).toDouble(), match.captured(4).toDouble()});
    }
    return words;
  }

  QTemporaryDir folder_;
};

/// Figures of a record that tell the rows apart.
void fillRecord() {
  payData.grossPay = 1000;
  payData.amt401k = 60;
  payData.fedTax = 101;
  payData.stateTax = 28;
  payData.localTax = 2;
  payData.fica = 77;
  payData.totalDed = 268;
  payData.checkAmt = 12345;
  payData.socSec = 62;
  payData.medicare = 15;
  payData.preTax = 5;
  payData.preFica = 6;
}

TEST_F(ReportFile, HasHeaderAllRowsAndFooterInThisOrder) {
  start("Pat Q. Sample");
  fillRecord();
  openReport();
  save();
  EXPECT_THAT(lines(), testing::ElementsAre(
                           "Prepared for Pat Q. Sample on Friday, May 07, 1999", "Category Amount",
                           "Gross Pay $1,000.00", "401k Deduction $60.00", "Federal Tax $101.00", "State Tax $28.00",
                           "Local Tax $2.00", "FICA $77.00", "Total of Deductions $268.00", "Check Amount $12,345.00",
                           "Included in FICA", "Social Security $62.00", "Medicare $15.00", "Protected Amounts",
                           "Non-Taxable $5.00", "Pre-FICA $6.00", "Calculations by Tallyfin 99 Norvane Works"));
}

/// As a store may hold it. The processor's time, because the clock's depends on what else the computer does.
TEST_F(ReportFile, IsDrawnAtOnceWithANameOfMegabytes) {
  std::string name = "Pat";
  while (name.size() < 7'900'000) name += " Quincy";
  const std::clock_t before = std::clock();
  start(name);
  fillRecord();
  openReport();
  save();
  EXPECT_LT(std::clock() - before, 20 * CLOCKS_PER_SEC);
  EXPECT_THAT(lines().front(), testing::StartsWith("Prepared for Pat Quincy Quincy"));
  EXPECT_EQ(getSetting(applicationKey, section::user, "UName", ""), name);
}

TEST_F(ReportFile, AlignsTheAmountsAtTheRightEdgeOfTheirColumn) {
  start();
  fillRecord();
  openReport();
  save();
  // The columns are 3000 and 1500 twips wide from a margin of 72 points: the table ends at 297 points.
  int amounts = 0;
  for (const Word& word : words()) {
    if (!word.text.startsWith('$')) continue;
    ++amounts;
    EXPECT_NEAR(word.right, 72 + 225 - 4, 0.5) << qPrintable(word.text);
  }
  EXPECT_EQ(amounts, 12);
}

TEST_F(ReportFile, IsOneLetterPageWithSensibleMargins) {
  start("Pat Q. Sample");
  fillRecord();
  openReport();
  save();
  QProcess info;
  info.start("pdfinfo", {path()});
  ASSERT_TRUE(info.waitForFinished());
  const QByteArray told = info.readAllStandardOutput();
  EXPECT_TRUE(told.contains("612 x 792 pts (letter)")) << told.toStdString();
  EXPECT_TRUE(QRegularExpression("Pages: +1\n").match(told).hasMatch());
  for (const Word& word : words()) {
    EXPECT_GE(word.left, 71) << qPrintable(word.text);
    EXPECT_LE(word.right, 612 - 71) << qPrintable(word.text);
    EXPECT_GE(word.top, 36) << qPrintable(word.text);
    EXPECT_LE(word.bottom, 792 - 36) << qPrintable(word.text);
  }
}

TEST_F(ReportFile, ShowsZerosAndADashBeforeAnythingWasEntered) {
  start();
  openReport();
  save();
  EXPECT_THAT(lines(), testing::Contains("Prepared for - on Friday, May 07, 1999"));
  EXPECT_THAT(lines(), testing::Contains("Gross Pay $0.00"));
}

TEST_F(ReportFile, WrapsALongNameAndKeepsTheDate) {
  start("Maximiliane Alexandra Theodora Wilhelmina von der Hohenstein-Lichtenberg zu Altenburg the Younger");
  fillRecord();
  openReport();
  save();
  const QString page = read({"-layout"}).simplified();
  EXPECT_TRUE(page.contains("zu Altenburg the Younger on Friday, May 07, 1999 Category Amount"));
  for (const Word& word : words()) EXPECT_LE(word.right, 612 - 71) << qPrintable(word.text);
}

TEST_F(ReportFile, LeavesTheMiddleOutOfAnEndlessNameAndKeepsTheDate) {
  start(std::string(2000, 'W'));
  fillRecord();
  openReport();
  save();
  const QString page = read({"-layout"}).simplified();
  EXPECT_TRUE(page.startsWith("Prepared for"));
  EXPECT_TRUE(page.contains(QChar(0x2026)));
  EXPECT_TRUE(page.contains("on Friday, May 07, 1999 Category Amount"));
  EXPECT_TRUE(page.endsWith("Calculations by Tallyfin 99 Norvane Works"));
  for (const Word& word : words()) EXPECT_LE(word.right, 612 - 71) << qPrintable(word.text);
}

TEST_F(ReportFile, LetsAHugeAmountStandOutOfItsColumn) {
  start();
  fillRecord();
  payData.checkAmt = 12345678901;
  openReport();
  save();
  for (const Word& word : words()) {
    if (word.text != "$12,345,678,901.00") continue;
    EXPECT_NEAR(word.right, 72 + 225 - 4, 0.5);
    EXPECT_LT(word.left, 72 + 150);  // the amounts' column begins there
    return;
  }
  FAIL() << "the amount isn't on the page";
}

TEST_F(ReportFile, IsTheSameFromAPrinter) {
  start("Pat Q. Sample");
  fillRecord();
  openReport();
  save();
  const std::vector<Word> saved = words();
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(path());
  printer.setPageSize(QPageSize(QPageSize::Letter));
  ASSERT_TRUE(drawReport(printer, engine()));
  const std::vector<Word> printed = words();
  ASSERT_EQ(printed.size(), saved.size());
  for (std::size_t i = 0; i < saved.size(); ++i) {
    EXPECT_EQ(printed[i].text, saved[i].text);
    EXPECT_NEAR(printed[i].right, saved[i].right, 0.5);
    EXPECT_NEAR(printed[i].top, saved[i].top, 0.5);
  }
}

TEST_F(ReportFile, GoesOnOnTheNextPageWhereThePaperIsTooShort) {
  start("Pat Q. Sample");
  fillRecord();
  openReport();
  QPdfWriter writer(path());
  writer.setPageSize(QPageSize(QPageSize::A6));
  ASSERT_TRUE(drawReport(writer, engine()));
  const QStringList pages = read({"-layout"}).split('\f', Qt::SkipEmptyParts);
  ASSERT_GT(pages.size(), 1);
  for (const QString& page : pages) {
    EXPECT_TRUE(page.contains(QRegularExpression("Category +Amount"))) << qPrintable(page);
    EXPECT_TRUE(page.contains("Calculations by Tallyfin 99 Norvane Works")) << qPrintable(page);
  }
  for (const char* title : {"Gross Pay", "Check Amount", "Medicare", "Pre-FICA"}) {
    EXPECT_EQ(pages.filter(title).size(), 1) << title;
  }
}

TEST_F(ReportFile, LeavesNoHeadingAloneAtTheEndOfAPage) {
  start("Pat Q. Sample");
  fillRecord();
  openReport();
  int moved = 0;
  for (int height = 5000; height < 12000; height += 250) {
    const ReportPages pages(engine(), {ReportPages::letter.width(), height});
    QStringList rows;
    for (int page = 0; page < pages.count(); ++page) {
      const QStringList lines = pages.readable(page).split('\n');
      const QStringList table = lines.mid(2, lines.size() - 3);  // between header, titles and footer
      rows += table;
      for (const char* heading : {"Included in FICA", "Protected Amounts"}) {
        EXPECT_FALSE(table.back().startsWith(heading)) << height;
        if (table.front().startsWith(heading) && page > 0) ++moved;
      }
    }
    EXPECT_EQ(rows.size(), 17) << height;
    EXPECT_EQ(rows.filter("Medicare").size(), 1) << height;
  }
  EXPECT_GT(moved, 0);
}

TEST_F(ReportFile, SaysWhatItIsAndWhoMadeIt) {
  Paper report;
  report.title = QStringLiteral("A week's pay");
  report.draw = [this](QPagedPaintDevice& device) { return drawReport(device, engine()); };
  start();
  openReport();
  ASSERT_EQ(report.write(path()), QString());
  const QString about = outputOf("pdfinfo", {path()});
  EXPECT_TRUE(about.contains(QRegularExpression("^Title: +A week's pay$", QRegularExpression::MultilineOption)));
  EXPECT_TRUE(about.contains(QRegularExpression("^Creator: +Tallyfin 99$", QRegularExpression::MultilineOption)));
}

TEST_F(ReportFile, ThatCantBeWrittenIsTold) {
  start();
  openReport();
  EXPECT_NE(write(folder_.filePath("missing/report.pdf")), QString());
}

TEST_F(ReportFile, IsntMadeWhereThereIsNoReport) {
  start();
  printer_.outOfOrder = true;
  openReport();
  EXPECT_EQ(write(path()), "There is nothing to save.");
  EXPECT_FALSE(QFile::exists(path()));
}

// --- The preview

using Preview = PaperTest;

TEST_F(Preview, TurningTheZoomResizesThePage) {
  start();
  openReport();
  auto* zoom = widget<QSpinBox>("udZoom");
  const QWidget* page = widget<QScrollArea>("vsPrinter1")->widget();
  EXPECT_EQ(zoom->minimum(), 10);
  EXPECT_EQ(zoom->maximum(), 400);
  const int around = page->width() - 816;  // 8.5 inches at 96 pixels
  EXPECT_LE(around, 32);
  zoom->setFocus();
  zoom->selectAll();
  QTest::keyClicks(zoom, "50");
  EXPECT_NE(engine().zoom(), 50);  // until the number is complete
  QTest::keyClick(zoom, Qt::Key_Return);
  EXPECT_EQ(engine().zoom(), 50);
  EXPECT_EQ(widget<QLabel>("lblShowSize")->text(), "50");
  EXPECT_EQ(widget<QLabel>("lblPercent")->text(), "%");
  EXPECT_EQ(page->width(), 408 + around);
  EXPECT_EQ(page->height(), 528 + around);
  QTest::keyClick(zoom, Qt::Key_Up);
  EXPECT_EQ(engine().zoom(), 60);
  EXPECT_EQ(widget<QLabel>("lblShowSize")->text(), "60");
}

TEST_F(Preview, ShowsThePageInItsOwnColours) {
  start();
  fillRecord();
  openReport();
  widget<QSpinBox>("udZoom")->setValue(100);
  const QImage page = widget<QScrollArea>("vsPrinter1")->widget()->grab().toImage();
  EXPECT_EQ(page.pixelColor(page.width() / 2, page.height() / 2), QColor(Qt::white));
  int dark = 0;
  for (int y = 0; y < page.height(); ++y) {
    for (int x = 0; x < page.width(); ++x) dark += page.pixelColor(x, y).lightness() < 64 ? 1 : 0;
  }
  EXPECT_GT(dark, 1000);  // the text
}

TEST_F(Preview, ScrollsByKeyboard) {
  start();
  openReport();
  auto* preview = widget<QScrollArea>("vsPrinter1");
  ASSERT_GT(preview->verticalScrollBar()->maximum(), 0);
  widget<QSpinBox>("udZoom")->setValue(200);
  QTest::keyClick(preview, Qt::Key_PageDown);
  EXPECT_GT(preview->verticalScrollBar()->value(), 0);
  EXPECT_LT(preview->verticalScrollBar()->value(), preview->verticalScrollBar()->maximum());
  QTest::keyClick(preview, Qt::Key_End);
  EXPECT_EQ(preview->verticalScrollBar()->value(), preview->verticalScrollBar()->maximum());
  QTest::keyClick(preview, Qt::Key_Home);
  EXPECT_EQ(preview->verticalScrollBar()->value(), 0);
}

TEST_F(Preview, HasNowhereToTurnWithOnePage) {
  start();
  openReport();
  EXPECT_FALSE(widget<QPushButton>("previous")->isEnabled());
  EXPECT_FALSE(widget<QPushButton>("next")->isEnabled());
  EXPECT_EQ(widget<QLabel>("pageNumber")->text(), "Page 1 of 1");
}

TEST_F(Preview, TurnsThePagesOfALongReport) {
  openReportOfThreePages();
  auto* number = widget<QLabel>("pageNumber");
  auto* sheet = widget<QScrollArea>("vsPrinter1")->widget();
  const auto press = [&](const char* button) {
    QTest::mouseClick(widget<QPushButton>(button), Qt::LeftButton);
    return number->text().toStdString();
  };
  EXPECT_EQ(number->text(), "Page 1 of 3");
  EXPECT_FALSE(widget<QPushButton>("previous")->isEnabled());
  const QImage first = sheet->grab().toImage();
  EXPECT_EQ(press("next"), "Page 2 of 3");
  const QImage second = sheet->grab().toImage();
  EXPECT_NE(first, second);
  EXPECT_TRUE(widget<QPushButton>("previous")->isEnabled());
  EXPECT_EQ(press("next"), "Page 3 of 3");
  EXPECT_FALSE(widget<QPushButton>("next")->isEnabled());
  EXPECT_EQ(press("previous"), "Page 2 of 3");
  EXPECT_EQ(sheet->grab().toImage(), second);
  EXPECT_EQ(press("previous"), "Page 1 of 3");
  EXPECT_EQ(sheet->grab().toImage(), first);
  press("next");
  press("cmdPrintMenu(0)");  // a report of one page again
  EXPECT_EQ(number->text(), "Page 1 of 1");
}

TEST_F(Preview, TheZoomStaysOnThePage) {
  openReportOfThreePages();
  QTest::mouseClick(widget<QPushButton>("next"), Qt::LeftButton);
  auto* sheet = widget<QScrollArea>("vsPrinter1")->widget();
  const int zoom = widget<QSpinBox>("udZoom")->value();
  const QImage second = sheet->grab().toImage();
  for (const int other : {50, 200, zoom}) {
    widget<QSpinBox>("udZoom")->setValue(other);
    EXPECT_EQ(engine().zoom(), other);
    EXPECT_EQ(widget<QLabel>("pageNumber")->text(), "Page 2 of 3") << other;
  }
  EXPECT_EQ(sheet->grab().toImage(), second);
}

TEST_F(Preview, FirstButtonMakesTheReportAgain) {
  start();
  openReport();
  fillRecord();
  QTest::mouseClick(widget<QPushButton>("cmdPrintMenu(0)"), Qt::LeftButton);
  EXPECT_EQ(engine().cells()[1], (PrintEngine::Cells{"  Gross Pay", "$1,000.00"}));
}

TEST_F(Preview, IsDrawnAgainWithTheReport) {
  start();
  openReport();
  QWidget& sheet = *widget<QScrollArea>("vsPrinter1")->widget();
  Paints paints(sheet);
  auto* again = widget<QPushButton>("cmdPrintMenu(0)");
  QTest::mouseClick(again, Qt::LeftButton);  // which moves the focus ring away from the page
  paintNow(sheet);
  paints.count = 0;
  fillRecord();
  QTest::mouseClick(again, Qt::LeftButton);
  paintNow(sheet);
  EXPECT_GT(paints.count, 0);
}

TEST_F(Preview, SecondButtonClosesTheScreen) {
  start();
  openReport();
  QTest::mouseClick(widget<QPushButton>("cmdPrintMenu(1)"), Qt::LeftButton);
  EXPECT_EQ(desk.find<frmPrint>(), nullptr);
  EXPECT_EQ(desktop_->view("frmPrint"), nullptr);
}

TEST_F(Preview, AnEngineThatCantStartBeepsAndTheScreenStays) {
  start();
  openReport();
  const std::string table = engine().table();
  fillRecord();
  printer_.outOfOrder = true;
  QTest::mouseClick(widget<QPushButton>("cmdPrintMenu(0)"), Qt::LeftButton);
  EXPECT_EQ(beeper_.beeps, 1);
  EXPECT_TRUE(desktop_->view("frmPrint")->isVisible());
  EXPECT_EQ(engine().table(), table);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Preview, NothingIsPrintedOrSavedWhereNoReportWasMade) {
  start();
  printer_.outOfOrder = true;
  openReport();
  EXPECT_EQ(beeper_.beeps, 1);
  EXPECT_FALSE(widget<QPushButton>("print")->isEnabled());
  EXPECT_FALSE(widget<QPushButton>("savepdf")->isEnabled());
  EXPECT_EQ(widget<QLabel>("pageNumber")->text(), "No report");
}

TEST_F(Preview, SavesAsPdfWhereTheUserSays) {
  start();
  openReport();
  const QTemporaryDir folder;
  dialogs_.path = folder.filePath("report.pdf");
  QTest::mouseClick(widget<QPushButton>("savepdf"), Qt::LeftButton);
  EXPECT_EQ(dialogs_.offered, "Paycheck.pdf");
  QFile saved(dialogs_.path);
  ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
  EXPECT_TRUE(saved.read(5) == "%PDF-");
  EXPECT_EQ(widget<QLabel>("notice")->text(), "Saved as " + dialogs_.path);
}

TEST_F(Preview, TellsAFileThatCantBeWrittenUntilOneIs) {
  start();
  openReport();
  const QTemporaryDir folder;
  dialogs_.path = folder.filePath("missing/report.pdf");
  QTest::mouseClick(widget<QPushButton>("savepdf"), Qt::LeftButton);
  EXPECT_TRUE(widget<QLabel>("notice")->isVisible());
  EXPECT_TRUE(widget<QLabel>("notice")->text().contains(dialogs_.path));
  QCoreApplication::processEvents();
  EXPECT_GT(widget<QLabel>("notice")->y(), widget<QScrollArea>("vsPrinter1")->geometry().bottom());
  dialogs_.path = folder.filePath("report.pdf");
  QTest::mouseClick(widget<QPushButton>("savepdf"), Qt::LeftButton);
  EXPECT_EQ(widget<QLabel>("notice")->text(), "Saved as " + dialogs_.path);
}

TEST_F(Preview, TellsThatNoPrinterIsSetUp) {
  start();
  openReport();
  QTest::mouseClick(widget<QPushButton>("print"), Qt::LeftButton);
  EXPECT_TRUE(widget<QLabel>("notice")->isVisible());
  EXPECT_TRUE(widget<QLabel>("notice")->text().contains("No printer"));
  EXPECT_EQ(dialogs_.asked, 0);
  EXPECT_TRUE(widget<QPushButton>("savepdf")->isEnabled());
  QTest::mouseClick(widget<QPushButton>("cmdPrintMenu(0)"), Qt::LeftButton);
  EXPECT_FALSE(widget<QLabel>("notice")->isVisible());
}

TEST_F(Preview, PrintsFinelyUnderTheNameOfTheProgram) {
  start();
  openReport();
  dialogs_.onPrinter = [](QPrinter& printer) {
    EXPECT_GE(printer.resolution(), 600);
    EXPECT_EQ(printer.docName(), "Tallyfin 99");
    return false;
  };
  QTest::mouseClick(widget<QPushButton>("print"), Qt::LeftButton);
  EXPECT_EQ(dialogs_.asked, 1);
  EXPECT_EQ(dialogs_.somePages, false);
}

TEST_F(Preview, SetsTheReportInItsOwnLetters) {
  start();
  fillRecord();
  openReport();
  PrintEngine& report = desk.use<frmPrint>().vsPrinter1;
  auto* sheet = widget<QScrollArea>("vsPrinter1")->widget();
  const QImage plain = sheet->grab().toImage();
  report.setFont(12, true, false);
  const QImage bold = sheet->grab().toImage();
  report.setFont(12, false, true);
  const QImage italic = sheet->grab().toImage();
  EXPECT_NE(bold, plain);
  EXPECT_NE(italic, plain);
  EXPECT_NE(italic, bold);
}

TEST_F(Preview, EveryButtonHasAName) {
  start();
  openReport();
  for (const QPushButton* button : desktop_->view("frmPrint")->findChildren<QPushButton*>()) {
    EXPECT_FALSE(button->accessibleName().isEmpty()) << qPrintable(button->objectName());
    EXPECT_FALSE(button->toolTip().isEmpty()) << qPrintable(button->objectName());
  }
}

TEST(DesktopPointerTest, IsAnHourglassWhileBusyAndAsBeforeAfterwards) {
  DesktopPointer pointer;
  pointer.setBusy(true);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  pointer.setBusy(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  {
    DesktopPointer busyToTheEnd;
    busyToTheEnd.setBusy(true);
  }
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

// --- The help

class Help : public PaperTest {
 protected:
  void SetUp() override {
    PaperTest::SetUp();
    start();
  }

  HelpWindow* window() {
    QCoreApplication::processEvents();
    return static_cast<HelpWindow*>(desktop_->frame()->findChild<QDialog*>("help"));
  }
  QTextBrowser* page() { return window()->findChild<QTextBrowser*>(); }
  QTreeWidget* contents() { return window()->findChild<QTreeWidget*>(); }
  std::string heading() { return page()->document()->begin().text().toStdString(); }
  void press(const char* tool) {
    QTest::mouseClick(window()->findChild<QToolButton*>(QString::fromLatin1(tool)), Qt::LeftButton);
  }
  void pressKey(QWidget* on, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    on->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(on));
    QTest::keyClick(on, key, modifiers);
    ASSERT_NE(window(), nullptr);
  }
  static bool comesToTheFront(const QWidget* one) {
    return QTest::qWaitFor([one] { return QApplication::activeWindow() == one; });
  }
  void clickListBar(const char* key) {
    const QString name = QStringLiteral("SSListBar1(%1)").arg(QString::fromLatin1(key));
    desktop_->frame()->findChild<QAbstractButton*>(name)->click();
  }

  std::vector<std::string> listed() {
    std::vector<std::string> titles;
    for (QTreeWidgetItemIterator item(contents(), QTreeWidgetItemIterator::NotHidden); *item != nullptr; ++item) {
      titles.push_back((*item)->text(0).toStdString());
    }
    return titles;
  }
};

TEST_F(Help, ItemOpensTheFirstTopic) {
  clickListBar("Help");
  ASSERT_NE(window(), nullptr);
  EXPECT_TRUE(window()->isVisible());
  EXPECT_FALSE(window()->isModal());
  EXPECT_EQ(heading(), "Welcome to Tallyfin 99");
}

TEST_F(Help, ItemOfTheFormOpensItsFileAtContextTen) {
  clickListBar("W4Help");
  EXPECT_EQ(heading(), "Form W-4 from start to finish");
  EXPECT_EQ(contents()->currentItem()->text(0), "Form W-4 from start to finish");
}

TEST_F(Help, AnUnknownContextOpensTheFirstTopic) {
  platform.help->open("Tallyfin.hlp", 4711);
  EXPECT_EQ(heading(), "Welcome to Tallyfin 99");
}

TEST_F(Help, ContentsShowAPage) {
  clickListBar("Help");
  const auto found = contents()->findItems("Analysis", Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(found.size(), 1);
  contents()->setCurrentItem(found.front());
  EXPECT_EQ(heading(), "Analysis");
}

TEST_F(Help, ContentsListStatesBelowTheirPage) {
  clickListBar("Help");
  const auto found = contents()->findItems("Wisconsin", Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(found.size(), 1);
  EXPECT_EQ(found.front()->parent()->text(0), "State withholding");
  EXPECT_EQ(found.front()->toolTip(0), "Wisconsin");  // it may be cut off
}

TEST_F(Help, TheTitleOfABookShowsItsFirstTopicAndKeepsTheMark) {
  clickListBar("Help");
  QTreeWidgetItem* book = contents()->topLevelItem(1);
  contents()->setCurrentItem(book);
  EXPECT_EQ(heading(), "Form W-4 from start to finish");
  EXPECT_EQ(contents()->currentItem(), book);
}

TEST_F(Help, SearchOpensWhatItsHitsStandBelow) {
  clickListBar("Help");
  QTreeWidgetItem* states = contents()->findItems("State withholding", Qt::MatchExactly | Qt::MatchRecursive).front();
  states->setExpanded(false);
  auto* search = window()->findChild<QLineEdit*>("search");
  search->setText("   ");
  EXPECT_FALSE(states->isExpanded());
  search->setText("Wisconsin");
  EXPECT_TRUE(states->isExpanded());
}

TEST_F(Help, SearchKeepsThePagesThatHaveAllWords) {
  clickListBar("Help");
  const std::size_t all = listed().size();
  auto* search = window()->findChild<QLineEdit*>("search");
  QTest::keyClicks(search, "preview ZOOM");
  EXPECT_THAT(listed(), testing::ElementsAre("Tallyfin 99 Help", "Print preview", "Working with the keyboard"));
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(heading(), "Print preview");
  const auto hits = page()->extraSelections();
  ASSERT_FALSE(hits.isEmpty());
  for (const auto& hit : hits) {
    EXPECT_THAT(hit.cursor.selectedText().toLower().toStdString(), testing::AnyOf("preview", "zoom"));
  }
  search->clear();
  EXPECT_EQ(listed().size(), all);
  EXPECT_TRUE(page()->extraSelections().isEmpty());
}

TEST_F(Help, SearchForWhatIsNowhereSaysSo) {
  clickListBar("Help");
  auto* nothing = window()->findChild<QLabel*>("nothing");
  EXPECT_FALSE(nothing->isVisible());
  QTest::keyClicks(window()->findChild<QLineEdit*>("search"), "xylophone");
  EXPECT_TRUE(listed().empty());
  EXPECT_TRUE(nothing->isVisible());
  window()->findChild<QLineEdit*>("search")->clear();
  EXPECT_FALSE(nothing->isVisible());
}

TEST_F(Help, LeavesRoomForTheSearchInASmallWindow) {
  clickListBar("Help");
  window()->resize(1, 1);
  QApplication::processEvents();
  EXPECT_GE(window()->findChild<QLineEdit*>("search")->width(), 80);
}

TEST_F(Help, GoesBackForwardAndHome) {
  clickListBar("Help");
  const auto* back = window()->findChild<QToolButton*>("previous");
  EXPECT_FALSE(back->isEnabled());
  clickListBar("W4Help");
  EXPECT_TRUE(back->isEnabled());
  press("previous");
  EXPECT_EQ(heading(), "Welcome to Tallyfin 99");
  EXPECT_EQ(contents()->currentItem()->text(0), "Welcome to Tallyfin 99");
  press("next");
  EXPECT_EQ(heading(), "Form W-4 from start to finish");
  press("home");
  EXPECT_EQ(heading(), "Welcome to Tallyfin 99");
  press("previous");
  EXPECT_EQ(heading(), "Form W-4 from start to finish");
}

TEST_F(Help, LinksLeadWithinTheFileAndToTheOther) {
  clickListBar("Help");
  Q_EMIT page()->anchorClicked(QUrl("#frmMain"));
  EXPECT_EQ(heading(), "The main screen");
  EXPECT_EQ(contents()->currentItem()->text(0), "The main screen");
  Q_EMIT page()->anchorClicked(QUrl("W4.hlp#10"));
  EXPECT_EQ(heading(), "Form W-4 from start to finish");
  Q_EMIT page()->anchorClicked(QUrl("#hoh"));
  EXPECT_EQ(heading(), "Head Of Household");
  Q_EMIT page()->anchorClicked(QUrl("Tallyfin.hlp#oddities"));
  EXPECT_EQ(heading(), "Known oddities");
}

TEST_F(Help, TheKeyboardFollowsALink) {
  clickListBar("Help");
  page()->setFocus();
  QTest::keyClick(page(), Qt::Key_Tab);  // to the first link
  QTest::keyClick(page(), Qt::Key_Return);
  EXPECT_NE(heading(), "Welcome to Tallyfin 99");
  contents()->setCurrentItem(contents()->findItems("Head Of Household", Qt::MatchExactly | Qt::MatchRecursive).front());
  Q_EMIT page()->anchorClicked(page()->source().resolved(QUrl("Tallyfin.hlp#oddities")));
  EXPECT_EQ(heading(), "Known oddities");
}

TEST_F(Help, LinksToElsewhereArentOpened) {
  clickListBar("Help");
  Q_EMIT page()->anchorClicked(QUrl("https://example.org/#frmMain"));
  EXPECT_EQ(heading(), "Welcome to Tallyfin 99");
}

TEST_F(Help, AllLinksOfBothFilesLeadToATopic) {
  static const QRegularExpression link("href=\"([^\"#]*)#?([^\"]*)\"");
  HelpFiles files(HelpFiles::usualFolders());
  int links = 0;
  for (const QString& file : HelpFiles::files) {
    const HelpFile* help = files.find(file);
    ASSERT_NE(help, nullptr) << qPrintable(file);
    for (const HelpTopic& topic : help->topics) {
      for (auto next = link.globalMatch(topic.html); next.hasNext(); ++links) {
        const auto match = next.next();
        const HelpFile* target = files.find(match.captured(1).isEmpty() ? file : match.captured(1));
        ASSERT_NE(target, nullptr) << qPrintable(match.captured());
        EXPECT_NE(target->find(match.captured(2)), nullptr) << qPrintable(match.captured());
      }
    }
  }
  EXPECT_GT(links, 100);
}

TEST_F(Help, EveryScreenHasItsTopicInOneFile) {
  HelpFiles files(HelpFiles::usualFolders());
  for (const char* screen : {"MDIOpen", "frmMain", "frmState", "frmName", "frmMisc", "frmMultiCheck", "frmAnalysis",
                             "frmPrint", "frmAbt", "MsgBox"}) {
    EXPECT_NE(files.find("Tallyfin.hlp")->find(screen), nullptr) << screen;
  }
  for (const char* screen : {"frmPersWkSht", "frmDednAdj", "frm2Workers", "frmTableOne", "frmCalendar", "frmW4"}) {
    EXPECT_NE(files.find("W4.hlp")->find(screen), nullptr) << screen;
  }
}

TEST_F(Help, F1OpensTheTopicOfTheActiveDocument) {
  pressKey(desktop_->frame(), Qt::Key_F1);
  EXPECT_EQ(heading(), "The main screen");
  openReport();
  pressKey(desktop_->frame(), Qt::Key_F1);
  EXPECT_EQ(heading(), "Print preview");
  clickListBar("Pers");
  pressKey(desktop_->frame(), Qt::Key_F1);
  EXPECT_EQ(heading(), "Personal Allowances Worksheet");
}

TEST_F(Help, F1BringsTheHelpToTheFront) {
  pressKey(desktop_->frame(), Qt::Key_F1);
  ASSERT_TRUE(comesToTheFront(window()));
  desktop_->frame()->activateWindow();
  ASSERT_TRUE(comesToTheFront(desktop_->frame()));
  QTest::keyClick(desktop_->frame(), Qt::Key_F1);
  EXPECT_TRUE(comesToTheFront(window()));
}

TEST_F(Help, F1BeneathTheAboutBoxOpensTheTopicOfThePage) {
  clickListBar("About");
  desktop_->frame()->activateWindow();
  ASSERT_TRUE(comesToTheFront(desktop_->frame()));
  QTest::keyClick(desktop_->frame(), Qt::Key_F1);
  EXPECT_EQ(heading(), "The main screen");
}

TEST_F(Help, F1OnTheWarningOpensItsTopic) {
  clickListBar("Analysis");  // nothing to analyse
  pressKey(desktop_->view("MsgBox")->window(), Qt::Key_F1);
  EXPECT_EQ(heading(), "\"Analysis\" before any calculation");
}

TEST_F(Help, F1OnHelpKeepsToThePageThatItIsAbout) {
  clickListBar("About");
  pressKey(desktop_->frame(), Qt::Key_F1);
  clickListBar("Help");
  pressKey(window(), Qt::Key_F1);
  EXPECT_EQ(heading(), "The main screen");
  QWidget* about = desktop_->view("frmAbt")->window();
  about->activateWindow();
  ASSERT_TRUE(comesToTheFront(about));
  QTest::keyClick(about, Qt::Key_F1);
  EXPECT_EQ(heading(), "About Tallyfin 99");
}

TEST_F(Help, F1WithoutADocumentOpensTheFirstTopic) {
  while (desk.activeDocument() != nullptr) desk.closeActiveDocument();
  pressKey(desktop_->frame(), Qt::Key_F1);
  EXPECT_EQ(heading(), "Welcome to Tallyfin 99");
}

TEST_F(Help, KeysGoBackSearchAndClose) {
  clickListBar("Help");
  clickListBar("W4Help");
  pressKey(window(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return heading() == "Welcome to Tallyfin 99"; })) << heading();
  pressKey(window(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(window()->focusWidget()->objectName(), "search");
  QTest::keyClicks(window()->focusWidget(), "tax");
  pressKey(window(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(window()->findChild<QLineEdit*>("search")->selectedText(), "tax");
  pressKey(window(), Qt::Key_Escape);
  EXPECT_FALSE(window()->isVisible());
}

TEST_F(Help, AMissingFileIsToldByNameAndPlace) {
  QTemporaryDir nowhere;
  QTemporaryDir neither;
  DesktopHelp help({nowhere.path(), neither.path()});
  help.serve(*desktop_->frame());
  help.open("Tallyfin.hlp", 0);
  const auto* notice = desktop_->frame()->findChild<QLabel*>("notice", Qt::FindDirectChildrenOnly);
  EXPECT_TRUE(notice->isVisible());
  EXPECT_EQ(notice->text().toStdString(), "The help file Tallyfin.hlp can't be found in " +
                                              nowhere.path().toStdString() + " or " + neither.path().toStdString() +
                                              ".");
  EXPECT_FALSE(help.window()->isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  clickListBar("Help");  // which is there, and takes the line away
  EXPECT_FALSE(notice->isVisible());
}

TEST_F(Help, AMissingFileLeavesTheOtherOpen) {
  QTemporaryDir folder;
  ASSERT_TRUE(QFile::copy(QDir(HelpFiles::usualFolders().front()).filePath("W4.hlp"), folder.filePath("W4.hlp")));
  DesktopHelp help({folder.path()});
  help.serve(*desktop_->frame());
  help.open("W4.hlp", 10);
  auto* shown = help.window()->findChild<QTextBrowser*>();
  EXPECT_EQ(shown->document()->begin().text(), "Form W-4 from start to finish");
  Q_EMIT shown->anchorClicked(QUrl("Tallyfin.hlp#frmMain"));
  const auto* notice = help.window()->findChild<QLabel*>("notice");
  EXPECT_TRUE(notice->isVisible());
  EXPECT_TRUE(notice->text().contains("Tallyfin.hlp"));
  QCoreApplication::processEvents();
  EXPECT_GT(notice->y(), shown->mapTo(help.window(), shown->rect().bottomLeft()).y());
  EXPECT_EQ(shown->document()->begin().text(), "Form W-4 from start to finish");
}

TEST_F(Help, TheNoticeOfAMissingFileGoesWithTheNextTopic) {
  QTemporaryDir folder;
  ASSERT_TRUE(QFile::copy(QDir(HelpFiles::usualFolders().front()).filePath("W4.hlp"), folder.filePath("W4.hlp")));
  DesktopHelp help({folder.path()});
  help.serve(*desktop_->frame());
  help.open("W4.hlp", 10);
  auto* shown = help.window()->findChild<QTextBrowser*>();
  const auto* notice = help.window()->findChild<QLabel*>("notice");
  Q_EMIT shown->anchorClicked(QUrl("Tallyfin.hlp#frmMain"));
  EXPECT_TRUE(notice->isVisible());
  Q_EMIT shown->anchorClicked(QUrl("W4.hlp#frmCalendar"));
  EXPECT_FALSE(notice->isVisible());
}

TEST(HelpFileTest, IsTakenApartAtItsHeadingsOfTheFirstOrder) {
  const HelpFile help = HelpFile::read("X.hlp",
                                       "<html><head><title>A &amp; B</title></head><body><p>before</p>"
                                       "<h1 id=\"one\">First <i>one</i></h1><p>1</p><h2>more</h2>"
                                       "<h1 id=\"2\">Second</h1><p>2</p></body></html>");
  EXPECT_EQ(help.title, "A & B");
  ASSERT_EQ(help.topics.size(), 2U);
  EXPECT_EQ(help.topics[0].id, "one");
  EXPECT_EQ(help.topics[0].title, "First one");
  EXPECT_EQ(help.topics[0].html, "<h1 id=\"one\">First <i>one</i></h1><p>1</p><h2>more</h2>");
  EXPECT_EQ(help.find("2")->html, "<h1 id=\"2\">Second</h1><p>2</p>");
  EXPECT_EQ(help.find("3"), nullptr);
}

}  // namespace

}  // namespace tallyfin::qt
