#include "states/states.h"

/// One band table of the year's wage, less an annual credit, divided by the pay periods. Not rounded.

namespace TALLYFIN_FIGURES {

using enum Test;

/// Alabama, 1999: dollars a year.
namespace alabama {
// clang-format off
constexpr Band singleRows[] = {
    {atMost, 500, 0, 0.02},
    {atMost, 3000, 500, 0.04, 10},
    {above, 3000, 3000, 0.05, 110},
};
constexpr Band marriedRows[] = {
    {atMost, 1000, 0, 0.02},
    {atMost, 6000, 1000, 0.04, 20},
    {above, 6000, 6000, 0.05, 220},
};
// clang-format on
constexpr Table single{"Alabama, Single", singleRows};
constexpr Table married{"Alabama, Married", marriedRows};

constexpr FixedRate deductionRate{"rate of the standard deduction", 0.2};
constexpr FixedCount perDependent{"exemption for each dependent", 300};

/// By choice of `staMarried`: the cap of the standard deduction, the personal exemption, the table.
struct Option {
  FixedCount cap;
  FixedAmount personalExemption;
  Table table;
};
constexpr FixedCount singleCap{"most standard deduction", 2000};
constexpr FixedCount marriedCap{"most standard deduction", 4000};
constexpr FixedAmount noExemption{"personal exemption", 0};
constexpr FixedAmount fullExemption{"personal exemption", 1500};
constexpr FixedAmount exemptionOfBoth{"personal exemption", 3000};
constexpr Option options[] = {
    {singleCap, fullExemption, single},      // 1: Single, claiming full personal exemption
    {singleCap, noExemption, single},        // 2: Single, claiming none
    {marriedCap, exemptionOfBoth, married},  // 3: Married, claiming for both spouses
    {singleCap, fullExemption, single},      // 4: Married, claiming for yourself only
    {singleCap, noExemption, single},        // 5: Married, claiming none
};
constexpr const char* noOption = "the state has no rule for the filing status chosen";

static const Option* chosen() {
  const int option = payData.staMarried.value();
  if (option < 1 || option > 5) return nullptr;
  return &options[option - 1];
}
}  // namespace alabama

/// Alabama, 1999. It overwrites `staExmp` with the standard deduction, whole dollars a year. Without an option no table
/// applies: the last `stateTax` is divided by the pay periods again at each calculation.
/// `stateDepsDed`: the personal exemption, dollars a year.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `fedTax`, `stateTax`, `staExmp`, `staDeps`, `staMarried`,
/// `staAdd`, `stateDepsDed`. Writes `state401k`, `stateTax`, `staExmp`, `stateDepsDed`, `statePreTax`, `stateWage`.
void Alabama() {
  using namespace alabama;
  Worksheet& work = worksheet();
  Amount annualFedTax;
  Count dependentDeduction;
  StateBase();
  step("Year's wage", work.stateWage, yearsWage);
  step("Standard deduction in whole dollars", payData.staExmp,
       [&] { return integerRounded(toReal(work.stateWage) * deductionRate); });
  step(
      "Standard deduction and personal exemption of the filing status",
      [&] {
        const Option* option = chosen();
        if (!option) return keepAll(noOption);
        payData.staExmp = line("Standard deduction up to its limit", least(payData.staExmp, option->cap));
        payData.stateDepsDed = line("Personal exemption", Amount(option->personalExemption));
        return true;
      },
      payData.staExmp, payData.stateDepsDed);
  step("Year's federal tax", annualFedTax, [] { return payData.fedTax * payData.payPeriods; });
  step("Exemption for the dependents", dependentDeduction, [] { return payData.staDeps * perDependent; });
  step("Year's wage less the deductions", work.stateWage,
       [&] { return work.stateWage - (annualFedTax + payData.stateDepsDed + payData.staExmp + dependentDeduction); });
  step("Year's tax", payData.stateTax, []() -> std::optional<Amount> {
    const Option* option = chosen();
    if (!option) return keep(noOption);
    return taxBy(option->table);
  });
  step("Pay period's tax with the additional amount", payData.stateTax,
       [] { return line("Pay period's tax", perPeriod(payData.stateTax)) + payData.staAdd; });
  floorAtZero();
}

/// Arkansas, 1999: dollars a year.
namespace arkansas {
// clang-format off
constexpr Band rows[] = {
    {atMost, 3000, 0, 0.01},
    {atMost, 6000, 3000, 0.025, 30},
    {atMost, 9000, 6000, 0.035, 105},
    {atMost, 15000, 9000, 0.045, 210},
    {atMost, 25000, 15000, 0.06, 480},
    {above, 25000, 25000, 0.07, 1080},
};
// clang-format on
constexpr Table table{"Arkansas", rows};
constexpr FixedAmount standardDeduction{"standard deduction", 2000};
constexpr FixedCount perExemption{"credit for each exemption", 20};
}  // namespace arkansas

/// Arkansas, 1999. `stateStdDed` is subtracted from the annual tax, but not assigned here: it keeps the value of the
/// last state routine that assigned it.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `frequency`, `staAdd`, `stateStdDed`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `statePreTax`, `exemptions`, `stateWage`.
void Arkansas() {
  using namespace arkansas;
  Worksheet& work = worksheet();
  Count credit;
  parseExemptions();
  StateBase();
  step("Wage that the state taxes", work.stateWage, stateGross);
  step("Year's wage", work.stateWage, [&] { return work.stateWage * periodsPerYear.now(); });
  step("Year's wage less the standard deduction", work.stateWage,
       [&] { return work.stateWage - line("Standard deduction", Amount(standardDeduction)); });
  step("Year's tax", payData.stateTax, [] { return taxBy(table); });
  step("Credit for the exemptions", credit, [&] { return work.exemptions * perExemption; });
  step("Year's tax less the credit", payData.stateTax, [&] {
    noteIfAny(work.stateStdDed,
              "The second deduction, which another state's calculation left, is taken off this state's tax.");
    return payData.stateTax - (work.stateStdDed + credit);
  });
  step("Pay period's tax with the additional amount", payData.stateTax,
       [] { return line("Pay period's tax", perPeriod(payData.stateTax)) + payData.staAdd; });
  floorAtZero();
}

/// Delaware, 1999: dollars a year.
namespace delaware {
// clang-format off
constexpr Band rows[] = {
    {below, 2000, 0, 0},
    {below, 5000, 2000, 0.026},
    {below, 10000, 5000, 0.042, 78},
    {below, 20000, 10000, 0.052, 293},
    {below, 25000, 20000, 0.056, 813},
    {below, 60000, 25000, 0.0595, 1093},
    {atLeast, 60000, 60000, 0.064, 3175.5},
};
// clang-format on
constexpr Table table{"Delaware", rows};
constexpr FixedAmount singleDeduction{"standard deduction", 3250};
constexpr FixedAmount marriedDeduction{"standard deduction", 4000};
constexpr FixedAmount separatelyDeduction{"standard deduction", 2000};
constexpr FixedCount perDependent{"credit for each dependent", 100};

/// By `staMarried`: Single, Married, Married Filing Separately.
static Amount standardDeduction() {
  switch (payData.staMarried.value()) {
    case stateStatus::single: return singleDeduction;
    case stateStatus::married: return marriedDeduction;
    case stateStatus::separately: return separatelyDeduction;
    default: return 0;
  }
}
}  // namespace delaware

/// Delaware, 1999. `stateDepsDed`: a credit against the annual tax, dollars a year.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staDeps`, `staMarried`, `staAdd`, `stateDepsDed`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void Delaware() {
  using namespace delaware;
  Worksheet& work = worksheet();
  Amount deduction;
  StateBase();
  step("Year's wage", work.stateWage, yearsWage);
  step("Standard deduction", deduction, standardDeduction);
  step("Year's wage less the standard deduction", work.stateWage, [&] { return work.stateWage - deduction; });
  step("Year's tax", payData.stateTax, [] { return taxBy(table); });
  step("Credit for the dependents", payData.stateDepsDed, [] { return payData.staDeps * perDependent; });
  step("Year's tax less the credit", payData.stateTax, [] { return payData.stateTax - payData.stateDepsDed; });
  step("Pay period's tax with the additional amount", payData.stateTax,
       [] { return line("Pay period's tax", perPeriod(payData.stateTax)) + payData.staAdd; });
  floorAtZero();
}

/// Kentucky, 1999: dollars a year.
namespace kentucky {
// clang-format off
// The third test is strict, the others are inclusive: required.
constexpr Band rows[] = {
    {atMost, 3000, 0, 0.02},
    {atMost, 4000, 3000, 0.03, 60},
    {below, 5000, 4000, 0.04, 90},
    {atMost, 8000, 5000, 0.05, 130},
    {above, 8000, 8000, 0.06, 280},
};
// clang-format on
constexpr Table table{"Kentucky", rows};
constexpr FixedAmount standardDeduction{"standard deduction", 650};
constexpr FixedCount perExemption{"credit for each exemption", 20};
}  // namespace kentucky

/// Kentucky, 1999.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staAdd`, `exemptionsText`. Writes `state401k`, `stateTax`,
/// `statePreTax`, `exemptions`, `stateWage`.
void Kentucky() {
  using namespace kentucky;
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("Year's wage less the standard deduction", work.stateWage, [] {
    const Amount wage = line("Year's wage", yearsWage());
    return wage - line("Standard deduction", Amount(standardDeduction));
  });
  step("Year's tax", payData.stateTax, [] { return taxBy(table); });
  step("Pay period's tax", payData.stateTax, [&] {
    const Amount credit = line("Credit for the exemptions", work.exemptions * perExemption);
    return perPeriod(line("Year's tax less the credit", payData.stateTax - credit));
  });
  finish();
}

}  // namespace TALLYFIN_FIGURES
