#include <QScrollArea>
#include <QScrollBar>

#include "desktoptest.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"

/// The state options, by mouse and keyboard.

namespace tallyfin::qt {

namespace {

class StateOptions : public DesktopTest {
 protected:
  void open(const char* state) {
    startOnMain();
    clickItem("StateInfo");
    choose("frmState", "cboState", state);
  }
  QColor textColour(const char* option) const {
    return find("frmState", option).palette().color(QPalette::Active, QPalette::WindowText);
  }
  void hover(const char* name, bool over) const {
    QWidget& widget = find("frmState", name);
    const QPointF middle = widget.rect().center();
    QEnterEvent enter(middle, middle, widget.mapToGlobal(middle));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&widget, over ? &enter : &leave);
    settle();
  }
};

TEST_F(StateOptions, AStateWithOptionsOpensThemFromTheMainScreen) {
  startOnMain();
  choose("frmMain", "cboState", "Colorado");
  EXPECT_EQ(front(), "Calculations");
  choose("frmMain", "cboState", "California");
  EXPECT_EQ(front(), "State Options");
  EXPECT_EQ(text("frmState", "cboState"), "California");
  click("frmState", "cmdAccept");
  EXPECT_EQ(front(), "Calculations");
  EXPECT_EQ(text("frmMain", "cboState"), "California");
}

TEST_F(StateOptions, EverythingStaysInItsPlaceGreyedOrEnabled) {
  open("Alabama");
  for (int i = 0; i < 10; ++i) {
    const QWidget& option = find("frmState", QStringLiteral("op3Marital(%1)").arg(i));
    EXPECT_TRUE(option.isVisible()) << i;
    EXPECT_EQ(option.isEnabled(), i >= 1 && i <= 5) << i;
  }
  for (int i = 0; i < 5; ++i) {
    const QWidget& option = find("frmState", QStringLiteral("optRateSelect(%1)").arg(i));
    EXPECT_TRUE(option.isVisible()) << i;
    EXPECT_FALSE(option.isEnabled()) << i;
  }
  EXPECT_EQ(textColour("op3Marital(1)"), QColor(255, 128, 128));
}

TEST_F(StateOptions, TheLongestCaptionsFitThePage) {
  open("Michigan");
  for (const char* state : {"Arizona", "Maryland", "Mississippi"}) {
    choose("frmState", "cboState", state);
    if (std::string(state) == "Mississippi") click("frmState", "op3Marital(8)");
    for (const auto* area : frame().findChildren<QScrollArea*>()) {
      if (!area->isVisible()) continue;
      EXPECT_FALSE(area->verticalScrollBar()->isVisible()) << state;
      EXPECT_FALSE(area->horizontalScrollBar()->isVisible()) << state;
    }
  }
}

TEST_F(StateOptions, TheAcceptedOptionsReachTheRecord) {
  open("California");
  click("frmState", "op3Marital(8)");
  choose("frmState", "cboSpecialDeps", "4");
  choose("frmState", "cboDeps(0)", "2");
  type("frmState", "mskAdditional", "12.5");
  click("frmState", "chkExemp(0)");
  click("frmState", "cmdAccept");
  EXPECT_EQ(payData.staMarried, 8);
  EXPECT_EQ(payData.staExmp, 4);
  EXPECT_EQ(payData.staDeps, 2);
  EXPECT_EQ(payData.staAdd, toMoney("12.5"));
  EXPECT_EQ(getSetting(applicationKey, section::stateInfo, "sta401", ""), "Y");
}

TEST_F(StateOptions, AFreeTextCountsAsANumber) {
  open("Arizona");
  EXPECT_EQ(text("frmState", "cboSpecialDeps"), "20");
  auto& box = find<QComboBox>("frmState", "cboSpecialDeps");
  click(*box.lineEdit());
  box.lineEdit()->selectAll();
  QTest::keyClicks(box.lineEdit(), "33");
  click("frmState", "cmdAccept");
  EXPECT_EQ(payData.staExmp, 33);
}

TEST_F(StateOptions, MississippiPutsThePersonalExemptionIntoTheBox) {
  open("Mississippi");
  click("frmState", "op3Marital(7)");
  EXPECT_EQ(text("frmState", "mskAdditional"), "$10,000.00");
  EXPECT_EQ(text("frmState", "lblStateVariables(2)"), "Your Personal Exemption");
  click("frmState", "op3Marital(8)");
  EXPECT_EQ(text("frmState", "mskAdditional"), "");
  EXPECT_EQ(text("frmState", "lblStateVariables(2)"),
            "Enter that part of $10,000 claimed by you, in multiples of $500.");
  EXPECT_EQ(focused(), "mskAdditional");
  EXPECT_EQ(find("frmState", "mskAdditional").accessibleName(),
            "Enter that part of $10,000 claimed by you, in multiples of $500.");
}

TEST_F(StateOptions, ConnecticutExplainsARateUnderThePointer) {
  open("Connecticut");
  const QRect foot = find("frmState", "mskAdditional").geometry();
  hover("optRateSelect(1)", true);
  EXPECT_EQ(text("frmState", "lblExplain"), "You will file as Head of Household on your federal tax return.");
  hover("optRateSelect(1)", false);
  EXPECT_EQ(text("frmState", "lblExplain"), "");
  hover("optRateSelect(3)", true);
  auto& explanation = find<QLabel>("frmState", "lblExplain");
  EXPECT_LE(explanation.heightForWidth(explanation.width()), explanation.height());
  EXPECT_EQ(find("frmState", "mskAdditional").geometry(), foot);
}

TEST_F(StateOptions, TheSecondIllinoisBoxIsEnabledByTheFirst) {
  open("Illinois");
  EXPECT_FALSE(find("frmState", "cboDeps(1)").isEnabled());
  choose("frmState", "cboDeps(0)", "2");
  EXPECT_TRUE(find("frmState", "cboDeps(1)").isEnabled());
}

TEST_F(StateOptions, MichigansCaptionStaysForTheNextState) {
  open("Michigan");
  EXPECT_EQ(text("frmState", "op3Marital(9)"), "Claimed as Dependent by Another");
  EXPECT_EQ(text("frmState", "lblSpecialDeps"), "Special Exemptions");
  choose("frmState", "cboState", "Hawaii");
  EXPECT_EQ(text("frmState", "op3Marital(9)"), "Claimed as Dependent by Another");
}

}  // namespace

}  // namespace tallyfin::qt
