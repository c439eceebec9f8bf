#pragma once

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/screen.h"
#include "controls/texts.h"

namespace tallyfin {

/// The two look-up tables of the Two-Earner/Two-Job Worksheet. A click on a row of wages writes its number or amount
/// into that worksheet and closes the screen. `w4TableMode` chooses the table.
class frmTableOne final : public Screen {
 public:
  static constexpr const char* screenName = "frmTableOne";
  frmTableOne();

  /// Twips.
  static constexpr int width = 5100;
  static constexpr int height = 3315;

  Label lblCboTable{*this, "lblCboTable"};
  ControlArray<OptionButton, 2> optTableOne{*this, "optTableOne", {"Married Filing Jointly", "All Others"}};
  ListBox lstTableOne{*this, "lstTableOne"};

 protected:
  void Load() override;

 private:
  void optTableOne_Click(int index);
  void lstTableOne_Click();
  void takeFromTable1();

  OptionGroup filing{optTableOne};
};

}  // namespace tallyfin
