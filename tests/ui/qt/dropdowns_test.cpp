#include <QAbstractItemView>
#include <QLineEdit>
#include <QWindow>

#include "controls/desk.h"
#include "desktoptest.h"
#include "engine/paydata.h"
#include "stateoptions/frmState.h"
#include "ui/frmMain.h"

/// The drop-downs whose text can be typed.

namespace tallyfin::qt {

namespace {

using ClosedList = DesktopTest;

class TypedEntry : public DesktopTest {
 protected:
  void open() {
    startOnMain();
    clickItem("StateInfo");
  }
  static frmState& screen() { return desk.use<frmState>(); }
  QComboBox& box(const char* name = "cboState") const { return find<QComboBox>("frmState", name); }
  /// Types over what stands in a drop-down.
  void write(const char* letters, const char* name = "cboState") const {
    box(name).setFocus();
    settle();
    box(name).lineEdit()->selectAll();
    QTest::keyClicks(box(name).lineEdit(), QString::fromLatin1(letters));
    settle();
  }
  static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
    settle();
  }
  /// As a hand does: the arrow at the right end.
  void clickArrow(const char* name = "cboState") const {
    QTest::mouseClick(&box(name), Qt::LeftButton, {}, QPoint(box(name).width() - 6, box(name).height() / 2));
    settle();
  }
};

TEST_F(ClosedList, LettersTypedAfterAPauseBeginAnew) {
  startOnMain();
  auto& box = find<QComboBox>("frmMain", "cboState");
  const auto marked = [&] { return box.view()->currentIndex().data().toString(); };
  const auto pressAt = [](QWidget& target, Qt::Key key, char letter, int milliseconds) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(QLatin1Char(letter)));
    press.setTimestamp(static_cast<quint64>(milliseconds));
    QApplication::sendEvent(&target, &press);
  };
  box.setFocus();
  pressAt(box, Qt::Key_M, 'm', 5'000);
  EXPECT_EQ(marked(), "Maine");
  pressAt(*box.view(), Qt::Key_O, 'o', 6'000);  // there is no entry with "mo"
  EXPECT_EQ(marked(), "Maine");
  pressAt(*box.view(), Qt::Key_O, 'o', 7'001);
  EXPECT_EQ(marked(), "Ohio");
  QTest::keyClick(box.view(), Qt::Key_Escape);
}

TEST_F(TypedEntry, OpeningTheListChoosesNothing) {
  open();
  choose("frmState", "cboState", "Ohio");
  write("Mass");
  for (const bool byKey : {false, true}) {
    if (byKey) {
      QTest::keyClick(&box(), Qt::Key_Down);
    } else {
      QTest::mouseClick(&box(), Qt::LeftButton, {}, QPoint(box().width() - 6, box().height() / 2));
    }
    // On most platforms the list gets the keyboard, and makes its first row the current one.
    QFocusEvent focus(QEvent::FocusIn, Qt::PopupFocusReason);
    QApplication::sendEvent(box().view(), &focus);
    settle();
    ASSERT_TRUE(box().view()->isVisible());
    EXPECT_EQ(screen().cboState.text(), "Mass");
    EXPECT_EQ(screen().cboState.index(), -1);
    EXPECT_EQ(box().currentText(), "Mass");
    EXPECT_FALSE(box().view()->currentIndex().isValid());  // no entry is highlighted
    QTest::keyClick(box().view(), Qt::Key_Return);         // so Enter chooses none
    settle();
    EXPECT_EQ(box().currentText(), "Mass");
    EXPECT_EQ(screen().cboState.index(), -1);
    QTest::keyClick(box().view(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(box().currentText(), "Mass");
    EXPECT_EQ(screen().cboState.index(), -1);
  }
}

TEST_F(TypedEntry, AListThatIsOpenedOnAChosenEntryHighlightsIt) {
  open();
  choose("frmState", "cboState", "Ohio");
  clickArrow();
  EXPECT_EQ(box().view()->currentIndex().data().toString(), "Ohio");
}

TEST_F(TypedEntry, EnterChoosesTheEntryInAnyCaseOfLetters) {
  open();
  write("cALIFORNIA");
  EXPECT_EQ(screen().cboState.index(), -1);
  key(Qt::Key_Return);
  EXPECT_EQ(screen().cboState.text(), "California");
  EXPECT_EQ(box().currentText(), "California");
  EXPECT_TRUE(find("frmState", "op3Marital(8)").isEnabled());  // the choice has shaped the screen
}

TEST_F(TypedEntry, EnterOfTheKeypadDoesTheSame) {
  open();
  write("ohio");
  key(Qt::Key_Enter);
  EXPECT_EQ(screen().cboState.text(), "Ohio");
}

TEST_F(TypedEntry, LeavingChoosesTheEntry) {
  open();
  write("california");
  key(Qt::Key_Tab);
  EXPECT_EQ(screen().cboState.text(), "California");
  write("ohio");
  click("frmState", "mskAdditional");
  EXPECT_EQ(screen().cboState.text(), "Ohio");
  write("oregon");
  key(Qt::Key_D, Qt::AltModifier);
  EXPECT_EQ(focused(), "cboDeps(0)");
  EXPECT_EQ(screen().cboState.text(), "Oregon");
}

TEST_F(TypedEntry, ItsOwnSpellingIsChosenToo) {
  open();
  write("California");
  EXPECT_FALSE(find("frmState", "op3Marital(8)").isEnabled());  // typing alone runs no click
  key(Qt::Key_Tab);
  EXPECT_TRUE(find("frmState", "op3Marital(8)").isEnabled());
}

TEST_F(TypedEntry, AcceptByItsKeyTakesTheEntryFirst) {
  open();
  write("california");
  key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_FALSE(shown("frmState"));
  EXPECT_EQ(desk.use<frmMain>().cboState.text(), "California");
}

TEST_F(TypedEntry, AClosingKeyTakesTheEntryFirst) {
  open();
  write("california");
  key(Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(shown("frmState"));
  EXPECT_EQ(desk.use<frmMain>().cboState.text(), "California");
}

TEST_F(TypedEntry, ATextThatIsNoEntryStays) {
  open();
  write("Calif");
  key(Qt::Key_Return);
  key(Qt::Key_Tab);
  EXPECT_EQ(screen().cboState.text(), "Calif");
  EXPECT_EQ(screen().cboState.index(), -1);
  EXPECT_EQ(box().currentText(), "Calif");
}

TEST_F(TypedEntry, LeavingWithoutHavingTypedChoosesNothing) {
  open();
  choose("frmState", "cboState", "California");
  click("frmState", "op3Marital(8)");
  box().setFocus();
  settle();
  key(Qt::Key_Tab);
  EXPECT_TRUE(screen().op3Marital[8].value());  // choosing again would clear it
  write("california");
  key(Qt::Key_Return);
  click("frmState", "op3Marital(8)");
  box().setFocus();
  settle();
  key(Qt::Key_Return);
  key(Qt::Key_Tab);
  EXPECT_TRUE(screen().op3Marital[8].value());
}

TEST_F(TypedEntry, AnotherWindowInFrontIsNoLeaving) {
  open();
  write("california");
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  settle();
  EXPECT_EQ(screen().cboState.index(), -1);
  EXPECT_EQ(screen().cboState.text(), "california");
}

TEST_F(TypedEntry, ATypedNumberIsChosenWhenItIsLeft) {
  open();
  choose("frmState", "cboState", "Illinois");
  write("2", "cboDeps(0)");
  EXPECT_FALSE(find("frmState", "cboDeps(1)").isEnabled());
  key(Qt::Key_Tab);
  EXPECT_TRUE(find("frmState", "cboDeps(1)").isEnabled());
}

TEST_F(TypedEntry, WhatWasTypedOverAnEntryCanBeUndone) {
  open();
  choose("frmState", "cboState", "Ohio");
  box().setFocus();
  settle();
  QTest::keyClick(box().lineEdit(), Qt::Key_End);
  QTest::keyClicks(box().lineEdit(), "x");
  settle();
  EXPECT_EQ(screen().cboState.text(), "Ohiox");
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box().currentText(), "Ohio");
  EXPECT_EQ(screen().cboState.text(), "Ohio");
  EXPECT_EQ(screen().cboState.index(), box().findText("Ohio"));
}

}  // namespace

}  // namespace tallyfin::qt
