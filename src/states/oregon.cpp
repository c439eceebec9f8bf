#include <algorithm>

#include "states/oregontables.h"
#include "states/states.h"

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

}  // namespace tallyfin
