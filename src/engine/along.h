#pragma once

#include <algorithm>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <type_traits>

#include "engine/bands.h"
#include "engine/failure.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/title.h"
#include "engine/unrecorded.h"
#include "engine/worksheet.h"

/// The kind of figures for the search of an income. Each figure holds a number, its slope for each cent of income, and
/// a bound of the rounding errors along that straight line. Each comparison of a rule limits the range of incomes for
/// which the line holds, so the search needs no knowledge of the branches of a rule. The names are those of the plain
/// kind.

namespace tallyfin::along {

using ::tallyfin::FailedStatement;
using ::tallyfin::Title;
using namespace unrecorded;

/// More than the largest income that is tried, in cents.
inline constexpr double unlimited = 1e12;

/// By how many cents the income may grow until a comparison may have another result.
inline constinit thread_local double range = unlimited;

constexpr double numberOf(Money amount) { return toReal(amount); }
constexpr double numberOf(Int16 count) { return count.value(); }
constexpr double numberOf(double rate) { return rate; }

/// A straight line over the income, from the current income on. With slope and slack 0 it is a constant.
struct Line {
  double slope = 0;  ///< Change with each cent of income.
  double slack = 0;  ///< The greatest distance of the figure from the line.

  constexpr bool isConstant() const { return slope == 0 && slack == 0; }
  friend constexpr Line operator+(Line a, Line b) { return {a.slope + b.slope, a.slack + b.slack}; }
  friend constexpr Line operator-(Line a, Line b) { return {a.slope - b.slope, a.slack + b.slack}; }
  friend constexpr Line operator*(Line a, double factor) { return {a.slope * factor, a.slack * std::abs(factor)}; }
};

/// Limits the range to where a difference may change its sign.
inline void watch(double difference, Line line) {
  if (line.isConstant()) return;
  const double sure = std::abs(difference) - line.slack;
  if (sure <= 0) {
    range = 0;
  } else if (line.slope != 0 && (difference < 0) != (line.slope < 0)) {
    constexpr double margin = 1e-3;  // cents; far more than the doubles' own errors
    range = std::min(range, std::ceil(sure / std::abs(line.slope) - margin) - 1);
  }
}

template <class T>
class Along {
 public:
  constexpr Along() = default;
  constexpr Along(T value) : value_(value) {}  // NOLINT(google-explicit-constructor): a number is a constant figure
  template <std::integral Number>
  constexpr Along(Number value)  // NOLINT(google-explicit-constructor): likewise
      : value_(static_cast<T>(value)) {}
  template <std::same_as<Int16> C>
  requires std::same_as<T, Money>
  constexpr Along(const Along<C>& count)  // NOLINT(google-explicit-constructor): likewise
      : value_(count.plain()), line_(count.line()) {}
  constexpr Along(T value, Line line) : value_(value), line_(line) {}

  constexpr const T& plain() const { return value_; }
  constexpr Line line() const { return line_; }

  /// The number, for a switch.
  int value() const requires std::same_as<T, Int16> {
    if (!line_.isConstant()) range = 0;
    return value_.value();
  }

  friend Along operator+(const Along& a, const Along& b) { return within({a.value_ + b.value_, a.line_ + b.line_}); }
  friend Along operator-(const Along& a, const Along& b) { return within({a.value_ - b.value_, a.line_ - b.line_}); }
  friend Along operator*(const Along& a, const Along& b) requires(!std::same_as<T, Money>) {
    return within({a.value_ * b.value_, product(a, b)});
  }
  friend Along operator*(const Along& a, const Along<Int16>& b) requires std::same_as<T, Money> {
    return within({a.value_ * b.plain(), product(a, b)});
  }
  friend Along operator/(const Along& a, const Along& b) requires std::same_as<T, double> {
    if (!b.line_.isConstant()) range = 0;
    return {a.value_ / b.value_, a.line_ * (1 / b.value_)};
  }

  friend bool operator==(const Along& a, const Along& b) { return watched(a, b), a.value_ == b.value_; }
  friend bool operator<(const Along& a, const Along& b) { return watched(a, b), a.value_ < b.value_; }
  friend bool operator<=(const Along& a, const Along& b) { return watched(a, b), a.value_ <= b.value_; }
  friend bool operator>(const Along& a, const Along& b) { return watched(a, b), a.value_ > b.value_; }
  friend bool operator>=(const Along& a, const Along& b) { return watched(a, b), a.value_ >= b.value_; }

 private:
  static void watched(const Along& a, const Along& b) {
    watch(numberOf(a.value_) - numberOf(b.value_), a.line_ - b.line_);
  }

  /// A product of two figures that both change isn't a straight line.
  template <class Other>
  static Line product(const Along& a, const Along<Other>& b) {
    if (b.line().isConstant()) return a.line_ * numberOf(b.plain());
    if (!a.line_.isConstant()) range = 0;
    return b.line() * numberOf(a.value_);
  }

  /// Ends the range where the figure may leave its type, and the statement fail.
  static Along within(const Along& figure) {
    if constexpr (!std::floating_point<T>) {
      constexpr double most = std::same_as<T, Money> ? 9.2e14 : 32767;
      if (!figure.line_.isConstant())
        watch(most - std::abs(numberOf(figure.value_)), {std::abs(figure.line_.slope) * -1, figure.line_.slack});
    }
    return figure;
  }

  T value_{};
  Line line_;
};

using Amount = Along<Money>;
using Count = Along<Int16>;
using Rate = Along<double>;
using Single = Along<float>;
template <class Row>
using RowsOf = Rows<Row>;
using TaxTable = RowsOf<Band>;

template <class T>
constexpr Along<T> named(const char* /*name*/, T value) {
  return value;
}
constexpr Count dollars16(const char* /*name*/, int dollars) { return Int16(dollars); }
template <class T>
constexpr const T& figureOf(const char* /*name*/, const T& value, const char* /*period*/) {
  return value;
}
constexpr Count figureOf(const char* /*name*/, int value, const char* /*period*/) { return Int16(value); }
constexpr Amount figureOf(const char* /*name*/, const Dollars& value, const char* /*period*/) { return value.amount; }

inline Rate toReal(const Amount& x) { return {tallyfin::toReal(x.plain()), x.line()}; }
inline Rate toReal(const Count& x) { return {tallyfin::toReal(x.plain()), x.line()}; }
inline Rate asRate(const Single& x) { return {static_cast<double>(x.plain()), x.line()}; }

/// A figure rounded to a multiple of a unit: it differs from the line by up to half a unit.
template <class T>
Along<T> rounded(T value, Line line, double unit) {
  if (line.isConstant()) return value;
  return {value, {line.slope, line.slack + unit + 1e-7}};
}

inline Amount fromReal(const Rate& x) {
  const Money value = tallyfin::fromReal(x.plain());
  const Line line = x.line();
  watch(9.2e14 - std::abs(x.plain()), {-std::abs(line.slope), line.slack});
  // Where value and slope are whole ten-thousandths, except for errors of the doubles, rounding changes nothing.
  const double units = line.slope * static_cast<double>(Money::unitsPerDollar);
  const bool exact = line.slack == 0 && std::abs(units - std::round(units)) < 1e-9 &&
                     std::abs(x.plain() - tallyfin::toReal(value)) < 1e-8;
  if (exact) return {value, {std::round(units) / static_cast<double>(Money::unitsPerDollar), 0}};
  return rounded(value, line, 1e-4);
}
inline Amount roundCents(const Amount& x) { return rounded(tallyfin::roundCents(x.plain()), x.line(), 0.01); }
inline Amount roundedToDollars(const Amount& x) { return rounded(tallyfin::roundedToDollars(x.plain()), x.line(), 1); }
template <class T>
requires(!std::same_as<T, Int16>) Count integerRounded(const Along<T>& x) {
  watch(32767.5 - std::abs(numberOf(x.plain())), {-std::abs(x.line().slope), x.line().slack});
  return rounded(tallyfin::integerRounded(x.plain()), x.line(), 1);
}
/// The labels aren't changed during the search.
constexpr Money roundedForDisplay(const Amount& /*x*/) { return {}; }

/// The larger of two figures. Where they are equal within their slack, the one that grows faster is returned, with a
/// slack that covers the other.
template <class T>
Along<T> greatest(const Along<T>& a, const std::type_identity_t<Along<T>>& b) {
  const double difference = numberOf(a.plain()) - numberOf(b.plain());
  const Line line = a.line() - b.line();
  if (std::abs(difference) > line.slack) {
    watch(difference, line);
    return difference < 0 ? b : a;
  }
  const bool first = line.slope == 0 ? difference >= 0 : line.slope > 0;
  const double ahead = first ? difference : -difference;
  const Line chosen = first ? a.line() : b.line();
  return {a.plain() < b.plain() ? b.plain() : a.plain(),
          {chosen.slope, chosen.slack + std::max(0.0, line.slack - ahead)}};
}
/// The smaller of two figures, likewise.
template <class T>
Along<T> least(const Along<T>& a, const std::type_identity_t<Along<T>>& b) {
  const double difference = numberOf(a.plain()) - numberOf(b.plain());
  const Line line = a.line() - b.line();
  if (std::abs(difference) > line.slack) {
    watch(difference, line);
    return difference > 0 ? b : a;
  }
  const bool first = line.slope == 0 ? difference <= 0 : line.slope < 0;
  const double ahead = first ? -difference : difference;
  const Line chosen = first ? a.line() : b.line();
  return {b.plain() < a.plain() ? b.plain() : a.plain(),
          {chosen.slope, chosen.slack + std::max(0.0, line.slack - ahead)}};
}
inline Amount within(const Amount& x, const Amount& low, const Amount& high) { return least(greatest(x, low), high); }
inline Amount atLeastZero(const Amount& x) { return greatest(x, 0); }
inline bool isFrom(const Count& low, const Count& x, const Count& high) { return low <= x && x <= high; }

template <class Row>
const Row& bandOf(Rows<Row> table, const Amount& x) {
  for (const Row& row : table) {
    watch(toReal(x.plain() - row.bound.amount), x.line());
    if (holds(row.test, row.bound.amount, x.plain())) return row;
  }
  throw FailedStatement{};
}
template <class Row>
const Row& bandOf(const TableOf<Row>& table, const Amount& x) {
  return bandOf(table.rows, x);
}

/// The income that is tried; in the other kinds this is a text.
struct Income {
  Money amount;
  static constexpr bool empty() { return false; }
};
inline Amount toMoney(Income income) { return {income.amount, {0.01, 0}}; }

/// The text of a box. It doesn't change with the income.
struct Entry {
  const std::string& text;
  bool empty() const { return text.empty(); }
};
inline Amount toMoney(Entry entry) { return tallyfin::toMoney(entry.text); }
inline Rate realOf(Entry entry) { return tallyfin::realOf(entry.text); }
inline Count toInt16(Entry entry) { return tallyfin::toInt16(entry.text); }

/// The record and the working fields in figures of this kind.
using PayData = PayDataOf<Amount, Count, Rate>;
struct Worksheet : WorksheetFieldsOf<Amount, Count> {
  Money income;

  Income incomeText() const { return {income}; }
  static Entry rate401kText() { return {tallyfin::worksheet().rate401kText()}; }
  static Entry preTaxText() { return {tallyfin::worksheet().preTaxText()}; }
  static Entry preFicaText() { return {tallyfin::worksheet().preFicaText()}; }
  static Entry exemptionsText() { return {tallyfin::worksheet().exemptionsText()}; }
  static int stateIndex() { return tallyfin::worksheet().stateIndex(); }
  static bool selfEmployed() { return tallyfin::worksheet().selfEmployed(); }
  static void showFigure(int /*label*/, Money /*figure*/) {}
};
inline constinit thread_local PayData payData;
inline constinit thread_local Worksheet theWorksheet;
inline Worksheet& worksheet() { return theWorksheet; }

}  // namespace tallyfin::along
