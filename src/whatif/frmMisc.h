#pragma once

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/screen.h"
#include "controls/texts.h"

namespace tallyfin {

/// Local tax and raise, one page at a time: the rate and base of a local tax, and a pay raise as a percentage or as a
/// new hourly wage.
class frmMisc final : public Screen {
 public:
  static constexpr const char* screenName = "frmMisc";
  frmMisc();

  /// 0 is the Local Tax page, 1 the Raise page; one of them is out of view.
  ControlArray<Panel, 2> pnlContainerMisc{*this, "pnlContainerMisc"};
  Label lblpercent{*this, "lblpercent", "Enter the Percent"};
  TextBox txtTaxPerCnt{*this, "txtTaxPerCnt"};
  Label lblInstruct{*this, "lblInstruct",
                    "Select the option(s) below that apply.  If you are in doubt, check with your finance or payroll "
                    "office."};
  ListBox lstGrossPay{*this,
                      "lstGrossPay",
                      {"Gross pay only", "Gross pay less 401k", "Gross pay less Pre-tax amount",
                       "Gross pay less 401k and Pre-Tax", "Gross pay less Deps Deduction"}};
  Label lblRaiseInst{*this, "lblRaiseInst",
                     "You may enter the pay raise percentage in either of the formats shown in the example.  Example: "
                     "3% would be entered as 3 or .03."};
  Label lblOld{*this, "lblOld", "Old"};
  Label lblOldShow{*this, "lblOldShow"};
  Label lblRaise{*this, "lblRaise", "Enter the percentage of the raise you are expecting."};
  Label lblOr{*this, "lblOr", "or"};
  Label lblNew{*this, "lblNew", "New"};
  Label lblCompare{*this, "lblCompare", "Enter your new hourly wage."};
  /// 0 is the raise percentage, 1 the new hourly wage.
  ControlArray<TextBox, 2> txtRaise{*this, "txtRaise"};
  /// 0 sets the local tax, 1 calculates the raise, 2 closes the screen.
  ControlArray<CommandButton, 3> cmdExit{*this, "cmdExit", {"OK", "", ""}};
  Image imgSeal{*this, "imgSeal"};

  void showLocalTaxPage();
  void showRaisePage();

 protected:
  void Load() override;
  void Unload() override;

 private:
  void showPage(int page);
  void lstGrossPay_Click();
  void takeLocalTax();
  void raise();
};

}  // namespace tallyfin
