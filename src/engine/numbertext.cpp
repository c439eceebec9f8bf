#include "engine/numbertext.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>

#include "engine/doubletext.h"

namespace tallyfin {

namespace {

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isDigitButZero(char c) { return isDigit(c) && c != '0'; }

/// The decimal digits of a number in a text, exact for any length.
struct Decimal {
  bool negative = false;
  std::string_view digits;  // from the first nonzero one; may contain commas and the point; empty where all are zero
  // mutation: 0 -> 1: a number of zeros has no first digit
  std::int64_t power = 0;  // of ten, of that first digit
};

/// Removes the first character if it is c.
bool take(std::string_view& text, char c) {
  if (text.empty() || text.front() != c) return false;
  text.remove_prefix(1);
  return true;
}

bool takeSign(std::string_view& text, bool& negative) {
  negative = !text.empty() && text.front() == '-';
  return take(text, '-') || take(text, '+');
}

/// The exponent behind "E"; it saturates at 10^12, far beyond the range of every type.
std::optional<std::int64_t> readExponent(std::string_view text) {
  bool negative = false;
  takeSign(text, negative);
  if (text.empty() || !std::all_of(text.begin(), text.end(), isDigit)) return std::nullopt;
  constexpr std::int64_t farBeyond = 1'000'000'000'000;  // mutation: * -> *: one more is as far beyond every range
  std::int64_t exponent = 0;
  for (const char c : text) exponent = std::min(exponent * 10 + (c - '0'), farBeyond);
  return negative ? -exponent : exponent;
}

std::optional<Decimal> readDecimal(std::string_view text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  if (text.empty()) return std::nullopt;

  Decimal decimal;
  if (text.front() == '(' && text.back() == ')') {
    decimal.negative = true;
    text = text.substr(1, text.size() - 2);
    take(text, '$');
  } else {
    const bool signedInFront = takeSign(text, decimal.negative);
    if (take(text, '$') && !signedInFront) takeSign(text, decimal.negative);
  }

  std::int64_t wholeDigits = 0;
  std::int64_t decimals = 0;
  std::int64_t leadingZeros = 0;
  std::int64_t exponent = 0;
  bool comma = false;
  bool point = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (isDigit(c)) {
      ++(point ? decimals : wholeDigits);
      if (decimal.digits.empty() && c == '0') ++leadingZeros;
      if (decimal.digits.empty() && c != '0') decimal.digits = text.substr(i);
    } else if (c == ',' && !point) {
      comma = true;
    } else if (c == '.' && !point) {
      point = true;
    } else if (c == 'e' || c == 'E') {
      const auto named = readExponent(text.substr(i + 1));
      if (!named) return std::nullopt;
      exponent = *named;
      if (!decimal.digits.empty()) decimal.digits.remove_suffix(text.size() - i);
      break;
    } else {
      return std::nullopt;
    }
  }
  if (wholeDigits + decimals == 0 || (comma && wholeDigits == 0)) return std::nullopt;
  decimal.power = wholeDigits - 1 - leadingZeros + exponent;
  return decimal;
}

[[noreturn, gnu::cold, gnu::noinline]] void failFor(std::string_view text) {
  if (readDecimal(text)) throw FailedStatement{"the number is too large"};
  throw NotANumber(text);
}

/// The number that was read from a text; throws FailedStatement where there is none.
template <class Held>
const Held& orFail(const std::optional<Held>& held, std::string_view text) {
  if (!held) [[unlikely]]
    failFor(text);
  return *held;
}

/// A short number: digits, and perhaps a point.
struct PlainNumber {
  std::int64_t digits = 0;  ///< Without the point; a double holds them exactly.
  std::size_t decimals = 0;
};

constexpr std::array<std::int64_t, 15> powersOfTen{1,
                                                   10,
                                                   100,
                                                   1'000,
                                                   10'000,
                                                   100'000,
                                                   1'000'000,
                                                   10'000'000,
                                                   100'000'000,
                                                   1'000'000'000,
                                                   10'000'000'000,
                                                   100'000'000'000,
                                                   1'000'000'000'000,
                                                   10'000'000'000'000,
                                                   100'000'000'000'000};

/// The number of a text of up to 14 digits, with at most one point; none for every other text, even a number. Most
/// texts are of this form, and this is faster than the general parser.
[[gnu::always_inline]] inline std::optional<PlainNumber> plainNumber(std::string_view text) {
  if (text.size() == 1 && isDigit(text.front())) return PlainNumber{text.front() - '0'};
  if (text.empty() || text.size() >= powersOfTen.size() || !isDigit(text.front())) return std::nullopt;
  PlainNumber number;
  const char* at = text.data();
  const char* const end = at + text.size();
  for (; at != end && isDigit(*at); ++at) number.digits = number.digits * 10 + (*at - '0');
  if (at == end) return number;
  if (*at != '.') return std::nullopt;
  for (++at; at != end && isDigit(*at); ++at, ++number.decimals) number.digits = number.digits * 10 + (*at - '0');
  return at == end ? std::optional(number) : std::nullopt;
}

/// How the digits that are dropped compare with half a unit of the last one that is kept.
enum class Rest { belowHalf, half, aboveHalf };

/// Calls keep(digit) for the first `wanted` digits, padded with zeros, and returns how the others compare with half a
/// unit.
template <class Keep>
Rest keepDigits(std::string_view digits, std::int64_t wanted, Keep keep) {
  auto next = digits.begin();
  for (; next != digits.end() && wanted > 0; ++next) {
    if (!isDigit(*next)) continue;
    keep(*next);
    --wanted;
  }
  for (; wanted > 0; --wanted) keep('0');
  next = std::find_if(next, digits.end(), isDigit);
  if (next == digits.end() || *next < '5') return Rest::belowHalf;
  const bool more = *next > '5' || std::any_of(next + 1, digits.end(), isDigitButZero);
  return more ? Rest::aboveHalf : Rest::half;
}

/// The digits of the number times 10^places, rounded half away from zero to a whole number, without its sign. The
/// number is within the range of a double, so that there are a few hundred digits at most.
std::string roundedDigits(const Decimal& decimal, int places) {
  const std::int64_t wanted = decimal.power + 1 + places;  // the number of digits that are kept
  if (decimal.digits.empty() || wanted < 0) return "0";

  std::string kept;
  if (keepDigits(decimal.digits, wanted, [&](char digit) { kept += digit; }) != Rest::belowHalf) {
    auto digit = kept.rbegin();
    for (; digit != kept.rend() && *digit == '9'; ++digit) *digit = '0';
    if (digit == kept.rend()) {
      kept.insert(kept.begin(), '1');
    } else {
      ++*digit;
    }
  }
  return kept.empty() ? "0" : kept;
}

/// The number times 10^places, rounded half to even to a whole number.
std::int64_t roundedInteger(const Decimal& decimal, int places) {
  constexpr std::int64_t mostDigits = 19;  // all numbers of 19 digits fit into an unsigned 64-bit one
  const std::int64_t wanted = decimal.power + 1 + places;
  if (decimal.digits.empty() || wanted < 0) return 0;
  if (wanted > mostDigits) throw FailedStatement{"the number is too large"};

  std::uint64_t number = 0;
  const Rest rest = keepDigits(decimal.digits, wanted,
                               [&](char digit) { number = number * 10 + static_cast<std::uint64_t>(digit - '0'); });
  if (rest == Rest::aboveHalf || (rest == Rest::half && number % 2 != 0)) ++number;

  constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
  if (number > largest + (decimal.negative ? 1 : 0)) throw FailedStatement{"the number is too large"};
  return static_cast<std::int64_t>(decimal.negative ? 0 - number : number);
}

/// The nearest double; none where the number is too large for a double, zero where it is too small.
std::optional<double> nearestDouble(const Decimal& decimal) {
  if (decimal.digits.empty()) return 0;

  std::string plain = decimal.negative ? "-" : "";
  const std::size_t pointAfter = plain.size() + 1;
  for (const char c : decimal.digits) {
    if (!isDigit(c)) continue;
    plain += c;
    if (plain.size() == pointAfter) plain += '.';
  }
  if (decimal.power != 0) (plain += 'e') += std::to_string(decimal.power);
  return doubleOf(plain);
}

/// "$1,234.50" from the digits of a number of cents.
std::string currencyOfCents(std::string cents, bool negative) {
  if (cents == "0") negative = false;
  while (cents.size() < 3) cents.insert(0, 1, '0');
  const std::size_t whole = cents.size() - 2;
  std::string text = negative ? "($" : "$";
  for (std::size_t i = 0; i < whole; ++i) {
    if (i > 0 && (whole - i) % 3 == 0) text += ',';
    text += cents[i];
  }
  text += '.';
  text.append(cents, whole);
  if (negative) text += ')';
  return text;
}

std::string currencyOf(const Decimal& decimal) { return currencyOfCents(roundedDigits(decimal, 2), decimal.negative); }

std::uint64_t magnitude(std::int64_t number) {
  // mutation: < -> <= and 0 -> 1: zero has no parentheses
  return number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
}

/// The digits of 00 to 99.
constexpr auto digitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < pairs.size() / 2; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

void writePair(char* place, std::uint64_t below100) { std::memcpy(place, digitPairs.data() + 2 * below100, 2); }

/// Writes a whole number; returns the end of its digits.
char* writeWhole(char* place, std::uint64_t number) {
  std::ptrdiff_t length = number < 10 ? 1 : number < 100 ? 2 : number < 1000 ? 3 : 4;
  for (std::uint64_t rest = number / 10'000; rest > 0; rest /= 10) ++length;
  char* const end = place + length;
  char* at = end;
  for (; number >= 100; number /= 100) writePair(at -= 2, number % 100);
  if (number >= 10) {
    writePair(at - 2, number);
  } else {
    at[-1] = static_cast<char>('0' + number);
  }
  return end;
}

}  // namespace

Money toMoney(std::string_view text) {
  if (const auto plain = plainNumber(text); plain && plain->decimals <= 4) {
    return Money::ofUnits(plain->digits * powersOfTen[4 - plain->decimals]);
  }
  return Money::ofUnits(roundedInteger(orFail(readDecimal(text), text), 4));
}

double realOf(std::string_view text) {
  // Both numbers are exact, so that their quotient is the nearest double.
  if (const auto plain = plainNumber(text)) {
    return static_cast<double>(plain->digits) / static_cast<double>(powersOfTen[plain->decimals]);
  }
  return orFail(nearestDouble(orFail(readDecimal(text), text)), text);
}

Int16 toInt16(std::string_view text) {
  if (const auto plain = plainNumber(text); plain && plain->decimals == 0) return plain->digits;
  return roundedInteger(orFail(readDecimal(text), text), 0);
}

bool isNumber(std::string_view text) { return readDecimal(text).has_value(); }

char* writeText(char* place, Money amount) {
  constexpr auto unitsPerDollar = static_cast<std::uint64_t>(Money::unitsPerDollar);
  if (amount == 0) {
    *place = '0';
    return place + 1;
  }
  const std::uint64_t units = magnitude(amount.units());
  if (amount < 0) *place++ = '-';
  place = writeWhole(place, units / unitsPerDollar);
  const std::uint64_t decimals = units % unitsPerDollar;
  if (decimals == 0) return place;
  *place = '.';
  writePair(place + 1, decimals / 100);
  writePair(place + 3, decimals % 100);
  place += decimals % 100 == 0 ? 3 : 5;
  return place[-1] == '0' ? place - 1 : place;
}

std::string toText(Money amount) {
  std::array<char, longestAmount> buffer{};
  return {buffer.data(), writeText(buffer.data(), amount)};
}

std::string toText(double value) {
  if (!std::isfinite(value)) throw FailedStatement{"the number is too large"};
  if (value == 0) return "0";  // minus zero too
  std::string text = shortTextOf(value);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

std::string toText(Int16 number) { return std::to_string(number.value()); }

std::string currency(Money amount) {
  constexpr std::uint64_t unitsPerCent = 100;
  const std::uint64_t units = magnitude(amount.units());
  const std::uint64_t cents = units / unitsPerCent + (units % unitsPerCent >= unitsPerCent / 2 ? 1 : 0);
  return currencyOfCents(std::to_string(cents),
                         amount.units() < 0);  // mutation: < -> <= and 0 -> 1: zero has no parentheses
}

std::string currency(double value) {
  const std::string plain = toText(value);
  return currencyOf(orFail(readDecimal(plain), plain));
}

std::string currency(std::string_view text) {
  const auto decimal = readDecimal(text);
  return decimal && nearestDouble(*decimal) ? currencyOf(*decimal) : std::string(text);
}

std::string percentage(double fraction) {
  const std::string plain = toText(fraction);
  const Decimal decimal = orFail(readDecimal(plain), plain);
  std::string digits = roundedDigits(decimal, 4);
  if (digits == "0") return ".%";
  while (digits.size() < 2) digits.insert(0, 1, '0');
  std::string decimals = digits.substr(digits.size() - 2);
  while (!decimals.empty() && decimals.back() == '0') decimals.pop_back();
  digits.resize(digits.size() - 2);
  return (decimal.negative ? "-" : "") + digits + "." + decimals + "%";
}

std::string wholeNumber(std::string_view text) {
  const auto decimal = readDecimal(text);
  if (!decimal || !nearestDouble(*decimal)) return std::string(text);
  const std::string digits = roundedDigits(*decimal, 0);
  return (decimal->negative && digits != "0" ? "-" : "") + digits;
}

std::string socialSecurityNumber(std::string_view text) {
  if (text.size() != 9 || !std::all_of(text.begin(), text.end(), isDigit)) return std::string(text);
  std::string formatted(text);
  formatted.insert(5, "-").insert(3, "-");
  return formatted;
}

}  // namespace tallyfin
