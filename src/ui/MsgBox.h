#pragma once

#include "controls/buttons.h"
#include "controls/desk.h"
#include "controls/screen.h"
#include "controls/texts.h"

namespace tallyfin {

/// The one warning of the program, which must be answered before anything else.
class MsgBox final : public Screen {
 public:
  static constexpr const char* screenName = "MsgBox";
  MsgBox() : Screen(screenName, "Nothing to Work With!", Place::box) {
    OK.onClick = [this] { desk.close(*this); };
  }

  Label Title{*this, "Title", "Nothing to Work With!"};
  Label Text{*this, "Text", "You have to make some calculations for me to analyze!"};
  CommandButton OK{*this, "OK", "OK"};

 protected:
  void Load() override { desk.setBlocker(*this); }
};

}  // namespace tallyfin
