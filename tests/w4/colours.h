#pragma once

#include "controls/property.h"

namespace tallyfin {

/// Colours of the Form W-4 worksheets: their boxes, their text, and what the pointer is over.
inline constexpr Colour paper{255, 255, 204};
inline constexpr Colour grey{64, 64, 64};
inline constexpr Colour highlight{128, 128, 255};

}  // namespace tallyfin
