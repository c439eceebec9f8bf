#pragma once

#include <functional>
#include <string_view>

#include "platform/platform.h"

namespace tallyfin::qt {

class View;

/// Prints the views of screens.
class ScreenPrinter : public Printer {
 public:
  /// The view of a shown screen, in the frame; null if it isn't shown.
  using FindView = std::function<View*(std::string_view screenName)>;
  explicit ScreenPrinter(FindView find);

  int printScreen(Screen& screen) override;

 private:
  FindView find_;
};

}  // namespace tallyfin::qt
