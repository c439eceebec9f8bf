#include "w4/frm2Workers.h"

#include "controls/colours.h"
#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "w4/frmCalendar.h"
#include "w4/frmTableOne.h"
#include "w4/frmW4.h"

namespace tallyfin {

namespace {

void zeroIfEmpty(Label& label) {
  if (label.caption().empty()) label.setCaption("0");
}

}  // namespace

frm2Workers::frm2Workers() : Screen(screenName, "Two-Earner/Two-Job Worksheet") {
  setTextColour(colours::greyText);
  pnl2Workers[1].left = Panel::outOfSight;
  cmdPersWrkCalc[0].tooltip = "Calculate";
  cmdPersWrkCalc[1].tooltip = "Form W4";
  cmdPersWrkCalc[2].tooltip = "Form W4";
  cmdPersWrkCalc[2].visible = false;  // until Table 1 gives line 3

  lbl2Wker3.onChange = [this] {
    unlessItFails([&] {
      if (realOf(lbl2Wker3.caption()) < 0) lbl2Wker3.setCaption("0");
    });
  };
  cmdTable1Show.on(&CommandButton::onClick, [this](int i) { cmdTable1Show_Click(i); });
  cmdW4Back.on(&CommandButton::onClick, [this](int i) { cmdW4Back_Click(i); });
  cmdW4Back.highlight(&CommandButton::onMouseEnter, &CommandButton::onMouseLeave, colours::highlight,
                      colours::greyText);
  cmdPersWrkCalc.on(&CommandButton::onClick, [this](int i) { cmdPersWrkCalc_Click(i); });
}

void frm2Workers::Load() {
  backColour = colours::paper;
  pnl2Workers[0].moveTo(0, 0);
  lblDedFromG.setCaption(toText(payData.w4Allowances));  // line 1 doesn't change after Load
  lbl2WkerT1.setCaption("0");
}

void frm2Workers::Activate() { maximized = true; }

void frm2Workers::cmdTable1Show_Click(int index) {
  payData.w4TableMode = index + 1;
  desk.show<frmTableOne>();
}

void frm2Workers::cmdW4Back_Click(int index) {
  zeroIfEmpty(lbl2WkerResult4);
  zeroIfEmpty(lbl2WkerResult5);
  switch (index) {
    case 0: return goForward();
    case 1: return goBack();
    default: return desk.show<frmCalendar>();
  }
}

void frm2Workers::goForward() {
  pnl2Workers[1].moveTo(0, 0);
  // Required: line 5 is the number of allowances, which Table 1 has overwritten, not line 1.
  lbl2WkerResult5.setCaption(toText(payData.w4Allowances));
  unlessItFails([&] {
    lbl2WkerResult6.setCaption(toText(realOf(lbl2WkerResult4.caption()) - realOf(lbl2WkerResult5.caption())));
  });
  pnl2Workers[0].left = Panel::outOfSight;
}

void frm2Workers::goBack() {
  pnl2Workers[0].moveTo(0, 0);
  lbl2WkerResult4.setCaption(lbl2WkerT1.caption());
  pnl2Workers[1].left = Panel::outOfSight;
}

void frm2Workers::cmdPersWrkCalc_Click(int index) {
  zeroIfEmpty(lbl2WkerResult6);
  if (lblTable2.text().empty()) lblTable2.setText("0");
  unlessItFails([&] { line6 = toInt16(lbl2WkerResult6.caption()); });
  unlessItFails([&] { line7 = toMoney(lblTable2.text()); });
  switch (index) {
    case 0: return calculate();
    case 1:
      desk.close(*this);
      desk.show<frmW4>();
      desk.use<frmW4>().lblW4Line5.setCaption(toText(payData.w4Allowances));
      return desk.use<frmW4>().lblW4Line6.setCaption(toText(payData.w4TwoEarnerAmt));
    default: desk.use<frmW4>().lblW4Line5.setCaption(toText(payData.w4Allowances)); return desk.show<frmW4>();
  }
}

/// Lines 8 and 9.
void frm2Workers::calculate() {
  unlessItFails([&] { line8 = line7 * line6; });
  lblMultiply8.setText(toText(line8));
  if (txtNumPayDays.text().empty()) txtNumPayDays.setText("1");
  unlessItFails([&] { payData.w4TwoEarnerAmt = fromReal(toReal(line8) / realOf(txtNumPayDays.text())); });
  lblDollarAmt.setText(toText(payData.w4TwoEarnerAmt));
}

}  // namespace tallyfin
