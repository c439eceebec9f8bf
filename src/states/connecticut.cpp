#include "states/connecticuttables.h"
#include "states/states.h"

namespace TALLYFIN_FIGURES {

namespace connecticut {
/// The tables of a rate letter. Rate D has no credits.
struct Schedule {
  TableOf<Exemption> exemptions;
  Table bands;
  TableOf<Credit> credits;
};
constexpr Schedule schedules[] = {
    {{"Connecticut, exemptions of Rate A", exemptionsA},
     {"Connecticut, Rate A", bandsAAndD},
     {"Connecticut, credits of Rate A", creditsA}},
    {{"Connecticut, exemptions of Rate B", exemptionsB},
     {"Connecticut, Rate B", bandsB},
     {"Connecticut, credits of Rate B", creditsB}},
    {{"Connecticut, exemptions of Rate C", exemptionsCAndD},
     {"Connecticut, Rate C", bandsC},
     {"Connecticut, credits of Rate C", creditsC}},
    {{"Connecticut, exemptions of Rate D", exemptionsCAndD}, {"Connecticut, Rate D", bandsAAndD}, {"", {}}},
};

/// The schedule of the worksheet's rate letter; null beyond D. Nothing assigns the letter, so Rate A is always used.
static const Schedule* chosen() {
  const int letter = worksheet().staRate.value();
  if (letter < 0 || letter > 3) return nullptr;
  return &schedules[letter];
}
constexpr const char* noSchedule = "the state has no table for that rate letter";
}  // namespace connecticut

/// Connecticut, 1999. The letter chosen among the state options isn't used here.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `staRate`. Writes
/// `state401k`, `stateTax`, `statePreTax`, `stateWage`.
void Connecticut() {
  using namespace connecticut;
  Worksheet& work = worksheet();
  Amount annualBase;
  Amount exemption;
  Single creditFraction = 0;
  StateBase();
  step("Wage that the state taxes", work.stateWage, stateGross);
  step(
      "Year's wage",
      [&] {
        if (frequencyKnown()) work.stateWage = work.stateWage * periodsPerYear.now();
        annualBase = work.stateWage;
      },
      work.stateWage, annualBase);
  step("Exemption", exemption, [&]() -> std::optional<Amount> {
    const Schedule* schedule = chosen();
    if (!schedule) return keep(noSchedule);
    return named("exemption", bandOf(schedule->exemptions, work.stateWage).amount.amount);
  });
  step("Year's wage less the exemption", work.stateWage, [&] { return work.stateWage - exemption; });
  step("Year's tax", payData.stateTax, []() -> std::optional<Amount> {
    const Schedule* schedule = chosen();
    if (!schedule) return keep(noSchedule);
    return taxBy(schedule->bands);
  });
  step("Part of the tax that is credited", creditFraction, [&]() -> Single {
    const Schedule* schedule = chosen();
    if (schedule && !schedule->credits.rows.empty())
      return named("credit", bandOf(schedule->credits, annualBase).fraction);
    note("That rate letter has no credits.");
    return 0;
  });
  step("Year's tax less the credit", payData.stateTax, [&] {
    return fromReal(toReal(payData.stateTax) *
                    line("Part of the tax that remains", named("whole", 1.0) - asRate(creditFraction)));
  });
  step("Pay period's tax with the additional amount", payData.stateTax,
       [] { return line("Pay period's tax", perPeriod(payData.stateTax)) + payData.staAdd; });
  floorAtZero();
}

}  // namespace TALLYFIN_FIGURES
