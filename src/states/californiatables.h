#pragma once

#include "states/statebase.h"

/// California, tax year 1999: dollars a pay period, by schedule group and frequency.

namespace TALLYFIN_FIGURES::california {

using enum Test;

// clang-format off
inline constexpr Band groupAWeekly[] = {
    {atMost, 99, 0, 0.01},
    {atMost, 234, 99, 0.02, 0.99},
    {atMost, 369, 234, 0.04, 3.69},
    {atMost, 512, 369, 0.06, 9.09},
    {atMost, 648, 512, 0.08, 17.67},
    {above, 648, 648, 0.093, 28.55},
};
inline constexpr Band groupATwiceAMonth[] = {
    {atMost, 214, 0, 0.01},
    {atMost, 507, 214, 0.02, 2.14},
    {atMost, 800, 507, 0.04, 8},
    {atMost, 1110, 800, 0.06, 19.72},
    {atMost, 1403, 1110, 0.08, 38.35},
    {above, 1403, 1403, 0.093, 61.78},
};
inline constexpr Band groupAEveryTwoWeeks[] = {
    {atMost, 198, 0, 0.01},
    {atMost, 468, 198, 0.02, 1.98},
    {atMost, 738, 468, 0.04, 7.38},
    {atMost, 1024, 738, 0.06, 18.18},
    {atMost, 1296, 1024, 0.08, 35.34},
    {above, 1296, 1296, 0.093, 57.1},
};
inline constexpr Band groupAMonthly[] = {
    {atMost, 428, 0, 0.01},
    {atMost, 1013, 428, 0.02, 4.28},
    {atMost, 1599, 1013, 0.04, 15.98},
    {atMost, 2220, 1599, 0.06, 39.42},
    {atMost, 2806, 2220, 0.08, 76.68},
    {above, 2806, 2806, 0.093, 123.56},
};
inline constexpr Band groupBWeekly[] = {
    {atMost, 198, 0, 0.01},
    {atMost, 468, 198, 0.02, 1.98},
    {atMost, 738, 468, 0.04, 7.38},
    {atMost, 1024, 738, 0.06, 18.18},
    {atMost, 1296, 1024, 0.08, 35.34},
    {above, 1296, 1296, 0.093, 57.1},
};
inline constexpr Band groupBTwiceAMonth[] = {
    {atMost, 428, 0, 0.01},
    {atMost, 1013, 428, 0.02, 4.28},
    {atMost, 1599, 1013, 0.04, 16},
    {atMost, 2220, 1599, 0.06, 39.44},
    {atMost, 2806, 2220, 0.08, 76.7},
    {above, 2806, 2806, 0.093, 123.56},
};
inline constexpr Band groupBEveryTwoWeeks[] = {
    {atMost, 396, 0, 0.01},
    {atMost, 936, 396, 0.02, 3.96},
    {atMost, 1476, 936, 0.04, 14.76},
    {atMost, 2048, 1476, 0.06, 36.36},
    {atMost, 2592, 2048, 0.08, 70.68},
    {above, 2592, 2592, 0.093, 114.2},
};
inline constexpr Band groupBMonthly[] = {
    {atMost, 856, 0, 0.01},
    {atMost, 2026, 856, 0.02, 8.56},
    {atMost, 3198, 2026, 0.04, 31.96},
    {atMost, 4440, 3198, 0.06, 78.84},
    {atMost, 5612, 4440, 0.08, 153.36},
    {above, 5612, 5612, 0.093, 247.12},
};
inline constexpr Band groupCWeekly[] = {
    {atMost, 197, 0, 0.01},
    {atMost, 468, 197, 0.02, 1.97},
    {atMost, 603, 468, 0.04, 7.38},
    {atMost, 746, 603, 0.06, 12.79},
    {atMost, 881, 746, 0.08, 21.39},
    {above, 881, 881, 0.093, 32.2},
};
inline constexpr Band groupCTwiceAMonth[] = {
    {atMost, 428, 0, 0.01},
    {atMost, 1013, 428, 0.02, 4.18},
    {atMost, 1306, 1013, 0.04, 15.63},
    {atMost, 1617, 1306, 0.06, 27.09},
    {atMost, 1910, 1617, 0.08, 45.29},
    {above, 1910, 1910, 0.093, 68.2},
};
inline constexpr Band groupCEveryTwoWeeks[] = {
    {atMost, 395, 0, 0.01},
    {atMost, 936, 395, 0.02, 3.95},
    {atMost, 1206, 936, 0.04, 14.76},
    {atMost, 1492, 1206, 0.06, 25.58},
    {atMost, 1763, 1492, 0.08, 42.77},
    {above, 1763, 1763, 0.093, 64.4},
};
inline constexpr Band groupCMonthly[] = {
    {atMost, 855, 0, 0.01},
    {atMost, 2027, 855, 0.02, 8.55},
    {atMost, 2613, 2027, 0.04, 31.99},
    {atMost, 3234, 2613, 0.06, 55.42},
    {atMost, 3819, 3234, 0.08, 92.67},
    {above, 3819, 3819, 0.093, 139.54},
};
// clang-format on
inline constexpr PerFrequency<Bands> groupA{groupAWeekly, groupATwiceAMonth, groupAEveryTwoWeeks, groupAMonthly,
                                            "California, Single or Married with an employed spouse"};
inline constexpr PerFrequency<Bands> groupB{groupBWeekly, groupBTwiceAMonth, groupBEveryTwoWeeks, groupBMonthly,
                                            "California, Married"};
inline constexpr PerFrequency<Bands> groupC{groupCWeekly, groupCTwiceAMonth, groupCEveryTwoWeeks, groupCMonthly,
                                            "California, Head of Family"};

// clang-format off
/// Estimated deduction for `staExmp` 0 to 10.
inline constexpr const char* estimated = "estimated deduction";
inline constexpr PerFrequency<Dollars> estimatedDeduction[] = {
    {0, 0, 0, 0, estimated},
    {19, 42, 38, 83, estimated},
    {38, 83, 77, 167, estimated},
    {58, 125, 115, 250, estimated},
    {77, 167, 154, 333, estimated},
    {96, 208, 192, 417, estimated},
    {115, 250, 231, 500, estimated},
    {135, 292, 269, 583, estimated},
    {154, 333, 308, 667, estimated},
    {173, 375, 346, 750, estimated},
    {192, 417, 385, 833, estimated},
};
/// Multiplier of a `staExmp` above 10.
inline constexpr PerFrequency<PerHead> estimatedDeductionAboveTen{int16(19), int16(42), int16(38), int16(83), estimated};

/// Exemption credit for `staDeps` 0 to 10.
inline constexpr const char* credit = "exemption credit";
inline constexpr PerFrequency<Dollars> exemptionCredit[] = {
    {0, 0, 0, 0, credit},
    {1.35, 2.92, 2.69, 5.83, credit},
    {2.69, 5.83, 5.38, 11.67, credit},
    {4.04, 8.75, 8.08, 17.5, credit},
    {5.38, 11.67, 10.77, 23.33, credit},
    {6.73, 14.58, 13.46, 29.17, credit},
    {8.08, 17.5, 16.15, 35, credit},
    {9.42, 20.42, 18.85, 40.83, credit},
    {10.77, 23.33, 21.54, 46.67, credit},
    {12.12, 26.25, 24.23, 52.5, credit},
    {13.46, 29.17, 26.92, 58.33, credit},
};
// clang-format on

/// A schedule group: the limit of the low-income test, the standard deduction, the tables.
struct Group {
  PerFrequency<Dollars> lowIncome;
  PerFrequency<Dollars> deduction;
  PerFrequency<Bands> bands;
};

inline constexpr const char* lowIncome = "low-income amount";
inline constexpr const char* deduction = "standard deduction";
/// Single, or married with an employed spouse.
inline constexpr Group groupASchedule{{158, 341, 315, 683, lowIncome}, {51, 110, 102, 220, deduction}, groupA};
/// Married, with one exemption at most and with two or more.
inline constexpr Group groupBUpToOneSchedule{{158, 341, 315, 683, lowIncome}, {51, 110, 102, 220, deduction}, groupB};
inline constexpr Group groupBFromTwoSchedule{{315, 683, 630, 1365, lowIncome}, {102, 220, 203, 440, deduction}, groupB};
/// Head of family.
inline constexpr Group groupCSchedule{{315, 670, 618, 1340, lowIncome}, {102, 220, 203, 440, deduction}, groupC};

}  // namespace TALLYFIN_FIGURES::california
