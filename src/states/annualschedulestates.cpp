#include "states/states.h"

/// The year's wage, less exemptions of the year, through one band table whatever the status and frequency.

namespace tallyfin {

using enum Test;

/// Virginia, 1999: dollars a year.
namespace virginia {
// clang-format off
constexpr Band bands[] = {
    {atMost, 3000, 0, 0.02},
    {atMost, 5000, 3000, 0.03, 60},
    {atMost, 17000, 5000, 0.05, 120},
    {above, 17000, 17000, 0.0575, 720},
};
// clang-format on
}  // namespace virginia

/// Virginia, 1999. The tax is rounded to whole dollars before `staAdd`, which keeps its cents.
void Virginia() {
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step([&] { work.stateWage = stateGross() * payData.payPeriods - (work.exemptions * 800 + 2500); });
  step([] { applyBands(virginia::bands); });
  step([] { payData.stateTax = perPeriod(payData.stateTax); });
  step([] { payData.stateTax = integerRounded(payData.stateTax); });
  finish();
}

/// South Carolina, 1999: dollars a year.
namespace southcarolina {
// clang-format off
// Only the first test is strict.
constexpr Band bands[] = {
    {below, 2000, 0, 0.02},
    {atMost, 4000, 0, 0.03, -20},
    {atMost, 6000, 0, 0.04, -60},
    {atMost, 8000, 0, 0.05, -120},
    {atMost, 10000, 0, 0.06, -200},
    {above, 10000, 0, 0.07, -300},
};
// clang-format on
}  // namespace southcarolina

/// South Carolina, 1999. It overwrites `staDeps` with the worksheet's count; the field of exemptions isn't touched.
/// Without exemptions the standard deduction vanishes too. `stateDepsDed`: dollars a year.
void SCarolina() {
  Worksheet& work = worksheet();
  step([&] { payData.staDeps = toInt16(work.exemptionsText()); });
  StateBase();
  step([&] { work.stateWage = stateGross() * payData.payPeriods; });
  step([&] { work.stateStdDed = fromReal(toReal(work.stateWage) * 0.1); });
  step([&] {
    if (payData.staDeps == 0) {
      payData.stateDepsDed = 0;
      work.stateStdDed = 0;
    } else if (payData.staDeps >= 1) {
      payData.stateDepsDed = payData.staDeps * 1900;
      if (work.stateStdDed > 2125) work.stateStdDed = 2125;
    }
  });
  step([&] { work.stateWage = work.stateWage - (work.stateStdDed + payData.stateDepsDed); });
  step([] { applyBands(southcarolina::bands); });
  step([] { payData.stateTax = perPeriod(payData.stateTax); });
  finish();
}

}  // namespace tallyfin
