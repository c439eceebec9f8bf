#pragma once

#include "engine/figures.h"

/// The tables of sixandsevenbandstates.cpp, tax year 1999: dollars a pay period, by status and frequency.

namespace TALLYFIN_FIGURES {

using enum Test;

/// Rhode Island.
namespace rhodeisland {
// clang-format off
inline constexpr Band marriedWeekly[] = {
    {atMost, 124, 0, 0},
    {atMost, 913, 124, 0.04},
    {atMost, 1894, 913, 0.074, 31.38},
    {atMost, 3135, 1894, 0.082, 104.15},
    {atMost, 5531, 3135, 0.095, 206.05},
    {above, 5531, 5531, 0.105, 434.64},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {atMost, 269, 0, 0},
    {atMost, 1979, 269, 0.04},
    {atMost, 4104, 1979, 0.074, 67.99},
    {atMost, 6792, 4104, 0.082, 225.66},
    {atMost, 11983, 6792, 0.095, 446.44},
    {above, 11983, 11983, 0.105, 941.73},
};
// The bound is 6,269 where the federal table of the year has 6,296.
inline constexpr Band marriedEveryTwoWeeks[] = {
    {atMost, 248, 0, 0},
    {atMost, 1827, 248, 0.04},
    {atMost, 3788, 1827, 0.074, 62.76},
    {atMost, 6269, 3788, 0.082, 208.31},
    {atMost, 11062, 6269, 0.095, 412.1},
    {above, 11062, 11062, 0.105, 869.29},
};
inline constexpr Band marriedMonthly[] = {
    {atMost, 538, 0, 0},
    {atMost, 3958, 538, 0.04},
    {atMost, 8208, 3958, 0.074, 135.98},
    {atMost, 13583, 8208, 0.082, 451.33},
    {atMost, 23967, 13583, 0.095, 892.88},
    {above, 23967, 23967, 0.105, 1883.45},
};
inline constexpr Band singleWeekly[] = {
    {atMost, 51, 0, 0},
    {atMost, 525, 51, 0.04},
    {atMost, 1125, 525, 0.074, 18.84},
    {atMost, 2535, 1125, 0.082, 63.36},
    {atMost, 5475, 2535, 0.095, 179.16},
    {above, 5475, 5475, 0.105, 459.68},
};
inline constexpr Band singleTwiceAMonth[] = {
    {atMost, 110, 0, 0},
    {atMost, 1138, 110, 0.04},
    {atMost, 2438, 1138, 0.074, 40.83},
    {atMost, 5492, 2438, 0.082, 137.29},
    {atMost, 11863, 5492, 0.095, 388.19},
    {above, 11863, 11863, 0.105, 995.96},
};
inline constexpr Band singleEveryTwoWeeks[] = {
    {atMost, 102, 0, 0},
    {atMost, 1050, 102, 0.04},
    {atMost, 2250, 1050, 0.074, 37.69},
    {atMost, 5069, 2250, 0.082, 126.73},
    {atMost, 10950, 5069, 0.095, 358.33},
    {above, 10950, 10950, 0.105, 919.35},
};
inline constexpr Band singleMonthly[] = {
    {atMost, 221, 0, 0},
    {atMost, 2275, 221, 0.04},
    {atMost, 4875, 2275, 0.074, 81.65},
    {atMost, 10983, 4875, 0.082, 274.57},
    {atMost, 23725, 10983, 0.095, 776.37},
    {above, 23725, 23725, 0.105, 1991.93},
};
// clang-format on
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "Rhode Island, Married"};
inline constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                            "Rhode Island, Single"};
}  // namespace rhodeisland

/// Vermont. Two of the Single tables have rows that don't join.
namespace vermont {
// clang-format off
inline constexpr Band marriedWeekly[] = {
    {atMost, 124, 0, 0},
    {atMost, 899, 124, 0.0375},
    {atMost, 1855, 899, 0.07, 29.06},
    {atMost, 3084, 1855, 0.0775, 95.98},
    {atMost, 5439, 3084, 0.09, 191.23},
    {above, 5439, 5439, 0.099, 403.18},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {atMost, 269, 0, 0},
    {atMost, 1948, 269, 0.0375},
    {atMost, 4019, 1948, 0.07, 62.96},
    {atMost, 6681, 4019, 0.0775, 207.93},
    {atMost, 11785, 6681, 0.09, 414.24},
    {above, 11785, 11785, 0.099, 873.6},
};
inline constexpr Band marriedEveryTwoWeeks[] = {
    {atMost, 248, 0, 0},
    {atMost, 1798, 248, 0.0375},
    {atMost, 3710, 1798, 0.07, 58.13},
    {atMost, 6167, 3710, 0.0775, 191.97},
    {atMost, 10879, 6167, 0.09, 382.38},
    {above, 10879, 10879, 0.099, 806.46},
};
inline constexpr Band marriedMonthly[] = {
    {atMost, 538, 0, 0},
    {atMost, 3896, 538, 0.0375},
    {atMost, 8038, 3896, 0.07, 125.93},
    {atMost, 13363, 8038, 0.0775, 415.87},
    {atMost, 23571, 13363, 0.09, 828.55},
    {above, 23571, 23571, 0.099, 1747.27},
};
// The Lowers are the bounds of Married, Weekly: the second row is negative up to 124 and the tax jumps at each bound.
inline constexpr Band singleWeekly[] = {
    {atMost, 51, 0, 0},
    {atMost, 517, 124, 0.0375},
    {atMost, 1105, 899, 0.07, 17.41},
    {atMost, 2493, 1855, 0.0775, 58.64},
    {atMost, 5385, 3084, 0.09, 166.21},
    {above, 5385, 5439, 0.099, 426.49},
};
inline constexpr Band singleTwiceAMonth[] = {
    {atMost, 110, 0, 0},
    {atMost, 1121, 110, 0.0375},
    {atMost, 2394, 1121, 0.07, 37.91},
    {atMost, 5402, 2394, 0.0775, 127.02},
    {atMost, 11667, 5402, 0.09, 360.14},
    {above, 11667, 11667, 0.099, 923.99},
};
inline constexpr Band singleEveryTwoWeeks[] = {
    {atMost, 102, 0, 0},
    {atMost, 1035, 102, 0.0375},
    {atMost, 2210, 1035, 0.07, 34.99},
    {atMost, 4987, 2210, 0.0775, 117.24},
    {atMost, 10769, 4987, 0.09, 332.46},
    {above, 10769, 10769, 0.099, 852.84},
};
// Other rates than the other tables, and Pluses that don't follow from them. Required.
inline constexpr Band singleMonthly[] = {
    {atMost, 221, 0, 0},
    {atMost, 2242, 221, 0.02},
    {atMost, 4788, 2242, 0.04, 75.79},
    {atMost, 10804, 4788, 0.045, 254.01},
    {atMost, 23333, 10804, 0.055, 720.25},
    {above, 23333, 23333, 0.065, 1847.86},
};
// clang-format on
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "Vermont, Married"};
inline constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                            "Vermont, Single"};
}  // namespace vermont

/// Utah. Some rows have no Plus, so the tax jumps at their bounds.
namespace utah {
// clang-format off
inline constexpr Band marriedWeekly[] = {
    {below, 29, 0, 0},
    {below, 58, 29, 0.023},
    {below, 87, 58, 0.031, 1},
    {below, 115, 87, 0.039, 2},
    {below, 144, 115, 0.048, 3},
    {below, 173, 144, 0.056, 4},
    {atLeast, 173, 173, 0.065, 6},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {below, 63, 0, 0},
    {below, 125, 63, 0.023},
    {below, 188, 125, 0.031, 1},
    {below, 250, 188, 0.039, 3},
    {below, 313, 250, 0.048, 6},
    {below, 375, 313, 0.056, 9},
    {atLeast, 375, 375, 0.065, 12},
};
inline constexpr Band marriedEveryTwoWeeks[] = {
    {below, 58, 0, 0},
    {below, 115, 58, 0.023},
    {below, 173, 115, 0.031, 1},
    {below, 231, 173, 0.039, 3},
    {below, 288, 231, 0.048, 5},
    {below, 346, 288, 0.056, 8},
    {atLeast, 346, 346, 0.065, 11},
};
inline constexpr Band marriedMonthly[] = {
    {below, 125, 0, 0},
    {below, 250, 125, 0.023},
    {below, 375, 250, 0.031, 3},
    {below, 500, 375, 0.039, 7},
    {below, 625, 500, 0.048, 12},
    {below, 750, 625, 0.056, 18},
    {atLeast, 750, 750, 0.065, 25},
};
inline constexpr Band singleWeekly[] = {
    {below, 29, 0, 0},
    {below, 43, 29, 0.023},
    {below, 58, 43, 0.031},
    {below, 72, 58, 0.039, 1},
    {below, 87, 72, 0.048, 1},
    {below, 101, 87, 0.056, 2},
    {atLeast, 101, 101, 0.065, 3},
};
inline constexpr Band singleTwiceAMonth[] = {
    {below, 63, 0, 0},
    {below, 94, 63, 0.023},
    {below, 125, 94, 0.031, 1},
    {below, 156, 125, 0.039, 2},
    {below, 188, 156, 0.048, 3},
    {below, 219, 188, 0.056, 4},
    {atLeast, 219, 219, 0.065, 6},
};
inline constexpr Band singleEveryTwoWeeks[] = {
    {below, 58, 0, 0},
    {below, 87, 58, 0.023},
    {below, 115, 87, 0.031, 1},
    {below, 144, 115, 0.039, 2},
    {below, 173, 144, 0.048, 3},
    {below, 202, 173, 0.056, 4},
    {atLeast, 202, 202, 0.065, 6},
};
inline constexpr Band singleMonthly[] = {
    {below, 125, 0, 0},
    {below, 188, 125, 0.023},
    {below, 250, 188, 0.031, 1},
    {below, 313, 250, 0.039, 3},
    {below, 375, 313, 0.048, 6},
    {below, 438, 375, 0.056, 9},
    {atLeast, 438, 438, 0.065, 12},
};
// clang-format on
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "Utah, Married"};
inline constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                            "Utah, Single"};
}  // namespace utah

}  // namespace TALLYFIN_FIGURES
