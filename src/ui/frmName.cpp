#include "ui/frmName.h"

#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "ui/frmMain.h"

namespace tallyfin {

frmName::frmName() : Screen(screenName, "Personal Information") {
  optMaritalStatus.on(&OptionButton::onClick, [](int i) { payData.maritalStat = i; });
  chkShow.onClick = [this] { chkShow_Click(); };
  cmdExit.onClick = [this] { cmdExit_Click(); };
}

void frmName::Load() {
  txtName.setText(settings::uName.text());
  txtSSN.setText(settings::uSSN.text());
  txtAddress.setText(settings::uAdd.text());
  txtCity.setText(settings::uCity.text());
  unlessItFails([] { payData.maritalStat = settings::maritalStat.number(); });
  txtSSN.setText(socialSecurityNumber(txtSSN.text()));
  unlessItFails([] { payData.dontShow = settings::dontShow.number(); });
  if (payData.maritalStat >= 0 && payData.maritalStat <= 2) optMaritalStatus[payData.maritalStat.value()].select();
  if (payData.dontShow == 0) chkShow.setValue(true);
  if (payData.dontShow == 1) chkShow.setValue(false);
}

void frmName::chkShow_Click() {
  payData.dontShow = chkShow.value() ? 0 : 1;
  settings::dontShow.save(payData.dontShow);
}

void frmName::cmdExit_Click() {
  if (txtName.text().empty()) return txtName.setFocus();  // the only required field
  settings::uName.save(txtName.text());
  settings::uAdd.save(txtAddress.text());
  settings::uCity.save(txtCity.text());
  settings::uSSN.save(txtSSN.text());
  settings::maritalStat.save(payData.maritalStat);
  desk.show<frmMain>();
  desk.close(*this);
}

}  // namespace tallyfin
