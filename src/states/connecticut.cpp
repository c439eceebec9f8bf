#include "states/connecticuttables.h"
#include "states/states.h"

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
    rowApplied({.test = row.test,
                .bound = row.bound.amount,
                .plus = toReal(row.amount.amount),
                .x = work.stateWage,
                .gives = AppliedRow::Gives::amount});
    return row.amount.amount;
  });
  step("Less the exemption", work.stateWage, [&] { return work.stateWage - exemption; });
  step("The year's tax by the table", payData.stateTax,
       [&] { return schedule ? std::optional(taxBy(schedule->bands)) : std::nullopt; });
  step("Part of the tax that is credited, by its table", creditFraction, [&]() -> std::optional<float> {
    if (!schedule || schedule->credits.empty()) return std::nullopt;
    const connecticut::Credit& row = bandOf(schedule->credits, annualBase);
    rowApplied({.test = row.test,
                .bound = row.bound.amount,
                .rate = row.fraction,
                .x = annualBase,
                .gives = AppliedRow::Gives::fraction});
    return row.fraction;
  });
  step("Less that part", payData.stateTax,
       [&] { return fromReal(toReal(payData.stateTax) * (1 - static_cast<double>(creditFraction))); });
  step("The pay period's share, plus the additional amount asked for", payData.stateTax,
       [] { return perPeriod(payData.stateTax) + payData.staAdd; });
  floorAtZero();
}

}  // namespace tallyfin
