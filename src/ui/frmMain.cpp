#include "ui/frmMain.h"

#include "controls/colours.h"
#include "controls/desk.h"
#include "engine/entries.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/recorder.h"
#include "engine/settings.h"
#include "engine/statelist.h"
#include "platform/dates.h"
#include "platform/platform.h"
#include "stateoptions/frmState.h"
#include "stateoptions/shapes.h"
#include "ui/frmPrint.h"
#include "whatif/frmMisc.h"

namespace tallyfin {

namespace {

/// The hours of a full-time job in the pay period.
constexpr std::array fullTimeHours{"40", "86.66", "80", "173.33"};

/// The rows of Sponsor Info.
constexpr std::array sponsorRows{"Accounts Desk,555-0110",
                                 "Payroll Desk,555-0121",
                                 "State Tables,555-0134",
                                 "Support,555-0147",
                                 "",
                                 "Main Office",
                                 "12 Harbor Street",
                                 "Port Ellery"};

}  // namespace

frmMain::frmMain() : Screen(screenName, "Calculations") {
  for (int i = 0; i <= 15; ++i) cboExemptions.add(std::to_string(i));
  for (const State& state : stateList) cboState.add(state.caption);

  cboExemptions.tooltip = "Select the number of exemptions or dependents you claim.";
  cboState.tooltip = "Select the state to which you pay income tax.";
  lblHours.tooltip = "Enter the number of hours worked.";
  for (OptionButton& option : optStatus) option.tooltip = "Select the marital status you claim.";
  cmdAdditional[localTax].tooltip = "Press to enter any local tax you may pay.";
  cmdAdditional[raise].tooltip = "Press to calculate a pay increase.";
  cmdAdditional[raise].visible = false;  // until the first Calculate
  cmdToolBar[calculate].tooltip = "Calculate";
  cmdToolBar[print].tooltip = "Print";
  cmdToolBar[clear].tooltip = "Clear";
  cmdToolBar[exit].tooltip = "Exit";
  cmdToolBar[sponsorInfo].tooltip = "Exit";  // the same tip as Exit: required

  lstFrequency.onClick = [this] { lstFrequency_Click(); };
  cboState.onClick = [this] { cboState_Click(); };
  chkSelfEmployed.onClick = [this] { chkSelfEmployed_Click(); };
  optStatus.on(&OptionButton::onClick, [this](int i) { optStatus_Click(i); });
  optStatus.on(&OptionButton::onGotFocus, [this](int i) { optStatus[i].foreColour = colours::lightBlue; });
  optStatus.on(&OptionButton::onLostFocus, [this](int i) {
    optStatus[i].foreColour = optStatus[i].value() ? colours::lightBlue : colours::lightYellow;
  });
  cmdAdditional.on(&CommandButton::onClick, [this](int i) { cmdAdditional_Click(i); });
  cmdAdditional.highlight(&CommandButton::onGotFocus, &CommandButton::onLostFocus, colours::lightBlue,
                          colours::lightYellow);
  cmdToolBar.on(&CommandButton::onClick, [this](int i) { cmdToolBar_Click(i); });
}

void frmMain::Load() {
  txtIncome.setText(settings::incAmt.text());
  txt401k.setText(settings::rate401k.text());
  txtPreTax.setText(settings::notTax.text());
  txtPreFICA.setText(settings::ssExmp.text());
  txtHours.setText(settings::hours.text());
  unlessItFails([&] { cboState.setEntry(settings::state.number().value()); });  // its click may open the state options
  unlessItFails([&] { cboExemptions.setEntry(settings::deps.number().value()); });
  unlessItFails([&] { payData.frequency = settings::frequency.numberOr(lstFrequency.index()); });
  unlessItFails([&] { payData.maritalStat = settings::maritalStat.number(); });
  // As stored, not normalised: a rate typed as 2 becomes 200 percent. Required.
  unlessItFails([&] { payData.localRate = realOf(settings::local.text()); });
  desk.use<frmMisc>().txtTaxPerCnt.setText(toText(payData.localRate));
  unlessItFails([&] { payData.mMethod = settings::mMethod.number(); });
  unlessItFails([&] { chkSelfEmployed.setValue(settings::self.number() != 0); });
  unlessItFails([&] { exemptions = toInt16(cboExemptions.text()); });
  // Selecting runs Click, which replaces the hours by those of the frequency.
  unlessItFails([&] { lstFrequency.setEntry(payData.frequency.value()); });
  recordAllowance(exemptions);
  if (payData.maritalStat >= 0 && payData.maritalStat <= 2) optStatus[payData.maritalStat.value()].select();
  desk.close<frmState>();  // its Unload assigns the saved state options to the record
}

void frmMain::showFigure(int label, Money figure) {
  const std::array labels{&lbl1, &lbl2, &lbl3, &lbl4, &lbl5, &lbl6, &lbl7, &lbl8};
  labels.at(static_cast<std::size_t>(label - 1))->setCaption(toText(figure));
}

void frmMain::lstFrequency_Click() {
  payData.frequency = lstFrequency.index();
  txtHours.setText(fullTimeHours.at(static_cast<std::size_t>(lstFrequency.index())));
  settings::frequency.save(payData.frequency);
}

void frmMain::optStatus_Click(int index) {
  // The caption of the third option decides its meaning. With the current caption it is Single.
  takeStatus(index, optStatus[2].caption() == "Married, Two Incomes");
}

void frmMain::chkSelfEmployed_Click() { settings::self.save(chkSelfEmployed.value() ? -1 : 0); }

void frmMain::cboState_Click() {
  if (!opensStateOptions(cboState.index())) return;
  frmState& options = desk.use<frmState>();
  options.maximized = true;
  desk.show(options);
}

void frmMain::cmdAdditional_Click(int index) {
  desk.show<frmMisc>();
  if (index == localTax) {
    desk.use<frmMisc>().showLocalTaxPage();
  } else {
    desk.use<frmMisc>().showRaisePage();
  }
}

void frmMain::cmdToolBar_Click(int index) {
  switch (index) {
    case calculate: return calculateCommand();
    case print: return printCommand();
    case clear: return clearCommand();
    case exit: return desk.close(*this);
    default: return sponsorInfoCommand();
  }
}

void frmMain::calculateCommand() {
  std::string chosen;
  for (const OptionButton& option : optStatus) {
    if (option.value()) chosen = option.caption();
  }
  Recorder recording(chosen, longDate(platform.clock->now()));
  Recorder::calculatePaycheck();
  cmdAdditional[raise].visible = true;
  saveEntries();
  dbgDisplay.removeAll();
  GridPrint();
}

void frmMain::saveEntries() {
  settings::incAmt.save(payData.grossPay);
  settings::rate401k.save(payData.rate401k);  // the fraction: a typed 6 comes back as 0.06
  settings::notTax.save(payData.preTax);
  settings::ssExmp.save(payData.preFica);
  settings::hours.save(txtHours.text());
  settings::state.save(cboState.index());
  settings::deps.save(cboExemptions.index());
  settings::frequency.save(payData.frequency);
  settings::maritalStat.save(payData.maritalStat);
  settings::localAmt.save(payData.localTax);
}

void frmMain::printCommand() {
  desk.show<frmPrint>();
  desk.use<frmPrint>().cmdPrintMenu[0].click();
}

void frmMain::clearCommand() {
  dbgDisplay.removeAll();
  for (Money* result : {&payData.grossPay, &payData.amt401k, &payData.preTax, &payData.preFica, &payData.fedTax,
                        &payData.stateTax, &payData.localTax, &payData.socSec, &payData.medicare, &payData.fica}) {
    *result = 0;
  }
}

void frmMain::sponsorInfoCommand() {
  dbgDisplay.removeAll();
  dbgDisplay.setFieldSeparator(',');
  std::vector<GridRow> rows;
  for (const char* row : sponsorRows) rows.push_back({row});
  dbgDisplay.setRows(rows);
}

namespace {

RowKind kindOf(const ResultRow& row) {
  if (row.amount == &PayData::checkAmt) return RowKind::result;
  return row.amount == &PayData::grossPay || row.amount == &PayData::totalDed ? RowKind::total : RowKind::line;
}

}  // namespace

void frmMain::GridPrint() {
  dbgDisplay.setFieldDelimiter('!');
  dbgDisplay.setFieldSeparator(',');
  Recorder::makeTotals();
  std::vector<GridRow> rows;
  for (const ResultRow& row : resultRows) {
    rows.push_back({"!" + std::string(row.title) + "!," + toText(payData.*row.amount), kindOf(row)});
  }
  dbgDisplay.setRows(rows);
}

}  // namespace tallyfin
