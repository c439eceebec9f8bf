#include "snapshot.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include "controls/desk.h"
#include "engine/paydata.h"
#include "everyscreen.h"
#include "platform/platform.h"
#include "standingclock.h"
#include "ui/frmPrint.h"

/// Snapshot tests: compares every screen and window with the snapshots in the folder snapshots. --rewrite writes the
/// snapshots, in a second run those that are stored as differences: read the change before you commit it. Other
/// versions of Qt draw some of it differently.

namespace tallyfin::qt {

namespace {

/// Before the application starts: one font, drawn equally on all computers, and one language.
const bool prepared = qputenv("FONTCONFIG_FILE", TALLYFIN_SNAPSHOTS "/fonts.conf") && qputenv("LC_ALL", "C.UTF-8") &&
                      qputenv("TZ", "UTC");

std::string joined(const QStringList& lines) { return lines.join(QLatin1Char('\n')).toStdString() + '\n'; }

QString pathOf(const QString& name) { return QStringLiteral(TALLYFIN_SNAPSHOTS "/%1.txt").arg(name); }

/// The output of `diff` for a stored snapshot and this text.
std::string differenceFrom(const QString& name, const std::string& text) {
  QProcess diff;
  diff.start(QStringLiteral("diff"), {pathOf(name), QStringLiteral("-")});
  diff.write(text.data(), static_cast<qint64>(text.size()));
  diff.closeWriteChannel();
  EXPECT_TRUE(diff.waitForFinished(-1) && diff.exitCode() < 2) << diff.readAllStandardError().toStdString();
  return diff.readAllStandardOutput().toStdString();
}

/// A snapshot that is similar to another one is stored as the difference, below the line "like NAME".
void compare(const char* name, const QStringList& lines) {
  static const QRegularExpression like(QStringLiteral("^like (.+)\n"));
  QFile file(pathOf(QLatin1String(name)));
  const QString stored = file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
  file.close();
  std::string seen = joined(lines);
  if (const auto other = like.match(stored); other.hasMatch()) {
    seen = other.captured().toStdString() + differenceFrom(other.captured(1), seen);
  }
  if (QCoreApplication::arguments().contains(QStringLiteral("--rewrite"))) {
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    ASSERT_EQ(file.write(seen.data(), static_cast<qint64>(seen.size())), static_cast<qint64>(seen.size()));
    return;
  }
  ASSERT_FALSE(stored.isEmpty()) << name << " isn't written down";
  EXPECT_EQ(stored.toStdString(), seen) << "in " << name;
}

/// The version of Qt with which the snapshots were made.
constexpr std::string_view madeWith = "6.4.";

class Snapshots : public EveryScreen {
 protected:
  Snapshots() { EXPECT_TRUE(prepared); }

  void SetUp() override {
    EveryScreen::SetUp();
    const std::string_view version = qVersion();
    if (!version.starts_with(madeWith)) {
      GTEST_SKIP() << "The snapshots are of Qt " << madeWith << "x; this is Qt " << version << '.';
    }
  }

  void startOnMainInMay() {
    startOnMain();
    platform.clock = &clock_;
  }

  /// A screen with its title strip, or its window.
  void see(const char* name, const Screen& screen) const {
    QWidget* part = desktop().view(screen.name());
    if (screen.place() == Place::frame) return compare(name, snapshotOf(*part, &frame().area()));
    while (screen.place() == Place::document ? part->parentWidget() != &frame().area() : !part->isWindow()) {
      part = part->parentWidget();
    }
    compare(name, snapshotOf(*part));
  }
  void see(const char* name, const char* screen) const { see(name, *desk.find(screen)); }
  void seeFrame(const char* name) const { compare(name, snapshotOf(frame(), &frame().area())); }
  /// A window beside the frame.
  void seeWindow(const char* name, const char* object) const {
    auto* window = frame().findChild<QWidget*>(object);
    ASSERT_NE(window, nullptr);
    compare(name, snapshotOf(*window));
  }

  static void point(const QWidget& widget) {
    QCursor::setPos(widget.mapToGlobal(widget.rect().center()));
    settle();
  }

  /// A weekly paycheck in which all figures differ.
  void enterPaycheck() const {
    choose("frmMain", "lstFrequency", "Weekly");
    choose("frmMain", "cboExemptions", "2");
    click("frmMain", "optStatus(1)");
    choose("frmMain", "cboState", "Pennsylvania");
    type("frmMain", "txtIncome", "1000");
    type("frmMain", "txtHours", "37.5");
    type("frmMain", "txt401k", "6");
    type("frmMain", "txtPreTax", "20");
    type("frmMain", "txtPreFICA", "30");
    click("frmMain", "cmdAdditional(0)");
    type("frmMisc", "txtTaxPerCnt", "2");
    click("frmMisc", "cmdExit(0)");
    click("frmMain", "cmdToolBar(0)");
  }

 private:
  StandingClock clock_;
};

TEST_F(Snapshots, TheLook) { compare("look", snapshotOfTheLook()); }

TEST_F(Snapshots, EveryScreen) {
  int number = 0;
  StandingClock clock;
  onEveryScreen([&](const Screen& screen) {
    platform.clock = &clock;
    see(QStringLiteral("every-%1-%2").arg(++number, 2, 10, QLatin1Char('0')).arg(screen.name().c_str()).toLatin1(),
        screen);
  });
  EXPECT_EQ(number, 21);
}

TEST_F(Snapshots, TheFirstStart) {
  start();
  type("frmName", "txtName", "Pat Q. Sample");
  type("frmName", "txtSSN", "123456789");
  click("frmName", "optMaritalStatus(1)");
  see("first-start", "frmName");
}

TEST_F(Snapshots, ThePaycheck) {
  startOnMainInMay();
  enterPaycheck();
  see("paycheck", "frmMain");
  click("frmMain", "cmdAdditional(1)");
  type("frmMisc", "txtRaise(0)", "3");
  click("frmMisc", "cmdExit(1)");
  see("raise", "frmMisc");
  see("raise-below", "frmMain");
  click("frmMisc", "cmdExit(2)");
  auto& grid = find<QTableWidget>("frmMain", "dbgDisplay");
  grid.setFocus(Qt::TabFocusReason);
  grid.setCurrentCell(5, 0);
  press(Qt::Key_Return);
  seeWindow("explanation", "explanation");
}

TEST_F(Snapshots, TheSharesOfAHighIncome) {
  startOnMainInMay();
  choose("frmMain", "lstFrequency", "Weekly");
  type("frmMain", "txtIncome", "50000");
  type("frmMain", "txt401k", "40");
  click("frmMain", "cmdToolBar(0)");
  auto& grid = find<QTableWidget>("frmMain", "dbgDisplay");
  grid.setFocus(Qt::TabFocusReason);
  grid.setCurrentCell(4, 0);
  press(Qt::Key_Return);
  seeWindow("explanation-of-a-high-income", "explanation");  // the dark shares are wide enough for text
}

TEST_F(Snapshots, TheReport) {
  startOnMainInMay();
  enterPaycheck();
  click("frmMain", "cmdToolBar(1)");
  see("report", "frmPrint");
  click("frmPrint", "next");
  click("frmPrint", "fitwidth");
  see("report-wide", "frmPrint");
  click("frmPrint", "fitpage");
  see("report-whole", "frmPrint");
}

TEST_F(Snapshots, AReportOfManyPages) {
  startOnMainInMay();
  click("frmMain", "cmdToolBar(1)");
  std::string table = "<3000|>1500;Title|Value;";
  for (int row = 1; row <= 67; ++row) table += "Row " + std::to_string(row) + "|1;";
  PrintEngine& report = desk.use<frmPrint>().vsPrinter1;
  report.startDocument();
  report.addTable(table);
  report.endDocument();
  see("report-first-page", "frmPrint");
  click("frmPrint", "next");
  click("frmPrint", "next");
  see("report-last-page", "frmPrint");
}

TEST_F(Snapshots, TheReportOfALongName) {
  stored(section::user, "UName", QStringLiteral("Pat Q. Sample of the Long Name ").repeated(12).toStdString());
  startOnMainInMay();
  enterPaycheck();
  click("frmMain", "cmdToolBar(1)");
  see("report-long-name", "frmPrint");
}

TEST_F(Snapshots, LargerLetters) {
  const QFont normal = QApplication::font();
  QFont large = normal;
  large.setPointSizeF(1.5 * normal.pointSizeF());
  QApplication::setFont(large);
  startOnMainInMay();
  enterPaycheck();
  see("large-main", "frmMain");
  click("frmMain", "cmdAdditional(0)");
  see("large-local-tax", "frmMisc");
  click("frmMisc", "cmdExit(0)");
  click("frmMain", "cmdAdditional(1)");
  see("large-raise", "frmMisc");
  for (const auto& [item, screen] : {std::pair{"Analysis", "frmAnalysis"},
                                     {"Multi", "frmMultiCheck"},
                                     {"StateInfo", "frmState"},
                                     {"Pers", "frmPersWkSht"},
                                     {"TwoWork", "frm2Workers"},
                                     {"W4", "frmW4"}}) {
    clickItem(item);
    see((std::string("large-") + screen).c_str(), screen);
  }
  click("frm2Workers", "cmdTable1Show(0)");
  see("large-frmTableOne", "frmTableOne");
  seeFrame("large-frame");
  QApplication::setFont(normal);
}

/// A printer that accepts no document.
class NoPrinter : public Printer {
 public:
  bool startDocument() override { return false; }
};

TEST_F(Snapshots, NoReport) {
  startOnMainInMay();
  NoPrinter printer;
  Printer* usual = std::exchange(platform.printer, &printer);
  click("frmMain", "cmdToolBar(1)");
  see("no-report", "frmPrint");
  platform.printer = usual;
}

TEST_F(Snapshots, AnOpenedList) {
  startOnMainInMay();
  auto& box = find<QComboBox>("frmMain", "cboState");
  box.showPopup();
  settle();
  compare("opened-list", snapshotOf(*box.view()->window()));
  box.hidePopup();
}

TEST_F(Snapshots, TheAnalysisAndSeveralChecks) {
  startOnMainInMay();
  enterPaycheck();
  clickItem("Analysis");
  see("analysis", "frmAnalysis");
  clickItem("Multi");
  for (int check = 1; check <= 4; ++check) {
    type("frmMultiCheck", QStringLiteral("txtCheck%1").arg(check), QString::number(100 * check));
  }
  click("frmMultiCheck", "optSelectETW(1)");
  click("frmMultiCheck", "optSelectTAW(2)");
  click("frmMultiCheck", "optSelectMonthly(3)");
  click("frmMultiCheck", "cmdCalc");
  find("frmMultiCheck", "optSelectTAW(2)").setFocus(Qt::TabFocusReason);
  settle();
  see("several-checks", "frmMultiCheck");
}

TEST_F(Snapshots, TheStates) {
  startOnMainInMay();
  clickItem("StateInfo");
  for (const char* state : {"Alabama", "Arizona", "California", "Connecticut", "Illinois", "Maryland"}) {
    SCOPED_TRACE(state);
    choose("frmState", "cboState", state);
    see((std::string("state-") + state).c_str(), "frmState");
  }
}

TEST_F(Snapshots, TheWorksheets) {
  startOnMainInMay();
  clickItem("Pers");
  for (const char* line : {"chkPersWkShtA(0)", "chkPersWkShtA(2)"}) click("frmPersWkSht", line);
  type("frmPersWkSht", "txtPersWkEnterDeps", "2");
  see("allowances", "frmPersWkSht");
  while (focused() != "chkPersWkShtA(1)") press(Qt::Key_Backtab);
  see("allowances-by-keyboard", "frmPersWkSht");
  click("frmPersWkSht", "cmdW4Back(0)");
  type("frmPersWkSht", "txtChild", "1");
  click("frmPersWkSht", "cmdPersWrkCalc(0)");
  see("allowances-second", "frmPersWkSht");
  clickItem("Ded");
  type("frmDednAdj", "txtGetItemized", "10000");
  click("frmDednAdj", "optDedCategory(2)");
  see("deductions", "frmDednAdj");
  click("frmDednAdj", "cmdW4Back(0)");
  type("frmDednAdj", "txtAdjustments", "1000");
  type("frmDednAdj", "txtNonWage", "500");
  click("frmDednAdj", "cmdPersWrkCalc");
  see("deductions-second", "frmDednAdj");
  clickItem("TwoWork");
  click("frm2Workers", "cmdTable1Show(0)");
  click("frmTableOne", "optTableOne(1)");
  see("table-one", "frmTableOne");
  clickItem("TwoWork");
  click("frm2Workers", "cmdW4Back(0)");
  type("frm2Workers", "txtNumPayDays", "26");
  click("frm2Workers", "cmdPersWrkCalc(0)");
  see("two-workers-second", "frm2Workers");
}

/// Where Table 1 gives no additional amount, the form follows the first page.
TEST_F(Snapshots, TwoWorkersWithTheFirstTableAlone) {
  startOnMainInMay();
  payData.w4Allowances = 5;
  clickItem("TwoWork");
  click("frm2Workers", "cmdTable1Show(0)");
  auto& rows = find<QListWidget>("frmTableOne", "lstTableOne");
  QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, rows.visualItemRect(rows.item(1)).center());
  settle();
  EXPECT_TRUE(find("frm2Workers", "cmdPersWrkCalc(2)").isVisible());
  see("two-workers-first", "frm2Workers");
}

TEST_F(Snapshots, TheForm) {
  for (const auto& [key, text] : {std::pair{"UName", "Pat Q. Sample"}, {"USSN", "123456789"}, {"UAdd", "1 Elm St"}}) {
    stored(section::user, key, text);
  }
  startOnMainInMay();
  clickItem("W4");
  see("form", "frmW4");
  click("frmW4", "optMarried");
  click("frmW4", "Check4");
  find("frmW4", "Label20").setFocus(Qt::TabFocusReason);
  press(Qt::Key_Space);
  see("form-exempt", "frmW4");
}

TEST_F(Snapshots, TheFrame) {
  startOnMainInMay();
  int number = 0;
  for (auto* header : frame().findChildren<QAbstractButton*>(QRegularExpression("^group "))) {
    click(*header);
    seeFrame(QStringLiteral("frame-%1").arg(++number).toLatin1());
  }
  point(find("MDIOpen", "SSListBar1(About)"));
  seeFrame("frame-pointed");
  point(*frame().findChild<QWidget*>("group File"));
  seeFrame("frame-pointed-at-group");
  frame().tell(QStringLiteral("What the user must know."));
  find("MDIOpen", "SSListBar1(About)").setFocus(Qt::TabFocusReason);
  settle();
  seeFrame("frame-told");
}

TEST_F(Snapshots, TheHelp) {
  startOnMainInMay();
  clickItem("Help");
  seeWindow("help", "help");
  auto& search = *frame().findChild<QLineEdit*>("search");
  QTest::keyClicks(&search, "calendar");
  QTest::keyClick(&search, Qt::Key_Return);
  settle();
  seeWindow("help-search", "help");
  QTest::keyClicks(&search, "zzz");
  settle();
  seeWindow("help-nothing", "help");
}

}  // namespace

}  // namespace tallyfin::qt
