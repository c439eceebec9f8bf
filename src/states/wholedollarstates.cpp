#include "states/states.h"

/// A band table of the year's wage. The tax of the pay period is rounded to whole dollars.

namespace TALLYFIN_FIGURES {

using enum Test;

/// Iowa, 1999: dollars a year.
namespace iowa {
// clang-format off
constexpr Band rows[] = {
    {atMost, 1100, 0, 0.0036},
    {atMost, 2150, 1100, 0.0072, 3.96},
    {atMost, 4300, 2150, 0.0243, 11.52},
    {atMost, 9750, 4300, 0.0486, 63.77},
    {atMost, 16250, 9750, 0.0653, 328.64},
    {atMost, 22000, 16250, 0.0698, 753.09},
    {atMost, 33000, 22000, 0.0752, 1154.44},
    {atMost, 49000, 33000, 0.0842, 1981.64},
    {above, 49000, 49000, 0.0898, 3328.84},
};
// clang-format on
constexpr Table table{"Iowa", rows};
constexpr FixedAmount lowerDeduction{"standard deduction up to one exemption", 1500};
constexpr FixedAmount higherDeduction{"standard deduction from two exemptions", 3600};
constexpr FixedCount firstCredit{"credit for each of the first two exemptions", 20};
constexpr FixedCount furtherCredit{"credit for each further exemption", 40};
constexpr FixedCount creditOfTwo{"credit for the first two exemptions", 40};
}  // namespace iowa

/// Iowa, 1999. Federal withholding is subtracted before the wage is annualised. `stateDepsDed`: the standard deduction,
/// dollars a year.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `fedTax`, `frequency`, `staAdd`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void IowaTax() {
  using namespace iowa;
  Worksheet& work = worksheet();
  Count credit;
  parseExemptions();
  StateBase();
  step("Wage less the federal tax", work.stateWage, [] { return stateGross() - payData.fedTax; });
  step("Year's wage", work.stateWage, [&] { return work.stateWage * periodsPerYear.now(); });
  step("Standard deduction", payData.stateDepsDed, [&]() -> std::optional<Amount> {
    if (isFrom(0, work.exemptions, 1)) return lowerDeduction;
    if (isFrom(2, work.exemptions, 15)) return higherDeduction;
    return keep("the state has deductions for up to 15 exemptions only");
  });
  step("Year's wage less the standard deduction", work.stateWage,
       [&] { return work.stateWage - payData.stateDepsDed; });
  step("Year's tax", payData.stateTax, [] { return taxBy(table); });
  step("Credit for the exemptions", credit, [&]() -> Count {
    if (isFrom(0, work.exemptions, 2)) return work.exemptions * firstCredit;
    if (isFrom(3, work.exemptions, 15)) {
      const Count further =
          line("Exemptions beyond the first two", work.exemptions - named("first exemptions", Int16(2)));
      const Count credits = line("Credit for these", further * furtherCredit);
      return credits + line("Credit for the first two exemptions", Count(creditOfTwo));
    }
    note("There are credits for up to 15 exemptions only.");
    return 0;
  });
  step("Pay period's tax", payData.stateTax,
       [&] { return perPeriod(line("Year's tax less the credit", payData.stateTax - credit)); });
  step("Pay period's tax in whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
  finish();
}

/// Maine, 1999: dollars a year. A wage in a gap keeps the last `stateTax`; the gaps are required.
namespace maine {
// clang-format off
// Exactly 37,350 meets no row.
constexpr Band marriedRows[] = {
    {below, 4350, 0, 0},
    {below, 12600, 4350, 0.02},
    {below, 20850, 12600, 0.045, 165},
    {below, 37350, 20850, 0.07, 536},
    {above, 37350, 37350, 0.085, 1691},
};
// Exactly 18,000 meets no row.
constexpr Band singleRows[] = {
    {below, 1500, 0, 0},
    {below, 5650, 1500, 0.02},
    {below, 9750, 5650, 0.045, 83},
    {below, 18000, 9750, 0.07, 268},
    {above, 18000, 18000, 0.085, 846},
};
// 18,675 to 18,875 inclusive meets no row: the last test is not at its Lower.
constexpr Band marriedClaimingSingleRows[] = {
    {below, 2175, 0, 0},
    {below, 6300, 2175, 0.02},
    {below, 10425, 6300, 0.045, 83},
    {below, 18675, 10425, 0.07, 268},
    {above, 18875, 18675, 0.085, 846},
};
// clang-format on
constexpr Table married{"Maine, Married", marriedRows};
constexpr Table single{"Maine, Single", singleRows};
constexpr Table marriedClaimingSingle{"Maine, Married Claiming Single", marriedClaimingSingleRows};
constexpr FixedCount perExemption{"personal exemption", 2750};
constexpr FixedAmount forgiven{"tax up to which it is forgiven", 40};
}  // namespace maine

/// Maine, 1999. From 12 exemptions on the 16-bit product fails, and nothing is deducted: required.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `payPeriods`, `grossPay`, `stateTax`, `staAdd`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `statePreTax`, `exemptions`, `stateWage`.
void MaineTax() {
  using namespace maine;
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("Year's wage", work.stateWage, yearsWage);
  step("Year's wage less the personal exemptions", work.stateWage,
       [&] { return work.stateWage - line("Personal exemptions", work.exemptions * perExemption); });
  step("Year's tax", payData.stateTax, []() -> std::optional<Amount> {
    if (payData.maritalStat == status::married) return taxBy(married);
    if (payData.maritalStat == status::single) return taxBy(single);
    if (payData.maritalStat == status::marriedClaimingSingle) return taxBy(marriedClaimingSingle);
    return keep("the state has no table for that status");
  });
  step("Year's tax, forgiven where it is small", payData.stateTax, []() -> Amount {
    if (payData.stateTax <= forgiven) return 0;
    return payData.stateTax;
  });
  step("Pay period's tax", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("Pay period's tax in whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
  finish();
}

/// Minnesota, 1999: dollars a year.
namespace minnesota {
// clang-format off
constexpr Band marriedRows[] = {
    {atMost, 4450, 0, 0},
    {atMost, 29670, 4450, 0.06},
    {atMost, 104650, 29670, 0.08, 1513},
    {above, 104650, 104650, 0.085, 7512},
};
constexpr Band singleRows[] = {
    {atMost, 1550, 0, 0},
    {atMost, 18800, 1550, 0.06},
    {atMost, 58220, 18800, 0.08, 1035},
    {above, 58220, 58220, 0.085, 4189},
};
// clang-format on
constexpr Table married{"Minnesota, Married", marriedRows};
constexpr Table single{"Minnesota, Single", singleRows};
constexpr FixedCount perExemption{"allowance for each exemption", 2750};
}  // namespace minnesota

/// Minnesota, 1999. Married Claiming Single has no table. From 12 exemptions on the 16-bit product fails, and
/// `stateDepsDed`, dollars a year, keeps what the last routine left. `staAdd` is rounded together with the tax.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `payPeriods`, `grossPay`, `stateTax`, `staAdd`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Minnesota() {
  using namespace minnesota;
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("Year's wage", work.stateWage, yearsWage);
  step("Allowance for the exemptions", payData.stateDepsDed, [&] { return work.exemptions * perExemption; });
  step("Year's wage less the allowance", work.stateWage, [&] { return work.stateWage - payData.stateDepsDed; });
  step("Year's tax", payData.stateTax, []() -> std::optional<Amount> {
    if (payData.maritalStat == status::married) return taxBy(married);
    if (payData.maritalStat == status::single) return taxBy(single);
    return keep("the state has tables for Married and for Single only");
  });
  step("Pay period's tax", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("Pay period's tax with the additional amount", payData.stateTax,
       [] { return payData.stateTax + payData.staAdd; });
  step("State tax in whole dollars", payData.stateTax, [] { return roundedToDollars(payData.stateTax); });
  floorAtZero();
}

/// Mississippi, 1999: dollars a year.
namespace mississippi {
// clang-format off
// The second test is strict, the third inclusive.
constexpr Band rows[] = {
    {below, 0.01, 0, 0},
    {below, 5000, 0, 0.03},
    {atMost, 10000, 5000, 0.04, 150},
    {above, 10000, 10000, 0.05, 350},
};
// clang-format on
constexpr Table table{"Mississippi", rows};
constexpr const char* standardDeduction = "standard deduction";
constexpr FixedAmount singleDeduction{standardDeduction, 2300};
constexpr FixedAmount spouseNotEmployedDeduction{standardDeduction, 4200};
constexpr FixedAmount spouseEmployedDeduction{standardDeduction, 2100};
constexpr FixedAmount headOfFamilyDeduction{standardDeduction, 3400};
constexpr FixedCount perDependent{"exemption for each dependent", 1500};
}  // namespace mississippi

/// Mississippi, 1999. `staAdd` is the personal exemption, dollars a year, and is added to the period's withholding too:
/// required. `stateDepsDed`: dollars a year.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staDeps`, `staMarried`, `staAdd`, `stateDepsDed`,
/// `stateStdDed`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`, `stateStdDed`.
void Mississippi() {
  using namespace mississippi;
  Worksheet& work = worksheet();
  step("Standard deduction", work.stateStdDed, []() -> std::optional<Amount> {
    switch (payData.staMarried.value()) {
      case stateStatus::single: return singleDeduction;
      case stateStatus::spouseNotEmployed: return spouseNotEmployedDeduction;
      case stateStatus::spouseEmployed: return spouseEmployedDeduction;
      case stateStatus::headOfFamily: return headOfFamilyDeduction;
      default: return keep("the state has no deduction for the filing status chosen");
    }
  });
  StateBase();
  step("Year's wage", work.stateWage, yearsWage);
  step("Exemption for the dependents", payData.stateDepsDed, [] { return payData.staDeps * perDependent; });
  step("Year's wage less the deductions", work.stateWage, [&] {
    noteIfAny(
        payData.staAdd,
        "The additional amount is taken off the year's wage as the personal exemption, and is added to the tax too.");
    return work.stateWage - (work.stateStdDed + payData.stateDepsDed + payData.staAdd);
  });
  step("Year's tax", payData.stateTax, [] { return taxBy(table); });
  step("Pay period's tax", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("Pay period's tax in whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
