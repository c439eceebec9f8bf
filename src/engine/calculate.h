#pragma once

#include "engine/figures.h"

namespace TALLYFIN_FIGURES {

/// Calculates the record from the worksheet: the income by `incomeSource`, the 401(k) rate, the deductions, the federal
/// base, then federal, state and local tax. Clears nothing first.
void Calculate();

/// Reads the pre-FICA and pre-tax amounts and calculates `amt401k`.
void GetPreTax();

/// A rate as a user types it: 1 or more is a percentage (1 is 1 percent), below 1 a fraction (.5 is 50 percent).
Rate normalisedRate(Rate typed);

/// Sets `depsDed`, dollars a pay period, from a number of exemptions. Without a frequency it keeps its value.
void takeAllowance(Count exemptions);

/// The Calculate command: sets `payPeriods`, where a frequency is chosen, and calculates with the income of the
/// worksheet.
void calculatePaycheck();

/// Sets `totalDed` and `checkAmt`.
void makeTotals();

}  // namespace TALLYFIN_FIGURES
