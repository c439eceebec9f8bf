#include <algorithm>

#include "states/northcarolinatables.h"
#include "states/oregontables.h"
#include "states/states.h"

/// Oregon and North Carolina, whose allowances depend on more than a count: on the federal tax, and on the wage.

namespace tallyfin {

namespace oregon {
/// The most of the federal tax that is allowed, dollars a pay period.
constexpr PerFrequency<int> federalCap{58, 125, 115, 250};

/// The tables of the status; a Single employee with 3 exemptions or more has those with the bounds of Married.
static const PerFrequency<CreditedBands>* chosenTables() {
  if (payData.maritalStat == status::married) return &married;
  if (payData.maritalStat == status::single) return worksheet().exemptions < 3 ? &singleBelowThree : &singleThreeOrMore;
  return nullptr;
}
}  // namespace oregon

/// Oregon, 1999. Married Claiming Single has no table. `stateDepsDed`: the federal allowance, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `fedTax`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Oregon() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Federal tax allowed, up to its cap", payData.stateDepsDed,
       [] { return std::min<Money>(payData.fedTax, oregon::federalCap.now()); });
  // Monthly has no such step: its allowance is the capped tax once, however many exemptions.
  step("That for each exemption, but for Monthly", payData.stateDepsDed, [&] {
    const bool each = frequencyKnown() && payData.frequency != frequency::monthly;
    return each ? payData.stateDepsDed * work.exemptions : payData.stateDepsDed;
  });
  StateBase();
  step("Gross pay less the untaxed amounts and the allowance", work.stateWage,
       [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table of status and pay period", payData.stateTax, [&]() -> std::optional<Money> {
    const auto* tables = oregon::chosenTables();
    if (!tables) return std::nullopt;
    const oregon::CreditedBand& band = bandOf(tables->now(), work.stateWage);
    const double credit = band.credit * toReal(work.exemptions);
    const Money tax = fromReal(toReal(work.stateWage - band.lower.amount) * band.rate + band.plus - credit);
    rowApplied({band.test, band.bound.amount, band.lower.amount, band.rate, band.plus, work.stateWage, credit});
    return tax;
  });
  finish();
}

namespace northcarolina {
/// Dollars a pay period: below the income test of the status the higher amount, from it on the lower one.
constexpr PerFrequency<PerHead> higherAmount{real(48.08), real(104.17), real(96.15), real(208.33)};
constexpr PerFrequency<PerHead> lowerAmount{real(38.46), real(83.33), real(76.92), real(166.67)};

struct Status {
  PerFrequency<Dollars> incomeTest;
  PerFrequency<Bands> bands;
};
constexpr Status singleStatus{{1153.85, 2500, 2307.69, 5000}, single};
constexpr Status marriedStatus{{961.54, 2083.33, 1923.08, 4166.67}, married};
constexpr Status headOfFamilyStatus{{1538.46, 3333.33, 3076.92, 6666.67}, headOfFamily};

/// By `staMarried`; there is none for a value that isn't offered.
static const Status* chosenStatus() {
  switch (payData.staMarried.value()) {
    case stateStatus::single: return &singleStatus;
    case stateStatus::married: return &marriedStatus;
    case stateStatus::headOfFamily: return &headOfFamilyStatus;
    default: return nullptr;
  }
}
}  // namespace northcarolina

/// North Carolina, 1999. The income test looks at the wage before the allowance, the table at the wage after it. A
/// status that isn't offered loses the last `stateDepsDed` and has no table. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staDeps`, `staMarried`, `staAdd`, `stateDepsDed`.
/// Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void NCarolina() {
  Worksheet& work = worksheet();
  const northcarolina::Status* status = northcarolina::chosenStatus();
  StateBase();
  step("The pay period's wage that the state taxes", work.stateWage, stateGross);
  step("Allowance for the dependents, by the income test of the status", payData.stateDepsDed,
       [&]() -> std::optional<Money> {
         if (!status) return std::nullopt;
         const bool below = work.stateWage < status->incomeTest.now().amount;
         return payData.staDeps * (below ? northcarolina::higherAmount : northcarolina::lowerAmount).now();
       });
  step("Less the allowance", work.stateWage, [&] { return work.stateWage - payData.stateDepsDed; });
  step("Tax by the table of filing status and pay period", payData.stateTax,
       [&] { return status ? std::optional(taxBy(status->bands.now())) : std::nullopt; });
  finish();
}

}  // namespace tallyfin
