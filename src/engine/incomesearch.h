#pragma once

#include <optional>

#include "engine/money.h"

namespace tallyfin {

/// The smallest income, in whole cents from 0.01 up to `largest`, whose check is at least `wanted`, dollars a pay
/// period; none where there is no such income. Calculates from the current record, working fields and boxes of the
/// worksheet, except the income, and changes none of them.
///
/// The check isn't monotonic: it falls slightly at many cents, and falls or jumps at bounds of tables. So incomes are
/// skipped only where all comparisons of the calculation have the same results, and the straight line plus the bound of
/// its rounding errors is below `wanted`.
std::optional<Money> smallestIncomeFor(Money wanted, Money largest);

}  // namespace tallyfin
