#pragma once

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

  /// The one of `frequency`. Without a frequency the statement that asks fails.
  const T& now() const {
    switch (payData.frequency.value()) {
      case 0: return weekly;
      case 1: return twiceAMonth;
      case 2: return everyTwoWeeks;
      case 3: return monthly;
      default: throw FailedStatement{"no pay period is chosen"};
    }
  }
};

/// Pay periods a year.
inline constexpr PerFrequency<int> periodsPerYear{52, 24, 26, 12};

}  // namespace tallyfin
