#pragma once

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/output.h"
#include "controls/screen.h"
#include "controls/texts.h"
#include "engine/choices.h"
#include "engine/worksheet.h"

namespace tallyfin {

/// The paycheck worksheet: the inputs of one check, the results grid, the toolbar.
///
/// It is closed and loaded again often; the record outlives it. `depsDed` is assigned only in Load: a new number of
/// exemptions takes effect when Calculate has saved it and the screen has been loaded again.
class frmMain final : public Screen, public Worksheet {
 public:
  static constexpr const char* screenName = "frmMain";
  frmMain();

  Label lblIncome{*this, "lblIncome", "Income Amount"};
  MaskedBox txtIncome{*this, "txtIncome", Format::currency, "Enter your income amount."};
  Label lblHours{*this, "lblHours", "Hours"};
  MaskedBox txtHours{*this, "txtHours", Format::whole, "Enter the number of hours it took to earn the Income Amount."};
  Label lbl401k{*this, "lbl401k", "401(k)%"};
  MaskedBox txt401k{*this, "txt401k", Format::none, "If you contribute to a 401k, enter the percentage here."};
  Label lblPreTax{*this, "lblPreTax", "Pre-Tax"};
  MaskedBox txtPreTax{*this, "txtPreTax", Format::currency, "Enter an amount that is not taxed."};
  Label lblPreFICA{*this, "lblPreFICA", "Pre-FICA"};
  MaskedBox txtPreFICA{
      *this, "txtPreFICA", Format::currency,
      "Enter an amount for which FICA is not paid. This amount might include the Pre-Tax amount also."};
  ListBox lstFrequency{*this, "lstFrequency", {frequency::captions.begin(), frequency::captions.end()}};
  ControlArray<OptionButton, 3> optStatus{*this, "optStatus", status::captions};
  Label lblExemp{*this, "lblExemp", "Number of Exemptions"};
  DropDown cboExemptions{*this, "cboExemptions"};
  Label lblStateTax{*this, "lblStateTax", "State Tax"};
  DropDown cboState{*this, "cboState"};
  CheckBox chkSelfEmployed{*this, "chkSelfEmployed", "Self Employed"};
  enum Additional { localTax, raise };
  ControlArray<CommandButton, 2> cmdAdditional{*this, "cmdAdditional", {"Local Tax  ", "Raise"}};
  enum ToolBar { calculate, print, clear, exit, sponsorInfo };
  ControlArray<CommandButton, 5> cmdToolBar{*this, "cmdToolBar", {"", "", "", "", "Sponsor Info"}};
  Grid dbgDisplay{*this, "dbgDisplay"};
  Label lbl1{*this, "lbl1"};
  Label lbl2{*this, "lbl2"};
  Label lbl3{*this, "lbl3"};
  Label lbl4{*this, "lbl4"};
  Label lbl5{*this, "lbl5"};
  Label lbl6{*this, "lbl6"};
  Label lbl7{*this, "lbl7"};
  Label lbl8{*this, "lbl8"};

  /// The five boxes, in the order of the screen.
  std::array<MaskedBox*, 5> boxes() { return {&txtIncome, &txtHours, &txt401k, &txtPreTax, &txtPreFICA}; }

  const std::string& incomeText() const override { return txtIncome.text(); }
  const std::string& rate401kText() const override { return txt401k.text(); }
  const std::string& preTaxText() const override { return txtPreTax.text(); }
  const std::string& preFicaText() const override { return txtPreFICA.text(); }
  const std::string& exemptionsText() const override { return cboExemptions.text(); }
  int stateIndex() const override { return cboState.index(); }
  bool selfEmployed() const override { return chkSelfEmployed.value(); }
  void showFigure(int label, Money figure) override;

 protected:
  void Load() override;

 private:
  void lstFrequency_Click();
  void optStatus_Click(int index);
  void chkSelfEmployed_Click();
  void cboState_Click();
  void cmdAdditional_Click(int index);
  void cmdToolBar_Click(int index);

  void calculateCommand();
  void printCommand();
  void clearCommand();
  void sponsorInfoCommand();
  void saveEntries();
  /// Calculates `totalDed` and `checkAmt`, and adds the twelve result rows to the grid, which the caller has emptied.
  void GridPrint();

  OptionGroup status{optStatus};
};

}  // namespace tallyfin
