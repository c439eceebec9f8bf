#pragma once

#include <string>

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/screen.h"
#include "controls/texts.h"
#include "engine/int16.h"
#include "stateoptions/shapes.h"

namespace tallyfin {

/// The state options: all entries of state withholding that aren't on the main screen.
///
/// The screen changes with the state by enabling and disabling controls, never by hiding them. Only it reads and writes
/// the `StateInfo` settings, and saved options reach the record only in its Unload. The state is copied from the main
/// screen at Load and back at Unload.
class frmState final : public Screen {
 public:
  static constexpr const char* screenName = "frmState";
  frmState();

  ControlArray<Label, 3> lblStateVariables{
      *this, "lblStateVariables", {dependentsCaption, "Select State", additionalCaption}};
  EditableDropDown cboState{*this, "cboState"};
  /// 0 is the state dependents, 1 the second Illinois count.
  ControlArray<EditableDropDown, 2> cboDeps{*this, "cboDeps"};
  Label lblSpecialDeps{*this, "lblSpecialDeps", "Additional (State) Exemptions"};
  EditableDropDown cboSpecialDeps{*this, "cboSpecialDeps", {"0", "1", "2"}};
  /// The index is the value of `staMarried` that the state routines compare.
  ControlArray<OptionButton, 10> op3Marital{*this, "op3Marital", maritalCaptions};
  Panel pnlRate{*this, "pnlRate"};
  ControlArray<OptionButton, 5> optRateSelect{
      *this, "optRateSelect", {"Rate A", "Rate B", "Rate C", "Rate D", "Rate E"}};
  Label lblExplain{*this, "lblExplain"};
  MaskedBox mskAdditional{*this, "mskAdditional", Format::currency};
  Panel pnlExempt{*this, "pnlExempt", "Deduct from Taxable State Amount?"};
  /// 0 is the 401(k) amount, 1 the pre-tax amount.
  ControlArray<CheckBox, 2> chkExemp{*this, "chkExemp", {"401k", "Pre-Tax Amt"}};
  CommandButton cmdAccept{*this, "cmdAccept"};

 protected:
  void Load() override;
  void Activate() override;
  void Unload() override;

 private:
  void Clear();
  void cboState_Click();
  void offer(const SpecialList& list);
  void cboDeps_Click(int index);
  void cboSpecialDeps_Click();
  void op3Marital_Click(int index);
  void optRateSelect_Click(int index);
  void optRateSelect_MouseEnter(int index);
  void chkExemp_Click(int index);
  void cmdAccept_Click();

  OptionGroup marital{op3Marital};
  OptionGroup rates{optRateSelect};

  Int16 staRate;                ///< Letter of the rate, 0 to 4. It is saved, but no routine reads it.
  std::string sta401 = "N";     ///< "Y" where the 401(k) amount is deducted from the state base.
  std::string staPreTax = "N";  ///< "Y" where the pre-tax amount is deducted.
};

}  // namespace tallyfin
