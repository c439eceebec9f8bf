#include <algorithm>

#include "states/states.h"

/// Oklahoma splits the year's wage at a ceiling: bands below, a flat rate above.

namespace tallyfin {

using enum Test;

/// Oklahoma, 1999: dollars a year.
namespace oklahoma {
// clang-format off
constexpr Band single[] = {
    {atMost, 1000, 0, 0.005},
    {atMost, 2500, 1000, 0.01, 5},
    {atMost, 3750, 2500, 0.02, 20},
    {atMost, 4900, 3750, 0.03, 45},
    {atMost, 6100, 4900, 0.04, 79.5},
    {atMost, 7500, 6100, 0.05, 127.5},
    {atMost, 9000, 7500, 0.06, 197.5},
    {atMost, 10500, 9000, 0.07, 287.5},
    {atMost, 12500, 10500, 0.08, 392.5},
    {atMost, 16000, 12500, 0.09, 552.5},
    {above, 16000, 16000, 0.1, 867.5},
};
constexpr Band married[] = {
    {atMost, 2000, 0, 0.005},
    {atMost, 5000, 2000, 0.01, 10},
    {atMost, 7500, 5000, 0.02, 40},
    {atMost, 8900, 7500, 0.03, 90},
    {atMost, 10400, 8900, 0.04, 132},
    {atMost, 12000, 10400, 0.05, 192},
    {atMost, 13250, 12000, 0.06, 272},
    {atMost, 15000, 13250, 0.07, 347},
    {atMost, 18000, 15000, 0.08, 469.5},
    {above, 18000, 18000, 0.09, 709.5},
};
// The rates of Single times 1.16.
constexpr Band spouseEmployed[] = {
    {atMost, 1000, 0, 0.0058},
    {atMost, 2500, 1000, 0.0116, 5.8},
    {atMost, 3750, 2500, 0.0232, 23.2},
    {atMost, 4900, 3750, 0.0348, 52.2},
    {atMost, 6100, 4900, 0.0464, 92.22},
    {atMost, 7500, 6100, 0.058, 147.9},
    {atMost, 9000, 7500, 0.0696, 229.1},
    {atMost, 10500, 9000, 0.0812, 333.5},
    {atMost, 12500, 10500, 0.0928, 455.3},
    {atMost, 16000, 12500, 0.1044, 640.9},
    {above, 16000, 16000, 0.116, 1006.3},
};
// clang-format on
}  // namespace oklahoma

/// Oklahoma, 1999. `staMarried` chooses: 0 Single, 3 Married, 8 Married with an employed spouse. For any other value,
/// left over from another state, the last `stateTax` is taken for the annual one. From 12 dependents on the 16-bit
/// product of the estimate fails for the two married ones, and the wage stays whole.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `stateTax`, `staDeps`, `staMarried`, `staAdd`. Writes
/// `state401k`, `stateTax`, `statePreTax`, `stateWage`, `stateStdDed`.
void Oklahoma() {
  Worksheet& work = worksheet();
  Money overCap;
  StateBase();
  step("The year's wage", work.stateWage, [] { return stateGross() * payData.payPeriods; });
  step(
      "The wage up to the ceiling of 22,560, and what is over it",
      [&] {
        if (work.stateWage <= 22560) return;
        overCap = work.stateWage - 22560;
        work.stateWage = 22560;
      },
      work.stateWage, overCap);
  step("Standard deduction, 15% of it", work.stateStdDed, [&] { return fromReal(toReal(work.stateWage) * 0.15); });
  step("Standard deduction of at least 1,000 and at most 2,000", work.stateStdDed,
       [&] { return std::clamp<Money>(work.stateStdDed, 1000, 2000); });
  // The rule asks again for the ceiling. It has been applied, so the wage always passes.
  const bool withinCeiling = work.stateWage <= 22560;
  step("Less standard deduction, 1,000 for each dependent and the estimated federal tax", work.stateWage,
       [&]() -> std::optional<Money> {
         if (!withinCeiling) return std::nullopt;
         Money base;
         switch (payData.staMarried.value()) {
           // Single: the dependents come off before the multiplication, so that the estimate is some 412.5 times the
           // wage.
           case stateStatus::single: base = (work.stateWage - payData.staDeps) * 2750 - 4300; break;
           case stateStatus::married: base = work.stateWage - payData.staDeps * 2750 - 7200; break;
           case stateStatus::spouseEmployed: base = work.stateWage - payData.staDeps * 2750 - 4300; break;
           default: return std::nullopt;
         }
         const Money federalEstimate = fromReal(toReal(base) * 0.15);
         return work.stateWage - work.stateStdDed - payData.staDeps * 1000 - federalEstimate;
       });
  step("The year's tax by the table of the filing status", payData.stateTax, [&]() -> std::optional<Money> {
    if (!withinCeiling) return std::nullopt;
    if (payData.staMarried == stateStatus::single) return taxBy(oklahoma::single);
    if (payData.staMarried == stateStatus::married) return taxBy(oklahoma::married);
    if (payData.staMarried == stateStatus::spouseEmployed) return taxBy(oklahoma::spouseEmployed);
    return std::nullopt;
  });
  step("Plus 6.5% of what is over the ceiling", payData.stateTax,
       [&] { return payData.stateTax + fromReal(toReal(overCap) * 0.065); });
  step("The pay period's share", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("To whole dollars", payData.stateTax, [] { return roundedToDollars(payData.stateTax); });
  finish();
}

}  // namespace tallyfin
