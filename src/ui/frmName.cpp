#include "ui/frmName.h"

#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settingsstore.h"
#include "ui/frmMain.h"

namespace tallyfin {

namespace {

std::string userSetting(std::string_view key, std::string_view defaultText = "-") {
  return getSetting(applicationKey, section::user, key, defaultText);
}

void saveUser(std::string_view key, const std::string& text) { saveSetting(applicationKey, section::user, key, text); }

}  // namespace

frmName::frmName() : Screen(screenName, "Personal Information") {
  for (TextBox* box : {&txtName, &txtSSN, &txtAddress, &txtCity}) box->onGotFocus = [box] { box->selectAll(); };
  optMaritalStatus.on(&OptionButton::onClick, [](int i) { payData.maritalStat = i; });
  chkShow.onClick = [this] { chkShow_Click(); };
  cmdExit.onClick = [this] { cmdExit_Click(); };
}

void frmName::Load() {
  txtName.setText(userSetting("UName"));
  txtSSN.setText(userSetting("USSN"));
  txtAddress.setText(userSetting("UAdd"));
  txtCity.setText(userSetting("UCity"));
  step([] { payData.maritalStat = toInt16(getSetting(applicationKey, section::settings, "MaritalStat", "0")); });
  txtSSN.setText(socialSecurityNumber(txtSSN.text()));
  step([] { payData.dontShow = toInt16(userSetting("DontShow", "0")); });
  if (payData.maritalStat >= 0 && payData.maritalStat <= 2) optMaritalStatus[payData.maritalStat.value()].select();
  if (payData.dontShow == 0) chkShow.setValue(true);
  if (payData.dontShow == 1) chkShow.setValue(false);
}

void frmName::chkShow_Click() {
  payData.dontShow = chkShow.value() ? 0 : 1;
  saveUser("DontShow", toText(payData.dontShow));
}

void frmName::cmdExit_Click() {
  if (txtName.text().empty()) return txtName.setFocus();  // the one required field
  saveUser("UName", txtName.text());
  saveUser("UAdd", txtAddress.text());
  saveUser("UCity", txtCity.text());
  saveUser("USSN", txtSSN.text());
  saveSetting(applicationKey, section::settings, "MaritalStat", toText(payData.maritalStat));
  desk.show<frmMain>();
  desk.close(*this);
}

}  // namespace tallyfin
