#include "states/connecticuttables.h"
#include "states/longscheduletables.h"
#include "states/states.h"

/// The long schedules: Connecticut by the year, with an exemption and a credit that are phased out, Georgia and Idaho
/// by the pay period.

namespace tallyfin {

namespace connecticut {
/// What a rate letter gives. Rate D has no credits.
struct Schedule {
  std::span<const Exemption> exemptions;
  Bands bands;
  std::span<const Credit> credits;
};
constexpr Schedule schedules[] = {
    {exemptionsA, bandsAAndD, creditsA},
    {exemptionsB, bandsB, creditsB},
    {exemptionsCAndD, bandsC, creditsC},
    {exemptionsCAndD, bandsAAndD, {}},
};

/// The schedule of the worksheet's rate letter, which nothing assigns: only Rate A runs. There is none beyond D.
static const Schedule* chosen() {
  const int letter = worksheet().staRate.value();
  return letter >= 0 && letter <= 3 ? &schedules[letter] : nullptr;
}
}  // namespace connecticut

/// Connecticut, 1999. The letter picked among the state options doesn't reach this routine.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `staRate`. Writes
/// `state401k`, `stateTax`, `statePreTax`, `stateWage`.
void Connecticut() {
  Worksheet& work = worksheet();
  const connecticut::Schedule* schedule = connecticut::chosen();
  Money annualBase;
  Money exemption;
  float creditFraction = 0;
  StateBase();
  step("The pay period's wage that the state taxes", work.stateWage, stateGross);
  step(
      "The year's wage",
      [&] {
        if (frequencyKnown()) work.stateWage = work.stateWage * periodsPerYear.now();
        annualBase = work.stateWage;
      },
      work.stateWage);
  step("Exemption by its table", exemption, [&]() -> std::optional<Money> {
    if (!schedule) return std::nullopt;
    const connecticut::Exemption& row = bandOf(schedule->exemptions, work.stateWage);
    rowApplied(
        {row.test, row.bound.amount, 0, 0, toReal(row.amount.amount), work.stateWage, 0, AppliedRow::Gives::amount});
    return row.amount.amount;
  });
  step("Less the exemption", work.stateWage, [&] { return work.stateWage - exemption; });
  step("The year's tax by the table", payData.stateTax,
       [&] { return schedule ? std::optional(taxBy(schedule->bands)) : std::nullopt; });
  step("Part of the tax that is credited, by its table", creditFraction, [&]() -> std::optional<float> {
    if (!schedule || schedule->credits.empty()) return std::nullopt;
    const connecticut::Credit& row = bandOf(schedule->credits, annualBase);
    rowApplied({row.test, row.bound.amount, 0, row.fraction, 0, annualBase, 0, AppliedRow::Gives::fraction});
    return row.fraction;
  });
  step("Less that part", payData.stateTax,
       [&] { return fromReal(toReal(payData.stateTax) * (1 - static_cast<double>(creditFraction))); });
  step("The pay period's share, plus the additional amount asked for", payData.stateTax,
       [] { return perPeriod(payData.stateTax) + payData.staAdd; });
  floorAtZero();
}

namespace georgia {
/// By `staMarried`: Single, Married, Married Filing Separately.
constexpr PerFrequency<Dollars> singleDeduction{44.25, 95.75, 88.5, 191.5};
constexpr PerFrequency<Dollars> marriedDeduction{57.5, 125, 115, 250};
constexpr PerFrequency<Dollars> separatelyDeduction{28.75, 62.5, 57.5, 125};

constexpr PerFrequency<int> perDependent{48, 104, 96, 208};
}  // namespace georgia

/// Georgia, 1999. `staMarried` sets the deductions and `maritalStat` picks the table. Without dependents the second
/// deduction is given back. `stateDepsDed`: that second deduction, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staDeps`, `staMarried`, `staAdd`,
/// `stateDepsDed`, `stateStdDed`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`,
/// `stateStdDed`.
void Georgia() {
  Worksheet& work = worksheet();
  Money dependentAllowance;
  step(
      "Standard deduction of the filing status, and as much for oneself",
      [&] {
        switch (payData.staMarried.value()) {
          case stateStatus::single: work.stateStdDed = georgia::singleDeduction.now().amount; break;
          case stateStatus::married: work.stateStdDed = georgia::marriedDeduction.now().amount; break;
          case stateStatus::separately: work.stateStdDed = georgia::separatelyDeduction.now().amount; break;
          default: return false;
        }
        payData.stateDepsDed = payData.staMarried == stateStatus::separately ? work.stateStdDed * 2 : work.stateStdDed;
        return true;
      },
      work.stateStdDed, payData.stateDepsDed);
  StateBase();
  step("Gross pay less the untaxed amounts and both deductions", work.stateWage,
       [&] { return stateGross() - work.stateStdDed - payData.stateDepsDed; });
  step("Allowance for the dependents", dependentAllowance,
       [] { return Money(georgia::perDependent.now()) * payData.staDeps; });
  step("Less the allowance; without dependents the second deduction is given back", work.stateWage, [&] {
    return payData.staDeps == 0 ? work.stateWage + payData.stateDepsDed : work.stateWage - dependentAllowance;
  });
  step("Tax by the table of status and pay period", payData.stateTax, []() -> std::optional<Money> {
    if (payData.maritalStat == status::marriedClaimingSingle) return taxBy(georgia::marriedClaimingSingle.now());
    return taxByStatus(georgia::married, georgia::single);
  });
  finish();
}

namespace idaho {
constexpr PerFrequency<PerHead> perExemption{real(48.08), real(104.17), real(96.15), real(208.33)};
}

/// Idaho, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Idaho() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * idaho::perExemption.now(); });
  StateBase();
  step("Gross pay less the untaxed amounts and the allowance", work.stateWage,
       [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table of status and pay period", payData.stateTax,
       [] { return taxByStatus(idaho::married, idaho::single); });
  finish();
}

}  // namespace tallyfin
