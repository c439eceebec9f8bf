#pragma once

#include "engine/figures.h"

/// North Carolina, tax year 1999: dollars a pay period, by `staMarried` and frequency. The rows have no Lower, but an
/// amount that is subtracted.

namespace TALLYFIN_FIGURES::northcarolina {

using enum Test;

// clang-format off
inline constexpr Band singleWeekly[] = {
    {atMost, 57.69, 0, 0},
    {atMost, 302.88, 0, 0.06, -3.46},
    {atMost, 1211.54, 0, 0.07, -6.49},
    {above, 1211.54, 0, 0.0775, -15.58},
};
inline constexpr Band singleTwiceAMonth[] = {
    {atMost, 125, 0, 0},
    {atMost, 656.25, 0, 0.06, -7.5},
    {atMost, 2625, 0, 0.07, -14.06},
    {above, 2625, 0, 0.0775, -33.75},
};
inline constexpr Band singleEveryTwoWeeks[] = {
    {atMost, 115.39, 0, 0},
    {atMost, 605.77, 0, 0.06, -6.93},
    {atMost, 2423.08, 0, 0.07, -12.98},
    {above, 2423.08, 0, 0.0775, -31.15},
};
inline constexpr Band singleMonthly[] = {
    {atMost, 250, 0, 0},
    {atMost, 1312.5, 0, 0.06, -15},
    {atMost, 5250, 0, 0.07, -28.13},
    {above, 5250, 0, 0.0775, -67.51},
};
inline constexpr Band marriedWeekly[] = {
    {atMost, 48.08, 0, 0},
    {atMost, 252.4, 0, 0.06, -2.88},
    {atMost, 1009.62, 0, 0.07, -5.41},
    {above, 1009.62, 0, 0.0775, -12.98},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {atMost, 104.17, 0, 0},
    {atMost, 546.88, 0, 0.06, -6.25},
    {atMost, 2187.5, 0, 0.07, -11.72},
    {above, 2187.5, 0, 0.0775, -28.13},
};
inline constexpr Band marriedEveryTwoWeeks[] = {
    {atMost, 96.15, 0, 0},
    {atMost, 504.81, 0, 0.06, -5.77},
    {atMost, 2019.23, 0, 0.07, -10.82},
    {above, 2019.23, 0, 0.0775, -25.96},
};
inline constexpr Band marriedMonthly[] = {
    {atMost, 208.33, 0, 0},
    {atMost, 1093.75, 0, 0.06, -12.5},
    {atMost, 4375, 0, 0.07, -23.43},
    {above, 4375, 0, 0.0775, -56.24},
};
inline constexpr Band headOfFamilyWeekly[] = {
    {atMost, 84.62, 0, 0},
    {atMost, 411.54, 0, 0.06, -5.07},
    {atMost, 1623.08, 0, 0.07, -9.19},
    {above, 1623.08, 0, 0.0775, -21.36},
};
inline constexpr Band headOfFamilyTwiceAMonth[] = {
    {atMost, 183.33, 0, 0},
    {atMost, 891.67, 0, 0.06, -11},
    {atMost, 3516.67, 0, 0.07, -19.92},
    {above, 3516.67, 0, 0.0775, -46.3},
};
inline constexpr Band headOfFamilyEveryTwoWeeks[] = {
    {atMost, 169.23, 0, 0},
    {atMost, 823.08, 0, 0.06, -10.15},
    {atMost, 3246.15, 0, 0.07, -18.39},
    {above, 3246.15, 0, 0.0775, -42.74},
};
inline constexpr Band headOfFamilyMonthly[] = {
    {atMost, 366.67, 0, 0},
    {atMost, 1783.33, 0, 0.06, -22},
    {atMost, 7033.33, 0, 0.07, -39.83},
    {above, 7033.33, 0, 0.0775, -92.58},
};
// clang-format on
inline constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                            "North Carolina, Single"};
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "North Carolina, Married"};
inline constexpr PerFrequency<Bands> headOfFamily{headOfFamilyWeekly, headOfFamilyTwiceAMonth,
                                                  headOfFamilyEveryTwoWeeks, headOfFamilyMonthly,
                                                  "North Carolina, Head of Family"};

}  // namespace TALLYFIN_FIGURES::northcarolina
