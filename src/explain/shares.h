#pragma once

#include <string>
#include <vector>

#include "engine/trace.h"

/// Where the gross pay goes.

namespace tallyfin {

/// A part of the gross pay.
struct Share {
  const char* name;
  Money amount;
  double fraction;  ///< Of the gross pay.
  int tenths = 0;   ///< Of a percent of the gross pay. Rounded so that all parts add up to 100 percent.
};

/// Where the gross pay of the calculation goes: 401(k), federal, state and local tax, FICA, and the check. None where
/// there is no gross pay to share out, a part is negative, or the parts don't add up to it.
std::vector<Share> sharesOf(const Trace& trace);

/// A part by its name and its percentage: federal tax 17.2%.
std::string shareText(const Share& share);

/// All shares in one sentence, or why there are none.
std::string sharesText(const Trace& trace);

}  // namespace tallyfin
