#include <qpa/qwindowsysteminterface.h>

#include <QAccessible>
#include <QLineEdit>
#include <QWindow>

#include "controls/desk.h"
#include "desktoptest.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "ui/frmMain.h"
#include "ui/qt/accessibility/accessible.h"

/// Keys that arrive faster than the event loop runs: each acts before the next one.

namespace tallyfin::qt {

namespace {

class FastHands : public DesktopTest {
 protected:
  FastHands() {
    stored(section::settings, "IncAmt", "1000");
    stored(section::settings, "Frequency", "0");
  }
  /// Delivers keys in a burst, without running the event loop in between.
  static void burst(std::initializer_list<const char*> keys) {
    for (const char* key : keys) {
      const QKeyCombination one = QKeySequence(QString::fromLatin1(key))[0];
      const QString text = one.keyboardModifiers() == Qt::NoModifier && one.key() < Qt::Key_Escape
                               ? QString::fromLatin1(key).toLower()
                               : QString();
      for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWindowSystemInterface::handleExtendedKeyEvent(QGuiApplication::focusWindow(), type, one.key(),
                                                       one.keyboardModifiers(), 0, 0, 0, text);
      }
    }
    QWindowSystemInterface::sendWindowSystemEvents(QEventLoop::AllEvents);
  }
};

TEST_F(FastHands, AnOptionsMnemonicActsBeforeTheNextKey) {
  startOnMain();
  burst({"Alt+C", "Alt+G", "F9"});  // "Single", then Calculate
  EXPECT_TRUE(desk.use<frmMain>().optStatus[1].value());
  EXPECT_EQ(payData.maritalStat, 1);
  EXPECT_TRUE(find<QRadioButton>("frmMain", "optStatus(1)").isChecked());
}

TEST_F(FastHands, WhatIsTypedAfterAMnemonicGoesToThePageThatItOpened) {
  start();  // the personal information comes first
  ASSERT_TRUE(shown("frmName"));
  find("frmName", "txtCity").setFocus();
  settle();
  burst({"Alt+O", "4", "5", "6"});
  EXPECT_EQ(desk.use<frmMain>().txtIncome.text(), "456");
  settle();
  EXPECT_EQ(text("frmMain", "txtIncome"), "456");
  EXPECT_THAT(settings::uCity.text(), testing::Not(testing::HasSubstr("456")));
}

TEST_F(FastHands, WhatIsTypedAfterAKeyOfTheFrameGoesToThePageThatItOpened) {
  startOnMain();
  burst({"Ctrl+2", "7", "5"});
  settle();
  EXPECT_EQ(text("frmMultiCheck", "txtCheck1"), "75");
  burst({"Ctrl+1", "8", "6"});
  settle();
  EXPECT_EQ(desk.use<frmMain>().txtIncome.text(), "86");
}

TEST_F(FastHands, AKeyOfAPageActsOnceThePageWasOpenedAgain) {
  startOnMain();
  burst({"Ctrl+1", "F9", "Ctrl+1", "Alt+G"});
  settle();
  EXPECT_EQ(settings::incAmt.text(), "1000");
  EXPECT_TRUE(payData.grossPay == Money(1000));
  EXPECT_TRUE(desk.use<frmMain>().optStatus[1].value());
}

TEST_F(FastHands, ANumberTypedAfterTabKeepsTheOrderOfItsDigits) {
  stored(section::settings, "txtHours", "40");
  startOnMain();
  find("frmMain", "txtIncome").setFocus();
  settle();
  burst({"1", "2", "3", "4", "Tab", "3", "8", "Tab", "5"});
  settle();
  auto& screen = desk.use<frmMain>();
  EXPECT_EQ(screen.txtIncome.text(), "1234");
  EXPECT_EQ(screen.txtHours.text(), "38");
  EXPECT_EQ(screen.txt401k.text(), "5");
}

TEST_F(FastHands, APageThatClosesGivesTheKeyboardBackBeforeTheNextKey) {
  startOnMain();
  find("frmMain", "txtHours").setFocus();
  settle();
  burst({"Alt+L", "Escape", "2", "1"});
  settle();
  EXPECT_EQ(desk.use<frmMain>().txtHours.text(), "21");
}

TEST_F(FastHands, AButtonThatSpacePressesActsThoughTheNextKeyIsDownBeforeSpaceIsUp) {
  startOnMain();
  auto& self = find<QAbstractButton>("frmMain", "chkSelfEmployed");
  self.setFocus();
  settle();
  QWindow* window = QGuiApplication::focusWindow();
  QTest::keyPress(window, Qt::Key_Space);
  QTest::keyPress(window, Qt::Key_Tab);
  QTest::keyRelease(window, Qt::Key_Space);
  QTest::keyRelease(window, Qt::Key_Tab);
  settle();
  EXPECT_TRUE(desk.use<frmMain>().chkSelfEmployed.value());
  EXPECT_TRUE(self.isChecked());
}

TEST_F(FastHands, SpacePressesOnceHoweverLongItIsHeld) {
  startOnMain();
  find("frmMain", "chkSelfEmployed").setFocus();
  settle();
  QWidget* box = QApplication::focusWidget();
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ");
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
  QKeyEvent release(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, " ");
  for (QKeyEvent* event : {&press, &repeated, &repeated, &release}) QApplication::sendEvent(box, event);
  settle();
  EXPECT_TRUE(desk.use<frmMain>().chkSelfEmployed.value());
}

TEST_F(FastHands, AKeyOfAPageTakesTheEntryThatIsBeingTyped) {
  startOnMain();
  find("frmMain", "cboState").setFocus();
  settle();
  burst({"Alt+S", "m", "a", "s", "Return", "F9"});
  settle();
  EXPECT_EQ(desk.use<frmMain>().cboState.text(), "Massachusettes");
}

/// Assistive technology waits for the answer to its press: a press that opens a dialog answers before the dialog does.
TEST_F(FastHands, APressByAssistiveTechnologyReturnsBeforeItActs) {
  startOnMain();
  clickItem("W4");
  bool asked = false;
  dialogs.onPrinter = [&](QPrinter&) {
    asked = true;
    return false;
  };
  click("frmW4", "cmdW4Exit");
  click("frmMain", "cmdToolBar(0)");
  click("frmMain", "cmdToolBar(1)");
  ASSERT_TRUE(shown("frmPrint"));
  auto* face = QAccessible::queryAccessibleInterface(&find("frmPrint", "print"));
  face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_FALSE(asked);
  settle();
  EXPECT_TRUE(asked);
}

TEST_F(FastHands, AKeyAfterAPressByAssistiveTechnologyComesAfterIt) {
  startOnMain();
  auto* face = QAccessible::queryAccessibleInterface(&find("frmMain", "optStatus(1)"));
  face->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  burst({"F9"});
  EXPECT_EQ(payData.maritalStat, 1);
}

}  // namespace

}  // namespace tallyfin::qt
