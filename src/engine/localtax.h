#pragma once

#include "engine/figures.h"

namespace TALLYFIN_FIGURES {

/// Flat city or county tax: `localRate` of the base that `applyTo` chooses, dollars a pay period, not rounded, without
/// floor or cap. An `applyTo` outside 1 to 5 leaves `localTax` as it was.
void LocalTaxCalc();

}  // namespace TALLYFIN_FIGURES
