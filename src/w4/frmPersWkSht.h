#pragma once

#include <string>

#include "controls/buttons.h"
#include "controls/screen.h"
#include "controls/texts.h"
#include "engine/int16.h"

namespace tallyfin {

/// The Personal Allowances Worksheet of Form W-4, lines A to H, on two pages. Its total goes to `w4Allowances`; no
/// worksheet changes anything that the paycheck reads.
class frmPersWkSht final : public Screen {
 public:
  static constexpr const char* screenName = "frmPersWkSht";
  frmPersWkSht();

  ControlArray<Panel, 2> pnlW4PersWkSht{*this, "pnlW4PersWkSht"};
  Label lblPersWorkpt1{*this, "lblPersWorkpt1", "Personal Allowances Worksheet"};
  Label lblPage1{*this, "lblPage1", "Page 1"};
  /// By index: lines A, B, C, F, E.
  ControlArray<CheckBox, 5> chkPersWkShtA{
      *this,
      "chkPersWkShtA",
      {"A.  Enter \"X\"", "B.  Enter \"X\" if:", "C.  Enter \"X\":",
       "F.  Check if you have at least $1,500 of child or dependent care expenses for         which you plan to claim "
       "a credit.",
       "E.  Check if you will file as Head of Household on your tax return (see conditions under Head Of Household in "
       "Help)."}};
  Label lblItem1{*this, "lblItem1", "for YOURSELF if no one else can claim you as a dependent."};
  Label lblPart1of3{*this, "lblPart1of3", "You are single and have only one job; or"};
  Label lblPart2of3{*this, "lblPart2of3", "You are married, have only one job, and your spouse does not work; or"};
  Label lblPart3of3{*this, "lblPart3of3",
                    "Your wages from a second job or your spouse's wages (or the total of both) are $1,000 or less."};
  Label lblItem3{
      *this, "lblItem3",
      "for your SPOUSE.  But, you may choose to enter -0- if you are married and have either a working spouse or more "
      "than one job. (This may help you avoid have too little tax withheld.)"};
  Label lblPersWrkNoDeps{
      *this, "lblPersWrkNoDeps",
      "D.  Enter number of dependents (other than your spouse or yourself) you will claim on your tax return."};
  TextBox txtPersWkEnterDeps{*this, "txtPersWkEnterDeps"};
  Label lblPersWorkpt2{*this, "lblPersWorkpt2", "Personal Allowances Worksheet"};
  Label lblPage2{*this, "lblPage2", "Page 2"};
  Label lblPersWrkChildCare{*this, "lblPersWrkChildCare", "G.  Child Tax Credit"};
  TextBox txtChild{*this, "txtChild"};
  ControlArray<Label, 2> lblChildCare{
      *this,
      "lblChildCare",
      {"If your total income will be between $20,000 and $50,000 ($23,000 and $63,000 if married), enter \"1\" for "
       "each eligible child.",
       "If your total income will be between $50,000 and $80,000 ($63,000 and $115,000 if married), enter \"1\" if "
       "you have two eligible children, enter \"2\" if you have three or four eligible children, or enter \"3\" if "
       "you have five or more eligible children."}};
  Label lblPersWrkTotal{
      *this, "lblPersWrkTotal",
      "H.  Add and enter total here. Note: This amount may be different from the number of exemptions you claim on "
      "your return."};
  Label lblTotalDepsClaim{*this, "lblTotalDepsClaim"};
  ControlArray<CommandButton, 1> cmdPersWrkCalc{*this, "cmdPersWrkCalc"};
  Label lblForAccuracy{*this, "lblForAccuracy", "For accuracy, complete all worksheets that apply."};
  ControlArray<CommandButton, 3> cmdInstructions{
      *this,
      "cmdInstructions",
      {"If you plan to itemize or claim adjustments to income and want to reduce your withholding, see the Deductions "
       "and Adjustments worksheet.",
       "If you are single, have more than one job, and your combined earnings from all jobs exceeds $32,000 OR if you "
       "are married and have a working spouse or more than one job, and the combined earnings from all jobs exceed "
       "$55,000, see the Two-Earner/Two-Job Worksheet if you want to avoid having too little tax withheld.",
       "If neither of the above situations applies, stop here and enter the number from line H on line 5 of "
       "Form W-4."}};
  /// 0 shows page 2, 1 page 1.
  ControlArray<CommandButton, 2> cmdW4Back{*this, "cmdW4Back"};

 protected:
  void Load() override;

 private:
  void highlightWithThePointer();
  std::vector<Label*> explanationOf(int check);
  void cmdPersWrkCalc_Click();
  void cmdInstructions_Click(int index);
  void cmdW4Back_Click(int index);

  /// 1 for a line whose box has been ticked. Clearing the box doesn't set it back to 0: required.
  int lineA = 0;
  int lineB = 0;
  int lineC = 0;
  std::string lineD = "0";
  int lineE = 0;
  int lineF = 0;
  Int16 lineG;
};

}  // namespace tallyfin
