#include "stateoptions/frmState.h"

#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "engine/statelist.h"
#include "stateoptions/handover.h"
#include "stateoptions/shapes.h"
#include "ui/frmMain.h"

namespace tallyfin {

namespace {

constexpr Colour enabledText{255, 128, 128};

/// Connecticut's rate letters; the fifth has no text. The error in the first figure is required.
constexpr std::array connecticutRates{
    "You are Single; or You are Married and you are filing separately; or You are married filing jointly, both you "
    "and your spouse work, and your combined income is $100,00 or less.",
    "You will file as Head of Household on your federal tax return.",
    "You are married filing jointly and your spouse is not employed.",
    "You are married filing jointly, have a working spouse, and your combined income is more than $100,500; or You "
    "have a significant nonwage income, and wish to avoid having too little tax withheld; or You are a nonresident "
    "and you have substantial other income."};

}  // namespace

frmState::frmState() : Screen(screenName, "State Options") {
  for (const State& entry : stateList) cboState.add(entry.caption);
  for (int i = 0; i <= mostDependents; ++i) {
    cboDeps[0].add(std::to_string(i));
    cboDeps[1].add(std::to_string(i));
  }
  cboDeps[1].enabled = false;
  cboDeps[1].tooltip = illinoisDependentsHint;
  cboSpecialDeps.enabled = false;

  cboState.onClick = [this] { cboState_Click(); };
  cboDeps.on(&EditableDropDown::onClick, [this](int i) { cboDeps_Click(i); });
  cboSpecialDeps.onClick = [this] { cboSpecialDeps_Click(); };
  op3Marital.on(&OptionButton::onClick, [this](int i) { op3Marital_Click(i); });
  optRateSelect.on(&OptionButton::onClick, [this](int i) { optRateSelect_Click(i); });
  optRateSelect.on(&OptionButton::onMouseEnter, [this](int i) { optRateSelect_MouseEnter(i); });
  optRateSelect.on(&OptionButton::onMouseLeave, [this](int /*i*/) { lblExplain.setCaption(""); });
  chkExemp.on(&CheckBox::onClick, [this](int i) { chkExemp_Click(i); });
  cmdAccept.onClick = [this] { cmdAccept_Click(); };
}

/// Sets the base shape; the colours and the other entries don't change.
void frmState::Clear() {
  for (OptionButton& button : op3Marital) {
    button.enabled = false;
    button.deselect();
  }
  for (OptionButton& button : optRateSelect) {
    button.enabled = false;
    button.deselect();
  }
  cboSpecialDeps.clear();
  for (const char* entry : {"0", "1", "2"}) cboSpecialDeps.add(entry);
  cboSpecialDeps.setText(cboSpecialDeps.entries().front());
  lblSpecialDeps.setCaption("Additional (State) Exemptions");
  cboSpecialDeps.enabled = false;
}

void frmState::Load() {
  Clear();
  unlessItFails([&] { cboState.setIndex(desk.use<frmMain>().cboState.index()); });  // its click handler sets the shape
  cboSpecialDeps.setText(cboSpecialDeps.entries().front());  // the saved value, not the state's default
  sta401 = "N";
  staPreTax = "N";
  cboDeps[0].setText(settings::staDeps.text());
  cboDeps[1].setText(settings::illDeps.text());
  cboSpecialDeps.setText(settings::staExmp.text());
  mskAdditional.setText(settings::staAdd.text());
  unlessItFails([&] { payData.staMarried = settings::staMarried.number(); });
  unlessItFails([&] { staRate = settings::staRate.number(); });
  sta401 = settings::sta401.text();
  staPreTax = settings::staPreTax.text();
  chkExemp[0].setValue(sta401 != "N");
  chkExemp[1].setValue(staPreTax != "N");
  if (payData.staMarried >= 0 && payData.staMarried <= 9) op3Marital[payData.staMarried.value()].select();
  if (staRate >= 0 && staRate <= 4) optRateSelect[staRate.value()].select();
}

void frmState::Activate() {
  if (payData.staMarried >= 0 && payData.staMarried <= 9) op3Marital[payData.staMarried.value()].select();
  if (cboDeps[1].text() != "0") cboDeps[1].enabled = true;
}

void frmState::Unload() {
  if (mskAdditional.text().empty()) mskAdditional.setText("0");
  takeStateOptions({cboDeps[0].text(), cboDeps[1].text(), cboSpecialDeps.text(), mskAdditional.text()});
  settings::staDeps.save(payData.staDeps);
  settings::illDeps.save(payData.illDeps);
  settings::staExmp.save(payData.staExmp);
  settings::staAdd.save(payData.staAdd);
  settings::staMarried.save(payData.staMarried);
  settings::staRate.save(staRate);
  settings::staMethod.save(cboSpecialDeps.index());  // nothing reads it
  unlessItFails([&] { desk.use<frmMain>().cboState.setIndex(cboState.index()); });
  settings::sta401.save(sta401);
  settings::staPreTax.save(staPreTax);
}

void frmState::cboState_Click() {
  cboDeps[0].enabled = true;
  Clear();
  if (cboState.index() >= 0) {
    const Shape& shape = shapes.at(static_cast<std::size_t>(cboState.index()));
    const auto enable = [](OptionButton& button) {
      button.enabled = true;
      button.foreColour = enabledText;
    };
    for (const int button : shape.marital) enable(op3Marital[button]);
    if (shape.rates) {
      for (OptionButton& button : optRateSelect) enable(button);
    }
    cboDeps[0].enabled = shape.dependents;
    if (shape.special != nullptr) offer(*shape.special);
  }
  if (cboState.index() == state::connecticut) payData.staMarried = payData.maritalStat;
  // Required: the caption stays for every other state until the screen is loaded again.
  if (cboState.index() == state::michigan) op3Marital[9].setCaption(michiganDependentCaption);
  if (cboState.text() != "Illinois") {
    cboDeps[1].enabled = false;
    cboDeps[1].setText("0");
  }
}

void frmState::offer(const SpecialList& list) {
  cboSpecialDeps.enabled = true;
  lblSpecialDeps.setCaption(list.caption);
  cboSpecialDeps.clear();
  for (const char* entry : list.entries) cboSpecialDeps.add(entry);
  cboSpecialDeps.setText(list.text);
}

void frmState::cboDeps_Click(int index) {
  if (index == 0 && cboState.text() == "Illinois") cboDeps[1].enabled = true;
}

void frmState::cboSpecialDeps_Click() {
  if (cboState.index() == state::maryland) {
    unlessItFails([&] { payData.mMethod = toInt16(cboSpecialDeps.text()); });
  } else if (cboState.index() == state::michigan) {
    payData.mMethod = cboSpecialDeps.index();
    settings::mMethod.save(payData.mMethod);
  }
}

void frmState::op3Marital_Click(int index) {
  lblStateVariables[2].setCaption(additionalCaption);
  payData.staMarried = index;
  if (cboState.index() != state::mississippi) return;

  const char* exemption = mississippiExemption(index);
  if (exemption == nullptr) return;
  mskAdditional.setText(exemption);
  const bool toBeEntered = mskAdditional.text().empty();
  lblStateVariables[2].setCaption(toBeEntered ? "Enter that part of $10,000 claimed by you, in multiples of $500."
                                              : "Your Personal Exemption");
  if (toBeEntered) mskAdditional.setFocus();
}

void frmState::optRateSelect_Click(int index) {
  if (cboState.index() == state::connecticut || cboState.index() == state::newJersey) staRate = index;
}

void frmState::optRateSelect_MouseEnter(int index) {
  if (cboState.index() != state::connecticut || index >= static_cast<int>(connecticutRates.size())) return;
  lblExplain.setCaption(connecticutRates.at(static_cast<std::size_t>(index)));
}

void frmState::chkExemp_Click(int index) { (index == 0 ? sta401 : staPreTax) = chkExemp[index].value() ? "Y" : "N"; }

void frmState::cmdAccept_Click() {
  desk.close(*this);
  frmMain& main = desk.use<frmMain>();
  main.maximized = true;
  desk.show(main);
}

}  // namespace tallyfin
