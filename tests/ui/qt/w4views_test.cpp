#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>
#include <ctime>

#include "controls/colours.h"
#include "controls/desk.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "fakedialogs.h"
#include "ui/qt/desktop.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/widgets/captions.h"
#include "ui/qt/widgets/look.h"
#include "w4/frm2Workers.h"
#include "w4/frmCalendar.h"
#include "w4/frmDednAdj.h"
#include "w4/frmPersWkSht.h"
#include "w4/frmTableOne.h"
#include "w4/frmW4.h"

/// The desktop's Form W-4 assistant: real widgets, clicked and typed into.

namespace tallyfin::qt {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class W4ViewsTest : public testing::Test {
 protected:
  W4ViewsTest() { desktop.start(); }

  template <class S>
  View& open() {
    desk.openInstead<S>();
    QApplication::processEvents();
    return view<S>();
  }
  template <class S>
  View& view() {
    View* found = desktop.view(S::screenName);
    EXPECT_NE(found, nullptr) << S::screenName << " isn't shown";
    return *found;
  }
  template <class Widget = QWidget>
  static Widget& find(const View& view, const char* name) {
    auto* found = view.findChild<Widget*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }

  static void click(const View& view, const char* name) {
    QWidget& widget = find(view, name);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {8, widget.height() / 2});
    QApplication::processEvents();
  }
  static void type(const View& view, const char* name, const char* text) {
    auto& box = find<QLineEdit>(view, name);
    box.setFocus();
    QApplication::processEvents();
    box.selectAll();
    QTest::keyClicks(&box, QString::fromLatin1(text));
  }
  static std::string caption(const View& view, const char* name) {
    return find<QLabel>(view, name).text().toStdString();
  }
  static std::string shown(const View& view, const char* name) {
    return find<QLineEdit>(view, name).text().toStdString();
  }
  static bool visible(const View& view, const char* name) { return !find(view, name).visibleRegion().isEmpty(); }

  void pickRow(int row) {
    auto& list = find<QListWidget>(view<frmTableOne>(), "lstTableOne");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
    QApplication::processEvents();
  }

  MemoryStore store;
  FakeDialogs dialogs;
  Desktop desktop{store, dialogs};
};

TEST_F(W4ViewsTest, TheCalendarsControlFollowsTheKeyboardAndTheMarkedDay) {
  auto& widget = find<QCalendarWidget>(open<frmCalendar>(), "mthTwoWorkers");
  MonthCalendar& control = desk.find<frmCalendar>()->mthTwoWorkers;
  desktop.frame()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.frame()));
  control.date = std::chrono::May / 17 / 1999;
  EXPECT_EQ(widget.selectedDate(), QDate(1999, 5, 17));
  widget.setFocus();
  EXPECT_TRUE(control.focused());
  QTest::keyClick(widget.focusProxy(), Qt::Key_Right);
  EXPECT_TRUE(control.date() == std::chrono::May / 18 / 1999);
}

TEST_F(W4ViewsTest, TheCalendarAcceptsNoTypedDateAndLeaksNothing) {
  auto& widget = find<QCalendarWidget>(open<frmCalendar>(), "mthTwoWorkers");
  const QDate before = widget.selectedDate();
  QTest::keyClick(widget.focusProxy(), Qt::Key_2);
  EXPECT_EQ(widget.selectedDate(), before);
  desk.close<frmCalendar>();
}

TEST_F(W4ViewsTest, EveryControlHasAWidget) {
  desk.openInstead<frmPersWkSht>();
  desk.show<frmDednAdj>();
  desk.show<frm2Workers>();
  payData.w4TableMode = 1;
  desk.show<frmTableOne>();
  desk.show<frmCalendar>();
  desk.show<frmW4>();
  for (Screen* screen : desk.documents()) {
    const View* shownView = desktop.view(screen->name());
    ASSERT_NE(shownView, nullptr) << screen->name();
    for (const Control* control : screen->controls()) {
      const QWidget* widget = shownView->widgetOf(*control);
      ASSERT_NE(widget, nullptr) << control->address();
      EXPECT_EQ(widget->objectName().toStdString(), control->address());
    }
  }
  EXPECT_EQ(desk.documents().size(), 6U);
}

TEST_F(W4ViewsTest, WorksheetsFitTheDocumentArea) {
  const auto fits = [](const View& sheet) {
    return sheet.width() <= sheet.parentWidget()->width() && sheet.height() <= sheet.parentWidget()->height();
  };
  View& personal = open<frmPersWkSht>();
  EXPECT_TRUE(fits(personal));
  click(personal, "cmdW4Back(0)");
  EXPECT_TRUE(fits(personal));
  View& deductions = open<frmDednAdj>();
  EXPECT_TRUE(fits(deductions));
  click(deductions, "cmdW4Back(0)");
  EXPECT_TRUE(fits(deductions));
  View& twoWorkers = open<frm2Workers>();
  EXPECT_TRUE(fits(twoWorkers));
  click(twoWorkers, "cmdW4Back(0)");
  EXPECT_TRUE(fits(twoWorkers));
}

/// Sets the font of the program for the time of a test.
struct LargeLetters {
  QFont before = QApplication::font();
  LargeLetters() {
    QFont large = before;
    large.setPointSizeF(14);
    QApplication::setFont(large);
  }
  ~LargeLetters() { QApplication::setFont(before); }
  LargeLetters(const LargeLetters&) = delete;
  LargeLetters& operator=(const LargeLetters&) = delete;
};

TEST_F(W4ViewsTest, WithALargeFontPagesScrollAndNothingIsCutOff) {
  const LargeLetters large;
  const auto whole = [](const View& sheet) {
    for (const Control* control : sheet.screen()->controls()) {
      const QWidget* widget = sheet.widgetOf(*control);
      if (!widget->isVisible() || widget->property("text").toString().isEmpty()) continue;
      EXPECT_GE(widget->height(), widget->fontMetrics().height()) << control->address();
      EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << control->address();
      if (widget->hasHeightForWidth()) {
        EXPECT_GE(widget->height(), widget->heightForWidth(widget->width())) << control->address();
      }
    }
  };
  for (const auto& openSheet : std::vector<std::function<View*()>>{[this] { return &open<frmPersWkSht>(); },
                                                                   [this] { return &open<frmDednAdj>(); },
                                                                   [this] { return &open<frm2Workers>(); }}) {
    View& sheet = *openSheet();
    EXPECT_EQ(find<QLabel>(sheet, "lblPage1").font().pointSizeF(), 14);
    whole(sheet);
    click(sheet, "cmdW4Back(0)");
    whole(sheet);
  }
  desk.show<frmW4>();
  QApplication::processEvents();
  whole(view<frmW4>());
  click(open<frm2Workers>(), "cmdTable1Show(0)");
  const auto& wages = find<QListWidget>(view<frmTableOne>(), "lstTableOne");
  EXPECT_GE(wages.viewport()->width(), wages.sizeHintForColumn(0));
}

/// A system font of 15 points from the start, as people set it who want larger letters.
struct LargeSystemFont {
  QFont before = QApplication::font();
  LargeSystemFont() { look::applyFont(*qApp, 15); }
  ~LargeSystemFont() { QApplication::setFont(before); }
  LargeSystemFont(const LargeSystemFont&) = delete;
  LargeSystemFont& operator=(const LargeSystemFont&) = delete;
};
class W4ViewsAt15Points : public LargeSystemFont, public W4ViewsTest {};

/// Where the words of a caption within a sentence are drawn.
QRegion drawnWords(const SentenceWithButton::Words& caption) {
  QRegion drawn;
  const QFontMetrics metrics = caption.fontMetrics();
  for (const auto& [base, text] : caption.words) {
    drawn += metrics.tightBoundingRect(text).translated(caption.mapToParent(base));
  }
  return drawn;
}

/// The button of each sentence of a worksheet, with its focus ring, touches no word.
void expectButtonsApart(const View& sheet) {
  int sentences = 0;
  for (const QWidget* child : sheet.findChildren<QWidget*>()) {
    const auto* sentence = dynamic_cast<const SentenceWithButton*>(child);
    if (sentence == nullptr || !sentence->isVisible()) continue;
    ++sentences;
    const QRect button = sentence->findChild<QPushButton*>()->geometry().adjusted(-2, -2, 2, 2);
    EXPECT_TRUE(sentence->rect().contains(button));
    for (const auto* caption : {sentence->first(), sentence->second()}) {
      EXPECT_FALSE(drawnWords(*caption).intersects(button)) << caption->text().toStdString();
    }
  }
  EXPECT_EQ(sentences, 2);  // one on each page
}

TEST_F(W4ViewsTest, TheButtonWithinASentenceTouchesNoWord) { expectButtonsApart(open<frm2Workers>()); }

TEST_F(W4ViewsAt15Points, TheButtonWithinASentenceTouchesNoWord) { expectButtonsApart(open<frm2Workers>()); }

TEST_F(W4ViewsAt15Points, TheFormNeedsNoScrolling) {
  desk.show<frmW4>();
  QApplication::processEvents();
  const View& form = view<frmW4>();
  EXPECT_LE(form.height(), form.parentWidget()->height());
  EXPECT_LE(form.width(), form.parentWidget()->width());
}

TEST_F(W4ViewsTest, TabFollowsTheLines) {
  using Names = std::vector<std::string>;
  const auto tabOrder = [](const View& sheet) {
    Names names;
    for (QWidget* next = sheet.nextInFocusChain(); next != &sheet; next = next->nextInFocusChain()) {
      const bool reached = sheet.isAncestorOf(next) && next->isVisible() && (next->focusPolicy() & Qt::TabFocus) != 0;
      if (reached) names.push_back(next->objectName().toStdString());
    }
    return names;
  };
  // A page that is out of view keeps its place in the tab order.
  const Names pages{"chkPersWkShtA(0)",   "chkPersWkShtA(1)",   "chkPersWkShtA(2)",   "txtPersWkEnterDeps",
                    "chkPersWkShtA(4)",   "cmdW4Back(0)",       "chkPersWkShtA(3)",   "txtChild",
                    "cmdInstructions(0)", "cmdInstructions(1)", "cmdInstructions(2)", "cmdPersWrkCalc(0)",
                    "cmdW4Back(1)"};
  View& personal = open<frmPersWkSht>();
  EXPECT_EQ(tabOrder(personal), pages);
  click(personal, "cmdW4Back(0)");
  EXPECT_EQ(tabOrder(personal), pages);
  EXPECT_EQ(tabOrder(open<frm2Workers>()),
            (Names{"cmdTable1Show(0)", "cmdW4Back(0)", "cmdTable1Show(1)", "lblTable2", "lblMultiply8", "lblDollarAmt",
                   "txtNumPayDays", "cmdW4Back(2)", "cmdPersWrkCalc(0)", "cmdPersWrkCalc(1)", "cmdW4Back(1)"}));
}

TEST_F(W4ViewsTest, EveryControlThatTakesTheFocusHasAnAccessibleName) {
  desk.openInstead<frmPersWkSht>();
  desk.show<frmDednAdj>();
  desk.show<frm2Workers>();
  desk.show<frmW4>();
  for (const View* sheet : {&view<frm2Workers>(), &view<frmDednAdj>(), &view<frmPersWkSht>(), &view<frmW4>()}) {
    for (const QWidget* widget : sheet->findChildren<QWidget*>()) {
      if ((widget->focusPolicy() & Qt::TabFocus) == 0) continue;
      const QAccessibleInterface* access = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
      EXPECT_FALSE(access->text(QAccessible::Name).trimmed().isEmpty()) << widget->objectName().toStdString();
    }
  }
}

TEST_F(W4ViewsTest, TheFocusMovesToTheBoxOnThePageOutOfView) {
  View& sheet = open<frmPersWkSht>();
  frmPersWkSht& screen = *desk.find<frmPersWkSht>();
  click(sheet, "cmdW4Back(0)");
  EXPECT_EQ(desk.focused(), &screen.txtPersWkEnterDeps);
  EXPECT_FALSE(visible(sheet, "txtPersWkEnterDeps"));
  EXPECT_TRUE(QApplication::focusWidget()->accessibleDescription().contains("Page 1, out of view"));
  QTest::keyClicks(QApplication::focusWidget(), "3");
  EXPECT_EQ(screen.txtPersWkEnterDeps.text(), "3");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);  // back into view
  ASSERT_NE(desk.focused(), nullptr);
  EXPECT_TRUE(visible(sheet, desk.focused()->address().c_str())) << desk.focused()->address();
  click(sheet, "cmdW4Back(1)");
  EXPECT_TRUE(visible(sheet, "txtPersWkEnterDeps"));
  EXPECT_EQ(find(sheet, "txtPersWkEnterDeps").accessibleDescription(), QString());
  EXPECT_FALSE(visible(sheet, "cmdW4Back(1)"));
}

TEST_F(W4ViewsTest, TheCardsTickHasItsCaption) {
  desk.show<frmW4>();
  const auto& tick = find<QCheckBox>(view<frmW4>(), "Check4");
  EXPECT_EQ(tick.text(), "Check4");
  EXPECT_GE(tick.minimumSizeHint().width(), tick.fontMetrics().horizontalAdvance("Check4"));
}

TEST_F(W4ViewsTest, TheFocusRingIsALineAroundTheWidgetsOfTheForm) {
  const View& form = open<frmW4>();
  for (const char* name : {"optMarried", "Check4"}) {
    auto& tick = find<QAbstractButton>(form, name);
    click(form, name);
    ASSERT_TRUE(tick.isChecked() && tick.hasFocus()) << name;
    const QImage marked = tick.grab().toImage();
    find(form, "txtName").setFocus();
    const QImage bare = tick.grab().toImage();
    const QRect inside = marked.rect().adjusted(1, 1, -1, -1);
    EXPECT_EQ(marked.copy(inside), bare.copy(inside)) << name;
    EXPECT_EQ(marked.pixelColor(0, 0), QColor(58, 110, 165)) << name;
    EXPECT_EQ(marked.pixelColor(inside.bottomRight() + QPoint(1, 1)), QColor(58, 110, 165)) << name;
    EXPECT_NE(bare.pixelColor(0, 0), QColor(58, 110, 165)) << name;
  }
}

TEST_F(W4ViewsTest, PersonalAllowancesAddUpOverBothPages) {
  View& sheet = open<frmPersWkSht>();
  EXPECT_TRUE(visible(sheet, "chkPersWkShtA(0)"));
  EXPECT_FALSE(visible(sheet, "txtChild"));
  for (const char* line : {"chkPersWkShtA(0)", "chkPersWkShtA(1)", "chkPersWkShtA(2)"}) click(sheet, line);
  type(sheet, "txtPersWkEnterDeps", "2");
  click(sheet, "cmdW4Back(0)");
  EXPECT_FALSE(visible(sheet, "chkPersWkShtA(0)"));
  EXPECT_TRUE(visible(sheet, "txtChild"));
  type(sheet, "txtChild", "1");
  click(sheet, "cmdPersWrkCalc(0)");
  EXPECT_EQ(caption(sheet, "lblTotalDepsClaim"), "6");
  click(sheet, "cmdW4Back(1)");
  EXPECT_TRUE(visible(sheet, "chkPersWkShtA(0)"));
  EXPECT_TRUE(find<QCheckBox>(sheet, "chkPersWkShtA(0)").isChecked());
}

TEST_F(W4ViewsTest, TheExplanationLightsUpWithItsLine) {
  View& sheet = open<frmPersWkSht>();
  QEvent enter(QEvent::Enter);
  QApplication::sendEvent(&find(sheet, "chkPersWkShtA(1)"), &enter);
  const QColor highlight(128, 128, 255);
  for (const char* name : {"lblPart1of3", "lblPart2of3", "lblPart3of3"}) {
    EXPECT_EQ(find(sheet, name).palette().color(QPalette::WindowText), highlight) << name;
  }
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&find(sheet, "chkPersWkShtA(1)"), &leave);
  EXPECT_EQ(find(sheet, "lblPart1of3").palette().color(QPalette::WindowText), QColor(64, 64, 64));
}

/// The window system reports every move of the pointer; a widget gets them only with mouse tracking.
TEST_F(W4ViewsTest, ThePointerThatMovesOverALineLightsItUp) {
  View& sheet = open<frmPersWkSht>();
  const auto move = [&](const char* name) {
    const QWidget& widget = find(sheet, name);
    QTest::mouseMove(sheet.window()->windowHandle(), widget.mapTo(sheet.window(), QPoint(4, 4)));
    QApplication::processEvents();
  };
  const auto colourOfLineD = [&] { return find(sheet, "lblPersWrkNoDeps").palette().color(QPalette::WindowText); };
  move("lblPersWrkNoDeps");
  EXPECT_EQ(colourOfLineD(), QColor(128, 128, 255));
  move("chkPersWkShtA(0)");
  EXPECT_EQ(colourOfLineD(), QColor(64, 64, 64));
}

TEST_F(W4ViewsTest, DeductionsAreSubtractedAndDividedBy3000) {
  View& sheet = open<frmDednAdj>();
  type(sheet, "txtGetItemized", "10000");
  click(sheet, "optDedCategory(2)");
  EXPECT_EQ(caption(sheet, "lblGetPersDed"), "$4,300.00");
  EXPECT_EQ(caption(sheet, "lblSubTotal"), "$5,700.00");
  click(sheet, "cmdW4Back(0)");
  EXPECT_FALSE(visible(sheet, "txtGetItemized"));
  type(sheet, "txtAdjustments", "1000");
  type(sheet, "txtNonWage", "500");
  click(sheet, "cmdPersWrkCalc");
  EXPECT_EQ(caption(sheet, "lblTotal5"), "$6,700.00");
  EXPECT_EQ(caption(sheet, "lblTotal7"), "$6,200.00");
  EXPECT_EQ(caption(sheet, "lblDivide"), "2");
}

TEST_F(W4ViewsTest, AClickInTable1SettlesLine3) {
  payData.w4Allowances = 5;
  View& sheet = open<frm2Workers>();
  EXPECT_FALSE(visible(sheet, "cmdPersWrkCalc(2)"));
  click(sheet, "cmdTable1Show(0)");
  pickRow(3);  // "$12,001 - $18,000"
  EXPECT_EQ(desk.find<frmTableOne>(), nullptr);
  EXPECT_EQ(caption(sheet, "lbl2WkerT1"), "4");
  EXPECT_EQ(caption(sheet, "lbl2Wker3"), "1");
  EXPECT_FALSE(find(sheet, "cmdW4Back(0)").isEnabled());
  EXPECT_TRUE(visible(sheet, "cmdPersWrkCalc(2)"));
}

TEST_F(W4ViewsTest, TheMarkerMovesInTheTableUntilEnterChooses) {
  payData.w4Allowances = 3;
  View& sheet = open<frm2Workers>();
  click(sheet, "cmdTable1Show(0)");
  auto& list = find<QListWidget>(view<frmTableOne>(), "lstTableOne");
  list.setCurrentRow(0);
  for (int i = 0; i < 3; ++i) QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_NE(desk.find<frmTableOne>(), nullptr);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(desk.find<frmTableOne>(), nullptr);
  EXPECT_EQ(caption(sheet, "lbl2WkerT1"), "4");
  EXPECT_EQ(caption(sheet, "lbl2Wker3"), "0");
  EXPECT_TRUE(find(sheet, "cmdW4Back(0)").isEnabled());
}

TEST_F(W4ViewsTest, AnOptionOfTheFormIsWrittenInItsColour) {
  View& form = open<frmW4>();
  auto& option = find<QRadioButton>(form, "optMarried");
  click(form, "optMarried");
  desk.use<frmW4>().optMarried.foreColour = colours::highlight;
  const QImage drawn = option.grab(QRect(14, 0, option.width() - 14, option.height())).toImage();
  int coloured = 0;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x)
      coloured += drawn.pixelColor(x, y) == look::colour(colours::highlight) ? 1 : 0;
  }
  EXPECT_GT(coloured, 0);
}

TEST_F(W4ViewsTest, Table2AndThePaydaysGiveTheAmountOfThePaycheck) {
  payData.w4Allowances = 0;
  View& sheet = open<frm2Workers>();
  click(sheet, "cmdTable1Show(0)");
  pickRow(2);  // line 2 is 3, and line 6 as line 5 stays 0
  click(sheet, "cmdW4Back(0)");
  click(sheet, "cmdTable1Show(1)");
  click(view<frmTableOne>(), "optTableOne(1)");
  pickRow(0);  // "0 - $30,000": 400
  EXPECT_EQ(shown(sheet, "lblTable2"), "$400.00");
  type(sheet, "txtNumPayDays", "26");
  click(sheet, "cmdPersWrkCalc(0)");
  EXPECT_EQ(caption(sheet, "lbl2WkerResult6"), "3");
  EXPECT_EQ(shown(sheet, "lblMultiply8"), "$1,200.00");
  EXPECT_EQ(shown(sheet, "lblDollarAmt"), "$46.15");
  click(sheet, "cmdPersWrkCalc(1)");
  EXPECT_EQ(desk.find<frm2Workers>(), nullptr);
  EXPECT_EQ(caption(view<frmW4>(), "lblW4Line6"), "$46.15");
}

TEST_F(W4ViewsTest, TheTablesAreASmallWindow) {
  View& sheet = open<frm2Workers>();
  click(sheet, "cmdTable1Show(0)");
  EXPECT_EQ(view<frmTableOne>().size(), QSize(340, 221));  // 5100 by 3315 twips
}

TEST_F(W4ViewsTest, TheYearOfTheCalendarHasAName) {
  EXPECT_EQ(find(open<frmCalendar>(), "qt_calendar_yearedit").accessibleName(), "Year");
}

TEST_F(W4ViewsTest, TheCalendarShowsToday) {
  View& sheet = open<frm2Workers>();
  click(sheet, "cmdW4Back(0)");
  click(sheet, "cmdW4Back(2)");
  EXPECT_EQ(find<QCalendarWidget>(view<frmCalendar>(), "mthTwoWorkers").selectedDate(), QDate::currentDate());
}

/// The form, printed to a file: there is no printer.
class FormPrintTest : public W4ViewsTest {
 protected:
  FormPrintTest() { dialogs.path = folder.filePath("form.pdf"); }

  View& openForm() {
    desk.show<frmW4>();
    QApplication::processEvents();
    return view<frmW4>();
  }
  static void doubleClick(QWidget& widget, QPoint place = {}) {
    QTest::mouseDClick(&widget, Qt::LeftButton, {}, place);
    QApplication::processEvents();
  }
  static std::string outputOf(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    EXPECT_TRUE(process.waitForFinished()) << program << " is needed";
    EXPECT_EQ(process.exitCode(), 0);
    return QString::fromUtf8(process.readAllStandardOutput()).simplified().toStdString();
  }
  std::string textOnPaper() const { return outputOf("pdftotext", {"-raw", dialogs.path, "-"}); }

  QTemporaryDir folder;
};

TEST_F(FormPrintTest, NothingSavedShowsDashes) {
  View& form = openForm();
  for (const char* box : {"txtName", "txtAddress", "txtCity", "txtSSN"}) EXPECT_EQ(shown(form, box), "-") << box;
  EXPECT_EQ(caption(form, "lblW4Line5"), "0");
  EXPECT_EQ(caption(form, "lblW4Line6"), "");
}

TEST_F(FormPrintTest, ExemptByDoubleClick) {
  View& form = openForm();
  EXPECT_FALSE(visible(form, "Label27"));
  doubleClick(find(form, "Label20"));
  EXPECT_TRUE(visible(form, "Label27"));
  click(form, "Label20");
  EXPECT_FALSE(visible(form, "Label27"));
  EXPECT_EQ(dialogs.asked, 0);
}

TEST_F(FormPrintTest, ADoubleClickOfTheHandIsOneClickAndOneDoubleClick) {
  View& form = openForm();
  QWidget& line = find(form, "Label20");
  QWindow* window = line.window()->windowHandle();
  const QPoint middle = line.mapTo(line.window(), line.rect().center());
  // Press, release, the second press, its release: as the window system sends them.
  const auto twice = [&](Qt::MouseButton button) {
    QTest::mouseDClick(window, button, {}, middle);
    QApplication::processEvents();
  };
  twice(Qt::RightButton);
  EXPECT_FALSE(visible(form, "Label27"));
  for (int i = 0; i < 2; ++i) {
    twice(Qt::LeftButton);
    EXPECT_TRUE(visible(form, "Label27")) << i;
  }
  for (int i = 0; i < 2; ++i) {
    QTest::mouseClick(window, Qt::LeftButton, {}, middle);
    QApplication::processEvents();
    EXPECT_FALSE(visible(form, "Label27")) << i;
  }
  EXPECT_EQ(dialogs.asked, 0);
}

TEST_F(FormPrintTest, ThePaperHasTheFormInWordsAndWithoutExitAndHint) {
  View& form = openForm();
  type(form, "txtName", "Pat Q. Sample");
  type(form, "txtCity", "Port Ellery, Ohio 43000");
  click(form, "optSingle");
  doubleClick(find(form, "Label20"));
  doubleClick(form, {2, 2});
  EXPECT_EQ(dialogs.asked, 1);
  const std::string paper = textOnPaper();
  EXPECT_THAT(paper, AllOf(HasSubstr("W-4"), HasSubstr("Employee's Withholding Allowance Certificate"),
                           HasSubstr("1999"), HasSubstr("Pat Q. Sample"), HasSubstr("Port Ellery, Ohio 43000"),
                           HasSubstr("Married, withholding at higher Single rate."), HasSubstr("slpouse"),
                           HasSubstr("1-800-772-1213"), HasSubstr("EXEMPT"), HasSubstr("Employee's signature")));
  EXPECT_THAT(paper, HasSubstr("Additional amount, if any, you want withheld from each paycheck"));
  EXPECT_THAT(paper, Not(HasSubstr("Double Click Form To Print")));
  EXPECT_THAT(paper, HasSubstr("Check4"));
  // Vectors, not pixels: the list of pictures in the file has only its heading.
  EXPECT_THAT(outputOf("pdfimages", {"-list", dialogs.path}), testing::EndsWith("-"));
}

/// As a store may hold them. The processor's time, because the clock's depends on what else the computer does.
TEST_F(FormPrintTest, IsPrintedAtOnceWithTextsOfMegabytes) {
  std::string name = "Pat";
  while (name.size() < 7'900'000) name += " Quincy";
  for (const settings::Text& setting : {settings::uName, settings::uAdd, settings::uCity}) setting.save(name);
  const std::clock_t before = std::clock();
  doubleClick(openForm(), {2, 2});
  EXPECT_LT(std::clock() - before, 20 * CLOCKS_PER_SEC);
  EXPECT_THAT(textOnPaper(), HasSubstr("Pat Quincy Quincy"));
}

TEST_F(FormPrintTest, ThePaperIsOneLetterPage) {
  doubleClick(openForm(), {2, 2});
  EXPECT_THAT(outputOf("pdfinfo", {dialogs.path}), AllOf(HasSubstr("Pages: 1 "), HasSubstr("612 x 792 pts (letter)")));
}

TEST_F(FormPrintTest, ExitAndHintAreBackAfterPrinting) {
  View& form = openForm();
  const QRect exit = find(form, "cmdW4Exit").geometry();
  bool hiddenMeanwhile = false;
  dialogs.onPrinter = [&](QPrinter& /*printer*/) {
    hiddenMeanwhile = !visible(form, "cmdW4Exit") && !visible(form, "lblPrint");
    return false;  // the user cancels
  };
  doubleClick(form, {2, 2});
  EXPECT_TRUE(hiddenMeanwhile);
  EXPECT_TRUE(visible(form, "cmdW4Exit"));
  EXPECT_TRUE(visible(form, "lblPrint"));
  EXPECT_EQ(find(form, "cmdW4Exit").geometry(), exit);
  EXPECT_FALSE(QFile::exists(dialogs.path));
}

TEST_F(FormPrintTest, ADoubleClickOnFixedTextIsOneOnTheForm) {
  View& form = openForm();
  doubleClick(find(form, "Label2"));
  EXPECT_EQ(dialogs.asked, 1);
  doubleClick(find(form, "txtName"));  // a box handles its own
  EXPECT_EQ(dialogs.asked, 1);
}

TEST_F(FormPrintTest, ASavedFormHidesTheMessageOfAnEarlierOne) {
  View& form = openForm();
  const auto& notice = *desktop.frame()->findChild<QLabel*>("notice", Qt::FindDirectChildrenOnly);
  const QString good = std::exchange(dialogs.path, folder.filePath("no such folder/form.pdf"));
  EXPECT_EQ(platform.printer->printScreen(*form.screen()), 0);
  EXPECT_TRUE(notice.isVisible());
  EXPECT_TRUE(notice.text().startsWith("The form couldn't be saved. " + dialogs.path + ": "))
      << notice.text().toStdString();
  dialogs.path = good;
  EXPECT_EQ(platform.printer->printScreen(*form.screen()), 1);
  EXPECT_FALSE(notice.isVisible());
  EXPECT_EQ(notice.text(), "");
}

TEST_F(FormPrintTest, PagesPrintedAreCounted) {
  openForm();
  EXPECT_EQ(platform.printer->printScreen(*desk.find<frmW4>()), 1);
  EXPECT_EQ(dialogs.offered.toStdString(), desk.find<frmW4>()->title() + ".pdf");
  EXPECT_EQ(platform.printer->printScreen(desk.use<frmDednAdj>()), 0);  // it isn't shown
  dialogs.path.clear();
  EXPECT_EQ(platform.printer->printScreen(*desk.find<frmW4>()), 0);
}

TEST_F(FormPrintTest, ExitClosesTheForm) {
  View& form = openForm();
  click(form, "cmdW4Exit");
  EXPECT_EQ(desk.find<frmW4>(), nullptr);
}

}  // namespace
}  // namespace tallyfin::qt
