#pragma once

#include "engine/figures.h"

namespace TALLYFIN_FIGURES {

/// Federal withholding by the percentage method of 1999, FICA, the state routine, and the eight figures on the main
/// screen. Works on `fedBase`, `frequency` and `maritalStat`; where there is no table for these, `fedTax` keeps its
/// value.
void FedTax();

}  // namespace TALLYFIN_FIGURES
