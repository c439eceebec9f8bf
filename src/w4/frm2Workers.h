#pragma once

#include "controls/buttons.h"
#include "controls/screen.h"
#include "controls/texts.h"
#include "engine/int16.h"
#include "engine/money.h"

namespace tallyfin {

/// The Two-Earner/Two-Job Worksheet of Form W-4, lines 1 to 9, on two pages. The labels of lines 1 to 6 are
/// variables too: a line reads the caption of the line before it.
class frm2Workers final : public Screen {
 public:
  static constexpr const char* screenName = "frm2Workers";
  frm2Workers();

  ControlArray<Panel, 2> pnl2Workers{*this, "pnl2Workers"};
  Label lblPersWorkpt1{*this, "lblPersWorkpt1", "Two-Earner/Two-Job Worksheet"};
  Label lblPage1{*this, "lblPage1", "Page 1"};
  Label lblTwoNote{*this, "lblTwoNote",
                   "Note: Use this worksheet only if the instructions for line H on the Personal Allowances Worksheet "
                   "direct you here."};
  Label lblTwo1{*this, "lblTwo1",
                "1.  Enter the number from line H (or from line 10 if you used the Deductions and Adjustments "
                "Worksheet)"};
  Label lblDedFromG{*this, "lblDedFromG"};
  Label lblItem2{*this, "lblItem2", "2.  Find the number in  it here."};
  /// 0 is line 2, 1 is line 7.
  ControlArray<CommandButton, 2> cmdTable1Show{*this, "cmdTable1Show", {"Table 1", "Table 2"}};
  Label lblTwo2{*this, "lblTwo2", "that applies to the LOWEST paying job and enter"};
  Label lbl2WkerT1{*this, "lbl2WkerT1"};
  Label lblTwo3{*this, "lblTwo3",
                "3.  If line 1 is GREATER THAN OR EQUAL TO line 2, subtract line 2 from line 1. Enter the result here "
                "(if zero, enter -0-) and on Form W-4, line 5, on page 1. DO NOT use the rest of this worksheet."};
  Label lbl2Wker3{*this, "lbl2Wker3"};
  Label lblTwoNote2{*this, "lblTwoNote2",
                    "Note: If line 1 is LESS THAN line 2, enter -0- on form W-4, line 5. complete lines 4-9 to "
                    "calculate the additional withholding amount necessary to avoid a year end tax bill."};
  Label lblPersWorkpt2{*this, "lblPersWorkpt2", "Two-Earner/Two-Job Worksheet"};
  Label lblPage2{*this, "lblPage2", "Page 2"};
  Label lbl2WkerLine4{*this, "lbl2WkerLine4", "4.  Enter the number from line 2 of this worksheet."};
  Label lbl2WkerResult4{*this, "lbl2WkerResult4"};
  Label lbl2WkerLine5{*this, "lbl2WkerLine5", "5.  Enter the number from line 1 of this worksheet."};
  Label lbl2WkerResult5{*this, "lbl2WkerResult5"};
  Label lbl2WkerLine6{*this, "lbl2WkerLine6", "6.  Subtract line 5 from line 4."};
  Label lbl2WkerResult6{*this, "lbl2WkerResult6"};
  Label lbl2WkerLine7{*this, "lbl2WkerLine7", "7.  Find the amount in  and enter it here."};
  Label lbl2WkerLine7a{*this, "lbl2WkerLine7a", "that applies to the HIGHEST paying job"};
  MaskedBox lblTable2{*this, "lblTable2", Format::currency};
  Label lbl2WkerLine8{*this, "lbl2WkerLine8",
                      "8.  Multiply line 7 by line 6 and enter the result here. This is the additional annual "
                      "withholding amount needed."};
  MaskedBox lblMultiply8{*this, "lblMultiply8", Format::currency};
  Label lbl2WkerLine9{*this, "lbl2WkerLine9",
                      "9.  Divide line 8 by the number of pay periods remaining in 1999. (For example, divide by 26 if "
                      "you are paid every other week and you complete this form in December 1998.) Enter the result "
                      "here and on the Form W-4, line 6. This is the additional amount to be withheld from each "
                      "paycheck."};
  MaskedBox lblDollarAmt{*this, "lblDollarAmt", Format::currency};
  Label lblNoPaydays{*this, "lblNoPaydays", "Enter number of paydays"};
  TextBox txtNumPayDays{*this, "txtNumPayDays"};
  /// 0 shows page 2, 1 page 1, 2 opens the calendar.
  ControlArray<CommandButton, 3> cmdW4Back{*this, "cmdW4Back"};
  /// 0 calculates, 1 opens the form from page 2, 2 from page 1.
  ControlArray<CommandButton, 3> cmdPersWrkCalc{*this, "cmdPersWrkCalc"};

 protected:
  void Load() override;
  void Activate() override;

 private:
  void cmdTable1Show_Click(int index);
  void cmdW4Back_Click(int index);
  void goForward();
  void goBack();
  void cmdPersWrkCalc_Click(int index);
  void calculate();

  Int16 line6;
  Money line7;
  Money line8;
};

}  // namespace tallyfin
