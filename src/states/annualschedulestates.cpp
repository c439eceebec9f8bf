#include "states/states.h"

/// One band table of the year's wage less exemptions, for all statuses and frequencies.

namespace TALLYFIN_FIGURES {

using enum Test;

/// Virginia, 1999: dollars a year.
namespace virginia {
// clang-format off
constexpr Band rows[] = {
    {atMost, 3000, 0, 0.02},
    {atMost, 5000, 3000, 0.03, 60},
    {atMost, 17000, 5000, 0.05, 120},
    {above, 17000, 17000, 0.0575, 720},
};
// clang-format on
constexpr Table table{"Virginia", rows};
constexpr FixedCount perExemption{"personal exemption", 800};
constexpr FixedCount standardDeduction{"standard deduction", 2500};
}  // namespace virginia

/// Virginia, 1999. The tax is rounded to whole dollars before `staAdd` is added, so `staAdd` keeps its cents.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staAdd`, `exemptionsText`. Writes `state401k`, `stateTax`,
/// `statePreTax`, `exemptions`, `stateWage`.
void Virginia() {
  using namespace virginia;
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("Year's wage less the deductions", work.stateWage, [&] {
    const Amount wage = line("Year's wage", yearsWage());
    const Count exemptions = line("Personal exemptions", work.exemptions * perExemption);
    return wage - (exemptions + line("Standard deduction", Count(standardDeduction)));
  });
  step("Year's tax", payData.stateTax, [] { return taxBy(table); });
  step("Pay period's tax", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("Pay period's tax in whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
  finish();
}

/// South Carolina, 1999: dollars a year.
namespace southcarolina {
// clang-format off
// Only the first test is strict.
constexpr Band rows[] = {
    {below, 2000, 0, 0.02},
    {atMost, 4000, 0, 0.03, -20},
    {atMost, 6000, 0, 0.04, -60},
    {atMost, 8000, 0, 0.05, -120},
    {atMost, 10000, 0, 0.06, -200},
    {above, 10000, 0, 0.07, -300},
};
// clang-format on
constexpr Table table{"South Carolina", rows};
constexpr FixedRate deductionRate{"rate of the standard deduction", 0.1};
constexpr FixedAmount mostDeduction{"most standard deduction", 2125};
constexpr FixedCount perExemption{"personal exemption", 1900};
}  // namespace southcarolina

/// South Carolina, 1999. It overwrites `staDeps` with the worksheet's count; the field `exemptions` isn't changed.
/// Without exemptions there is no standard deduction either. `stateDepsDed`: dollars a year.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staAdd`, `exemptionsText`. Writes `state401k`, `stateTax`,
/// `staDeps`, `stateDepsDed`, `statePreTax`, `stateWage`, `stateStdDed`.
void SCarolina() {
  using namespace southcarolina;
  Worksheet& work = worksheet();
  step("Exemptions", payData.staDeps, [&] { return toInt16(work.exemptionsText()); });
  StateBase();
  step("Year's wage", work.stateWage, yearsWage);
  step("Standard deduction", work.stateStdDed, [&] { return fromReal(toReal(work.stateWage) * deductionRate); });
  step(
      "Personal exemptions, and the standard deduction up to its limit",
      [&] {
        if (payData.staDeps == 0) {
          note("Without exemptions there is no standard deduction either.");
          payData.stateDepsDed = 0;
          work.stateStdDed = 0;
          return true;
        }
        if (payData.staDeps < 0) return keepAll("the number of exemptions is negative");
        payData.stateDepsDed = line("Personal exemptions", payData.staDeps * perExemption);
        work.stateStdDed = line("Standard deduction up to its limit", least(work.stateStdDed, mostDeduction));
        return true;
      },
      payData.stateDepsDed, work.stateStdDed);
  step("Year's wage less the deductions", work.stateWage,
       [&] { return work.stateWage - (work.stateStdDed + payData.stateDepsDed); });
  step("Year's tax", payData.stateTax, [] { return taxBy(table); });
  step("Pay period's tax", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
