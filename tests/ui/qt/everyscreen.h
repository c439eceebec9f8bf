#pragma once

#include "desktoptest.h"

/// Opens all screens of the program in turn.

namespace tallyfin::qt {

class EveryScreen : public DesktopTest {
 protected:
  /// Opens each page of each screen, with figures, and calls a function.
  void onEveryScreen(const std::function<void(const Screen&)>& look);
};

}  // namespace tallyfin::qt
