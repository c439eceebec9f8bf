#pragma once

#include "engine/figures.h"

/// The tables of periodbandstates.cpp, tax year 1999: dollars a pay period, by status and frequency.

namespace TALLYFIN_FIGURES {

using enum Test;

/// District of Columbia.
namespace districtofcolumbia {
// clang-format off
inline constexpr Band singleOrMarriedWeekly[] = {
    {atMost, 38.46, 0, 0},
    {atMost, 192.31, 38.46, 0.06},
    {atMost, 384.62, 192.31, 0.08, 9.23},
    {above, 384.62, 384.62, 0.095, 24.61},
};
inline constexpr Band singleOrMarriedTwiceAMonth[] = {
    {atMost, 83.33, 0, 0},
    {atMost, 416.67, 83.33, 0.06},
    {atMost, 833.33, 416.67, 0.08, 20},
    {above, 833.33, 833.33, 0.095, 53.33},
};
inline constexpr Band singleOrMarriedEveryTwoWeeks[] = {
    {atMost, 76.92, 0, 0},
    {atMost, 384.62, 76.92, 0.06},
    {atMost, 769.23, 384.62, 0.08, 18.46},
    {above, 769.23, 769.23, 0.095, 49.23},
};
// The lowest bound is 166.66, not 166.67.
inline constexpr Band singleOrMarriedMonthly[] = {
    {atMost, 166.66, 0, 0},
    {atMost, 833.33, 166.66, 0.06},
    {atMost, 1666.67, 833.33, 0.08, 40},
    {above, 1666.67, 1666.67, 0.095, 106.67},
};
inline constexpr Band separatelyWeekly[] = {
    {atMost, 19.23, 0, 0},
    {atMost, 192.31, 19.23, 0.06},
    {atMost, 384.62, 192.31, 0.08, 10.38},
    {above, 384.62, 384.62, 0.095, 25.76},
};
// The lowest bound is 41.66, not 41.67.
inline constexpr Band separatelyTwiceAMonth[] = {
    {atMost, 41.66, 0, 0},
    {atMost, 416.67, 41.66, 0.06},
    {atMost, 833.33, 416.67, 0.08, 22.5},
    {above, 833.33, 833.33, 0.095, 55.83},
};
inline constexpr Band separatelyEveryTwoWeeks[] = {
    {atMost, 38.46, 0, 0},
    {atMost, 384.62, 38.46, 0.06},
    {atMost, 769.23, 384.62, 0.08, 20.77},
    {above, 769.23, 769.23, 0.095, 51.54},
};
inline constexpr Band separatelyMonthly[] = {
    {atMost, 83.33, 0, 0},
    {atMost, 833.33, 83.33, 0.06},
    {atMost, 1666.67, 833.33, 0.08, 45},
    {above, 1666.67, 1666.67, 0.095, 111.67},
};
// clang-format on
inline constexpr PerFrequency<Bands> singleOrMarried{singleOrMarriedWeekly, singleOrMarriedTwiceAMonth,
                                                     singleOrMarriedEveryTwoWeeks, singleOrMarriedMonthly,
                                                     "District of Columbia, Single or Married"};
inline constexpr PerFrequency<Bands> separately{separatelyWeekly, separatelyTwiceAMonth, separatelyEveryTwoWeeks,
                                                separatelyMonthly, "District of Columbia, Married Filing Separately"};
}  // namespace districtofcolumbia

/// Hawaii.
namespace hawaii {
// clang-format off
// The last Plus is far below the row before: the tax falls by some 13 dollars at 308. Required.
inline constexpr Band singleOrHeadWeekly[] = {
    {atMost, 38, 0, 0.016},
    {atMost, 77, 38, 0.039, 0.61},
    {atMost, 154, 77, 0.068, 2.13},
    {atMost, 231, 154, 0.072, 7.37},
    {atMost, 308, 231, 0.075, 12.91},
    {above, 308, 308, 0.078, 5.31},
};
inline constexpr Band singleOrHeadTwiceAMonth[] = {
    {atMost, 83, 0, 0.016},
    {atMost, 167, 83, 0.039, 1.33},
    {atMost, 333, 167, 0.068, 4.61},
    {atMost, 500, 333, 0.072, 15.9},
    {atMost, 667, 500, 0.075, 27.92},
    {above, 667, 667, 0.078, 40.45},
};
inline constexpr Band singleOrHeadEveryTwoWeeks[] = {
    {atMost, 77, 0, 0.016},
    {atMost, 154, 77, 0.039, 1.23},
    {atMost, 308, 154, 0.068, 4.23},
    {atMost, 462, 308, 0.072, 14.7},
    {atMost, 615, 462, 0.075, 25.79},
    {above, 615, 615, 0.078, 37.27},
};
inline constexpr Band singleOrHeadMonthly[] = {
    {atMost, 167, 0, 0.016},
    {atMost, 333, 167, 0.039, 2.67},
    {atMost, 667, 333, 0.068, 9.14},
    {atMost, 1000, 667, 0.072, 31.85},
    {atMost, 1333, 1000, 0.075, 55.83},
    {above, 1333, 1333, 0.078, 80.81},
};
inline constexpr Band marriedWeekly[] = {
    {atMost, 77, 0, 0.016},
    {atMost, 154, 77, 0.039, 1.23},
    {atMost, 308, 154, 0.068, 4.23},
    {atMost, 462, 308, 0.072, 14.7},
    {atMost, 615, 462, 0.075, 25.79},
    {above, 615, 615, 0.078, 37.27},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {atMost, 167, 0, 0.016},
    {atMost, 333, 167, 0.039, 2.67},
    {atMost, 667, 333, 0.068, 9.14},
    {atMost, 1000, 667, 0.072, 31.85},
    {atMost, 1333, 1000, 0.075, 55.83},
    {above, 1333, 1333, 0.078, 80.81},
};
inline constexpr Band marriedEveryTwoWeeks[] = {
    {atMost, 154, 0, 0.016},
    {atMost, 308, 154, 0.039, 2.46},
    {atMost, 615, 308, 0.068, 8.47},
    {atMost, 923, 615, 0.072, 29.35},
    {atMost, 1231, 923, 0.075, 51.53},
    {above, 1231, 1231, 0.078, 74.63},
};
inline constexpr Band marriedMonthly[] = {
    {atMost, 333, 0, 0.016},
    {atMost, 667, 333, 0.039, 5.33},
    {atMost, 1333, 667, 0.068, 18.36},
    {atMost, 2000, 1333, 0.072, 63.65},
    {atMost, 2667, 2000, 0.075, 111.67},
    {above, 2667, 2667, 0.078, 161.7},
};
// clang-format on
inline constexpr PerFrequency<Bands> singleOrHead{singleOrHeadWeekly, singleOrHeadTwiceAMonth,
                                                  singleOrHeadEveryTwoWeeks, singleOrHeadMonthly,
                                                  "Hawaii, Single or Head of Family"};
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "Hawaii, Married"};
}  // namespace hawaii

/// Kansas.
namespace kansas {
// clang-format off
inline constexpr Band marriedWeekly[] = {
    {atMost, 96, 0, 0},
    {atMost, 673, 96, 0.035},
    {atMost, 1250, 673, 0.0625, 20.19},
    {above, 1250, 1250, 0.0645, 56.25},
};
inline constexpr Band marriedTwiceAMonth[] = {
    {atMost, 208, 0, 0},
    {atMost, 1458, 208, 0.035},
    {atMost, 2708, 1458, 0.0625, 43.75},
    {above, 2708, 2708, 0.0645, 121.88},
};
inline constexpr Band marriedEveryTwoWeeks[] = {
    {atMost, 192, 0, 0},
    {atMost, 1346, 192, 0.035},
    {atMost, 2500, 1346, 0.0625, 40.38},
    {above, 2500, 2500, 0.0645, 112.5},
};
inline constexpr Band marriedMonthly[] = {
    {atMost, 417, 0, 0},
    {atMost, 2917, 417, 0.035},
    {atMost, 5417, 2917, 0.0625, 87.5},
    {above, 5417, 5417, 0.0645, 243.75},
};
// Single: the top rate is below the one before it. Required.
inline constexpr Band singleWeekly[] = {
    {atMost, 58, 0, 0},
    {atMost, 346, 58, 0.035},
    {atMost, 635, 346, 0.0575, 10.1},
    {above, 635, 635, 0.0515, 26.88},
};
inline constexpr Band singleTwiceAMonth[] = {
    {atMost, 125, 0, 0},
    {atMost, 750, 125, 0.035},
    {atMost, 1375, 750, 0.0575, 21.88},
    {above, 1375, 1375, 0.0515, 57.81},
};
inline constexpr Band singleEveryTwoWeeks[] = {
    {atMost, 115, 0, 0},
    {atMost, 692, 115, 0.035},
    {atMost, 1269, 692, 0.0575, 20.19},
    {above, 1269, 1269, 0.0515, 53.37},
};
inline constexpr Band singleMonthly[] = {
    {atMost, 250, 0, 0},
    {atMost, 1500, 250, 0.035},
    {atMost, 2750, 1500, 0.0575, 43.75},
    {above, 2750, 2750, 0.0515, 115.63},
};
// clang-format on
inline constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                             "Kansas, Married"};
inline constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                            "Kansas, Single"};
}  // namespace kansas

}  // namespace TALLYFIN_FIGURES
