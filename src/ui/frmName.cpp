#include "ui/frmName.h"

#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settingsstore.h"
#include "ui/frmMain.h"

namespace tallyfin {

frmName::frmName() : Screen(screenName, "Personal Information") {
  optMaritalStatus.on(&OptionButton::onClick, [](int i) { payData.maritalStat = i; });
  chkShow.onClick = [this] { chkShow_Click(); };
  cmdExit.onClick = [this] { cmdExit_Click(); };
}

void frmName::Load() {
  txtName.setText(user.get("UName", "-"));
  txtSSN.setText(user.get("USSN", "-"));
  txtAddress.setText(user.get("UAdd", "-"));
  txtCity.setText(user.get("UCity", "-"));
  step([] { payData.maritalStat = toInt16(lastEntries.get("MaritalStat", "0")); });
  txtSSN.setText(socialSecurityNumber(txtSSN.text()));
  step([] { payData.dontShow = toInt16(user.get("DontShow", "0")); });
  if (payData.maritalStat >= 0 && payData.maritalStat <= 2) optMaritalStatus[payData.maritalStat.value()].select();
  if (payData.dontShow == 0) chkShow.setValue(true);
  if (payData.dontShow == 1) chkShow.setValue(false);
}

void frmName::chkShow_Click() {
  payData.dontShow = chkShow.value() ? 0 : 1;
  user.save("DontShow", toText(payData.dontShow));
}

void frmName::cmdExit_Click() {
  if (txtName.text().empty()) return txtName.setFocus();  // the one required field
  user.save("UName", txtName.text());
  user.save("UAdd", txtAddress.text());
  user.save("UCity", txtCity.text());
  user.save("USSN", txtSSN.text());
  lastEntries.save("MaritalStat", toText(payData.maritalStat));
  desk.show<frmMain>();
  desk.close(*this);
}

}  // namespace tallyfin
