#include "states/states.h"

/// The year's wage through one band table, less an annual credit, divided back by the pay periods. Four decimals stay.

namespace tallyfin {

using enum Test;

/// Alabama, 1999: dollars a year.
namespace alabama {
// clang-format off
constexpr Band single[] = {
    {atMost, 500, 0, 0.02},
    {atMost, 3000, 500, 0.04, 10},
    {above, 3000, 3000, 0.05, 110},
};
constexpr Band married[] = {
    {atMost, 1000, 0, 0.02},
    {atMost, 6000, 1000, 0.04, 20},
    {above, 6000, 6000, 0.05, 220},
};
// clang-format on

/// What a choice of `staMarried` gives: the cap of the standard deduction, the personal exemption, the table.
struct Option {
  int cap;
  int personalExemption;
  Bands bands;
};
constexpr Option options[] = {
    {2000, 1500, single},   // 1: Single, claiming full personal exemption
    {2000, 0, single},      // 2: Single, claiming none
    {4000, 3000, married},  // 3: Married, claiming for both spouses
    {2000, 1500, single},   // 4: Married, claiming for yourself only
    {2000, 0, single},      // 5: Married, claiming none
};

static const Option* chosen() {
  const int option = payData.staMarried.value();
  return option >= 1 && option <= 5 ? &options[option - 1] : nullptr;
}
}  // namespace alabama

/// Alabama, 1999. It overwrites `staExmp` with the standard deduction, whole dollars a year. Without an option no table
/// runs: the last `stateTax` is divided by the pay periods again, so that each calculation shrinks it.
/// `stateDepsDed`: the personal exemption, dollars a year.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `fedTax`, `stateTax`, `staExmp`, `staDeps`, `staMarried`,
/// `staAdd`, `stateDepsDed`. Writes `state401k`, `stateTax`, `staExmp`, `stateDepsDed`, `statePreTax`, `stateWage`.
void Alabama() {
  Worksheet& work = worksheet();
  const alabama::Option* option = alabama::chosen();
  Money annualFedTax;
  Int16 dependentDeduction;
  StateBase();
  step("The year's wage", work.stateWage, [] { return stateGross() * payData.payPeriods; });
  step("Standard deduction, 20% of it, to a whole dollar", payData.staExmp,
       [&] { return integerRounded(toReal(work.stateWage) * 0.2); });
  step(
      "Standard deduction up to its cap, and the personal exemption of the option",
      [&] {
        if (!option) return false;
        if (payData.staExmp > option->cap) payData.staExmp = option->cap;
        payData.stateDepsDed = option->personalExemption;
        return true;
      },
      payData.staExmp, payData.stateDepsDed);
  step("The year's federal tax", annualFedTax, [] { return payData.fedTax * payData.payPeriods; });
  step("Deduction of 300 for each dependent", dependentDeduction, [] { return payData.staDeps * 300; });
  step("Less federal tax, personal exemption, standard deduction and dependents", work.stateWage,
       [&] { return work.stateWage - (annualFedTax + payData.stateDepsDed + payData.staExmp + dependentDeduction); });
  step("The year's tax by the table of the option", payData.stateTax,
       [&] { return option ? std::optional(taxBy(option->bands)) : std::nullopt; });
  step("The pay period's share, plus the additional amount asked for", payData.stateTax,
       [] { return perPeriod(payData.stateTax) + payData.staAdd; });
  floorAtZero();
}

/// Arkansas, 1999: dollars a year.
namespace arkansas {
// clang-format off
constexpr Band bands[] = {
    {atMost, 3000, 0, 0.01},
    {atMost, 6000, 3000, 0.025, 30},
    {atMost, 9000, 6000, 0.035, 105},
    {atMost, 15000, 9000, 0.045, 210},
    {atMost, 25000, 15000, 0.06, 480},
    {above, 25000, 25000, 0.07, 1080},
};
// clang-format on
}  // namespace arkansas

/// Arkansas, 1999. `stateStdDed` comes off the annual tax, and this routine doesn't assign it: it is what the last
/// state that has one left there.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `frequency`, `staAdd`, `stateStdDed`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `statePreTax`, `exemptions`, `stateWage`.
void Arkansas() {
  Worksheet& work = worksheet();
  Int16 credit;
  parseExemptions();
  StateBase();
  step("The pay period's wage that the state taxes", work.stateWage, stateGross);
  step("The year's wage", work.stateWage, [&] { return work.stateWage * periodsPerYear.now(); });
  step("Less the standard deduction of 2,000", work.stateWage, [&] { return work.stateWage - 2000; });
  step("The year's tax by the table", payData.stateTax, [] { return taxBy(arkansas::bands); });
  step("Credit of 20 for each exemption", credit, [&] { return work.exemptions * 20; });
  step("Less the credit, and the second deduction that another state has left", payData.stateTax,
       [&] { return payData.stateTax - (work.stateStdDed + credit); });
  step("The pay period's share, plus the additional amount asked for", payData.stateTax,
       [] { return perPeriod(payData.stateTax) + payData.staAdd; });
  floorAtZero();
}

/// Delaware, 1999: dollars a year.
namespace delaware {
// clang-format off
constexpr Band bands[] = {
    {below, 2000, 0, 0},
    {below, 5000, 2000, 0.026},
    {below, 10000, 5000, 0.042, 78},
    {below, 20000, 10000, 0.052, 293},
    {below, 25000, 20000, 0.056, 813},
    {below, 60000, 25000, 0.0595, 1093},
    {atLeast, 60000, 60000, 0.064, 3175.5},
};
// clang-format on

/// By `staMarried`: Single, Married, Married Filing Separately.
static Money standardDeduction() {
  switch (payData.staMarried.value()) {
    case stateStatus::single: return 3250;
    case stateStatus::married: return 4000;
    case stateStatus::separately: return 2000;
    default: return 0;
  }
}
}  // namespace delaware

/// Delaware, 1999. `stateDepsDed`: a credit against the annual tax, dollars a year.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staDeps`, `staMarried`, `staAdd`, `stateDepsDed`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void Delaware() {
  Worksheet& work = worksheet();
  Money standardDeduction;
  StateBase();
  step("The year's wage", work.stateWage, [] { return stateGross() * payData.payPeriods; });
  step("Standard deduction of the filing status", standardDeduction, delaware::standardDeduction);
  step("Less the standard deduction", work.stateWage, [&] { return work.stateWage - standardDeduction; });
  step("The year's tax by the table", payData.stateTax, [] { return taxBy(delaware::bands); });
  step("Credit of 100 for each dependent", payData.stateDepsDed, [] { return payData.staDeps * 100; });
  step("Less the credit", payData.stateTax, [] { return payData.stateTax - payData.stateDepsDed; });
  step("The pay period's share, plus the additional amount asked for", payData.stateTax,
       [] { return perPeriod(payData.stateTax) + payData.staAdd; });
  floorAtZero();
}

/// Kentucky, 1999: dollars a year.
namespace kentucky {
// clang-format off
// The third test is strict, between inclusive ones.
constexpr Band bands[] = {
    {atMost, 3000, 0, 0.02},
    {atMost, 4000, 3000, 0.03, 60},
    {below, 5000, 4000, 0.04, 90},
    {atMost, 8000, 5000, 0.05, 130},
    {above, 8000, 8000, 0.06, 280},
};
// clang-format on
}  // namespace kentucky

/// Kentucky, 1999.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `staAdd`, `exemptionsText`. Writes `state401k`, `stateTax`,
/// `statePreTax`, `exemptions`, `stateWage`.
void Kentucky() {
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("The year's wage less the standard deduction of 650", work.stateWage,
       [] { return stateGross() * payData.payPeriods - 650; });
  step("The year's tax by the table", payData.stateTax, [] { return taxBy(kentucky::bands); });
  Money afterCredit;
  step(
      "The pay period's share, after a credit of 20 for each exemption",
      [&] {
        afterCredit = payData.stateTax - work.exemptions * 20;
        payData.stateTax = perPeriod(afterCredit);
      },
      afterCredit, payData.stateTax);
  finish();
}

}  // namespace tallyfin
