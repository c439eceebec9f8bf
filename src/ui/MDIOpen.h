#pragma once

#include "controls/buttons.h"
#include "controls/screen.h"

namespace tallyfin {

/// The window states that a user can request.
enum class WindowState { normal, maximized, minimized };

/// The frame of the program: a window of fixed size with a list bar, and an area in which the documents open.
class MDIOpen final : public Screen {
 public:
  static constexpr const char* screenName = "MDIOpen";
  MDIOpen();

  /// Twips.
  static constexpr int width = 8790;
  static constexpr int height = 5895;

  std::array<ListBarItem, 14> SSListBar1;

  /// The item that opens the screen of this name, or the screen from which it opens; null for other screens.
  const ListBarItem* itemOf(std::string_view page) const;

  /// The user requests a window state; the frame returns to the normal state.
  Refusal userResize(WindowState state);

 protected:
  void Load() override;
};

}  // namespace tallyfin
