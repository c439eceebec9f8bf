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
void Connecticut() {
  Worksheet& work = worksheet();
  const connecticut::Schedule* schedule = connecticut::chosen();
  Money annualBase;
  Money exemption;
  float creditFraction = 0;
  StateBase();
  step([&] { work.stateWage = stateGross(); });
  step([&] {
    if (frequencyKnown()) work.stateWage = work.stateWage * periodsPerYear.now();
    annualBase = work.stateWage;
  });
  step([&] {
    if (schedule) exemption = bandOf(schedule->exemptions, work.stateWage).amount.amount;
  });
  step([&] { work.stateWage = work.stateWage - exemption; });
  step([&] {
    if (schedule) applyBands(schedule->bands);
  });
  step([&] {
    if (schedule && !schedule->credits.empty()) creditFraction = bandOf(schedule->credits, annualBase).fraction;
  });
  step([&] { payData.stateTax = fromReal(toReal(payData.stateTax) * (1 - static_cast<double>(creditFraction))); });
  step([] { payData.stateTax = perPeriod(payData.stateTax) + payData.staAdd; });
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
void Georgia() {
  Worksheet& work = worksheet();
  Money dependentAllowance;
  step([&] {
    switch (payData.staMarried.value()) {
      case 0: work.stateStdDed = georgia::singleDeduction.now().amount; break;
      case 3: work.stateStdDed = georgia::marriedDeduction.now().amount; break;
      case 6: work.stateStdDed = georgia::separatelyDeduction.now().amount; break;
      default: return;
    }
    payData.stateDepsDed = payData.staMarried == 6 ? work.stateStdDed * 2 : work.stateStdDed;
  });
  StateBase();
  step([&] { work.stateWage = stateGross() - work.stateStdDed - payData.stateDepsDed; });
  step([&] { dependentAllowance = Money(georgia::perDependent.now()) * payData.staDeps; });
  step([&] {
    work.stateWage = payData.staDeps == 0 ? work.stateWage + payData.stateDepsDed : work.stateWage - dependentAllowance;
  });
  step([] {
    if (payData.maritalStat == 0) applyBands(georgia::married.now());
    if (payData.maritalStat == 1) applyBands(georgia::single.now());
    if (payData.maritalStat == 2) applyBands(georgia::marriedClaimingSingle.now());
  });
  finish();
}

namespace idaho {
constexpr PerFrequency<PerHead> perExemption{48.08, 104.17, 96.15, 208.33};
}

/// Idaho, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
void Idaho() {
  Worksheet& work = worksheet();
  parseExemptions();
  step([&] { payData.stateDepsDed = work.exemptions * idaho::perExemption.now(); });
  StateBase();
  step([&] { work.stateWage = stateGross() - payData.stateDepsDed; });
  step([] {
    if (payData.maritalStat == 0) applyBands(idaho::married.now());
    if (payData.maritalStat == 1) applyBands(idaho::single.now());
  });
  finish();
}

}  // namespace tallyfin
