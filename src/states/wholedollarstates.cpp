#include "states/states.h"

/// The year's wage through a band table, and the period's tax rounded to whole dollars.

namespace tallyfin {

using enum Test;

/// Iowa, 1999: dollars a year.
namespace iowa {
// clang-format off
constexpr Band bands[] = {
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
}  // namespace iowa

/// Iowa, 1999. Federal withholding comes off before annualising. `stateDepsDed`: the standard deduction, dollars a
/// year.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `fedTax`, `frequency`, `staAdd`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void IowaTax() {
  Worksheet& work = worksheet();
  Int16 credit;
  parseExemptions();
  StateBase();
  step("Gross pay less the untaxed amounts and the federal tax", work.stateWage,
       [] { return stateGross() - payData.fedTax; });
  step("The year's wage", work.stateWage, [&] { return work.stateWage * periodsPerYear.now(); });
  step("Standard deduction, 1,500 up to one exemption and 3,600 from two", payData.stateDepsDed,
       [&]() -> std::optional<Money> {
         if (work.exemptions == 0 || work.exemptions == 1) return 1500;
         if (work.exemptions >= 2 && work.exemptions <= 15) return 3600;
         return std::nullopt;
       });
  step("Less the standard deduction", work.stateWage, [&] { return work.stateWage - payData.stateDepsDed; });
  step("The year's tax by the table", payData.stateTax, [] { return taxBy(iowa::bands); });
  step("Credit, 20 for each of the first two exemptions and 40 for each further one", credit,
       [&]() -> std::optional<Int16> {
         if (work.exemptions >= 0 && work.exemptions <= 2) return work.exemptions * 20;
         if (work.exemptions >= 3 && work.exemptions <= 15) return (work.exemptions - 2) * 40 + 40;
         return std::nullopt;
       });
  Money afterCredit;
  step(
      "The pay period's share, after the credit",
      [&] {
        afterCredit = payData.stateTax - credit;
        payData.stateTax = perPeriod(afterCredit);
      },
      afterCredit, payData.stateTax);
  step("To whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
  finish();
}

/// Maine, 1999: dollars a year. A wage in a gap keeps the last `stateTax`; the gaps are required.
namespace maine {
// clang-format off
// Exactly 37,350 meets no row.
constexpr Band married[] = {
    {below, 4350, 0, 0},
    {below, 12600, 4350, 0.02},
    {below, 20850, 12600, 0.045, 165},
    {below, 37350, 20850, 0.07, 536},
    {above, 37350, 37350, 0.085, 1691},
};
// Exactly 18,000 meets no row.
constexpr Band single[] = {
    {below, 1500, 0, 0},
    {below, 5650, 1500, 0.02},
    {below, 9750, 5650, 0.045, 83},
    {below, 18000, 9750, 0.07, 268},
    {above, 18000, 18000, 0.085, 846},
};
// 18,675 to 18,875 inclusive meets no row: the last test is not at its Lower.
constexpr Band marriedClaimingSingle[] = {
    {below, 2175, 0, 0},
    {below, 6300, 2175, 0.02},
    {below, 10425, 6300, 0.045, 83},
    {below, 18675, 10425, 0.07, 268},
    {above, 18875, 18675, 0.085, 846},
};
// clang-format on
}  // namespace maine

/// Maine, 1999. From 12 exemptions on the 16-bit product fails, and nothing is deducted at all.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `payPeriods`, `grossPay`, `stateTax`, `staAdd`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `statePreTax`, `exemptions`, `stateWage`.
void MaineTax() {
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("The year's wage", work.stateWage, [] { return stateGross() * payData.payPeriods; });
  step("Less 2,750 for each exemption", work.stateWage, [&] { return work.stateWage - work.exemptions * 2750; });
  step("The year's tax by the table of the status", payData.stateTax, []() -> std::optional<Money> {
    if (payData.maritalStat == status::married) return taxBy(maine::married);
    if (payData.maritalStat == status::single) return taxBy(maine::single);
    if (payData.maritalStat == status::marriedClaimingSingle) return taxBy(maine::marriedClaimingSingle);
    return std::nullopt;
  });
  step("A year's tax up to 40 is forgiven", payData.stateTax,
       [] { return payData.stateTax <= 40 ? Money{} : payData.stateTax; });
  step("The pay period's share", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("To whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
  finish();
}

/// Minnesota, 1999: dollars a year.
namespace minnesota {
// clang-format off
constexpr Band married[] = {
    {atMost, 4450, 0, 0},
    {atMost, 29670, 4450, 0.06},
    {atMost, 104650, 29670, 0.08, 1513},
    {above, 104650, 104650, 0.085, 7512},
};
constexpr Band single[] = {
    {atMost, 1550, 0, 0},
    {atMost, 18800, 1550, 0.06},
    {atMost, 58220, 18800, 0.08, 1035},
    {above, 58220, 58220, 0.085, 4189},
};
// clang-format on
}  // namespace minnesota

/// Minnesota, 1999. Married Claiming Single has no table. From 12 exemptions on the 16-bit product fails, and
/// `stateDepsDed`, dollars a year, keeps what the last routine left. `staAdd` is rounded together with the tax.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `payPeriods`, `grossPay`, `stateTax`, `staAdd`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Minnesota() {
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("The year's wage", work.stateWage, [] { return stateGross() * payData.payPeriods; });
  step("Allowance of 2,750 for each exemption", payData.stateDepsDed, [&] { return work.exemptions * 2750; });
  step("Less the allowance", work.stateWage, [&] { return work.stateWage - payData.stateDepsDed; });
  step("The year's tax by the table of the status", payData.stateTax, []() -> std::optional<Money> {
    if (payData.maritalStat == status::married) return taxBy(minnesota::married);
    if (payData.maritalStat == status::single) return taxBy(minnesota::single);
    return std::nullopt;
  });
  step("The pay period's share", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("Plus the additional amount asked for", payData.stateTax, [] { return payData.stateTax + payData.staAdd; });
  step("To whole dollars", payData.stateTax, [] { return roundedToDollars(payData.stateTax); });
  floorAtZero();
}

/// Mississippi, 1999: dollars a year.
namespace mississippi {
// clang-format off
// The second test is strict, the third inclusive.
constexpr Band bands[] = {
    {below, 0.01, 0, 0},
    {below, 5000, 0, 0.03},
    {atMost, 10000, 5000, 0.04, 150},
    {above, 10000, 10000, 0.05, 350},
};
// clang-format on
}  // namespace mississippi

/// Mississippi, 1999. `staAdd` is the personal exemption, dollars a year, and is added to the period's withholding all
/// the same. `stateDepsDed`: dollars a year.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staDeps`, `staMarried`, `staAdd`, `stateDepsDed`,
/// `stateStdDed`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`, `stateStdDed`.
void Mississippi() {
  Worksheet& work = worksheet();
  step("Standard deduction of the filing status", work.stateStdDed, []() -> std::optional<Money> {
    switch (payData.staMarried.value()) {
      case stateStatus::single: return 2300;             // Single
      case stateStatus::spouseNotEmployed: return 4200;  // Married. Spouse NOT employed
      case stateStatus::spouseEmployed: return 2100;     // Married. Spouse IS employed.
      case stateStatus::headOfFamily: return 3400;       // Head of Family
      default: return std::nullopt;                      // as the last routine left it
    }
  });
  StateBase();
  step("The year's wage", work.stateWage, [] { return stateGross() * payData.payPeriods; });
  step("Exemption of 1,500 for each dependent", payData.stateDepsDed, [] { return payData.staDeps * 1500; });
  step("Less standard deduction, dependents and the personal exemption", work.stateWage,
       [&] { return work.stateWage - (work.stateStdDed + payData.stateDepsDed + payData.staAdd); });
  step("The year's tax by the table", payData.stateTax, [] { return taxBy(mississippi::bands); });
  step("The pay period's share", payData.stateTax, [] { return perPeriod(payData.stateTax); });
  step("To whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
  finish();
}

}  // namespace tallyfin
