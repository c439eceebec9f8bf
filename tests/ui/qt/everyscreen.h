#pragma once

#include "desktoptest.h"

/// A walk through all screens of the program, one after the other.

namespace tallyfin::qt {

class EveryScreen : public DesktopTest {
 protected:
  /// Opens each screen in each of its pages, with figures to show, and looks at it.
  void onEveryScreen(const std::function<void(const Screen&)>& look);
};

}  // namespace tallyfin::qt
