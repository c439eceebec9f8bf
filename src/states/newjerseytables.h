#pragma once

#include "engine/figures.h"

/// New Jersey, tax year 1999: dollars a pay period, by rate letter and frequency. Only Rate A is used.

namespace TALLYFIN_FIGURES::newjersey {

using enum Test;

// clang-format off
inline constexpr Band rateAWeekly[] = {
    {atMost, 384, 0, 0.015},
    {atMost, 673, 384, 0.02, 5.76},
    {atMost, 769, 673, 0.039, 11.54},
    {atMost, 1442, 769, 0.061, 15.28},
    {above, 1442, 1442, 0.07, 56.34},
};
inline constexpr Band rateATwiceAMonth[] = {
    {atMost, 833, 0, 0.015},
    {atMost, 1458, 833, 0.02, 12.5},
    {atMost, 1666, 1458, 0.039, 25},
    {atMost, 3125, 1666, 0.061, 33.11},
    {above, 3125, 3125, 0.07, 122.11},
};
inline constexpr Band rateAEveryTwoWeeks[] = {
    {atMost, 769, 0, 0.015},
    {atMost, 1346, 769, 0.02, 11.54},
    {atMost, 1538, 1346, 0.039, 23.08},
    {atMost, 2884, 1538, 0.061, 30.56},
    {above, 2884, 2884, 0.07, 112.67},
};
inline constexpr Band rateAMonthly[] = {
    {atMost, 1666, 0, 0.015},
    {atMost, 2916, 1666, 0.02, 24.99},
    {atMost, 3333, 2916, 0.039, 49.99},
    {atMost, 6250, 3333, 0.061, 66.25},
    {above, 6250, 6250, 0.07, 244.19},
};
inline constexpr Band rateBWeekly[] = {
    {atMost, 384, 0, 0.015},
    {atMost, 961, 384, 0.02, 5.76},
    {atMost, 1346, 961, 0.027, 17.3},
    {atMost, 1538, 1346, 0.039, 27.7},
    {atMost, 2884, 1538, 0.061, 35.18},
    {above, 2884, 2884, 0.07, 117.29},
};
inline constexpr Band rateBTwiceAMonth[] = {
    {atMost, 833, 0, 0.015},
    {atMost, 2083, 833, 0.02, 12.5},
    {atMost, 2916, 2083, 0.027, 37.5},
    {atMost, 3333, 2916, 0.039, 59.99},
    {atMost, 6250, 3333, 0.061, 76.25},
    {above, 6250, 6250, 0.07, 254.19},
};
inline constexpr Band rateBEveryTwoWeeks[] = {
    {atMost, 769, 0, 0.015},
    {atMost, 1923, 769, 0.02, 11.54},
    {atMost, 2692, 1923, 0.027, 34.62},
    {atMost, 3076, 2692, 0.039, 55.38},
    {atMost, 5769, 3076, 0.061, 70.35},
    {above, 5769, 5769, 0.07, 234.63},
};
inline constexpr Band rateBMonthly[] = {
    {atMost, 1666, 0, 0.015},
    {atMost, 4166, 1666, 0.02, 24.99},
    {atMost, 5833, 4166, 0.027, 74.99},
    {atMost, 6666, 5833, 0.039, 120},
    {atMost, 12500, 6666, 0.061, 152.49},
    {above, 12500, 12500, 0.07, 508.36},
};
inline constexpr Band rateCWeekly[] = {
    {atMost, 384, 0, 0.015},
    {atMost, 769, 384, 0.023, 5.76},
    {atMost, 961, 769, 0.028, 14.62},
    {atMost, 1153, 961, 0.035, 19.99},
    {atMost, 2884, 1153, 0.056, 26.71},
    {above, 2884, 2884, 0.066, 123.65},
};
inline constexpr Band rateCTwiceAMonth[] = {
    {atMost, 833, 0, 0.015},
    {atMost, 1666, 833, 0.023, 12.5},
    {atMost, 2083, 1666, 0.028, 31.65},
    {atMost, 2500, 2083, 0.035, 43.33},
    {atMost, 6250, 2500, 0.056, 57.93},
    {above, 6250, 6250, 0.066, 267.93},
};
inline constexpr Band rateCEveryTwoWeeks[] = {
    {atMost, 769, 0, 0.015},
    {atMost, 1538, 769, 0.023, 11.54},
    {atMost, 1923, 1538, 0.028, 29.22},
    {atMost, 2307, 1923, 0.035, 40},
    {atMost, 5769, 2307, 0.056, 53.44},
    {above, 5769, 5769, 0.066, 247.31},
};
inline constexpr Band rateCMonthly[] = {
    {atMost, 1666, 0, 0.015},
    {atMost, 3333, 1666, 0.023, 24.99},
    {atMost, 4166, 3333, 0.028, 63.33},
    {atMost, 5000, 4166, 0.035, 86.66},
    {atMost, 12500, 5000, 0.056, 115.85},
    {above, 12500, 12500, 0.066, 535.85},
};
inline constexpr Band rateDWeekly[] = {
    {atMost, 384, 0, 0.015},
    {atMost, 769, 384, 0.027, 5.76},
    {atMost, 961, 769, 0.034, 16.16},
    {atMost, 1153, 961, 0.043, 22.68},
    {atMost, 2884, 1153, 0.056, 30.94},
    {above, 2884, 2884, 0.065, 127.88},
};
inline constexpr Band rateDTwiceAMonth[] = {
    {atMost, 833, 0, 0.015},
    {atMost, 1666, 833, 0.027, 12.5},
    {atMost, 2083, 1666, 0.034, 34.99},
    {atMost, 2500, 2083, 0.043, 49.16},
    {atMost, 6250, 2500, 0.056, 67.1},
    {above, 6250, 6250, 0.065, 277.1},
};
inline constexpr Band rateDEveryTwoWeeks[] = {
    {atMost, 769, 0, 0.015},
    {atMost, 1538, 769, 0.027, 11.54},
    {atMost, 1923, 1538, 0.034, 32.3},
    {atMost, 2307, 1923, 0.043, 45.39},
    {atMost, 5769, 2307, 0.056, 61.9},
    {above, 5769, 5769, 0.065, 255.77},
};
inline constexpr Band rateDMonthly[] = {
    {atMost, 1666, 0, 0.015},
    {atMost, 3333, 1666, 0.027, 24.99},
    {atMost, 4166, 3333, 0.034, 70},
    {atMost, 5000, 4166, 0.043, 98.32},
    {atMost, 12500, 5000, 0.056, 134.18},
    {above, 12500, 12500, 0.065, 554.18},
};
inline constexpr Band rateEWeekly[] = {
    {atMost, 384, 0, 0.015},
    {atMost, 673, 384, 0.02, 5.76},
    {atMost, 1923, 673, 0.058, 11.54},
    {above, 1923, 1923, 0.065, 84.04},
};
inline constexpr Band rateETwiceAMonth[] = {
    {atMost, 833, 0, 0.015},
    {atMost, 1458, 833, 0.02, 12.5},
    {atMost, 4166, 1458, 0.058, 25},
    {above, 4166, 4166, 0.065, 182.06},
};
inline constexpr Band rateEEveryTwoWeeks[] = {
    {atMost, 769, 0, 0.015},
    {atMost, 1346, 769, 0.02, 11.54},
    {atMost, 3846, 1346, 0.058, 23.08},
    {above, 3846, 3846, 0.065, 168.08},
};
inline constexpr Band rateEMonthly[] = {
    {atMost, 1666, 0, 0.015},
    {atMost, 2916, 1666, 0.02, 24.99},
    {atMost, 8333, 2916, 0.058, 49.99},
    {above, 8333, 8333, 0.065, 364.18},
};
// clang-format on
inline constexpr PerFrequency<Bands> rateA{rateAWeekly, rateATwiceAMonth, rateAEveryTwoWeeks, rateAMonthly,
                                           "New Jersey, Rate A"};
inline constexpr PerFrequency<Bands> rateB{rateBWeekly, rateBTwiceAMonth, rateBEveryTwoWeeks, rateBMonthly,
                                           "New Jersey, Rate B"};
inline constexpr PerFrequency<Bands> rateC{rateCWeekly, rateCTwiceAMonth, rateCEveryTwoWeeks, rateCMonthly,
                                           "New Jersey, Rate C"};
inline constexpr PerFrequency<Bands> rateD{rateDWeekly, rateDTwiceAMonth, rateDEveryTwoWeeks, rateDMonthly,
                                           "New Jersey, Rate D"};
inline constexpr PerFrequency<Bands> rateE{rateEWeekly, rateETwiceAMonth, rateEEveryTwoWeeks, rateEMonthly,
                                           "New Jersey, Rate E"};

}  // namespace TALLYFIN_FIGURES::newjersey
