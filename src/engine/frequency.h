#pragma once

#include "engine/choices.h"
#include "engine/failure.h"
#include "engine/paydata.h"

namespace tallyfin {

/// A constant or table for each pay frequency, tax year 1999, in the order of the list box.
template <class T>
struct PerFrequency {
  T weekly;
  T twiceAMonth;
  T everyTwoWeeks;
  T monthly;

  /// The one for the record's `frequency`. Where none is chosen, the statement fails.
  const T& now() const {
    switch (payData.frequency.value()) {
      case frequency::weekly: return weekly;
      case frequency::twiceAMonth: return twiceAMonth;
      case frequency::everyTwoWeeks: return everyTwoWeeks;
      case frequency::monthly: return monthly;
      default: throw FailedStatement{"no pay period is chosen"};
    }
  }
};

/// Pay periods a year.
inline constexpr PerFrequency<int> periodsPerYear{52, 24, 26, 12};

}  // namespace tallyfin
