#include "explain/figuretexts.h"

#include <charconv>
#include <cmath>

#include "engine/doubletext.h"
#include "engine/numbertext.h"

namespace tallyfin {

namespace {

/// The digits of a finite number without sign and point, the first of which isn't 0, and the power of ten of that one.
struct Digits {
  std::string digits;
  int power = 0;
};

/// The fewest digits that read back as the same number.
template <class Real>
Digits shortestDigits(Real value) {
  const std::string text = shortestTextOf(value);
  const auto e = text.find('e');
  Digits result{{}, -1};
  bool fraction = false;
  for (const char c : text.substr(0, e)) {
    if (c == '.') {
      fraction = true;
    } else if (c == '0' && result.digits.empty()) {
      result.power -= fraction ? 1 : 0;
    } else if (c != '-') {
      result.digits += c;
      result.power += fraction ? 0 : 1;
    }
  }
  result.digits.erase(result.digits.find_last_not_of('0') + 1);
  if (e == std::string::npos) return result;
  int exponent = 0;
  std::from_chars(text.data() + e + 2, text.data() + text.size(), exponent);  // behind its sign
  result.power += text[e + 1] == '-' ? -exponent : exponent;
  return result;
}

/// The number times ten to a power, without an exponent.
template <class Real>
std::string decimalText(Real value, int shift) {
  if (value == 0) return "0";
  auto [digits, power] = shortestDigits(value);
  power += shift;
  const auto size = static_cast<int>(digits.size());
  if (power < 0) {
    digits = "0." + std::string(static_cast<std::size_t>(-power - 1), '0') + digits;
  } else if (power + 1 >= size) {
    digits += std::string(static_cast<std::size_t>(power + 1 - size), '0');
  } else {
    digits.insert(static_cast<std::size_t>(power) + 1, 1, '.');
  }
  return (value < 0 ? "-" : "") + digits;
}

}  // namespace

std::string amountText(Money amount) {
  const bool negative = amount < 0;
  const auto units = amount.units();
  std::string text = currency(Money::ofUnits(units - units % 100));
  if (negative) text = text.front() == '(' ? text.substr(1, text.size() - 2) : text;
  if (const auto rest = std::abs(units % 100); rest != 0) {
    text += static_cast<char>('0' + rest / 10);
    if (rest % 10 != 0) text += static_cast<char>('0' + rest % 10);
  }
  return negative ? "(" + text + ")" : text;
}

std::string rateText(double fraction) { return decimalText(fraction, 2) + "%"; }

std::string numberText(double value) { return decimalText(value, 0); }

std::string plainText(const Value& value) {
  if (const auto* amount = std::get_if<Money>(&value)) return toText(*amount);
  if (const auto* count = std::get_if<Int16>(&value)) return toText(*count);
  if (const auto* rate = std::get_if<double>(&value)) return decimalText(*rate, 0);
  return decimalText(std::get<float>(value), 0);
}

std::string textOf(const Value& value, As as) {
  if (const auto* amount = std::get_if<Money>(&value)) return amountText(*amount);
  if (const auto* count = std::get_if<Int16>(&value)) {
    if (as == As::dollars) return amountText(*count);
    std::string text = toText(*count);
    if (std::abs(count->value()) >= 1000) text.insert(text.size() - 3, ",");
    return text;
  }
  const auto* single = std::get_if<float>(&value);
  if (as == As::percent) return single ? decimalText(*single, 2) + "%" : rateText(std::get<double>(value));
  if (as == As::dollars) {
    try {
      const double rate = single ? static_cast<double>(*single) : std::get<double>(value);
      if (toReal(fromReal(rate)) == rate) return amountText(fromReal(rate));
    } catch (const FailedStatement&) {  // it is beyond every amount
    }
  }
  return plainText(value);
}

std::string boundsText(const AppliedRow& table, std::size_t row) {
  const auto from = [](const TableRow& its) {
    const bool included = its.test == Test::below || its.test == Test::atLeast;
    return included ? amountText(its.bound) + " or more" : "over " + amountText(its.bound);
  };
  const TableRow& its = table.rows[row];
  if (its.test == Test::above || its.test == Test::atLeast) return from(its);
  const std::string lower = row == 0 ? "" : from(table.rows[row - 1]) + " but ";
  return lower + (its.test == Test::atMost ? "not over " : "below ") + amountText(its.bound);
}

std::string givenText(const TableRow& row) {
  if (row.gives == TableRow::Gives::amount) return textOf(row.plus, As::dollars);
  if (row.gives == TableRow::Gives::part) return textOf(static_cast<float>(row.rate), As::percent);
  if (row.rate == 0) return textOf(row.plus, As::dollars);
  std::string words = rateText(row.rate) + " of the amount";
  if (row.lower != 0) words += " over " + amountText(row.lower);
  if (row.plus > 0) words = textOf(row.plus, As::dollars) + " plus " + words;
  if (row.plus < 0) words += " less " + textOf(-row.plus, As::dollars);
  if (row.credit != 0) words += ", less " + textOf(row.credit, As::dollars) + " for each exemption";
  return words;
}

}  // namespace tallyfin
