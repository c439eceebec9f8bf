#pragma once

#include "controls/buttons.h"
#include "controls/screen.h"
#include "controls/texts.h"

namespace tallyfin {

/// The Employee's Withholding Allowance Certificate, filled in from the worksheets and the personal details. The user
/// may type into it; nothing typed is saved. A double click prints it.
class frmW4 final : public Screen {
 public:
  static constexpr const char* screenName = "frmW4";
  frmW4();

  Label Label1{*this, "Label1", "W-4"};
  Label Label2{*this, "Label2", "Employee's Withholding Allowance Certificate"};
  Label lbl1998{*this, "lbl1998", "1999"};
  Label Label4{*this, "Label4", "1  Type or print your first name and middle initial                       Last Name"};
  TextBox txtName{*this, "txtName"};
  Label Label5{*this, "Label5", "2  Your Social Security Number"};
  TextBox txtSSN{*this, "txtSSN"};
  Label Label6{*this, "Label6", "   Home address (number and street or rural route)"};
  TextBox txtAddress{*this, "txtAddress"};
  Label Label9{*this, "Label9", "3"};
  OptionButton optSingle{*this, "optSingle", "Single"};
  OptionButton optMarried{*this, "optMarried", "Married"};
  OptionButton SSOption1{*this, "SSOption1", "Married, withholding at higher Single rate."};
  Label Label28{*this, "Label28",
                "Note: If married but legally separated, or slpouse is a nonresident alien, check the Single box."};
  Label Label7{*this, "Label7", "    City or town, state, and ZIP code"};
  TextBox txtCity{*this, "txtCity"};
  Label Label8{*this, "Label8",
               "4  If your last name differs from that on your social security card, check here and call "
               "1-800-772-1213 for a new card."};
  CheckBox Check4{*this, "Check4", "Check4"};
  Label lblFive{*this, "lblFive",
                "5  Total number of allowances you are claiming (from line H or from the worksheets if they apply)"};
  Label Label12{*this, "Label12", "5"};
  Label lblW4Line5{*this, "lblW4Line5"};
  Label Label11{*this, "Label11",
                "6  Additional amount, if any, you want withheld from each paycheck. . . . . . . . . . . . . . . . . . "
                ". . . . . . . . . . ."};
  Label Label13{*this, "Label13", "6"};
  Label lblW4Line6{*this, "lblW4Line6"};
  Label Label16{*this, "Label16",
                "7  I claim exemption from withholding for 1999 and I certify that I meet BOTH of the following "
                "conditions for exemption:"};
  Label Label17{
      *this, "Label17",
      "- Last year I had a right to a refund of ALL Federal income tax withheld because I had NO tax liability;  AND"};
  Label Label18{
      *this, "Label18",
      "- This year I expect a refund of ALL Federal income tax withheld because I expect to have NO tax liability."};
  Label Label20{*this, "Label20",
                "If you meet both conditions, enter \"EXEMPT\" here. . . . . . . . . . . . . . . . . . . . . . . . . . "
                ". . . . . . . . . . . ."};
  Label Label21{*this, "Label21", "7"};
  Label Label27{*this, "Label27", "EXEMPT"};
  Label Label22{*this, "Label22",
                "Under penalties of perjury, I certify that I am entitled to the number of withholding allowances "
                "claimed on this certificate or entitled to claim exempt status."};
  Label lblSig{*this, "lblSig", "Employee's signature"};
  Label lblSigDate{*this, "lblSigDate", "Date"};
  Label lblDate{*this, "lblDate"};
  Label lblPrint{*this, "lblPrint", "Double Click Form To Print"};
  CommandButton cmdW4Exit{*this, "cmdW4Exit"};

 protected:
  void Load() override;

 private:
  void print();

  OptionGroup status;
};

}  // namespace tallyfin
