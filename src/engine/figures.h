#pragma once

/// The kinds of figures for which the rules are compiled.
///
/// Each source of rules is compiled once for each kind, in a namespace of its own: `tallyfin::plain` with numbers,
/// `tallyfin::recorded` with figures whose operations are recorded, `tallyfin::along` with their change over the
/// income. A source of rules includes this header, is in namespace TALLYFIN_FIGURES and uses Amount, Count, Rate and
/// Single. All kinds carry out the same operations in the same order, so that the results are identical.

#include <concepts>

#include "engine/bands.h"
#include "engine/choices.h"
#include "engine/paydata.h"
#include "engine/worksheet.h"

#ifdef TALLYFIN_RECORDED
#include "engine/recorded.h"
#define TALLYFIN_FIGURES tallyfin::recorded
#elif defined TALLYFIN_ALONG
#include "engine/along.h"
#define TALLYFIN_FIGURES tallyfin::along
#else
#include "engine/plain.h"
#define TALLYFIN_FIGURES tallyfin::plain
#endif

namespace TALLYFIN_FIGURES {

/// A constant, or the table of one status or letter, for each pay frequency in the order of the list box, tax year
/// 1999.
template <class T>
struct PerFrequency {
  T weekly;
  T twiceAMonth;
  T everyTwoWeeks;
  T monthly;
  const char* name;

  /// The one for the record's `frequency`. Fails where none is chosen.
  decltype(auto) now() const {
    switch (payData.frequency.value()) {
      case frequency::weekly: return figureOf(name, weekly, frequency::captions[frequency::weekly]);
      case frequency::twiceAMonth: return figureOf(name, twiceAMonth, frequency::captions[frequency::twiceAMonth]);
      case frequency::everyTwoWeeks:
        return figureOf(name, everyTwoWeeks, frequency::captions[frequency::everyTwoWeeks]);
      case frequency::monthly: return figureOf(name, monthly, frequency::captions[frequency::monthly]);
      default: throw FailedStatement{"no pay frequency is chosen"};
    }
  }
};

/// Pay periods a year.
inline constexpr PerFrequency<int> periodsPerYear{52, 24, 26, 12, "pay periods a year"};

/// Constants with a name: dollars, dollars in 16-bit arithmetic, a fraction.
struct FixedAmount {
  const char* name;
  Dollars dollars;

  operator Amount() const { return named(name, dollars.amount); }  // NOLINT(google-explicit-constructor): in formulas
};
struct FixedCount {
  const char* name;
  int dollars;

  operator Count() const { return dollars16(name, dollars); }  // NOLINT(google-explicit-constructor): likewise
};
struct FixedRate {
  const char* name;
  double fraction;

  operator Rate() const { return named(name, fraction); }  // NOLINT(google-explicit-constructor): likewise
};

/// The tax on x by the row of a table: the subtraction in amounts, the rest in one real step.
inline Amount taxOf(TaxTable table, Amount x) {
  const Band& band = bandOf(table, x);
  const Amount lower = named("lower bound of the row", band.lower.amount);
  const Rate rate = named("rate of the row", band.rate);
  return fromReal(toReal(x - lower) * rate + named("tax at the lower bound", band.plus));
}

}  // namespace TALLYFIN_FIGURES
