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
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staAdd`, `exemptionsText`. Writes `state401k`, `stateTax`,
/// `statePreTax`, `exemptions`, `stateWage`.
void Virginia() {
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("The year's wage less 800 for each exemption and the standard deduction of 2,500", work.stateWage,
       [&] { return stateGross() * payData.payPeriods - (work.exemptions * 800 + 2500); });
  step("The year's tax by the table", payData.stateTax, [] { return taxBy(virginia::bands); });
  step("The pay period's share", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("To whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
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
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staAdd`, `exemptionsText`. Writes `state401k`, `stateTax`,
/// `staDeps`, `stateDepsDed`, `statePreTax`, `stateWage`, `stateStdDed`.
void SCarolina() {
  Worksheet& work = worksheet();
  step("Number of exemptions", payData.staDeps, [&] { return toInt16(work.exemptionsText()); });
  StateBase();
  step("The year's wage", work.stateWage, [] { return stateGross() * payData.payPeriods; });
  step("Standard deduction, 10% of it", work.stateStdDed, [&] { return fromReal(toReal(work.stateWage) * 0.1); });
  step(
      "1,900 for each exemption, and the standard deduction up to 2,125; without exemptions neither",
      [&] {
        if (payData.staDeps == 0) {
          payData.stateDepsDed = 0;
          work.stateStdDed = 0;
        } else if (payData.staDeps >= 1) {
          payData.stateDepsDed = payData.staDeps * 1900;
          if (work.stateStdDed > 2125) work.stateStdDed = 2125;
        }
        return payData.staDeps >= 0;
      },
      payData.stateDepsDed, work.stateStdDed);
  step("Less both", work.stateWage, [&] { return work.stateWage - (work.stateStdDed + payData.stateDepsDed); });
  step("The year's tax by the table", payData.stateTax, [] { return taxBy(southcarolina::bands); });
  step("The pay period's share", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  finish();
}

}  // namespace tallyfin
