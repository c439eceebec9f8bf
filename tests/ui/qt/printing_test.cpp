#include <QDir>
#include <QFile>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

#include "controls/desk.h"
#include "desktoptest.h"
#include "ui/qt/widgets/text.h"

/// Printed pages, and messages of failures. Runs with the print server of the script `printing`.

namespace tallyfin::qt {

namespace {

using testing::AllOf;
using testing::HasSubstr;

std::string answerOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  process.waitForFinished();
  return process.readAllStandardOutput().toStdString();
}

void administer(const QStringList& arguments) { answerOf(qEnvironmentVariable("LPADMIN"), arguments); }

class Printing : public DesktopTest {
 protected:
  Printing() {
    QDir folder(qEnvironmentVariable("PRINTED"));
    for (const QString& file : folder.entryList(QDir::Files)) folder.remove(file);
  }

  /// Waits until the file that a queue writes stops growing.
  static QString arrived(const char* queue) {
    QString path = QDir(qEnvironmentVariable("PRINTED")).filePath(QLatin1String(queue) + ".pdf");
    const auto whole = [&] { return answerOf("pdfinfo", {path}).find("Page size") != std::string::npos; };
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path) && QFile(path).size() > 0 && whole(); }, 20000))
        << queue;
    return path;
  }

  /// Chooses a queue and a paper size in the dialog.
  void choosePrinter(const char* queue, QPageSize::PageSizeId paper) {
    dialogs.onPrinter = [=](QPrinter& printer) {
      printer.setPrinterName(QLatin1String(queue));
      printer.setPageSize(QPageSize(paper));
      return true;
    };
  }

  void printReport(const char* queue, QPageSize::PageSizeId paper) {
    stored(section::settings, "IncAmt", "1000");
    stored(section::settings, "Frequency", "0");
    if (!desk.running()) startOnMain();
    click("frmMain", "cmdToolBar(0)");
    click("frmMain", "cmdToolBar(1)");
    choosePrinter(queue, paper);
    click("frmPrint", "print");
    settle();
  }

  void printForm(const char* queue, QPageSize::PageSizeId paper) {
    if (!desk.running()) startOnMain();
    clickItem("W4");
    choosePrinter(queue, paper);
    QTest::keyClick(&frame(), Qt::Key_P, Qt::ControlModifier);
    settle();
  }

  std::string told() const {
    return frame().findChild<QLabel*>("notice", Qt::FindDirectChildrenOnly)->text().toStdString();
  }
};

/// All words of a file must be within its margins, in points.
void expectWithin(const QString& path, double margin, double width, double height) {
  static const QRegularExpression word(R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">)re");
  const QString words = qt::text(answerOf("pdftotext", {"-bbox", path, "-"}));
  int found = 0;
  for (auto next = word.globalMatch(words); next.hasNext(); ++found) {
    const auto place = next.next();
    EXPECT_GE(place.captured(1).toDouble(), margin);
    EXPECT_GE(place.captured(2).toDouble(), margin / 2);
    EXPECT_LE(place.captured(3).toDouble(), width - margin);
    EXPECT_LE(place.captured(4).toDouble(), height - margin / 2);
  }
  EXPECT_GT(found, 20);
}

TEST_F(Printing, TheReportArrivesOnLetterPaper) {
  printReport("letter", QPageSize::Letter);
  const QString file = arrived("letter");
  EXPECT_THAT(answerOf("pdfinfo", {file}), HasSubstr("612 x 792"));
  EXPECT_THAT(answerOf("pdftotext", {"-layout", file, "-"}), AllOf(HasSubstr("Gross"), HasSubstr("$1,000.00")));
  expectWithin(file, 70, 612, 792);  // an inch, less the space beside a word
}

TEST_F(Printing, TheReportArrivesOnA4) {
  printReport("a4", QPageSize::A4);
  const QString file = arrived("a4");
  EXPECT_THAT(answerOf("pdfinfo", {file}), HasSubstr("595"));
  EXPECT_THAT(answerOf("pdftotext", {"-layout", file, "-"}), AllOf(HasSubstr("Gross"), HasSubstr("$1,000.00")));
  expectWithin(file, 70, 595, 842);
}

TEST_F(Printing, TheFormArrivesOnBothPapers) {
  printForm("letter", QPageSize::Letter);
  EXPECT_THAT(answerOf("pdftotext", {arrived("letter"), "-"}), HasSubstr("Withholding Allowance Certificate"));
  EXPECT_EQ(told(), "");
  printForm("a4", QPageSize::A4);
  EXPECT_THAT(answerOf("pdftotext", {arrived("a4"), "-"}), HasSubstr("Withholding Allowance Certificate"));
}

TEST_F(Printing, ReportsAQueueThatRejects) {
  answerOf("cupsreject", {"letter"});
  printReport("letter", QPageSize::Letter);
  EXPECT_THAT(text("frmPrint", "notice"),
              AllOf(HasSubstr("The report couldn't be printed. "), HasSubstr("not accepting jobs")));
  printForm("letter", QPageSize::Letter);
  EXPECT_THAT(told(), AllOf(HasSubstr("The form couldn't be printed. "), HasSubstr("not accepting jobs")));
  answerOf("cupsaccept", {"letter"});
}

TEST_F(Printing, ReportsAPrinterThatIsGone) {
  const QStringList add{
      "-p", "lost", "-E", "-v", "file:/dev/null", "-m", "lsb/usr/cupsfilters/Generic-PDF_Printer-PDF.ppd"};
  administer(add);
  startOnMain();
  clickItem("W4");
  dialogs.onPrinter = [](QPrinter& printer) {
    printer.setPrinterName("lost");
    administer({"-x", "lost"});
    return true;
  };
  QTest::keyClick(&frame(), Qt::Key_P, Qt::ControlModifier);
  settle();
  EXPECT_EQ(told(), "The form couldn't be printed. The printer lost is gone.");
  EXPECT_TRUE(shown("frmW4"));
}

}  // namespace

}  // namespace tallyfin::qt
