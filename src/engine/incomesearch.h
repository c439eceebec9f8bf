#pragma once

#include <optional>

#include "engine/money.h"

namespace tallyfin {

/// The smallest income, in whole cents from 0.01 up to the largest, whose check is at least the one wanted, in dollars
/// a pay period: the one that trying cent after cent would find first. The record, the working fields and the boxes of
/// the worksheet but the income's are as they stand before the calculation, and stay so.
///
/// The check doesn't rise evenly: it falls by a trifle at many cents, falls and jumps at bounds of tables. So incomes
/// are passed over only where the calculation surely goes the same way and its straight line, with what roundings may
/// add, stays below the check wanted.
std::optional<Money> smallestIncomeFor(Money wanted, Money largest);

}  // namespace tallyfin
