#pragma once

#include "controls/screen.h"
#include "controls/texts.h"

namespace tallyfin {

/// Ten ratios of the last calculation, calculated at Load.
class frmAnalysis final : public Screen {
 public:
  static constexpr const char* screenName = "frmAnalysis";
  frmAnalysis();

  ControlArray<Label, 10> lblAnalysis{
      *this,
      "lblAnalysis",
      {"Hourly Wage Before Taxes:", "Hourly Wage After Taxes:", "Hourly Wage After Taxes and Deductions:",
       "Percentage of gross wages paid in taxes:", "Percentage of gross wages that are being withheld:",
       "Federal tax as a percentage after 401(k) and Non-tax:", "Federal tax as a percentage of gross wages:",
       "State tax as a percentage of gross wages:", "Annual Wage BEFORE Taxes:", "Annual Wage AFTER Taxes:"}};
  ControlArray<Label, 10> lblOne{*this, "lblOne"};

 protected:
  void Load() override;
};

}  // namespace tallyfin
