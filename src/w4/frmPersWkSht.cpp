#include "w4/frmPersWkSht.h"

#include "controls/colours.h"
#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "w4/frm2Workers.h"
#include "w4/frmDednAdj.h"
#include "w4/frmW4.h"

namespace tallyfin {

namespace {

constexpr Colour pointedInstruction{0, 0, 192};

void colour(const std::vector<Label*>& labels, Colour text) {
  for (Label* label : labels) label->foreColour = text;
}

}  // namespace

frmPersWkSht::frmPersWkSht() : Screen(screenName, "Personal Allowances Worksheet") {
  setTextColour(colours::greyText);
  pnlW4PersWkSht[1].left = Panel::outOfSight;
  cmdPersWrkCalc[0].tooltip = "Calculate";

  cmdPersWrkCalc[0].onClick = [this] { cmdPersWrkCalc_Click(); };
  cmdInstructions.on(&CommandButton::onClick, [this](int i) { cmdInstructions_Click(i); });
  cmdW4Back.on(&CommandButton::onClick, [this](int i) { cmdW4Back_Click(i); });
  highlightWithThePointer();
}

void frmPersWkSht::Load() { backColour = colours::paper; }

/// The labels that explain lines A, B and C.
std::vector<Label*> frmPersWkSht::explanationOf(int check) {
  switch (check) {
    case 0: return {&lblItem1};
    case 1: return {&lblPart1of3, &lblPart2of3, &lblPart3of3};
    case 2: return {&lblItem3};
    default: return {};
  }
}

void frmPersWkSht::highlightWithThePointer() {
  const std::vector<Label*> childCare{&lblPersWrkChildCare, &lblChildCare[0], &lblChildCare[1]};
  chkPersWkShtA.on(&CheckBox::onMouseEnter, [this, childCare](int i) {
    chkPersWkShtA[i].foreColour = colours::highlight;
    colour({&lblPersWrkNoDeps}, colours::greyText);
    colour(childCare, colours::greyText);
    colour(explanationOf(i), colours::highlight);
  });
  chkPersWkShtA.on(&CheckBox::onMouseLeave, [this](int i) {
    chkPersWkShtA[i].foreColour = colours::greyText;
    colour(explanationOf(i), colours::greyText);
  });
  lblPersWrkChildCare.onMouseMove = [childCare] { colour(childCare, colours::highlight); };
  lblPersWrkNoDeps.onMouseMove = [this] { lblPersWrkNoDeps.foreColour = colours::highlight; };
  txtPersWkEnterDeps.onMouseMove = lblPersWrkNoDeps.onMouseMove;
  lblPersWrkTotal.onMouseMove = [childCare] { colour(childCare, colours::greyText); };
  cmdInstructions.highlight(&CommandButton::onMouseEnter, &CommandButton::onMouseLeave, pointedInstruction,
                            colours::greyText);
}

/// Line H.
void frmPersWkSht::cmdPersWrkCalc_Click() {
  if (chkPersWkShtA[0].value()) lineA = 1;
  if (chkPersWkShtA[1].value()) lineB = 1;
  if (chkPersWkShtA[2].value()) lineC = 1;
  unlessItFails([&] { lineG = txtChild.text().empty() ? 0 : toInt16(txtChild.text()); });
  lineD = txtPersWkEnterDeps.text().empty() ? "0" : txtPersWkEnterDeps.text();
  if (chkPersWkShtA[3].value()) lineF = 1;
  if (chkPersWkShtA[4].value()) lineE = 1;
  // Line D is a text, so the sum is a double, rounded to a whole number at the end.
  unlessItFails([&] {
    payData.w4Allowances = integerRounded(lineA + lineB + lineC + realOf(lineD) + lineE + lineF + toReal(lineG));
  });
  lblTotalDepsClaim.setCaption(toText(payData.w4Allowances));
}

void frmPersWkSht::cmdInstructions_Click(int index) {
  cmdPersWrkCalc[0].click();  // so that the total is current
  switch (index) {
    case 0: return desk.show<frmDednAdj>();
    case 1: return desk.show<frm2Workers>();
    default: desk.use<frmW4>().lblW4Line5.setCaption(toText(payData.w4Allowances)); return desk.show<frmW4>();
  }
}

void frmPersWkSht::cmdW4Back_Click(int index) {
  pnlW4PersWkSht[index].left = Panel::outOfSight;
  pnlW4PersWkSht[1 - index].moveTo(0, 0);
  // Required: on the way to page 2 the focus goes to a box of page 1, which is out of view then.
  if (index == 0) txtPersWkEnterDeps.setFocus();
}

}  // namespace tallyfin
