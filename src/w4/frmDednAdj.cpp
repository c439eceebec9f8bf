#include "w4/frmDednAdj.h"

#include <cmath>

#include "controls/colours.h"
#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"

namespace tallyfin {

namespace {

/// Standard deduction by category, 1999, dollars a year.
constexpr std::array standardDeduction{7200, 6350, 4300, 3600};

Money amountIn(const MaskedBox& box) { return box.text().empty() ? Money{} : toMoney(box.text()); }

}  // namespace

frmDednAdj::frmDednAdj() : Screen(screenName, "Deductions and Adjustments") {
  setTextColour(colours::greyText);
  pnlDednAdj[1].left = Panel::outOfSight;
  cmdPersWrkCalc.tooltip = "Calculate";
  cmdW4Back[1].tooltip = "Calculate";  // the same as button 0: required

  for (Label* amount : {&lblGetPersDed, &lblSubTotal, &lblTotal5, &lblTotal7}) {
    amount->onChange = [amount] { amount->setCaption(currency(amount->caption())); };
  }
  optDedCategory.on(&OptionButton::onClick, [this](int i) { optDedCategory_Click(i); });
  optDedCategory.highlight(&OptionButton::onMouseEnter, &OptionButton::onMouseLeave, colours::highlight,
                           colours::greyText);
  cmdPersWrkCalc.onClick = [this] { cmdPersWrkCalc_Click(); };
  cmdW4Back.on(&CommandButton::onClick, [this](int i) { cmdW4Back_Click(i); });
}

void frmDednAdj::Load() { backColour = colours::paper; }

/// Lines 2 and 3. Nothing else calculates line 3.
void frmDednAdj::optDedCategory_Click(int index) {
  Money line1;
  unlessItFails([&] { line1 = amountIn(txtGetItemized); });
  const Money line2 = standardDeduction.at(static_cast<std::size_t>(index));
  lblGetPersDed.setCaption(toText(line2));
  if (line1 == 0) {
    lblSubTotal.setCaption("0");  // the stored line isn't changed
  } else {
    // May be negative, although the caption says otherwise.
    unlessItFails([&] { lblSubTotal.setCaption(toText(line1 - line2)); });
    unlessItFails([&] { line3 = toMoney(lblSubTotal.caption()); });
  }
}

void frmDednAdj::cmdPersWrkCalc_Click() {
  unlessItFails([&] { line4 = amountIn(txtAdjustments); });
  unlessItFails([&] { lblTotal5.setCaption(toText(line3 + line4)); });
  unlessItFails([&] { line6 = amountIn(txtNonWage); });
  unlessItFails([&] { line7 = toMoney(lblTotal5.caption()) - line6; });
  lblTotal7.setCaption(currency(line7 >= 0 ? line7 : Money{}));
  unlessItFails([&] { line8 = integerRounded(std::trunc(realOf(lblTotal7.caption()) / 3000.0)); });
  lblDivide.setCaption(toText(line8));
  // Required: each further press adds line 8 again, while line 9 on the screen shows the old number.
  unlessItFails([&] { lblTotal10.setCaption(toText(line8 + payData.w4Allowances)); });
  unlessItFails([&] { payData.w4Allowances = toInt16(lblTotal10.caption()); });
}

void frmDednAdj::cmdW4Back_Click(int index) {
  pnlDednAdj[1 - index].moveTo(0, 0);
  if (index == 0) {
    lblPersWrkShtDeps.setCaption(toText(payData.w4Allowances));
    txtAdjustments.setFocus();
  }
  pnlDednAdj[index].left = Panel::outOfSight;
}

}  // namespace tallyfin
