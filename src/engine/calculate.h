#pragma once

namespace tallyfin {

/// Works the record out from the worksheet: the income by `incomeSource`, the 401(k) rate, the deductions,
/// the federal base, then federal, state and local tax. Clears nothing first.
void Calculate();

/// Reads the pre-FICA and pre-tax amounts and works `amt401k` out from the whole income.
void GetPreTax();

/// A rate as a user types it: 1 or more is a percentage (1 is 1 percent), below 1 a fraction (.5 is 50 percent).
double normalisedRate(double typed);

}  // namespace tallyfin
