#pragma once

#include "engine/figures.h"

/// Connecticut, tax year 1999: dollars a year, by rate letter. Only Rate A is used.

namespace TALLYFIN_FIGURES::connecticut {

using enum Test;

/// A row of an exemption table: dollars a year.
struct Exemption {
  Test test;
  Dollars bound;
  Dollars amount;
};

/// A row of a credit table: the fraction of the tax that is credited, in single precision.
struct Credit {
  Test test;
  Dollars bound;
  float fraction;
};

// clang-format off
inline constexpr Exemption exemptionsA[] = {
    {atMost, 24000, 12000},
    {atMost, 25000, 11000},
    {atMost, 26000, 10000},
    {atMost, 27000, 9000},
    {atMost, 28000, 8000},
    {atMost, 29000, 7000},
    {atMost, 30000, 6000},
    {atMost, 31000, 5000},
    {atMost, 32000, 4000},
    {atMost, 33000, 3000},
    {atMost, 34000, 2000},
    {atMost, 35000, 1000},
    {above, 35000, 0},
};
inline constexpr Exemption exemptionsB[] = {
    {atMost, 38000, 19000},
    {atMost, 39000, 18000},
    {atMost, 40000, 17000},
    {atMost, 41000, 16000},
    {atMost, 42000, 15000},
    {atMost, 43000, 14000},
    {atMost, 44000, 13000},
    {atMost, 45000, 12000},
    {atMost, 46000, 11000},
    {atMost, 47000, 10000},
    {atMost, 48000, 9000},
    {atMost, 49000, 8000},
    {atMost, 50000, 7000},
    {atMost, 51000, 6000},
    {atMost, 52000, 5000},
    {atMost, 53000, 4000},
    {atMost, 54000, 3000},
    {atMost, 55000, 2000},
    {atMost, 56000, 1000},
    {above, 56000, 0},
};
inline constexpr Exemption exemptionsCAndD[] = {
    {atMost, 48000, 24000},
    {atMost, 49000, 23000},
    {atMost, 50000, 22000},
    {atMost, 51000, 21000},
    {atMost, 52000, 20000},
    {atMost, 53000, 19000},
    {atMost, 54000, 18000},
    {atMost, 55000, 17000},
    {atMost, 56000, 16000},
    {atMost, 57000, 15000},
    {atMost, 58000, 14000},
    {atMost, 59000, 13000},
    {atMost, 60000, 12000},
    {atMost, 61000, 11000},
    {atMost, 62000, 10000},
    {atMost, 63000, 9000},
    {atMost, 64000, 8000},
    {atMost, 65000, 7000},
    {atMost, 66000, 6000},
    {atMost, 67000, 5000},
    {atMost, 68000, 4000},
    {atMost, 69000, 3000},
    {atMost, 70000, 2000},
    {atMost, 71000, 1000},
    {above, 71000, 0},
};
// The second Plus is ten times the tax at the top of the first band: the tax jumps by 2,700.
inline constexpr Band bandsAAndD[] = {
    {atMost, 10000, 0, 0.03},
    {above, 10000, 10000, 0.045, 3000},
};
inline constexpr Band bandsB[] = {
    {atMost, 16000, 0, 0.03},
    {above, 16000, 16000, 0.045, 480},
};
inline constexpr Band bandsC[] = {
    {atMost, 20000, 0, 0.03},
    {above, 20000, 20000, 0.045, 600},
};
inline constexpr Credit creditsA[] = {
    {atMost, 12000, 0.0F},
    {atMost, 15000, 0.75F},
    {atMost, 15500, 0.7F},
    {atMost, 16000, 0.65F},
    {atMost, 16500, 0.6F},
    {atMost, 17000, 0.55F},
    {atMost, 17500, 0.5F},
    {atMost, 18000, 0.45F},
    {atMost, 18500, 0.4F},
    {atMost, 20000, 0.35F},
    {atMost, 20500, 0.3F},
    {atMost, 21000, 0.25F},
    {atMost, 21500, 0.2F},
    {atMost, 25000, 0.15F},
    {atMost, 25500, 0.14F},
    {atMost, 26000, 0.13F},
    {atMost, 26500, 0.12F},
    {atMost, 27000, 0.11F},
    {atMost, 48000, 0.1F},
    {atMost, 48500, 0.09F},
    {atMost, 49000, 0.08F},
    {atMost, 49500, 0.07F},
    {atMost, 50000, 0.06F},
    {atMost, 50500, 0.05F},
    {atMost, 51000, 0.04F},
    {atMost, 51500, 0.03F},
    {atMost, 52000, 0.02F},
    {atMost, 52500, 0.01F},
    {above, 52500, 0.0F},
};
inline constexpr Credit creditsB[] = {
    {atMost, 19000, 0.0F},
    {atMost, 24000, 0.75F},
    {atMost, 24500, 0.7F},
    {atMost, 25000, 0.65F},
    {atMost, 25500, 0.6F},
    {atMost, 26000, 0.55F},
    {atMost, 26500, 0.5F},
    {atMost, 27000, 0.45F},
    {atMost, 27500, 0.4F},
    {atMost, 34000, 0.35F},
    {atMost, 34500, 0.3F},
    {atMost, 35000, 0.25F},
    {atMost, 35500, 0.2F},
    {atMost, 44000, 0.15F},
    {atMost, 44500, 0.14F},
    {atMost, 45000, 0.13F},
    {atMost, 45500, 0.12F},
    {atMost, 46000, 0.11F},
    {atMost, 74000, 0.1F},
    {atMost, 74500, 0.09F},
    {atMost, 75000, 0.08F},
    {atMost, 75500, 0.07F},
    {atMost, 76000, 0.06F},
    {atMost, 76500, 0.05F},
    {atMost, 77000, 0.04F},
    {atMost, 77500, 0.03F},
    {atMost, 78000, 0.02F},
    {atMost, 78500, 0.01F},
    {above, 78500, 0.0F},
};
inline constexpr Credit creditsC[] = {
    {atMost, 24000, 0.0F},
    {atMost, 30000, 0.75F},
    {atMost, 30500, 0.7F},
    {atMost, 31000, 0.65F},
    {atMost, 31500, 0.6F},
    {atMost, 32000, 0.55F},
    {atMost, 32500, 0.5F},
    {atMost, 33000, 0.45F},
    {atMost, 33500, 0.4F},
    {atMost, 40000, 0.35F},
    {atMost, 40500, 0.3F},
    {atMost, 41000, 0.25F},
    {atMost, 41500, 0.2F},
    {atMost, 50000, 0.15F},
    {atMost, 50500, 0.14F},
    {atMost, 51000, 0.13F},
    {atMost, 51500, 0.12F},
    {atMost, 52000, 0.11F},
    {atMost, 96000, 0.1F},
    {atMost, 96500, 0.09F},
    {atMost, 97000, 0.08F},
    {atMost, 97500, 0.07F},
    {atMost, 98000, 0.06F},
    {atMost, 98500, 0.05F},
    {atMost, 99000, 0.04F},
    {atMost, 99500, 0.03F},
    {atMost, 100000, 0.02F},
    {atMost, 100500, 0.01F},
    {above, 100500, 0.0F},
};
// clang-format on

}  // namespace TALLYFIN_FIGURES::connecticut
