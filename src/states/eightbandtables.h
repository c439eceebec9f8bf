#pragma once

#include "engine/figures.h"

/// The tables of eightbandstates.cpp, tax year 1999: dollars a pay period, by status and frequency.

namespace TALLYFIN_FIGURES {

using enum Test;

/// Nebraska.
namespace nebraska {
// clang-format off
inline constexpr Band marriedWeekly[] = {
    {atMost, 101, 0, 0},
    {atMost, 159, 101, 0.0249},
    {atMost, 431, 159, 0.0347, 1.44},
    {atMost, 681, 431, 0.0532, 10.88},
    {atMost, 826, 681, 0.0657, 24.18},
    {atMost, 1120, 826, 0.0698, 33.71},
    {atMost, 1447, 1120, 0.0722, 54.23},
    {above, 1447, 1447, 0.0736, 77.84},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {atMost, 219, 0, 0},
    {atMost, 344, 219, 0.0249},
    {atMost, 933, 344, 0.0347, 3.11},
    {atMost, 1475, 933, 0.0532, 23.55},
    {atMost, 1790, 1475, 0.0657, 52.38},
    {atMost, 2427, 1790, 0.0698, 73.08},
    {atMost, 3135, 2427, 0.0722, 117.54},
    {above, 3135, 3135, 0.0736, 168.66},
};
inline constexpr Band marriedEveryTwoWeeks[] = {
    {atMost, 202, 0, 0},
    {atMost, 317, 202, 0.0249},
    {atMost, 862, 317, 0.0347, 2.86},
    {atMost, 1362, 862, 0.0532, 21.77},
    {atMost, 1652, 1362, 0.0657, 48.37},
    {atMost, 2240, 1652, 0.0698, 67.42},
    {atMost, 2894, 2240, 0.0722, 108.46},
    {above, 2894, 2894, 0.0736, 155.68},
};
inline constexpr Band marriedMonthly[] = {
    {atMost, 438, 0, 0},
    {atMost, 688, 438, 0.0249},
    {atMost, 1867, 688, 0.0347, 6.23},
    {atMost, 2950, 1867, 0.0532, 47.14},
    {atMost, 3579, 2950, 0.0657, 104.76},
    {atMost, 4854, 3579, 0.0698, 146.09},
    {atMost, 6271, 4854, 0.0722, 235.09},
    {above, 6271, 6271, 0.0736, 337.4},
};
inline constexpr Band singleWeekly[] = {
    {atMost, 42, 0, 0},
    {atMost, 85, 42, 0.0249},
    {atMost, 298, 85, 0.0347, 1.07},
    {atMost, 438, 298, 0.0532, 8.46},
    {atMost, 540, 438, 0.0657, 15.91},
    {atMost, 1040, 540, 0.0698, 22.61},
    {atMost, 1444, 1040, 0.0722, 57.51},
    {above, 1444, 1444, 0.0736, 86.68},
};
inline constexpr Band singleTwiceAMonth[] = {
    {atMost, 92, 0, 0},
    {atMost, 183, 92, 0.0249},
    {atMost, 646, 183, 0.0347, 2.27},
    {atMost, 948, 646, 0.0532, 18.34},
    {atMost, 1171, 948, 0.0657, 34.41},
    {atMost, 2254, 1171, 0.0698, 49.06},
    {atMost, 3129, 2254, 0.0722, 124.65},
    {above, 3129, 3129, 0.0736, 187.83},
};
inline constexpr Band singleEveryTwoWeeks[] = {
    {atMost, 85, 0, 0},
    {atMost, 169, 85, 0.0249},
    {atMost, 596, 169, 0.0347, 2.09},
    {atMost, 875, 596, 0.0532, 16.91},
    {atMost, 1081, 875, 0.0657, 31.75},
    {atMost, 2081, 1081, 0.0698, 45.28},
    {atMost, 2888, 2081, 0.0722, 115.08},
    {above, 2888, 2888, 0.0736, 173.35},
};
inline constexpr Band singleMonthly[] = {
    {atMost, 183, 0, 0},
    {atMost, 367, 183, 0.0249},
    {atMost, 1292, 367, 0.0347, 4.58},
    {atMost, 1896, 1292, 0.0532, 36.68},
    {atMost, 2342, 1896, 0.0657, 68.81},
    {atMost, 4508, 2342, 0.0698, 98.11},
    {atMost, 6258, 4508, 0.0722, 249.3},
    {above, 6258, 6258, 0.0736, 375.65},
};
// clang-format on
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "Nebraska, Married"};
inline constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                            "Nebraska, Single"};
}  // namespace nebraska

/// New Mexico.
namespace newmexico {
// clang-format off
inline constexpr Band marriedWeekly[] = {
    {atMost, 85, 0, 0},
    {atMost, 238, 85, 0.017},
    {atMost, 392, 238, 0.032, 2.62},
    {atMost, 546, 392, 0.047, 7.54},
    {atMost, 854, 546, 0.06, 14.77},
    {atMost, 1315, 854, 0.071, 33.23},
    {atMost, 2008, 1315, 0.079, 66},
    {above, 2008, 2008, 0.082, 120.69},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {atMost, 183, 0, 0},
    {atMost, 517, 183, 0.017},
    {atMost, 850, 517, 0.032, 5.67},
    {atMost, 1183, 850, 0.047, 16.33},
    {atMost, 1850, 1183, 0.06, 32},
    {atMost, 2850, 1850, 0.071, 72},
    {atMost, 4350, 2850, 0.079, 143},
    {above, 4350, 4350, 0.082, 261.5},
};
inline constexpr Band marriedEveryTwoWeeks[] = {
    {atMost, 169, 0, 0},
    {atMost, 477, 169, 0.017},
    {atMost, 785, 477, 0.032, 5.23},
    {atMost, 1092, 785, 0.047, 15.08},
    {atMost, 1708, 1092, 0.06, 29.54},
    {atMost, 2631, 1708, 0.071, 66.46},
    {atMost, 4015, 2631, 0.079, 132},
    {above, 4015, 4015, 0.082, 241.38},
};
inline constexpr Band marriedMonthly[] = {
    {atMost, 367, 0, 0},
    {atMost, 1033, 367, 0.017},
    {atMost, 1700, 1033, 0.032, 11.33},
    {atMost, 2367, 1700, 0.047, 32.67},
    {atMost, 3700, 2367, 0.06, 64},
    {atMost, 5700, 3700, 0.071, 144},
    {atMost, 8700, 5700, 0.079, 286},
    {above, 8700, 8700, 0.082, 523},
};
inline constexpr Band singleWeekly[] = {
    {atMost, 30, 0, 0},
    {atMost, 136, 30, 0.017},
    {atMost, 241, 136, 0.032, 1.8},
    {atMost, 338, 241, 0.047, 5.18},
    {atMost, 530, 338, 0.06, 9.7},
    {atMost, 838, 530, 0.071, 21.24},
    {atMost, 1280, 838, 0.079, 43.09},
    {above, 1280, 1280, 0.082, 78.03},
};
inline constexpr Band singleTwiceAMonth[] = {
    {atMost, 65, 0, 0},
    {atMost, 294, 65, 0.017},
    {atMost, 523, 294, 0.032, 3.9},
    {atMost, 731, 523, 0.047, 11.23},
    {atMost, 1148, 731, 0.06, 21.02},
    {atMost, 1815, 1148, 0.071, 46.02},
    {atMost, 2773, 1815, 0.079, 93.35},
    {above, 2773, 2773, 0.082, 169.06},
};
inline constexpr Band singleEveryTwoWeeks[] = {
    {atMost, 60, 0, 0},
    {atMost, 271, 60, 0.017},
    {atMost, 483, 271, 0.032, 3.6},
    {atMost, 675, 483, 0.047, 10.37},
    {atMost, 1060, 675, 0.06, 19.4},
    {atMost, 1675, 1060, 0.071, 42.48},
    {atMost, 2560, 1675, 0.079, 86.17},
    {above, 2560, 2560, 0.082, 156.06},
};
// The top rate is 0.085; the seven other tables have 0.082.
inline constexpr Band singleMonthly[] = {
    {atMost, 129, 0, 0},
    {atMost, 588, 129, 0.017},
    {atMost, 1046, 588, 0.032, 7.79},
    {atMost, 1462, 1046, 0.047, 22.46},
    {atMost, 2296, 1462, 0.06, 42.04},
    {atMost, 3629, 2296, 0.071, 92.04},
    {atMost, 5546, 3629, 0.079, 186.71},
    {above, 5546, 5546, 0.085, 338.13},
};
// clang-format on
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "New Mexico, Married"};
inline constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                            "New Mexico, Single"};
}  // namespace newmexico

}  // namespace TALLYFIN_FIGURES
