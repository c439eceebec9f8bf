#include "w4/frmW4.h"

#include <algorithm>

#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "platform/dates.h"

namespace tallyfin {

namespace {

/// Selects a button for a stored `true` or a number other than 0, clears it for `false` or 0. Other texts change
/// nothing.
void setAs(OptionButton& button, std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  unlessItFails([&] {
    const bool set = text == "true" || (text != "false" && realOf(text) != 0);
    set ? button.select() : button.deselect();
  });
}

}  // namespace

frmW4::frmW4() : Screen(screenName, "Form W-4") {
  Label27.visible = false;
  for (OptionButton* button : {&optSingle, &optMarried, &SSOption1}) status.add(*button);

  onDblClick = [this] { print(); };
  cmdW4Exit.onClick = [this] { desk.close(*this); };
  lblW4Line6.onChange = [this] { lblW4Line6.setCaption(currency(lblW4Line6.caption())); };
  // A double click calls Click first, so the label is shown in the end.
  Label20.onClick = [this] { Label27.visible = false; };
  Label20.onDblClick = [this] { Label27.visible = true; };
}

void frmW4::Load() {
  txtName.setText(settings::uName.text());
  txtAddress.setText(settings::uAdd.text());
  txtCity.setText(settings::uCity.text());
  txtSSN.setText(settings::uSSN.text());
  lblDate.setCaption(dateAndTime(platform.clock->now()));
  // The program doesn't write these two keys.
  setAs(optSingle, settings::marital1.text());
  setAs(optMarried, settings::marital0.text());
  lblW4Line5.setCaption(toText(payData.w4Allowances));
}

/// The exit button and the hint aren't printed.
void frmW4::print() {
  cmdW4Exit.visible = false;
  lblPrint.visible = false;
  platform.printer->printScreen(*this);
  cmdW4Exit.visible = true;
  lblPrint.visible = true;
}

}  // namespace tallyfin
