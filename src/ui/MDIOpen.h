#pragma once

#include "controls/buttons.h"
#include "controls/screen.h"

namespace tallyfin {

/// The states of a window that a user can ask for.
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

  /// The item that leads to the page of this name, or to the one from which it opens; null for other screens.
  const ListBarItem* itemOf(std::string_view page) const;

  /// The user asks for a window state; the frame springs back to normal.
  Refusal userResize(WindowState state);

 protected:
  void Load() override;
};

}  // namespace tallyfin
