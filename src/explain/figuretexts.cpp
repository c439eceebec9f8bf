#include "explain/figuretexts.h"

#include <algorithm>
#include <cmath>
#include <concepts>

#include "engine/doubletext.h"
#include "engine/numbertext.h"

namespace tallyfin {

namespace {

/// 7.65%: the number's digits with the point two places further right.
template <class Real>
std::string percentText(Real fraction) {
  std::string text = decimalTextOf(fraction, 2);
  const auto point = text.find('.');
  text.erase(point, 1);
  if (point + 2 < text.size()) text.insert(point + 2, 1, '.');
  const std::size_t sign = fraction < 0 ? 1 : 0;
  const auto leading = std::min(text.find_first_not_of('0', sign), point + 1);
  return text.erase(sign, leading - sign) + "%";
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

std::string plainText(const Value& value) {
  return std::visit(
      [](auto number) {
        if constexpr (std::floating_point<decltype(number)>) {
          return decimalTextOf(number == 0 ? 0 : number);
        } else {
          return toText(number);
        }
      },
      value);
}

double realOf(const Value& value) {
  return std::visit(
      [](auto number) {
        if constexpr (std::floating_point<decltype(number)>) {
          return static_cast<double>(number);
        } else {
          return toReal(number);
        }
      },
      value);
}

std::string textOf(const Value& value, As as) {
  if (const auto* amount = std::get_if<Money>(&value)) return amountText(*amount);
  if (const auto* count = std::get_if<Int16>(&value)) {
    if (as == As::dollars) return amountText(*count);
    std::string text = toText(*count);
    if (std::abs(count->value()) >= 1000) text.insert(text.size() - 3, ",");
    return text;
  }
  if (as == As::percent) {
    const auto* single = std::get_if<float>(&value);
    return single ? percentText(*single) : percentText(std::get<double>(value));
  }
  const double rate = realOf(value);
  return as == As::dollars && toReal(fromReal(rate)) == rate ? amountText(fromReal(rate)) : plainText(value);
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
  std::string words = textOf(row.rate, As::percent) + " of the amount";
  if (row.lower != 0) words += " over " + amountText(row.lower);
  if (row.plus > 0) words = textOf(row.plus, As::dollars) + " plus " + words;
  if (row.plus < 0) words += " less " + textOf(-row.plus, As::dollars);
  if (row.credit != 0) words += ", less " + textOf(row.credit, As::dollars) + " for each exemption";
  return words;
}

}  // namespace tallyfin
