#pragma once

#include "engine/figures.h"

namespace TALLYFIN_FIGURES {

/// Flat city or county tax: `localRate` times the base that `applyTo` chooses, dollars a pay period, not rounded,
/// without limits. With an `applyTo` outside 1 to 5, `localTax` keeps its value.
void LocalTaxCalc();

}  // namespace TALLYFIN_FIGURES
