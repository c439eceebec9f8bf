#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <QWindow>
#include <map>
#include <set>

#include "contrast.h"
#include "controls/desk.h"
#include "engine/paydata.h"
#include "everyscreen.h"
#include "picture.h"
#include "stateoptions/frmState.h"
#include "ui/frmMain.h"
#include "ui/frmPrint.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/help/helpfile.h"
#include "ui/qt/paper/printer.h"
#include "ui/qt/widgets/text.h"

/// The program by keyboard alone.

namespace tallyfin::qt {

namespace {

using testing::HasSubstr;

class Keyboard : public EveryScreen {
 protected:
  static void press(const char* keys) {
    const QKeySequence sequence(QString::fromLatin1(keys));
    const QKeyCombination combination = sequence[0];
    QWindow* window = QGuiApplication::focusWindow();
    QTest::keyClick(window, combination.key(), combination.keyboardModifiers());
    settle();
  }
  static void write(const char* letters) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(letters));
    settle();
  }
  QAbstractItemView& listOf(const char* box) const { return *find<QComboBox>("frmMain", box).view(); }
};

// --- A page that opens

TEST_F(Keyboard, APageThatOpensGivesTheKeyboardToItsFirstControl) {
  startOnMain();
  EXPECT_EQ(focused(), "txtIncome");
  EXPECT_EQ(desk.focused(), &desk.use<frmMain>().txtIncome);
  write("1250");
  EXPECT_EQ(desk.use<frmMain>().txtIncome.text(), "1250");
  const std::vector<std::pair<const char*, const char*>> pages{{"Multi", "txtCheck1"},    {"StateInfo", "cboState"},
                                                               {"Personal", "txtName"},   {"Pers", "chkPersWkShtA(0)"},
                                                               {"Ded", "txtGetItemized"}, {"W4", "txtName"}};
  for (const auto& [item, first] : pages) {
    clickItem(item);
    EXPECT_EQ(focused(), first) << item;
  }
  clickItem("TwoWork");
  click("frm2Workers", "cmdTable1Show(0)");
  EXPECT_EQ(focused(), "optTableOne(0)");
}

TEST_F(Keyboard, TheRulesMoveTheFocusBeforeThePageDoes) {
  startOnMain();
  click("frmMain", "cmdAdditional(0)");
  EXPECT_EQ(focused(), "txtTaxPerCnt");
  press("Esc");
  EXPECT_FALSE(shown("frmMisc"));
  EXPECT_EQ(focused(), "cmdAdditional(0)");  // where it was
}

TEST_F(Keyboard, TabEntersAGroupAtTheChosenOption) {
  stored(section::settings, "Frequency", "0");
  startOnMain();
  click("frmMain", "optStatus(2)");
  find("frmMain", "lstFrequency").setFocus();
  press("Tab");
  EXPECT_EQ(focused(), "optStatus(2)");
  press("Tab");
  EXPECT_EQ(focused(), "cboExemptions");
  press("Shift+Tab");
  EXPECT_EQ(focused(), "optStatus(2)");
  press("Shift+Tab");
  EXPECT_EQ(focused(), "lstFrequency");
  desk.use<frmMain>().optStatus[0].select();  // by code
  press("Tab");
  EXPECT_EQ(focused(), "optStatus(0)");
}

TEST_F(Keyboard, TabStopsOnlyAtWhatIsInView) {
  const auto walk = [this](const char* screen) {
    std::set<std::string> stops;
    for (int i = 0; i < 60; ++i) {
      press(i < 30 ? "Tab" : "Shift+Tab");
      const QWidget* now = QApplication::focusWidget();
      if (!view(screen).isAncestorOf(now)) continue;
      stops.insert(focused());
      EXPECT_GE(now->mapTo(&view(screen), QPoint()).x(), 0) << screen << " " << focused();
    }
    return stops;
  };
  startOnMain();
  for (const auto& [item, screen] :
       {std::pair{"Pers", "frmPersWkSht"}, {"Ded", "frmDednAdj"}, {"TwoWork", "frm2Workers"}}) {
    clickItem(item);
    const auto first = walk(screen);
    press("Ctrl+PgDown");
    EXPECT_NE(walk(screen), first) << screen;
  }
  clickItem("Calc");
  click("frmMain", "cmdAdditional(0)");
  const auto local = walk("frmMisc");
  EXPECT_TRUE(local.contains("txtTaxPerCnt"));
  EXPECT_FALSE(local.contains("txtRaise(0)"));
}

TEST_F(Keyboard, FromWhatIsOutOfViewTabLeadsBackIntoView) {
  startOnMain();
  clickItem("Pers");
  for (const char* key : {"Tab", "Shift+Tab"}) {
    press("Alt+G");
    ASSERT_EQ(focused(), "txtChild");  // on the second page
    ASSERT_FALSE(inSight("frmPersWkSht", "txtChild"));
    press(key);
    EXPECT_GE(QApplication::focusWidget()->mapTo(&frame(), QPoint()).x(), 0) << focused();
  }
}

TEST_F(Keyboard, TheFocusedWidgetIsScrolledIntoView) {
  const QFont normal = QApplication::font();
  QFont large = normal;
  large.setPointSizeF(2 * normal.pointSizeF());
  QApplication::setFont(large);
  startOnMain();
  clickItem("StateInfo");
  for (int i = 0; i < 30; ++i) {
    press("Tab");
    QWidget* now = QApplication::focusWidget();
    if (!view("frmState").isAncestorOf(now)) continue;
    EXPECT_FALSE(now->visibleRegion().isEmpty()) << focused();
    EXPECT_TRUE(now->visibleRegion().contains(QPoint(4, now->height() / 2))) << focused();
  }
  QApplication::setFont(normal);
}

// --- Drop-downs

TEST_F(Keyboard, LettersWalkThroughAnOpenedListToTheEntry) {
  startOnMain();
  find("frmMain", "cboState").setFocus();
  write("m");
  ASSERT_TRUE(listOf("cboState").isVisible());
  EXPECT_EQ(listOf("cboState").currentIndex().data().toString(), "Maine");
  EXPECT_EQ(text("frmMain", "cboState"), "No State");
  QTest::keyClick(&listOf("cboState"), 'w');  // no state: the marker stays
  EXPECT_EQ(listOf("cboState").currentIndex().data().toString(), "Maine");
  for (const char letter : {'i', 's', 's'}) QTest::keyClick(&listOf("cboState"), letter);
  EXPECT_EQ(listOf("cboState").currentIndex().data().toString(), "Mississippi");
  QTest::keyClick(&listOf("cboState"), Qt::Key_Return);
  settle();
  EXPECT_EQ(desk.use<frmMain>().cboState.text(), "Mississippi");
  find("frmMain", "cboState").setFocus();
  write("i");  // what was typed into the list before is forgotten
  EXPECT_EQ(listOf("cboState").currentIndex().data().toString().front(), 'I');
}

TEST_F(Keyboard, LettersTypedQuicklyAreOneWord) {
  startOnMain();
  auto& box = find<QComboBox>("frmMain", "cboState");
  box.setFocus();
  QTest::keyClick(&box, 'm');
  for (const char letter : {'i', 's', 's'}) QTest::keyClick(box.view(), letter);
  EXPECT_EQ(box.view()->currentIndex().data().toString(), "Mississippi");
}

TEST_F(Keyboard, ANumberIsThatNumberAndNotTheNext) {
  stored(section::settings, "Deps", "1");
  startOnMain();
  find("frmMain", "cboExemptions").setFocus();
  write("1");
  EXPECT_EQ(listOf("cboExemptions").currentIndex().data().toString(), "1");
  QTest::keyClick(&listOf("cboExemptions"), Qt::Key_Escape);
  settle();
  EXPECT_FALSE(listOf("cboExemptions").isVisible());
  EXPECT_EQ(text("frmMain", "cboExemptions"), "1");
}

TEST_F(Keyboard, ARepeatedLetterMovesThroughItsEntries) {
  startOnMain();
  find("frmMain", "cboState").setFocus();
  write("n");
  std::vector<std::string> passed;
  for (int i = 0; i < 8; ++i) {
    passed.push_back(listOf("cboState").currentIndex().data().toString().toStdString());
    QTest::keyClick(&listOf("cboState"), 'n');
  }
  EXPECT_THAT(passed, testing::ElementsAre("No State", "Nebraska", "New Jersey", "New Mexico", "New York",
                                           "North Carolina", "North Dakota", "No State"));
}

TEST_F(Keyboard, AnEditableDropDownTakesWhatIsTypedAsItIs) {
  startOnMain();
  clickItem("StateInfo");
  auto& box = find<QComboBox>("frmState", "cboState");
  const int entries = box.count();
  box.setFocus();
  box.lineEdit()->selectAll();
  write("Ca");
  EXPECT_EQ(box.currentText().toStdString(), "Ca");  // not the rest of California
  EXPECT_EQ(desk.use<frmState>().cboState.text(), "Ca");
  press("Return");
  EXPECT_EQ(box.count(), entries);
}

TEST_F(Keyboard, AnEditableDropDownIsEditedWhereTheCursorIs) {
  startOnMain();
  clickItem("StateInfo");
  auto& box = find<QComboBox>("frmState", "cboDeps(0)");
  box.setFocus();
  box.lineEdit()->selectAll();
  write("5");
  press("Home");
  write("12");
  EXPECT_EQ(box.currentText(), "125");
  EXPECT_EQ(desk.use<frmState>().cboDeps[0].text(), "125");
  press("Home");
  QGuiApplication::clipboard()->setText("\t \n");  // nothing of which is pasted
  press("Ctrl+V");
  write("9");
  EXPECT_EQ(desk.use<frmState>().cboDeps[0].text(), "9125");
}

TEST_F(Keyboard, AnEntryThatIsEditedKeepsTheCursor) {
  startOnMain();
  clickItem("StateInfo");
  auto& box = find<QComboBox>("frmState", "cboDeps(0)");
  box.setFocus();
  box.lineEdit()->selectAll();
  write("1");
  press("Down");
  QTest::keyClick(box.view(), Qt::Key_Home);
  QTest::keyClick(box.view(), Qt::Key_Down);
  QTest::keyClick(box.view(), Qt::Key_Return);
  settle();
  ASSERT_EQ(desk.use<frmState>().cboDeps[0].index(), 1);
  press("Home");
  write("34");
  EXPECT_EQ(desk.use<frmState>().cboDeps[0].text(), "34" + desk.use<frmState>().cboDeps[0].entries()[1]);
}

TEST_F(Keyboard, KeysThatOpenAListMoveInItAtOnce) {
  startOnMain();
  auto& box = find<QComboBox>("frmMain", "cboState");
  const auto marked = [&](Qt::Key key) {
    box.setFocus();
    QTest::keyClick(&box, key);
    const QModelIndex row = box.view()->currentIndex();
    QTest::keyClick(box.view(), Qt::Key_Escape);
    settle();
    return row.row();
  };
  EXPECT_EQ(marked(Qt::Key_End), box.count() - 1);
  EXPECT_EQ(marked(Qt::Key_Home), 0);
  EXPECT_GT(marked(Qt::Key_PageDown), 1);
}

TEST_F(Keyboard, ALetterIsTheSameInCapitals) {
  startOnMain();
  find("frmMain", "cboState").setFocus();
  write("n");
  QTest::keyClick(&listOf("cboState"), 'N', Qt::ShiftModifier);
  EXPECT_EQ(listOf("cboState").currentIndex().data().toString(), "Nebraska");
}

TEST_F(Keyboard, AClosedDropDownNeverChooses) {
  stored(section::settings, "Deps", "3");
  startOnMain();
  for (const char* name : {"cboExemptions", "cboState"}) {
    auto& box = find<QComboBox>("frmMain", name);
    const int before = box.currentIndex();
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End}) {
      box.setFocus();
      QTest::keyClick(&box, key);
      settle();
      EXPECT_TRUE(box.view()->isVisible()) << name << " " << key;
      QTest::keyClick(box.view(), Qt::Key_Escape);
      settle();
      EXPECT_EQ(box.currentIndex(), before) << name << " " << key;
    }
  }
}

// --- Keys that act

TEST_F(Keyboard, KeysOfTheToolbarAndOfThePages) {
  stored(section::settings, "IncAmt", "1000");
  stored(section::settings, "Frequency", "0");
  startOnMain();
  press("F9");
  EXPECT_EQ(results().size(), 12U);
  press("Ctrl+P");
  EXPECT_TRUE(shown("frmPrint"));
  press("Ctrl+W");
  EXPECT_FALSE(shown("frmPrint"));
  press("Alt+R");
  EXPECT_TRUE(shown("frmMisc"));
  EXPECT_EQ(focused(), "txtRaise(0)");
  press("Esc");
  EXPECT_FALSE(shown("frmMisc"));
  press("Ctrl+L");
  EXPECT_EQ(results().size(), 0U);
  press("Alt+L");
  EXPECT_EQ(focused(), "txtTaxPerCnt");
  press("Ctrl+W");
  press("Ctrl+2");
  EXPECT_TRUE(shown("frmMultiCheck"));
  press("Alt+3");
  EXPECT_EQ(focused(), "txtCheck3");
  press("Ctrl+6");
  press("Ctrl+PgDown");
  EXPECT_TRUE(find("frmPersWkSht", "txtChild").visibleRegion().isEmpty() == false);
  press("Alt+A");
  EXPECT_EQ(focused(), "chkPersWkShtA(0)");
}

TEST_F(Keyboard, EscapeDoesNotCloseAPageThatIsAboveNoOther) {
  startOnMain();
  press("Esc");
  EXPECT_TRUE(shown("frmMain"));
  click("frmMain", "cmdAdditional(0)");
  desk.userClose(desk.use<frmMain>());  // beneath it
  settle();
  ASSERT_FALSE(shown("frmMain"));
  press("Esc");
  EXPECT_TRUE(shown("frmMisc"));
}

TEST_F(Keyboard, F6GoesToTheListBarAndBack) {
  startOnMain();
  find("frmMain", "txtHours").setFocus();
  press("F6");
  EXPECT_EQ(focused(), "group Calculations");
  press("F6");
  EXPECT_EQ(focused(), "txtHours");
  clickItem("Personal");
  press("F6");
  EXPECT_EQ(focused(), "group File");
  press("Tab");
  press("Tab");
  EXPECT_EQ(focused(), "SSListBar1(StateInfo)");
  press("Space");
  EXPECT_EQ(front(), "State Options");
}

TEST_F(Keyboard, WhatClosesGivesTheKeyboardBack) {
  startOnMain();
  for (const char* page : {"Ctrl+P", "Alt+L"}) {
    find("frmMain", "txtHours").setFocus();
    press(page);
    EXPECT_NE(front(), "Calculations") << page;
    press("Ctrl+W");
    EXPECT_EQ(focused(), "txtHours") << page;
  }
}

TEST_F(Keyboard, WhereTheRulesHaveMovedTheFocusBeneathIsTheKeyboardAfterwards) {
  startOnMain();
  choose("frmMain", "cboState", "California");
  ASSERT_EQ(front(), "State Options");
  desk.use<frmMain>().txtHours.setFocus();  // by code
  press("Ctrl+W");
  EXPECT_EQ(front(), "Calculations");
  EXPECT_EQ(desk.focused(), &desk.use<frmMain>().txtHours);
  EXPECT_EQ(focused(), "txtHours");
}

TEST_F(Keyboard, CalendarAndTablesAreClosedByKeys) {
  startOnMain();
  clickItem("TwoWork");
  for (const char* closing : {"Esc", "Ctrl+W"}) {
    click("frm2Workers", "cmdTable1Show(0)");
    ASSERT_TRUE(shown("frmTableOne"));
    press(closing);
    EXPECT_FALSE(shown("frmTableOne"));
    press("Ctrl+PgDown");
    click("frm2Workers", "cmdW4Back(2)");
    ASSERT_TRUE(shown("frmCalendar"));
    press(closing);
    EXPECT_FALSE(shown("frmCalendar"));
    EXPECT_TRUE(shown("frm2Workers"));
    press("Ctrl+PgUp");
  }
}

TEST_F(Keyboard, TheClosingButtonIsReachedByTab) {
  startOnMain();
  clickItem("Multi");
  for (int i = 0; i < 40 && QApplication::focusWidget()->accessibleName() != "Close"; ++i) press("Tab");
  ASSERT_EQ(QApplication::focusWidget()->accessibleName().toStdString(), "Close");
  press("Space");
  EXPECT_FALSE(shown("frmMultiCheck"));
}

TEST_F(Keyboard, TheFormIsPrintedAndExemptIsWritten) {
  startOnMain();
  clickItem("W4");
  dialogs.onPrinter = [](QPrinter&) { return false; };
  press("Ctrl+P");
  EXPECT_EQ(dialogs.asked, 1);
  EXPECT_EQ(dialogs.somePages, false);  // there is one
  press("Alt+7");
  EXPECT_EQ(focused(), "Label20");
  press("Space");
  EXPECT_TRUE(find("frmW4", "Label27").isVisible());
  press("Return");
  EXPECT_FALSE(find("frmW4", "Label27").isVisible());
  auto* face = QAccessible::queryAccessibleInterface(&find("frmW4", "Label20"));
  EXPECT_EQ(face->role(), QAccessible::CheckBox);
  face->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  settle();
  EXPECT_TRUE(face->state().checked);
  EXPECT_TRUE(find("frmW4", "Label27").isVisible());
}

TEST_F(Keyboard, TheKeyOfALineGoesThere) {
  struct Line {
    const char* item;
    const char* key;
    const char* focused;
  };
  const Line lines[] = {
      {"W4", "Alt+1", "txtName"},
      {"W4", "Alt+2", "txtSSN"},
      {"W4", "Alt+3", "optSingle"},
      {"W4", "Alt+4", "Check4"},
      {"W4", "Alt+7", "Label20"},
      {"Pers", "Alt+A", "chkPersWkShtA(0)"},
      {"Pers", "Alt+B", "chkPersWkShtA(1)"},
      {"Pers", "Alt+C", "chkPersWkShtA(2)"},
      {"Pers", "Alt+D", "txtPersWkEnterDeps"},
      {"Pers", "Alt+E", "chkPersWkShtA(4)"},
      {"Pers", "Alt+F", "chkPersWkShtA(3)"},
      {"Pers", "Alt+G", "txtChild"},
      {"Ded", "Alt+1", "txtGetItemized"},
      {"Ded", "Alt+4", "txtAdjustments"},
      {"Ded", "Alt+6", "txtNonWage"},
      {"TwoWork", "Alt+7", "lblTable2"},
      {"TwoWork", "Alt+8", "lblMultiply8"},
      {"TwoWork", "Alt+9", "lblDollarAmt"},
  };
  startOnMain();
  for (const auto& [item, key, name] : lines) {
    clickItem(item);
    press(key);
    EXPECT_EQ(focused(), name) << item << " " << key;
  }
}

TEST_F(Keyboard, EnterOfTheKeypadIsEnter) {
  startOnMain();
  clickItem("TwoWork");
  click("frm2Workers", "cmdTable1Show(0)");
  auto& rows = find<QListWidget>("frmTableOne", "lstTableOne");
  rows.setFocus();
  settle();
  rows.setCurrentRow(2);
  press("Enter");
  EXPECT_FALSE(shown("frmTableOne"));
  EXPECT_EQ(text("frm2Workers", "lbl2WkerT1"), "3");
  click("frm2Workers", "cmdTable1Show(0)");
  auto& again = find<QListWidget>("frmTableOne", "lstTableOne");
  again.setFocus();
  settle();
  again.setCurrentRow(1);
  press("Space");
  EXPECT_EQ(text("frm2Workers", "lbl2WkerT1"), "2");
  find("MDIOpen", "SSListBar1(W4)").setFocus();
  press("Enter");
  EXPECT_TRUE(shown("frmW4"));
  find("frmW4", "Label20").setFocus();
  press("Enter");
  EXPECT_TRUE(find("frmW4", "Label27").isVisible());
}

TEST_F(Keyboard, F1OnTheWarningOpensHelpThatCanBeRead) {
  startOnMain();
  clickItem("Analysis");  // nothing to analyse
  ASSERT_TRUE(shown("MsgBox"));
  QWidget& box = *view("MsgBox").window();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
  press("F1");
  const auto* help = frame().findChild<QDialog*>("help");
  ASSERT_NE(help, nullptr);
  EXPECT_TRUE(help->isVisible());
  EXPECT_EQ(help->parentWidget(), &box);  // a child of the frame would be behind the warning
  click("MsgBox", "OK");
  EXPECT_FALSE(shown("MsgBox"));
  help = frame().findChild<QDialog*>("help");
  ASSERT_NE(help, nullptr);
  EXPECT_EQ(help->parentWidget(), &frame());
  EXPECT_TRUE(help->isVisible());
}

TEST_F(Keyboard, CtrlQEndsTheProgramFromHelpAndAbout) {
  for (const bool about : {true, false}) {
    about ? startOnMain() : restart();
    clickItem("About");
    ASSERT_TRUE(QTest::qWaitForWindowActive(view("frmAbt").window()));
    if (!about) {
      press("F1");
      ASSERT_TRUE(QTest::qWaitForWindowActive(frame().findChild<QDialog*>("help")));
    }
    press("Ctrl+Q");
    EXPECT_FALSE(desk.running());
  }
}

TEST_F(Keyboard, F1OnAboutOpensItsPage) {
  startOnMain();
  clickItem("About");
  ASSERT_TRUE(QTest::qWaitForWindowActive(view("frmAbt").window()));
  press("F1");
  const auto* page = frame().findChild<QDialog*>("help")->findChild<QTextBrowser*>();
  EXPECT_EQ(page->document()->begin().text(), "About Tallyfin 99");
}

TEST_F(Keyboard, ThePreviewFitsItsWidthOrItsPage) {
  stored(section::settings, "IncAmt", "1000");
  stored(section::settings, "Frequency", "0");
  startOnMain();
  press("F9");
  press("Ctrl+P");
  const auto& preview = find<QScrollArea>("frmPrint", "vsPrinter1");
  const auto bars = [&] {
    return std::pair(preview.horizontalScrollBar()->isVisible(), preview.verticalScrollBar()->isVisible());
  };
  ASSERT_EQ(bars(), std::pair(true, true));
  press("Alt+A");
  EXPECT_EQ(bars(), std::pair(false, false));
  const int page = desk.use<frmPrint>().vsPrinter1.zoom();
  press("Alt+W");
  EXPECT_EQ(bars(), std::pair(false, true));
  EXPECT_GT(desk.use<frmPrint>().vsPrinter1.zoom(), page);
  EXPECT_GT(preview.widget()->width() + 12, preview.viewport()->width());  // one percent more would be too wide
}

// --- Copying and pasting

TEST_F(Keyboard, ResultsAndFiguresAreCopiedAsRows) {
  stored(section::settings, "IncAmt", "1000");
  stored(section::settings, "Frequency", "0");
  startOnMain();
  press("F9");
  press("Alt+T");
  press("Ctrl+A");
  EXPECT_EQ(find<QTableWidget>("frmMain", "dbgDisplay").selectionModel()->selectedRows().size(), 12);
  press("Ctrl+C");
  const QString rows = QGuiApplication::clipboard()->text();
  EXPECT_EQ(rows.count('\n'), 12);
  EXPECT_TRUE(rows.startsWith("Gross Pay\t$1,000.00\n")) << rows.toStdString();
  press("Ctrl+3");
  ASSERT_TRUE(shown("frmAnalysis"));
  press("Ctrl+C");
  const QString figures = QGuiApplication::clipboard()->text();
  EXPECT_EQ(figures.count('\n'), 10);
  EXPECT_THAT(figures.toStdString(),
              HasSubstr(text("frmAnalysis", "lblAnalysis(0)") + "\t" + text("frmAnalysis", "lblOne(0)") + "\n"));
}

TEST_F(Keyboard, APastedCellLosesItsLineBreakAndItsBlanks) {
  startOnMain();
  auto& screen = desk.use<frmMain>();
  auto& income = find<QLineEdit>("frmMain", "txtIncome");
  const auto paste = [&](const char* words) {
    income.setFocus();
    settle();
    income.selectAll();
    QGuiApplication::clipboard()->setText(QString::fromUtf8(words));
    press("Ctrl+V");
    return screen.txtIncome.text();
  };
  EXPECT_EQ(paste("1,250.00\n"), "1,250.00");
  EXPECT_EQ(paste(" 900 \r\n"), "900");
  EXPECT_EQ(income.text().toStdString(), "900");
  EXPECT_EQ(paste("12\n13"), "12");
  EXPECT_EQ(paste("7 "), "7");
  EXPECT_EQ(income.cursorPosition(), 1);
  press("Home");
  QGuiApplication::clipboard()->setText("\t \n");
  press("Ctrl+V");
  write("8");
  EXPECT_EQ(screen.txtIncome.text(), "87");
  income.selectAll();
  write("1 ");  // typed blanks stay: a name has them
  EXPECT_EQ(screen.txtIncome.text(), "1 ");
}

// --- The focus ring

TEST_F(Keyboard, TheFocusIsSeenInEveryControl) {
  onEveryScreen([this](const Screen& screen) {
    QWidget& page = const_cast<View&>(view(screen.name().c_str()));
    QWidget& window = *page.window();
    for (const Control* control : screen.controls()) {
      QWidget& widget = find(screen.name().c_str(), qt::text(control->address()));
      if (!(widget.focusPolicy() & Qt::TabFocus) || !widget.isVisible() || !widget.isEnabled()) continue;
      if (widget.mapTo(&page, QPoint()).x() < 0) continue;
      widget.setFocus(Qt::TabFocusReason);
      settle();
      if (QApplication::focusWidget() == nullptr) continue;
      const QImage with = pictureOf(window);
      const QRect place(widget.mapTo(&window, QPoint()), widget.size());
      const QRect around = pixelsOf(with, place.adjusted(-2, -2, 2, 2));
      QApplication::focusWidget()->clearFocus();
      settle();
      const QImage without = pictureOf(window);
      int seen = 0;
      for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
          if (contrast(with.pixelColor(x, y), without.pixelColor(x, y)) >= 3) ++seen;
        }
      }
      const double across = with.devicePixelRatio() * std::min(widget.width(), 2 * widget.height());
      EXPECT_GE(seen, across) << control->address();
    }
  });
}

// --- The help topic with the keys

/// "Alt+I Income Amount" for all widgets of a page, or of the frame without pages.
std::set<std::string> keysIn(const QWidget& page, const QWidget* butNot = nullptr) {
  std::set<std::string> keys;
  const auto add = [&](const QKeySequence& key, const QString& words) {
    if (!key.isEmpty()) keys.insert((key.toString() + " " + words).toStdString());
  };
  const auto foreign = [&](const QObject* object) {
    for (; object != nullptr; object = object->parent()) {
      if (object == butNot) return true;
    }
    return false;
  };
  for (const auto* shortcut : page.findChildren<QShortcut*>()) {
    if (!foreign(shortcut) && !shortcut->whatsThis().isEmpty()) add(shortcut->key(), shortcut->whatsThis());
  }
  for (const auto* button : page.findChildren<QAbstractButton*>()) {
    if (!foreign(button)) add(QKeySequence::mnemonic(button->text()), unmarked(button->text()).simplified());
  }
  for (const auto* label : page.findChildren<QLabel*>()) {
    if (!foreign(label) && label->buddy() != nullptr)
      add(QKeySequence::mnemonic(label->text()), unmarked(label->text()).simplified());
  }
  for (const auto* action : page.findChildren<QAction*>()) {
    if (!foreign(action)) add(action->shortcut(), unmarked(action->text()).simplified());
  }
  return keys;
}

TEST_F(Keyboard, APageAboveAnotherHasOtherMnemonics) {
  const auto lettersOf = [](const QWidget& page) {
    std::set<std::string> letters;
    for (const std::string& key : keysIn(page)) letters.insert(key.substr(0, key.find(' ')));
    return letters;
  };
  int over = 0;
  onEveryScreen([&](const Screen& screen) {
    if (screen.place() != Place::document || screen.maximized) return;
    const auto letters = lettersOf(view(screen.name().c_str()));
    for (const Screen* beneath : desk.documents()) {
      if (beneath == &screen) continue;
      ++over;
      for (const QWidget* page : view(beneath->name().c_str()).findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(page);
        const auto* button = qobject_cast<const QAbstractButton*>(page);
        if (!page->isVisible() || (label == nullptr && button == nullptr)) continue;
        const QString words = label != nullptr ? label->text() : button->text();
        const std::string letter = QKeySequence::mnemonic(words).toString().toStdString();
        EXPECT_TRUE(letter.empty() || !letters.contains(letter)) << letter << " of " << screen.name();
      }
    }
  });
  EXPECT_GE(over, 4);
}

TEST_F(Keyboard, TheHelpListsEveryKey) {
  HelpFiles files(HelpFiles::usualFolders());
  const QString topic = files.find("Tallyfin.hlp")->find("keys")->html;
  std::map<std::string, std::set<std::string>> told;
  std::string heading;
  static const QRegularExpression part("<h2>(.*?)</h2>|<tr><td>(.*?)</td><td>(.*?)</td></tr>");
  for (auto next = part.globalMatch(topic); next.hasNext();) {
    const auto match = next.next();
    const auto plain = [&](int i) {
      return QTextDocumentFragment::fromHtml(match.captured(i)).toPlainText().toStdString();
    };
    if (!match.captured(1).isEmpty()) {
      heading = plain(1);
    } else if (heading != "In general") {
      told[heading].insert(plain(2) + " " + plain(3));
    }
  }
  std::map<std::string, std::set<std::string>> program;
  onEveryScreen([&](const Screen& screen) {
    if (screen.place() == Place::box) return;
    const bool whole = screen.place() == Place::frame;
    const std::set<std::string> keys = whole ? keysIn(frame(), &frame().area()) : keysIn(view(screen.name().c_str()));
    // The title of the screen depends on the table.
    const std::string title = screen.name() == "frmTableOne" ? "The tables" : screen.title();
    if (!keys.empty()) program[whole ? "On every page" : title].insert(keys.begin(), keys.end());
  });
  for (const auto& [page, keys] : program) EXPECT_EQ(told[page], keys) << page;
  for (const auto& [page, keys] : told) EXPECT_EQ(program[page], keys) << page;
}

}  // namespace

}  // namespace tallyfin::qt
