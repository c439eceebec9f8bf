#pragma once

#include "controls/buttons.h"
#include "controls/screen.h"
#include "controls/texts.h"
#include "engine/int16.h"
#include "engine/money.h"

namespace tallyfin {

/// The Deductions and Adjustments Worksheet of Form W-4, lines 1 to 10, on two pages: one more allowance for each full
/// $3,000. The captions of amount labels are variables too: a line parses the formatted figure of the line before it.
class frmDednAdj final : public Screen {
 public:
  static constexpr const char* screenName = "frmDednAdj";
  frmDednAdj();

  ControlArray<Panel, 2> pnlDednAdj{*this, "pnlDednAdj"};
  Label lblPersWorkpt1{*this, "lblPersWorkpt1", "Deductions and Adjustments"};
  Label lblPage1{*this, "lblPage1", "Page 1"};
  Label lblNote{
      *this, "lblNote",
      "Note:  Use this worksheet only if you plan to itemize deductions or claim adjustments to income on your "
      "1999 tax return."};
  Label lblItem1{*this, "lblItem1",
                 "1.  Enter an estimate of your 1999 itemized deductions. These include qualifying home mortgage "
                 "interest, charitable contributions, state and local taxes (but not sales taxes), medical expenses in "
                 "excess of 7.5% of your income, and miscellaneous deductions. (For 1999, you may have to reduce your "
                 "itemized deductions if your income is over $126,600 ($63,300 if married filing separately). Get Pub. "
                 "919 for details.)"};
  MaskedBox txtGetItemized{*this, "txtGetItemized", Format::currency};
  Label lblItem2{*this, "lblItem2", "2.  Select One:"};
  ControlArray<OptionButton, 4> optDedCategory{
      *this,
      "optDedCategory",
      {"$7,200 if married filing jointly or qualifying widow(er)", "$6,350 if head of household", "$4,300 if single",
       "$3,600 if married filing separately"}};
  Label lblGetPersDed{*this, "lblGetPersDed"};
  Label lblItem3{*this, "lblItem3", "3.  Subtract line 2 from line 1.  If Line 2 is greater than line 1, enter -0-."};
  Label lblSubTotal{*this, "lblSubTotal"};
  Label lblPersWorkpt2{*this, "lblPersWorkpt2", "Deductions and Adjustments"};
  Label lblPage2{*this, "lblPage2", "Page 2"};
  Label lblDnJ4{*this, "lblDnJ4",
                "4.  Enter an estimate of your 1999 adjustments to income, including alimony, deductible IRA "
                "contributions, and student loan interest."};
  MaskedBox txtAdjustments{*this, "txtAdjustments", Format::currency};
  Label lblDnJ5{*this, "lblDnJ5", "5.  Add lines 3 and 4 and enter the total."};
  Label lblTotal5{*this, "lblTotal5"};
  Label lblDnJ6{*this, "lblDnJ6", "6.  Enter an estimate of your 1999 nonwage income (such as dividends or interest)."};
  MaskedBox txtNonWage{*this, "txtNonWage", Format::currency};
  Label lblDnJ7{*this, "lblDnJ7", "7.  Subtract line 6 from line 5. Enter the result, but not less than -0-."};
  Label lblTotal7{*this, "lblTotal7"};
  Label lblDnJ8{*this, "lblDnJ8",
                "8.  Divide the amount on line 7 by $3,000 and enter the result here. Drop any fraction."};
  Label lblDivide{*this, "lblDivide"};
  Label lblDnJ9{*this, "lblDnJ9", "9.  Enter the number from Personal Allowances Worksheet, line H."};
  Label lblPersWrkShtDeps{*this, "lblPersWrkShtDeps"};
  Label lblDnJ10{*this, "lblDnJ10",
                 "10.  Add lines 8 and 9 and enter the total here.  If you plan to use the Two-Earner/Two-Job "
                 "Worksheet, also enter this total on line 1 of that worksheet. Otherwise, stop here and enter this "
                 "total on Form W-4, line 5."};
  Label lblTotal10{*this, "lblTotal10"};
  CommandButton cmdPersWrkCalc{*this, "cmdPersWrkCalc"};
  /// 0 shows page 2, 1 page 1.
  ControlArray<CommandButton, 2> cmdW4Back{*this, "cmdW4Back"};

 protected:
  void Load() override;

 private:
  void optDedCategory_Click(int index);
  void cmdPersWrkCalc_Click();
  void cmdW4Back_Click(int index);

  OptionGroup categories{optDedCategory};

  Money line3;
  Money line4;  ///< Adjustments.
  Money line6;  ///< Nonwage income.
  Money line7;
  Int16 line8;
};

}  // namespace tallyfin
