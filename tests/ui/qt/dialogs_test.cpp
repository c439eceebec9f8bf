#include "ui/qt/frame/dialogs.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QTimer>
#include <set>

#include "desktoptest.h"
#include "ui/qt/frame/focusring.h"

/// The dialog for a PDF file when it opens.

namespace tallyfin::qt {

namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

class PdfDialog : public DesktopTest {
 protected:
  using Answer = std::function<void(QWidget&)>;

  PdfDialog() {
    dialogs.onPdf = [](QWidget& asking, const QString& offered) { return SystemDialogs().choosePdf(asking, offered); };
  }

  /// Prints the form, and answers the dialogs that open in turn.
  void printForm(std::vector<Answer> answers) {
    answerWith(std::move(answers));
    startOnMain();
    clickItem("W4");
    QTest::keyClick(&frame(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(answers_.empty());
    EXPECT_FALSE(frame().findChild<QLabel*>("notice", Qt::FindDirectChildrenOnly)->isVisible());
  }

  void answerWith(std::vector<Answer> answers) {
    answers_ = std::move(answers);
    answerNext();
  }

  /// Enters the name of a file.
  static Answer name(const QString& path) {
    return [path](QWidget& dialog) {
      auto* edit = qobject_cast<QLineEdit*>(dialog.focusWidget());
      ASSERT_NE(edit, nullptr);
      EXPECT_EQ(edit->text(), "Form W-4.pdf");  // the default name
      EXPECT_EQ(dialog.windowTitle(), "Save as PDF");
      EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).nameFilters(), QStringList("PDF files (*.pdf)"));
      expectNoMark(dialog);
      edit->setText(path);  // setText, because typing would complete it
      QTest::keyClick(edit, Qt::Key_Return);
    };
  }
  /// The focus ring is only for the program's windows; Qt's dialogs draw their own.
  static void expectNoMark(QWidget& dialog) {
    ASSERT_TRUE(QTest::qWaitFor([&dialog] { return dialog.isAncestorOf(QApplication::focusWidget()); }));
    for (const QObject* part : dialog.findChildren<QWidget*>()) {
      EXPECT_EQ(dynamic_cast<const FocusRing*>(part), nullptr);
    }
  }
  static Answer button(QMessageBox::StandardButton button) {
    return [button](QWidget& dialog) {
      auto* box = qobject_cast<QMessageBox*>(&dialog);
      ASSERT_NE(box, nullptr);
      box->button(button)->click();
    };
  }
  static void escape(QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }

  QString inFolder(const char* file) const { return files_.filePath(QString::fromLatin1(file)); }
  std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const QString& name : QDir(files_.path()).entryList(QDir::Files)) names.push_back(name.toStdString());
    return names;
  }
  static std::string content(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    return file.readAll().toStdString();
  }
  static void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(content);
  }

 private:
  void answerNext() {
    QTimer::singleShot(20, &frameless_, [this] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (dialog == nullptr || dialog == answered_) return answerNext();
      answered_ = dialog;
      const Answer answer = answers_.front();
      answers_.erase(answers_.begin());
      if (!answers_.empty()) answerNext();
      answer(*dialog);
    });
  }

  QObject frameless_;
  QTemporaryDir files_;
  std::vector<Answer> answers_;
  QPointer<QWidget> answered_;
};

TEST_F(PdfDialog, GivesTheFormItsEnding) {
  printForm({name(inFolder("mine"))});
  EXPECT_THAT(files(), ElementsAre("mine.pdf"));
  EXPECT_THAT(content(inFolder("mine.pdf")), StartsWith("%PDF-"));
}

TEST_F(PdfDialog, ReplacesAFileOnlyWhenTheUserSaysSo) {
  write(inFolder("form.pdf"), "old");
  printForm({name(inFolder("form")), button(QMessageBox::No), escape});
  EXPECT_EQ(content(inFolder("form.pdf")), "old");
  EXPECT_THAT(files(), ElementsAre("form.pdf"));
}

TEST_F(PdfDialog, ReplacesAFileWhenTheUserSaysSo) {
  write(inFolder("form.pdf"), "old");
  printForm({name(inFolder("form")), button(QMessageBox::Yes)});
  EXPECT_THAT(content(inFolder("form.pdf")), StartsWith("%PDF-"));
}

TEST_F(PdfDialog, KeepsNoSettings) {
  printForm({escape});
  const QString file = QSettings(QSettings::UserScope, QStringLiteral("QtProject")).fileName();
  EXPECT_FALSE(QFile::exists(file)) << file.toStdString();
}

// --- The form on paper

class FormOnPaper : public DesktopTest {
 protected:
  QByteArray saved() {
    QTest::keyClick(&frame(), Qt::Key_P, Qt::ControlModifier);
    QFile file(dialogs.path);
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    return file.readAll();
  }

  QTemporaryDir folder_;
};

TEST_F(FormOnPaper, FillsThePage) {
  dialogs.path = folder_.filePath("form.pdf");
  startOnMain();
  clickItem("W4");
  saved();
  QProcess reader;
  reader.start("pdftotext", {"-bbox", dialogs.path, "-"});
  ASSERT_TRUE(reader.waitForFinished()) << "pdftotext is needed";
  static const QRegularExpression edge("xMax=\"([\\d.]+)\"");
  double right = 0;
  const QString words = QString::fromUtf8(reader.readAllStandardOutput());
  for (auto next = edge.globalMatch(words); next.hasNext();)
    right = std::max(right, next.next().captured(1).toDouble());
  EXPECT_GT(right, 550);  // of 612
  EXPECT_LT(right, 612);
}

TEST_F(FormOnPaper, HasNoFocusRing) {
  dialogs.path = folder_.filePath("form.pdf");
  startOnMain();
  clickItem("W4");
  find("frmW4", "optSingle").setFocus(Qt::TabFocusReason);
  settle();
  const QByteArray withKeyboard = saved();
  find("MDIOpen", "group File").setFocus(Qt::TabFocusReason);
  settle();
  EXPECT_EQ(withKeyboard.size(), saved().size());
}

/// On paper a long address isn't cut off and has a readable font; one that would need a smaller font takes two lines.
TEST_F(FormOnPaper, HasWholeTextsWithoutSelectionOrCursor) {
  dialogs.path = folder_.filePath("form.pdf");
  const QString address = "17 North Second Street, Apt 3";
  const QString city = "Saint Bartholomew upon the Upper Western Shore of Lake Winnibigoshish, MN 56601-2345";
  stored(section::user, "UName", "Pat Q. Sample");
  stored(section::user, "UAdd", address.toStdString());
  stored(section::user, "UCity", city.toStdString());
  startOnMain();
  clickItem("W4");
  ASSERT_EQ(find<QLineEdit>("frmW4", "txtName").selectedText(), "Pat Q. Sample");
  saved();
  QProcess reader;
  reader.start("pdftotext", {"-bbox", dialogs.path, "-"});
  ASSERT_TRUE(reader.waitForFinished()) << "pdftotext is needed";
  const QString page = QString::fromUtf8(reader.readAllStandardOutput());
  const auto expectWhole = [&](const QString& text, int lines) {
    double left = 612;
    double right = 0;
    std::set<int> tops;
    for (const QString& word : text.split(' ')) {
      if (word.size() < 4) continue;  // it may be elsewhere on the form too
      const QRegularExpression place("xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">" +
                                     QRegularExpression::escape(word) + "<");
      const auto found = place.match(page);
      ASSERT_TRUE(found.hasMatch()) << word.toStdString();
      left = std::min(left, found.captured(1).toDouble());
      right = std::max(right, found.captured(3).toDouble());
      tops.insert(qRound(found.captured(2).toDouble()));
      EXPECT_GE(found.captured(4).toDouble() - found.captured(2).toDouble(), 7) << word.toStdString();
    }
    EXPECT_GT(left, 20) << text.toStdString();
    EXPECT_LT(right, 270) << text.toStdString();  // the left half of the form
    EXPECT_EQ(tops.size(), static_cast<std::size_t>(lines)) << text.toStdString();
  };
  expectWhole(address, 1);
  expectWhole(city, 2);
  reader.start("pdftoppm", {"-r", "72", "-png", dialogs.path});
  ASSERT_TRUE(reader.waitForFinished()) << "pdftoppm is needed";
  const QImage picture = QImage::fromData(reader.readAllStandardOutput());
  ASSERT_FALSE(picture.isNull());
  int coloured = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) coloured += picture.pixelColor(x, y).saturation() > 64 ? 1 : 0;
  }
  EXPECT_EQ(coloured, 0);
}

/// The longest text of one line has the smallest letters that can be read, of 7 points or the next whole pixel; one
/// word more takes two lines of letters that aren't smaller.
TEST_F(FormOnPaper, BeginsASecondLineWhereOneLineWouldBeTooSmallToRead) {
  dialogs.path = folder_.filePath("form.pdf");
  struct Letters {
    std::size_t lines;
    double points;
  };
  startOnMain();
  clickItem("W4");
  const QFont letters = find("frmW4", "txtCity").font();
  const int pixels = QFontInfo(letters).pixelSize();
  const double heightOfAPoint = QFontMetricsF(letters).height() / pixels;
  const auto lettersOf = [&](int words) {
    find<QLineEdit>("frmW4", "txtCity").setText(QStringLiteral("ii ").repeated(words).trimmed());
    settle();
    saved();
    QProcess reader;
    reader.start("pdftotext", {"-bbox", dialogs.path, "-"});
    EXPECT_TRUE(reader.waitForFinished()) << "pdftotext is needed";
    static const QRegularExpression word("yMin=\"([\\d.]+)\" xMax=\"[\\d.]+\" yMax=\"([\\d.]+)\">ii<");
    std::set<int> tops;
    double height = 0;
    const QString page = QString::fromUtf8(reader.readAllStandardOutput());
    for (auto next = word.globalMatch(page); next.hasNext();) {
      const auto found = next.next();
      tops.insert(qRound(found.captured(1).toDouble()));
      height = found.captured(2).toDouble() - found.captured(1).toDouble();
    }
    return Letters{tops.size(), height / heightOfAPoint};
  };
  const double pixel = lettersOf(1).points / pixels;  // letters have whole pixels
  int fits = 1;
  int breaks = 100;
  while (breaks - fits > 1) {
    const int words = (fits + breaks) / 2;
    (lettersOf(words).lines == 1 ? fits : breaks) = words;
  }
  const Letters one = lettersOf(fits);
  const Letters two = lettersOf(breaks);
  EXPECT_EQ(one.lines, 1U);
  EXPECT_GE(one.points, 7);
  EXPECT_LT(one.points - pixel, 7);
  EXPECT_EQ(two.lines, 2U);
  EXPECT_GE(two.points, 7);
}

/// The dialog for a printer, answered as it comes up.
class PrinterDialog : public PdfDialog {
 protected:
  bool chosen(bool somePages, const Answer& answer) {
    QPrinter printer;
    answerWith({[&](QWidget& dialog) {
      EXPECT_EQ(dynamic_cast<QPrintDialog&>(dialog).testOption(QAbstractPrintDialog::PrintPageRange), somePages);
      answer(dialog);
    }});
    return SystemDialogs().choosePrinter(frame(), printer, somePages);
  }
};

TEST_F(PrinterDialog, OffersSomePagesWhereThereAreSome) {
  startOnMain();
  const auto reject = [](QWidget& dialog) {
    expectNoMark(dialog);
    dynamic_cast<QDialog&>(dialog).reject();
  };
  EXPECT_FALSE(chosen(true, reject));
  EXPECT_FALSE(chosen(false, reject));
  EXPECT_TRUE(chosen(false, [](QWidget& dialog) { dynamic_cast<QDialog&>(dialog).QDialog::accept(); }));
}

// --- A file that can't be written is told in the window that asked.

class UnwritableFile : public DesktopTest {
 protected:
  UnwritableFile() {
    startOnMain();
    click("frmMain", "cmdToolBar(0)");
    dialogs.path = "/dev/null/paper.pdf";
  }

  static void expectTold(const QWidget& window, const char* what) {
    const auto* notice = window.findChild<QLabel*>("notice");
    EXPECT_TRUE(notice->isVisible());
    EXPECT_THAT(notice->text().toStdString(),
                StartsWith(std::string("The ") + what + " couldn't be saved. /dev/null/"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
};

TEST_F(UnwritableFile, OfTheReport) {
  click("frmMain", "cmdToolBar(1)");
  click("frmPrint", "savepdf");
  expectTold(view("frmPrint"), "report");
}

TEST_F(UnwritableFile, OfTheForm) {
  clickItem("W4");
  QTest::keyClick(&frame(), Qt::Key_P, Qt::ControlModifier);
  expectTold(frame(), "form");
}

TEST_F(UnwritableFile, OfTheExplanation) {
  auto& results = find<QTableWidget>("frmMain", "dbgDisplay");
  results.setFocus();
  results.setCurrentCell(0, 0);
  QTest::keyClick(&results, Qt::Key_Return);
  const auto& window = *frame().findChild<QDialog*>("explanation");
  auto& print = *window.findChild<QPushButton*>("print");
  click(print);
  expectTold(window, "explanation");
  settle();
  EXPECT_GT(window.findChild<QLabel*>("notice")->y(), window.findChild<QWidget*>("figures")->geometry().bottom());
  const QTemporaryDir folder;
  dialogs.path = folder.filePath("explanation.pdf");
  click(print);
  EXPECT_EQ(window.findChild<QLabel*>("notice")->text(), "Saved as " + dialogs.path);
  EXPECT_TRUE(QFile::exists(dialogs.path));
}

}  // namespace

}  // namespace tallyfin::qt
