#pragma once

#include "controls/buttons.h"
#include "controls/screen.h"
#include "controls/texts.h"
#include "engine/money.h"

namespace tallyfin {

/// The Multiple Check Worksheet: up to four checks of different frequencies as one monthly income.
class frmMultiCheck final : public Screen {
 public:
  static constexpr const char* screenName = "frmMultiCheck";
  frmMultiCheck();

  Label lblMulti{*this, "lblMulti", "Multiple Check Worksheet"};
  Label lblMultiInstruct{
      *this, "lblMultiInstruct",
      "Enter the amount of each check you will receive and select a period for that check, i.e., weekly, monthly, "
      "etc.  Enter up to four checks.   The periods do not have to be the same, you can have one check for each "
      "period if needed. When you have entered the amounts you want to calculate, press the calculate button.  NOTE: "
      "The \"Calculated Total\" is not the sum of the numbers, but rather a number calculated from the frequency of "
      "the check."};
  Label lblMultiWeekly{*this, "lblMultiWeekly", "Weekly"};
  Label lblMultiETW{*this, "lblMultiETW", "Every 2 Weeks"};
  Label lblMulti2aMon{*this, "lblMulti2aMon", "Twice A Month"};
  Label lblMultimonthly{*this, "lblMultimonthly", "Monthly"};
  MaskedBox txtCheck1{*this, "txtCheck1", Format::currency};
  MaskedBox txtCheck2{*this, "txtCheck2", Format::currency};
  MaskedBox txtCheck3{*this, "txtCheck3", Format::currency};
  MaskedBox txtCheck4{*this, "txtCheck4", Format::currency};
  Panel pnlMultiHoldCk_0{*this, "pnlMultiHoldCk_0"};
  Panel pnlMultiHoldCk_1{*this, "pnlMultiHoldCk_1"};
  Panel pnlMultiHoldCk_2{*this, "pnlMultiHoldCk_2"};
  Panel pnlMultiHoldCk_3{*this, "pnlMultiHoldCk_3"};
  /// The index is the number of the check, counted from 0.
  ControlArray<OptionButton, 4> optSelectWeek{*this, "optSelectWeek"};
  ControlArray<OptionButton, 4> optSelectETW{*this, "optSelectETW"};
  ControlArray<OptionButton, 4> optSelectTAW{*this, "optSelectTAW"};
  ControlArray<OptionButton, 4> optSelectMonthly{*this, "optSelectMonthly"};
  Label lblCheck1{*this, "lblCheck1"};
  Label lblCheck2{*this, "lblCheck2"};
  Label lblCheck3{*this, "lblCheck3"};
  Label lblCheck4{*this, "lblCheck4"};
  Label Label4{*this, "Label4", "Calculated Total:"};
  Label lblMultiTotal{*this, "lblMultiTotal"};
  CommandButton cmdCalc{*this, "cmdCalc"};
  CommandButton cmdGoBack{*this, "cmdGoBack"};

 protected:
  void Load() override;

 private:
  void TrimCheck(int check);
  void cmdCalc_Click();
  void cmdGoBack_Click();

  std::array<MaskedBox*, 4> txtCheck{&txtCheck1, &txtCheck2, &txtCheck3, &txtCheck4};
  std::array<Label*, 4> lblCheck{&lblCheck1, &lblCheck2, &lblCheck3, &lblCheck4};
  std::array<OptionGroup, 4> periods;

  /// Each check's monthly equivalent, dollars a month.
  std::array<Money, 4> checkAmount;
};

}  // namespace tallyfin
