#include "whatif/frmMultiCheck.h"

#include "controls/colours.h"
#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "ui/frmMain.h"

namespace tallyfin {

frmMultiCheck::frmMultiCheck() : Screen(screenName, "Multiple Check Worksheet") {
  setTextColour(colours::greyText);
  cmdCalc.tooltip = "Calculate";
  cmdGoBack.tooltip = "Go To Main Worksheet";

  const auto column = [this](ControlArray<OptionButton, 4>& options, Label& heading, auto monthly) {
    options.on(&OptionButton::onClick, [this, monthly](int check) {
      unlessItFails([&] { checkAmount.at(check) = monthly(txtCheck.at(check)->text()); });
      TrimCheck(check);
    });
    options.on(&OptionButton::onGotFocus, [&heading](int) { heading.foreColour = colours::highlight; });
    options.on(&OptionButton::onLostFocus, [&heading](int) { heading.foreColour = colours::greyText; });
    for (int check = 0; check < 4; ++check) periods.at(check).add(options[check]);
  };
  column(optSelectWeek, lblMultiWeekly, [](const std::string& text) { return fromReal(realOf(text) * 52 / 12); });
  column(optSelectETW, lblMultiETW, [](const std::string& text) { return fromReal(realOf(text) * 26 / 12); });
  column(optSelectTAW, lblMulti2aMon, [](const std::string& text) { return fromReal(realOf(text) * 24 / 12); });
  column(optSelectMonthly, lblMultimonthly, [](const std::string& text) { return toMoney(text); });

  cmdCalc.onClick = [this] { cmdCalc_Click(); };
  cmdGoBack.onClick = [this] { cmdGoBack_Click(); };
}

void frmMultiCheck::Load() { backColour = colours::paper; }

/// Shows a check's monthly amount, and sets it to the rounded amount that is shown.
void frmMultiCheck::TrimCheck(int check) {
  lblCheck.at(check)->setCaption(currency(checkAmount.at(check)));
  unlessItFails([&] { checkAmount.at(check) = toMoney(lblCheck.at(check)->caption()); });
}

void frmMultiCheck::cmdCalc_Click() {
  for (std::size_t check = 0; check < txtCheck.size(); ++check) {
    if (txtCheck.at(check)->text().empty()) checkAmount.at(check) = 0;
  }
  unlessItFails([&] { payData.multiCheckTotal = checkAmount[0] + checkAmount[1] + checkAmount[2] + checkAmount[3]; });
  lblMultiTotal.setCaption(currency(payData.multiCheckTotal));
}

void frmMultiCheck::cmdGoBack_Click() {
  frmMain& main = desk.use<frmMain>();
  main.txtIncome.setText(toText(payData.multiCheckTotal));
  desk.show(main);
  main.lstFrequency.setIndex(3);
  desk.close(*this);
}

}  // namespace tallyfin
