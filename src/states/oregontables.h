#pragma once

#include "engine/figures.h"

/// Oregon, tax year 1999: dollars a pay period, by status, exemptions and frequency.

namespace TALLYFIN_FIGURES::oregon {

using enum Test;

/// A band whose tax loses a credit for each exemption: (x - lower) * rate + plus - credit * exemptions.
struct CreditedBand {
  Test test;
  Dollars bound;
  Dollars lower;
  double rate;    ///< Fraction.
  double plus;    ///< Dollars.
  double credit;  ///< Dollars for each exemption.
};
using CreditedBands = Rows<CreditedBand>;

// clang-format off
inline constexpr CreditedBand marriedWeekly[] = {
    {atMost, 55, 0, 0, 0, 0},
    {atMost, 250, 55, 0.07, 0, 1.75},
    {above, 250, 250, 0.09, 14, 1.75},
};
inline constexpr CreditedBand marriedTwiceAMonth[] = {
    {atMost, 119, 0, 0, 0, 0},
    {atMost, 542, 119, 0.07, 0, 3.75},
    {above, 542, 542, 0.09, 30, 3.75},
};
inline constexpr CreditedBand marriedEveryTwoWeeks[] = {
    {atMost, 110, 0, 0, 0, 0},
    {atMost, 500, 110, 0.07, 0, 3.5},
    {above, 500, 500, 0.09, 27, 3.5},
};
inline constexpr CreditedBand marriedMonthly[] = {
    {atMost, 238, 0, 0, 0, 0},
    {atMost, 1083, 238, 0.07, 0, 7.5},
    {above, 1083, 1083, 0.09, 59, 7.5},
};
inline constexpr CreditedBand singleBelowThreeWeekly[] = {
    {atMost, 21, 0, 0, 0, 0},
    {atMost, 131, 21, 0.07, 0, 1.75},
    {above, 131, 131, 0.09, 8, 1.75},
};
inline constexpr CreditedBand singleThreeOrMoreWeekly[] = {
    {atMost, 55, 0, 0, 0, 0},
    {atMost, 250, 55, 0.07, 0, 1.75},
    {above, 250, 250, 0.09, 14, 1.75},
};
inline constexpr CreditedBand singleBelowThreeTwiceAMonth[] = {
    {atMost, 45, 0, 0, 0, 0},
    {atMost, 283, 45, 0.07, 0, 3.75},
    {above, 283, 283, 0.09, 17, 3.75},
};
inline constexpr CreditedBand singleThreeOrMoreTwiceAMonth[] = {
    {atMost, 119, 0, 0, 0, 0},
    {atMost, 542, 119, 0.07, 0, 3.75},
    {above, 542, 542, 0.09, 30, 3.75},
};
inline constexpr CreditedBand singleBelowThreeEveryTwoWeeks[] = {
    {atMost, 42, 0, 0, 0, 0},
    {atMost, 262, 42, 0.07, 0, 3.5},
    {above, 262, 262, 0.09, 15, 3.5},
};
inline constexpr CreditedBand singleThreeOrMoreEveryTwoWeeks[] = {
    {atMost, 110, 0, 0, 0, 0},
    {atMost, 500, 110, 0.07, 0, 3.5},
    {above, 500, 500, 0.09, 27, 3.5},
};
inline constexpr CreditedBand singleBelowThreeMonthly[] = {
    {atMost, 91, 0, 0, 0, 0},
    {atMost, 567, 91, 0.07, 0, 7.5},
    {above, 567, 567, 0.09, 33, 7.5},
};
inline constexpr CreditedBand singleThreeOrMoreMonthly[] = {
    {atMost, 238, 0, 0, 0, 0},
    {atMost, 1083, 238, 0.07, 0, 7.5},
    {above, 1083, 1083, 0.09, 59, 7.5},
};
// clang-format on
inline constexpr PerFrequency<CreditedBands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks,
                                                     marriedMonthly, "Oregon, Married"};
inline constexpr PerFrequency<CreditedBands> singleBelowThree{singleBelowThreeWeekly, singleBelowThreeTwiceAMonth,
                                                              singleBelowThreeEveryTwoWeeks, singleBelowThreeMonthly,
                                                              "Oregon, Single with fewer than three exemptions"};
inline constexpr PerFrequency<CreditedBands> singleThreeOrMore{singleThreeOrMoreWeekly, singleThreeOrMoreTwiceAMonth,
                                                               singleThreeOrMoreEveryTwoWeeks, singleThreeOrMoreMonthly,
                                                               "Oregon, Single with three exemptions or more"};

}  // namespace TALLYFIN_FIGURES::oregon
