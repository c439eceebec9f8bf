#pragma once

#include "controls/buttons.h"
#include "controls/screen.h"
#include "controls/texts.h"

namespace tallyfin {

/// Personal information: name, address, Social Security number and marital status, for the report and the Form W-4.
class frmName final : public Screen {
 public:
  static constexpr const char* screenName = "frmName";
  frmName();

  Label lblPersInfo{*this, "lblPersInfo", "Personal Information"};
  Label lblPersInfo2{*this, "lblPersInfo2", "For use within Tallyfin 99"};
  Label lblName{*this, "lblName", "Enter your First Name, Middle Initial and Last Name"};
  TextBox txtName{*this, "txtName"};
  Label lblSSN{*this, "lblSSN", "Social Security Number"};
  TextBox txtSSN{*this, "txtSSN"};
  Label lblHomeAddress{*this, "lblHomeAddress", "Home Address (Number and Street or Rural Route)"};
  TextBox txtAddress{*this, "txtAddress"};
  Label lblCity{*this, "lblCity", "City or Town, State, and ZIP Code"};
  TextBox txtCity{*this, "txtCity"};
  ControlArray<OptionButton, 3> optMaritalStatus{
      *this, "optMaritalStatus", {"Married", "Single", "Married, but withhold at higher single rate."}};
  CheckBox chkShow{*this, "chkShow", "Show Me"};
  CommandButton cmdExit{*this, "cmdExit", "OK"};

 protected:
  void Load() override;

 private:
  void chkShow_Click();
  void cmdExit_Click();

  OptionGroup status{optMaritalStatus};
};

}  // namespace tallyfin
