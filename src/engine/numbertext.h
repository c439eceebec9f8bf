#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "engine/int16.h"
#include "engine/money.h"

/// Numbers as texts, with United States conventions in every locale.

namespace tallyfin {

/// Text to number. One grammar serves all three: blanks at both ends, one sign (before or after the currency sign),
/// one "$", digits with commas anywhere in the whole part, a point, digits, an exponent; or the whole in parentheses
/// for a negative. Anything else fails, also the empty text.
///
/// toMoney rounds the decimal digits themselves at the fourth decimal, half to even; toInt16 to a whole number
/// likewise. A number beyond the range of the result fails.
Money toMoney(std::string_view text);
double realOf(std::string_view text);
Int16 toInt16(std::string_view text);

/// Whether the text is a number of that grammar.
bool isNumber(std::string_view text);

/// Number to plain text. An amount has up to four decimals and no trailing zeros (1234.5); a double up to 15
/// significant digits, in exponent form from 1E+15 up and below 0.0001. A double that is not finite fails, as it does
/// in the formats below.
std::string toText(Money amount);
std::string toText(double value);
std::string toText(Int16 number);

/// Writes the plain text of an amount to a buffer of `longestAmount` characters; returns the end of the text.
char* writeText(char* place, Money amount);
// mutation: 21 -> 22: room in a buffer
inline constexpr std::size_t longestAmount = 21;  ///< -922337203685477.5808

/// The format "Currency": two decimals, an exact half away from zero, "$", thousands commas, negatives in parentheses,
/// a zero without them. A text is formatted by the decimal that it holds; one that isn't a number, or is beyond a
/// double's range, stays as it is.
std::string currency(Money amount);
std::string currency(double value);
std::string currency(std::string_view text);

/// The format "##.##%": times 100, at most two decimals, half away from zero, optional digits on both sides of a point
/// that always stands: `14.%`, `30.2%`, `.5%`, `.%`.
std::string percentage(double fraction);

/// The format "0" of a text that is a number within a double's range: whole, half away from zero. Any other text stays
/// as it is.
std::string wholeNumber(std::string_view text);

/// The format "###-##-####": nine digits become 123-45-6789; any other text stays as it is.
std::string socialSecurityNumber(std::string_view text);

}  // namespace tallyfin
