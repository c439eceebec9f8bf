#pragma once

#include "controls/buttons.h"
#include "controls/screen.h"

namespace tallyfin {

/// A small box with a picture.
class frmAbt final : public Screen {
 public:
  static constexpr const char* screenName = "frmAbt";
  frmAbt() : Screen(screenName, "About Tallyfin 99", Place::box) {}

  Image imgAbout{*this, "imgAbout"};
};

}  // namespace tallyfin
