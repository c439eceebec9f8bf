#include "whatif/frmMisc.h"

#include "controls/colours.h"
#include "controls/desk.h"
#include "engine/calculate.h"
#include "engine/entries.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "ui/frmMain.h"

namespace tallyfin {

namespace {

/// Position of the visible page, twips.
constexpr int pageLeft = 728;
constexpr int pageTop = 135;

}  // namespace

frmMisc::frmMisc() : Screen(screenName, "Local Tax and Raise") {
  pnlContainerMisc[0].moveTo(745, pageTop);
  pnlContainerMisc[1].moveTo(Panel::outOfSight, pageTop);
  imgSeal.tooltip = "Click to Unload Page";

  cmdExit.highlight(&CommandButton::onGotFocus, &CommandButton::onLostFocus, colours::highlight, colours::greyText);

  lblOldShow.onChange = [this] { lblOldShow.setCaption(currency(lblOldShow.caption())); };
  lstGrossPay.onClick = [this] { lstGrossPay_Click(); };
  cmdExit[0].onClick = [this] { takeLocalTax(); };
  cmdExit[1].onClick = [this] { raise(); };
  cmdExit[2].onClick = [this] { desk.close(*this); };
  imgSeal.onClick = [this] { desk.close(*this); };
}

void frmMisc::Load() {
  for (Control* box :
       std::initializer_list<Control*>{&txtTaxPerCnt, &txtRaise[0], &txtRaise[1], &lblOldShow, &lstGrossPay}) {
    box->backColour = colours::boxGround;
  }
  // The old wage is read here only: a later change of the income shows when the screen is opened again.
  unlessItFails([&] {
    const frmMain& main = desk.use<frmMain>();
    const double income = realOf(main.txtIncome.text());
    if (income != 0) lblOldShow.setCaption(toText(income / realOf(main.txtHours.text())));
  });
  // As stored, not normalised: required. The Local Tax page is visible while the screen loads, even where the Raise
  // page is to be shown.
  unlessItFails([&] { payData.localRate = realOf(settings::local.text()); });
  unlessItFails([&] { payData.applyTo = settings::applyTo.number(); });
  unlessItFails([&] { lstGrossPay.setEntry(settings::applyToDisp.number().value()); });
}

void frmMisc::Unload() {
  for (Panel& page : pnlContainerMisc) page.left = Panel::outOfSight;
}

void frmMisc::showPage(int page) {
  pnlContainerMisc[page].moveTo(pageLeft, pageTop);
  pnlContainerMisc[1 - page].left = Panel::outOfSight;
}

void frmMisc::showLocalTaxPage() {
  showPage(0);
  txtTaxPerCnt.setText(toText(payData.localRate));
  txtTaxPerCnt.setFocus();
  cmdExit[2].visible = false;
}

void frmMisc::showRaisePage() {
  showPage(1);
  cmdExit[2].visible = true;
  txtRaise[0].setFocus();
}

void frmMisc::lstGrossPay_Click() {
  payData.applyTo = lstGrossPay.index() + 1;
  settings::applyTo.save(payData.applyTo);
  settings::applyToDisp.save(lstGrossPay.index());
}

void frmMisc::takeLocalTax() {
  takeLocalRate(txtTaxPerCnt.text());
  settings::local.save(txtTaxPerCnt.text());  // as typed
  desk.close(*this);
}

void frmMisc::raise() {
  TextBox& percent = txtRaise[0];
  TextBox& newWage = txtRaise[1];
  const auto oldWage = [this] { return realOf(lblOldShow.caption()); };

  if (percent.text().empty() && newWage.text().empty()) percent.setText("0");
  payData.incomeSource = 1;
  if (percent.text().empty()) {
    // The divisor is the new wage: from 10 to 11 is 9.09%.
    unlessItFails([&] {
      const double wage = realOf(newWage.text());
      percent.setText(toText(roundedForDisplay((wage - oldWage()) / wage * 100)) + "%");
    });
  }
  if (newWage.text().empty()) {
    unlessItFails([&] {
      if (realOf(percent.text()) >= 1) percent.setText(toText(realOf(percent.text()) / 100));
    });
    unlessItFails([&] { newWage.setText(toText(oldWage() + realOf(percent.text()) * oldWage())); });
    unlessItFails(
        [&] { payData.taxableWage = fromReal(realOf(percent.text()) * toReal(payData.grossPay)) + payData.grossPay; });
  }
  // Required: with a new wage, `taxableWage` is the reduced base of the last calculation, and Calculate uses it as
  // income.
  frmMain& main = desk.use<frmMain>();
  unlessItFails([&] { main.txtIncome.setText(toText(realOf(newWage.text()) * realOf(main.txtHours.text()))); });
  // Rounds the text in the box, which has 15 digits, not the product: 3553.265 becomes 3553.26.
  unlessItFails([&] { main.txtIncome.setText(toText(roundedForDisplay(realOf(main.txtIncome.text())))); });
  Calculate();
  unlessItFails([&] { newWage.setText(currency(roundedForDisplay(realOf(newWage.text())))); });
}

}  // namespace tallyfin
