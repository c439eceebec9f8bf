#pragma once

#include "engine/figures.h"

/// The tables of longschedulestates.cpp, tax year 1999: dollars a pay period, by status and frequency.

namespace TALLYFIN_FIGURES {

using enum Test;

/// Georgia.
namespace georgia {
// clang-format off
inline constexpr Band marriedWeekly[] = {
    {below, 20, 0, 0.01},
    {below, 57.5, 20, 0.02, 0.2},
    {below, 96, 57.5, 0.03, 0.95},
    {below, 134.5, 96, 0.04, 2.11},
    {below, 192.5, 134.5, 0.05, 3.65},
    {atLeast, 192.5, 192.5, 0.06, 6.55},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {below, 41.5, 0, 0.01},
    {below, 125, 41.5, 0.02, 0.42},
    {below, 208, 125, 0.03, 2.09},
    {below, 291, 208, 0.04, 4.58},
    {below, 417, 291, 0.05, 7.9},
    {atLeast, 417, 417, 0.06, 14.2},
};
inline constexpr Band marriedEveryTwoWeeks[] = {
    {below, 40, 0, 0.01},
    {below, 115, 40, 0.02, 0.4},
    {below, 192, 115, 0.03, 1.9},
    {below, 269, 192, 0.04, 4.21},
    {below, 385, 269, 0.05, 7.29},
    {atLeast, 385, 385, 0.06, 13.09},
};
inline constexpr Band marriedMonthly[] = {
    {below, 84, 0, 0.01},
    {below, 250, 84, 0.02, 0.84},
    {below, 416, 250, 0.03, 4.16},
    {below, 582, 416, 0.04, 9.14},
    {below, 833, 582, 0.05, 15.78},
    {atLeast, 833, 833, 0.06, 28.33},
};
inline constexpr Band singleWeekly[] = {
    {below, 14.5, 0, 0.01},
    {below, 43.25, 14.5, 0.02, 0.15},
    {below, 72.25, 43.25, 0.03, 0.72},
    {below, 101, 72.25, 0.04, 1.59},
    {below, 134.75, 101, 0.05, 2.74},
    {atLeast, 134.75, 134.75, 0.06, 4.43},
};
inline constexpr Band singleTwiceAMonth[] = {
    {below, 31.25, 0, 0.01},
    {below, 93.75, 31.25, 0.02, 0.31},
    {below, 156.25, 93.75, 0.03, 1.56},
    {below, 218.75, 156.25, 0.04, 3.44},
    {below, 291.75, 218.75, 0.05, 5.94},
    {atLeast, 291.75, 291.75, 0.06, 9.59},
};
inline constexpr Band singleEveryTwoWeeks[] = {
    {below, 29, 0, 0.01},
    {below, 86.5, 29, 0.02, 0.29},
    {below, 144.25, 86.5, 0.03, 1.44},
    {below, 202, 144.25, 0.04, 3.17},
    {below, 269.25, 202, 0.05, 5.48},
    {atLeast, 269.25, 269.25, 0.06, 8.85},
};
inline constexpr Band singleMonthly[] = {
    {below, 62.5, 0, 0.01},
    {below, 187.5, 62.5, 0.02, 0.63},
    {below, 312.5, 187.5, 0.03, 3.13},
    {below, 437.5, 312.5, 0.04, 6.88},
    {below, 583.5, 437.5, 0.05, 11.88},
    {atLeast, 583.5, 583.5, 0.06, 19.18},
};
inline constexpr Band marriedClaimingSingleWeekly[] = {
    {below, 9.75, 0, 0.01},
    {below, 29, 9.75, 0.02, 0.1},
    {below, 48.25, 29, 0.03, 0.48},
    {below, 67.5, 48.25, 0.04, 1.06},
    {below, 96.25, 67.5, 0.05, 1.83},
    {atLeast, 96.25, 96.25, 0.06, 3.27},
};
inline constexpr Band marriedClaimingSingleTwiceAMonth[] = {
    {below, 21, 0, 0.01},
    {below, 62.5, 21, 0.02, 0.21},
    {below, 104.25, 62.5, 0.03, 1.04},
    {below, 146, 104.25, 0.04, 2.29},
    {below, 208.5, 146, 0.05, 3.96},
    {atLeast, 208.5, 208.5, 0.06, 7.09},
};
inline constexpr Band marriedClaimingSingleEveryTwoWeeks[] = {
    {below, 19.25, 0, 0.01},
    {below, 57.75, 19.25, 0.02, 0.19},
    {below, 96.25, 57.75, 0.03, 0.96},
    {below, 134.75, 96.25, 0.04, 2.12},
    {below, 192.5, 134.75, 0.05, 3.66},
    {atLeast, 192.5, 192.5, 0.06, 6.55},
};
inline constexpr Band marriedClaimingSingleMonthly[] = {
    {below, 41.75, 0, 0.01},
    {below, 125, 41.75, 0.02, 0.42},
    {below, 208.5, 125, 0.03, 2.08},
    {below, 291.75, 208.5, 0.04, 4.59},
    {below, 416.75, 291.75, 0.05, 7.92},
    {atLeast, 416.75, 416.75, 0.06, 14.17},
};
// clang-format on
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "Georgia, Married"};
inline constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                            "Georgia, Single"};
inline constexpr PerFrequency<Bands> marriedClaimingSingle{
    marriedClaimingSingleWeekly, marriedClaimingSingleTwiceAMonth, marriedClaimingSingleEveryTwoWeeks,
    marriedClaimingSingleMonthly, "Georgia, Married Claiming Single"};
}  // namespace georgia

/// Idaho.
namespace idaho {
// clang-format off
inline constexpr Band marriedWeekly[] = {
    {atMost, 77, 0, 0},
    {atMost, 115, 77, 0.02},
    {atMost, 154, 115, 0.04, 0.76},
    {atMost, 192, 154, 0.045, 2.32},
    {atMost, 231, 192, 0.055, 4.03},
    {atMost, 269, 231, 0.065, 6.12},
    {atMost, 365, 269, 0.075, 8.66},
    {atMost, 846, 365, 0.078, 15.86},
    {above, 846, 846, 0.082, 53.38},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {atMost, 167, 0, 0},
    {atMost, 250, 167, 0.02},
    {atMost, 333, 250, 0.04, 1.66},
    {atMost, 417, 333, 0.045, 5.02},
    {atMost, 500, 417, 0.055, 8.76},
    {atMost, 583, 500, 0.065, 13.33},
    {atMost, 792, 583, 0.075, 18.79},
    {atMost, 1833, 792, 0.078, 34.39},
    {above, 1833, 1833, 0.082, 115.67},
};
inline constexpr Band marriedEveryTwoWeeks[] = {
    {atMost, 154, 0, 0},
    {atMost, 231, 154, 0.02},
    {atMost, 308, 231, 0.04, 1.54},
    {atMost, 385, 308, 0.045, 4.62},
    {atMost, 462, 385, 0.055, 8.09},
    {atMost, 538, 462, 0.065, 12.33},
    {atMost, 731, 538, 0.075, 17.34},
    {atMost, 1692, 731, 0.078, 31.74},
    {above, 1692, 1692, 0.082, 106.78},
};
inline constexpr Band marriedMonthly[] = {
    {atMost, 333, 0, 0},
    {atMost, 500, 333, 0.02},
    {atMost, 667, 500, 0.04, 3.34},
    {atMost, 833, 667, 0.045, 9.98},
    {atMost, 1000, 833, 0.055, 17.5},
    {atMost, 1167, 1000, 0.065, 26.69},
    {atMost, 1583, 1167, 0.075, 37.48},
    {atMost, 3667, 1583, 0.078, 68.76},
    {above, 3667, 3667, 0.082, 231.23},
};
inline constexpr Band singleWeekly[] = {
    {atMost, 29, 0, 0},
    {atMost, 48, 29, 0.02},
    {atMost, 67, 48, 0.04, 0.38},
    {atMost, 87, 67, 0.045, 1.14},
    {atMost, 106, 87, 0.055, 2},
    {atMost, 125, 106, 0.065, 3.1},
    {atMost, 173, 125, 0.075, 4.34},
    {atMost, 413, 173, 0.078, 7.94},
    {above, 413, 413, 0.082, 26.66},
};
inline constexpr Band singleTwiceAMonth[] = {
    {atMost, 63, 0, 0},
    {atMost, 104, 63, 0.02},
    {atMost, 146, 104, 0.04, 0.84},
    {atMost, 188, 146, 0.045, 2.52},
    {atMost, 229, 188, 0.055, 4.37},
    {atMost, 271, 229, 0.065, 6.68},
    {atMost, 375, 271, 0.075, 9.41},
    {atMost, 896, 375, 0.078, 17.21},
    {above, 896, 896, 0.082, 57.83},
};
inline constexpr Band singleEveryTwoWeeks[] = {
    {atMost, 58, 0, 0},
    {atMost, 96, 58, 0.02},
    {atMost, 135, 96, 0.04, 0.78},
    {atMost, 173, 135, 0.045, 2.3},
    {atMost, 212, 173, 0.055, 4.06},
    {atMost, 250, 212, 0.065, 6.15},
    {atMost, 346, 250, 0.075, 8.69},
    {atMost, 827, 346, 0.078, 15.89},
    {above, 827, 827, 0.082, 53.41},
};
inline constexpr Band singleMonthly[] = {
    {atMost, 125, 0, 0},
    {atMost, 208, 125, 0.02},
    {atMost, 292, 208, 0.04, 1.66},
    {atMost, 375, 292, 0.045, 4.98},
    {atMost, 458, 375, 0.055, 8.76},
    {atMost, 542, 458, 0.065, 13.33},
    {atMost, 750, 542, 0.075, 18.73},
    {atMost, 1792, 750, 0.078, 34.41},
    {above, 1792, 1792, 0.082, 115.61},
};
// clang-format on
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "Idaho, Married"};
inline constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                            "Idaho, Single"};
}  // namespace idaho

}  // namespace TALLYFIN_FIGURES
