#include "ui/frmMain.h"

#include "controls/colours.h"
#include "controls/desk.h"
#include "engine/calculate.h"
#include "engine/frequency.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settingsstore.h"
#include "engine/statelist.h"
#include "stateoptions/frmState.h"
#include "stateoptions/shapes.h"
#include "ui/frmPrint.h"
#include "whatif/frmMisc.h"

namespace tallyfin {

namespace {

/// Federal withholding allowance, 1999: dollars a pay period for each exemption.
constexpr PerFrequency<double> allowance{52.88, 114.58, 105.77, 229.17};

/// The hours of a full-time job in the pay period.
constexpr std::array fullTimeHours{"40", "86.66", "80", "173.33"};

/// What Sponsor Info shows; it is connected to no other data.
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
  cmdAdditional[0].tooltip = "Press to enter any local tax you may pay.";
  cmdAdditional[1].tooltip = "Press to calculate a pay increase.";
  cmdAdditional[1].visible = false;  // until the first Calculate
  cmdToolBar[0].tooltip = "Calculate";
  cmdToolBar[1].tooltip = "Print";
  cmdToolBar[2].tooltip = "Clear";
  cmdToolBar[3].tooltip = "Exit";
  cmdToolBar[4].tooltip = "Exit";  // said twice, on purpose

  lstFrequency.onClick = [this] { lstFrequency_Click(); };
  cboState.onClick = [this] { cboState_Click(); };
  chkSelfEmployed.onClick = [this] { chkSelfEmployed_Click(); };
  optStatus.on(&OptionButton::onClick, [this](int i) { optStatus_Click(i); });
  optStatus.on(&OptionButton::onGotFocus, [this](int i) { optStatus[i].foreColour = colours::lightBlue; });
  optStatus.on(&OptionButton::onLostFocus, [this](int i) {
    optStatus[i].foreColour = optStatus[i].value() ? colours::lightBlue : colours::lightYellow;
  });
  cmdAdditional.on(&CommandButton::onClick, [this](int i) { cmdAdditional_Click(i); });
  cmdAdditional.on(&CommandButton::onGotFocus, [this](int i) { cmdAdditional[i].foreColour = colours::lightBlue; });
  cmdAdditional.on(&CommandButton::onLostFocus, [this](int i) { cmdAdditional[i].foreColour = colours::lightYellow; });
  cmdToolBar.on(&CommandButton::onClick, [this](int i) { cmdToolBar_Click(i); });
}

void frmMain::Load() {
  txtIncome.setText(lastEntries.get("IncAmt", "0"));
  txt401k.setText(lastEntries.get("401k", "0"));
  txtPreTax.setText(lastEntries.get("NotTax", "0"));
  txtPreFICA.setText(lastEntries.get("SSExmp", "0"));
  txtHours.setText(lastEntries.get("Hours", "80"));
  step([&] { cboState.setEntry(toInt16(lastEntries.get("State", "0")).value()); });  // may open the state options
  step([&] { cboExemptions.setEntry(toInt16(lastEntries.get("Deps", "0")).value()); });
  step([&] { payData.frequency = toInt16(lastEntries.get("Frequency", std::to_string(lstFrequency.index()))); });
  step([&] { payData.maritalStat = toInt16(lastEntries.get("MaritalStat", "0")); });
  // As stored, not normalised: a rate typed as 2 is 200 percent from here on.
  step([&] { payData.localRate = realOf(lastEntries.get("Local", "0")); });
  desk.use<frmMisc>().txtTaxPerCnt.setText(toText(payData.localRate));
  step([&] { payData.mMethod = toInt16(stateInfo.get("MMethod", "0")); });
  step([&] { chkSelfEmployed.setValue(toInt16(lastEntries.get("Self", "0")) != 0); });
  step([&] { exemptions = toInt16(cboExemptions.text()); });
  // Selecting runs the click, which replaces the hours by those of the frequency.
  step([&] { lstFrequency.setEntry(payData.frequency.value()); });
  step([&] { payData.depsDed = fromReal(toReal(exemptions) * allowance.now()); });
  if (payData.maritalStat >= 0 && payData.maritalStat <= 2) optStatus[payData.maritalStat.value()].select();
  desk.close<frmState>();  // its closing brings the saved state options into the record
}

void frmMain::showFigure(int label, const std::string& text) {
  const std::array labels{&lbl1, &lbl2, &lbl3, &lbl4, &lbl5, &lbl6, &lbl7, &lbl8};
  labels.at(static_cast<std::size_t>(label - 1))->setCaption(text);
}

void frmMain::lstFrequency_Click() {
  payData.frequency = lstFrequency.index();
  txtHours.setText(fullTimeHours.at(static_cast<std::size_t>(lstFrequency.index())));
  lastEntries.save("Frequency", toText(payData.frequency));
}

void frmMain::optStatus_Click(int index) {
  // The caption decides about the third option; as it stands, that option yields the single tables.
  const bool twoIncomes = optStatus[2].caption() == "Married, Two Incomes";
  payData.maritalStat = index == 2 && !twoIncomes ? 1 : index;
}

void frmMain::chkSelfEmployed_Click() { lastEntries.save("Self", chkSelfEmployed.value() ? "-1" : "0"); }

void frmMain::cboState_Click() {
  if (!opensStateOptions(cboState.index())) return;
  frmState& options = desk.use<frmState>();
  options.maximized = true;
  desk.show(options);
}

void frmMain::cmdAdditional_Click(int index) {
  desk.show<frmMisc>();
  if (index == 0) {
    desk.use<frmMisc>().showLocalTaxPage();
  } else {
    desk.use<frmMisc>().showRaisePage();
  }
}

void frmMain::cmdToolBar_Click(int index) {
  switch (index) {
    case 0: return calculateCommand();
    case 1: return printCommand();
    case 2: return clearCommand();
    case 3: return desk.close(*this);
    default: return sponsorInfoCommand();
  }
}

void frmMain::calculateCommand() {
  payData.incomeSource = 0;
  step([] { payData.payPeriods = periodsPerYear.now(); });
  Calculate();
  cmdAdditional[1].visible = true;
  saveEntries();
  dbgDisplay.removeAll();
  GridPrint();
}

void frmMain::saveEntries() {
  const SavedTogether together;
  lastEntries.save("IncAmt", toText(payData.grossPay));
  lastEntries.save("401k", toText(payData.rate401k));  // the fraction: a typed 6 comes back as 0.06
  lastEntries.save("NotTax", toText(payData.preTax));
  lastEntries.save("SSExmp", toText(payData.preFica));
  lastEntries.save("Hours", txtHours.text());
  lastEntries.save("State", std::to_string(cboState.index()));
  lastEntries.save("Deps", std::to_string(cboExemptions.index()));
  lastEntries.save("Frequency", toText(payData.frequency));
  lastEntries.save("MaritalStat", toText(payData.maritalStat));
  lastEntries.save("LocalAmt", toText(payData.localTax));
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
  for (const char* row : sponsorRows) dbgDisplay.addRow(row);
}

void frmMain::GridPrint() {
  dbgDisplay.setFieldDelimiter('!');
  dbgDisplay.setFieldSeparator(',');
  const auto deductions = [] {
    return payData.amt401k + payData.fica + payData.fedTax + payData.stateTax + payData.localTax;
  };
  step([&] { payData.totalDed = deductions(); });
  step([&] { payData.checkAmt = payData.grossPay - deductions(); });

  const auto add = [this](const char* front, Money amount) { dbgDisplay.addRow(front + toText(amount)); };
  add("!Gross Pay!,", payData.grossPay);
  add("!401k Deduction!,", payData.amt401k);
  add("!Non-Taxable!,", payData.preTax);
  add("!Pre-FICA!,", payData.preFica);
  add("!Federal Tax!,", payData.fedTax);
  add("!State Tax!,", payData.stateTax);
  add("!Local Tax!,", payData.localTax);
  add("!FICA!,", payData.fica);
  add("!Social Security!,", payData.socSec);
  add("!Medicare!,", payData.medicare);
  add("!Total Ded!,", payData.totalDed);
  add("!Check Amt!,", payData.checkAmt);
}

}  // namespace tallyfin
