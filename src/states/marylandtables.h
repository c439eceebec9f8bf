#pragma once

#include "engine/figures.h"

/// Maryland, tax year 1999: dollars a pay period, by frequency. The state table and, by county rate, the local ones.

namespace TALLYFIN_FIGURES::maryland {

using enum Test;

// clang-format off
inline constexpr Band weekly[] = {
    {atMost, 19, 0, 0.02},
    {atMost, 38, 19, 0.03, 0.38},
    {atMost, 57, 38, 0.04, 0.95},
    {above, 57, 57, 0.0485, 1.71},
};
inline constexpr Band twiceAMonth[] = {
    {atMost, 42, 0, 0.02},
    {atMost, 83, 42, 0.03, 0.84},
    {atMost, 125, 83, 0.04, 2.07},
    {above, 125, 125, 0.0485, 3.75},
};
inline constexpr Band everyTwoWeeks[] = {
    {atMost, 38, 0, 0.02},
    {atMost, 76, 38, 0.03, 0.76},
    {atMost, 115, 76, 0.04, 1.9},
    {above, 115, 115, 0.0485, 3.46},
};
inline constexpr Band monthly[] = {
    {atMost, 83, 0, 0.02},
    {atMost, 167, 83, 0.03, 1.66},
    {atMost, 250, 167, 0.04, 4.18},
    {above, 250, 250, 0.0485, 7.5},
};
// Rate 48: the first rate is 0.096, ten times what the other tables suggest, in all four tables: required.
inline constexpr Band rate48Weekly[] = {
    {atMost, 19, 0, 0.096},
    {atMost, 38, 19, 0.0144, 0.18},
    {atMost, 57, 38, 0.0192, 0.45},
    {above, 57, 57, 0.024, 0.81},
};
inline constexpr Band rate48TwiceAMonth[] = {
    {atMost, 42, 0, 0.096},
    {atMost, 83, 42, 0.0144, 0.4},
    {atMost, 125, 83, 0.0192, 0.99},
    {above, 125, 125, 0.024, 1.8},
};
inline constexpr Band rate48EveryTwoWeeks[] = {
    {atMost, 38, 0, 0.096},
    {atMost, 76, 38, 0.0144, 0.36},
    {atMost, 115, 76, 0.0192, 0.91},
    {above, 115, 115, 0.024, 1.66},
};
inline constexpr Band rate48Monthly[] = {
    {atMost, 83, 0, 0.096},
    {atMost, 167, 83, 0.0144, 0.8},
    {atMost, 250, 167, 0.0192, 2.01},
    {above, 250, 250, 0.024, 3.6},
};
inline constexpr Band rate50Weekly[] = {
    {atMost, 19, 0, 0.01},
    {atMost, 38, 19, 0.015, 0.19},
    {atMost, 57, 38, 0.02, 0.48},
    {above, 57, 57, 0.025, 0.86},
};
inline constexpr Band rate50TwiceAMonth[] = {
    {atMost, 42, 0, 0.01},
    {atMost, 83, 42, 0.015, 0.42},
    {atMost, 125, 83, 0.02, 1.04},
    {above, 125, 125, 0.025, 1.88},
};
inline constexpr Band rate50EveryTwoWeeks[] = {
    {atMost, 38, 0, 0.01},
    {atMost, 76, 38, 0.015, 0.38},
    {atMost, 115, 76, 0.02, 0.95},
    {above, 115, 115, 0.025, 1.73},
};
inline constexpr Band rate50Monthly[] = {
    {atMost, 83, 0, 0.01},
    {atMost, 167, 83, 0.015, 0.83},
    {atMost, 250, 167, 0.02, 2.09},
    {above, 250, 250, 0.025, 3.75},
};
inline constexpr Band rate55Weekly[] = {
    {atMost, 19, 0, 0.011},
    {atMost, 38, 19, 0.0165, 0.21},
    {atMost, 57, 38, 0.022, 0.52},
    {above, 57, 57, 0.0275, 0.94},
};
inline constexpr Band rate55TwiceAMonth[] = {
    {atMost, 42, 0, 0.011},
    {atMost, 83, 42, 0.0165, 0.46},
    {atMost, 125, 83, 0.022, 1.14},
    {above, 125, 125, 0.0275, 2.06},
};
inline constexpr Band rate55EveryTwoWeeks[] = {
    {atMost, 38, 0, 0.011},
    {atMost, 76, 38, 0.0165, 0.42},
    {atMost, 115, 76, 0.022, 1.05},
    {above, 115, 115, 0.0275, 1.91},
};
inline constexpr Band rate55Monthly[] = {
    {atMost, 83, 0, 0.011},
    {atMost, 167, 83, 0.0165, 0.91},
    {atMost, 250, 167, 0.022, 2.3},
    {above, 250, 250, 0.0275, 4.13},
};
inline constexpr Band rate56Weekly[] = {
    {atMost, 19, 0, 0.0112},
    {atMost, 38, 19, 0.0168, 0.21},
    {atMost, 57, 38, 0.0224, 0.53},
    {above, 57, 57, 0.028, 0.96},
};
inline constexpr Band rate56TwiceAMonth[] = {
    {atMost, 42, 0, 0.0112},
    {atMost, 83, 42, 0.0168, 0.47},
    {atMost, 125, 83, 0.0224, 1.16},
    {above, 125, 125, 0.028, 2.1},
};
inline constexpr Band rate56EveryTwoWeeks[] = {
    {atMost, 38, 0, 0.0112},
    {atMost, 76, 38, 0.0168, 0.43},
    {atMost, 115, 76, 0.0224, 1.07},
    {above, 115, 115, 0.028, 1.94},
};
inline constexpr Band rate56Monthly[] = {
    {atMost, 83, 0, 0.0112},
    {atMost, 167, 83, 0.0168, 0.93},
    {atMost, 250, 167, 0.0224, 2.34},
    {above, 250, 250, 0.028, 4.2},
};
inline constexpr Band rate58Weekly[] = {
    {atMost, 19, 0, 0.0116},
    {atMost, 38, 19, 0.0174, 0.22},
    {atMost, 57, 38, 0.0232, 0.55},
    {above, 57, 57, 0.029, 0.99},
};
inline constexpr Band rate58TwiceAMonth[] = {
    {atMost, 42, 0, 0.0116},
    {atMost, 83, 42, 0.0174, 0.49},
    {atMost, 125, 83, 0.0232, 1.2},
    {above, 125, 125, 0.029, 2.17},
};
inline constexpr Band rate58EveryTwoWeeks[] = {
    {atMost, 38, 0, 0.0116},
    {atMost, 76, 38, 0.0174, 0.44},
    {atMost, 115, 76, 0.0232, 1.1},
    {above, 115, 115, 0.029, 2.01},
};
inline constexpr Band rate58Monthly[] = {
    {atMost, 83, 0, 0.0116},
    {atMost, 167, 83, 0.0174, 0.96},
    {atMost, 250, 167, 0.0232, 2.42},
    {above, 250, 250, 0.029, 4.35},
};
inline constexpr Band rate60Weekly[] = {
    {atMost, 19, 0, 0.012},
    {atMost, 38, 19, 0.018, 0.23},
    {atMost, 57, 38, 0.024, 0.57},
    {above, 57, 57, 0.03, 1.03},
};
inline constexpr Band rate60TwiceAMonth[] = {
    {atMost, 42, 0, 0.012},
    {atMost, 83, 42, 0.018, 0.5},
    {atMost, 125, 83, 0.024, 1.24},
    {above, 125, 125, 0.03, 2.25},
};
inline constexpr Band rate60EveryTwoWeeks[] = {
    {atMost, 38, 0, 0.012},
    {atMost, 76, 38, 0.018, 0.46},
    {atMost, 115, 76, 0.024, 1.14},
    {above, 115, 115, 0.03, 2.08},
};
inline constexpr Band rate60Monthly[] = {
    {atMost, 83, 0, 0.012},
    {atMost, 167, 83, 0.018, 1},
    {atMost, 250, 167, 0.024, 2.51},
    {above, 250, 250, 0.03, 4.5},
};
// clang-format on
inline constexpr PerFrequency<Bands> bands{weekly, twiceAMonth, everyTwoWeeks, monthly, "Maryland"};
inline constexpr PerFrequency<Bands> rate48{rate48Weekly, rate48TwiceAMonth, rate48EveryTwoWeeks, rate48Monthly,
                                            "Maryland, local rate 48"};
inline constexpr PerFrequency<Bands> rate50{rate50Weekly, rate50TwiceAMonth, rate50EveryTwoWeeks, rate50Monthly,
                                            "Maryland, local rate 50"};
inline constexpr PerFrequency<Bands> rate55{rate55Weekly, rate55TwiceAMonth, rate55EveryTwoWeeks, rate55Monthly,
                                            "Maryland, local rate 55"};
inline constexpr PerFrequency<Bands> rate56{rate56Weekly, rate56TwiceAMonth, rate56EveryTwoWeeks, rate56Monthly,
                                            "Maryland, local rate 56"};
inline constexpr PerFrequency<Bands> rate58{rate58Weekly, rate58TwiceAMonth, rate58EveryTwoWeeks, rate58Monthly,
                                            "Maryland, local rate 58"};
inline constexpr PerFrequency<Bands> rate60{rate60Weekly, rate60TwiceAMonth, rate60EveryTwoWeeks, rate60Monthly,
                                            "Maryland, local rate 60"};

}  // namespace TALLYFIN_FIGURES::maryland
