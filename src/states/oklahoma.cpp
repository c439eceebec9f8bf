#include "states/states.h"

/// Oklahoma: bands for the year's wage up to a limit, a flat rate above it.

namespace TALLYFIN_FIGURES {

using enum Test;

/// Oklahoma, 1999: dollars a year.
namespace oklahoma {
// clang-format off
constexpr Band singleRows[] = {
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
constexpr Band marriedRows[] = {
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
constexpr Band spouseEmployedRows[] = {
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
constexpr Table single{"Oklahoma, Single", singleRows};
constexpr Table married{"Oklahoma, Married", marriedRows};
constexpr Table spouseEmployed{"Oklahoma, Married with an employed spouse", spouseEmployedRows};

constexpr FixedAmount ceiling{"ceiling of the bands", 22560};
constexpr FixedRate rateOverCeiling{"rate over the ceiling", 0.065};
constexpr FixedRate deductionRate{"rate of the standard deduction", 0.15};
constexpr FixedAmount leastDeduction{"least standard deduction", 1000};
constexpr FixedAmount mostDeduction{"most standard deduction", 2000};
constexpr FixedCount perDependent{"exemption for each dependent", 1000};

/// The estimate of the federal tax.
constexpr FixedRate federalRate{"rate of the estimated federal tax", 0.15};
constexpr FixedCount federalExemption{"federal exemption for each dependent", 2750};
constexpr FixedAmount lowerFederalDeduction{"federal standard deduction", 4300};
constexpr FixedAmount higherFederalDeduction{"federal standard deduction", 7200};
constexpr const char* noRule = "the state has no rule for the filing status chosen";

/// The dependents are subtracted before the multiplication, so the estimate is some 412.5 times the wage: required.
static Amount timesExemption(const Amount& wage, const Count& dependents) {
  note("The federal exemption is multiplied by the wage here, not by the number of dependents.");
  const Amount less = line("Wage less the number of dependents", wage - dependents);
  return line("That, times the federal exemption for each dependent", less * federalExemption);
}

static Amount deduction(Amount federal) { return line("Federal standard deduction", federal); }

/// The wage for the estimate of the federal tax; none for a status that isn't offered.
static std::optional<Amount> federalBase(const Amount& wage, const Count& dependents) {
  switch (payData.staMarried.value()) {
    case stateStatus::single: return timesExemption(wage, dependents) - deduction(lowerFederalDeduction);
    case stateStatus::married:
      return wage - line("Federal exemptions", dependents * federalExemption) - deduction(higherFederalDeduction);
    case stateStatus::spouseEmployed:
      return wage - line("Federal exemptions", dependents * federalExemption) - deduction(lowerFederalDeduction);
    default: return keep(noRule);
  }
}

static std::optional<Amount> bandTax() {
  switch (payData.staMarried.value()) {
    case stateStatus::single: return taxBy(single);
    case stateStatus::married: return taxBy(married);
    case stateStatus::spouseEmployed: return taxBy(spouseEmployed);
    default: return keep(noRule);
  }
}
}  // namespace oklahoma

/// Oklahoma, 1999. `staMarried` chooses: 0 Single, 3 Married, 8 Married with an employed spouse. With any other value,
/// left from another state, the last `stateTax` is used as the annual tax. From 12 dependents on the 16-bit
/// product of the estimate fails for the two married statuses, and the wage isn't reduced.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `stateTax`, `staDeps`, `staMarried`, `staAdd`. Writes
/// `state401k`, `stateTax`, `statePreTax`, `stateWage`, `stateStdDed`.
void Oklahoma() {
  using namespace oklahoma;
  Worksheet& work = worksheet();
  Amount overCeiling;
  StateBase();
  step("Year's wage", work.stateWage, yearsWage);
  step(
      "Year's wage up to the ceiling, and what is over it",
      [&] {
        if (work.stateWage <= ceiling) return;
        overCeiling = line("Year's wage over the ceiling", work.stateWage - ceiling);
        work.stateWage = line("Year's wage up to the ceiling", least(work.stateWage, ceiling));
      },
      work.stateWage, overCeiling);
  step("Standard deduction", work.stateStdDed, [&] { return fromReal(toReal(work.stateWage) * deductionRate); });
  step("Standard deduction within its limits", work.stateStdDed,
       [&] { return within(work.stateStdDed, leastDeduction, mostDeduction); });
  // The rule compares with the limit again. The limit has been applied above, so the comparison always holds.
  step("Wage less the deductions", work.stateWage, [&]() -> std::optional<Amount> {
    const std::optional<Amount> base = federalBase(work.stateWage, payData.staDeps);
    if (!base) return std::nullopt;
    const Amount estimate =
        line("Estimated federal tax", fromReal(toReal(line("Wage for the federal estimate", *base)) * federalRate));
    return work.stateWage - work.stateStdDed - line("Exemptions for the dependents", payData.staDeps * perDependent) -
           estimate;
  });
  step("Year's tax by the table", payData.stateTax, bandTax);
  step("Year's tax with that on what is over the ceiling", payData.stateTax, [&] {
    return payData.stateTax + line("Tax on what is over the ceiling", fromReal(toReal(overCeiling) * rateOverCeiling));
  });
  step("Pay period's tax", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("Pay period's tax in whole dollars", payData.stateTax, [] { return roundedToDollars(payData.stateTax); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
