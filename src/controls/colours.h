#pragma once

#include "controls/property.h"

/// The colours that several screens share.

namespace tallyfin::colours {

inline constexpr Colour paper{255, 255, 204};        ///< Background of the worksheets.
inline constexpr Colour greyText{64, 64, 64};        ///< Normal text on them and on the tools.
inline constexpr Colour highlight{128, 128, 255};    ///< Text under the pointer or with the focus.
inline constexpr Colour lightBlue{192, 192, 255};    ///< Options and buttons of the main screen with the focus.
inline constexpr Colour lightYellow{255, 255, 128};  ///< The same without the focus.
inline constexpr Colour boxGround{252, 252, 240};    ///< Background of boxes and lists.

}  // namespace tallyfin::colours
