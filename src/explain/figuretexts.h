#pragma once

#include <string>

#include "engine/tape.h"

/// Figures as people write them, and as programs read them.

namespace tallyfin {

/// An amount as currency, with two decimals or as many more as it has: $1,000.00, $172.4936, ($5.00).
std::string amountText(Money amount);

/// A figure as plain text: an amount with up to four decimals, a count, a rate without an exponent by the fewest digits
/// that read back as the same in its precision.
std::string plainText(const Value& value);

/// A figure of any kind as a real number, dollars where it is an amount.
double realOf(const Value& value);

/// How a figure is written: a rate as dollars, as percent with as many decimals as it has, or as a number, a count as
/// dollars or as a number.
enum class As { dollars, percent, number };
std::string textOf(const Value& value, As as);

/// Where a row of a table holds: "over $525.00 but not over $1,125.00".
std::string boundsText(const AppliedRow& table, std::size_t row);
/// What a row gives: "$71.10 plus 28% of the amount over $525.00".
std::string givenText(const TableRow& row);

}  // namespace tallyfin
