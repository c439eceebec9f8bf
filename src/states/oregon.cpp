#include "states/oregontables.h"
#include "states/states.h"

namespace TALLYFIN_FIGURES {

namespace oregon {
/// Limit of the federal tax that is deducted, dollars a pay period.
constexpr PerFrequency<Dollars> federalCap{58, 125, 115, 250, "most federal tax"};

/// The tables of the status. Single with 3 exemptions or more has tables with the bounds of Married.
static const PerFrequency<CreditedBands>* chosenTables() {
  if (payData.maritalStat == status::married) return &married;
  if (payData.maritalStat != status::single) return nullptr;
  if (worksheet().exemptions < 3) return &singleBelowThree;
  return &singleThreeOrMore;
}

/// Less a credit for each exemption, in one real step.
static Amount taxOf(RowsOf<CreditedBand> table, const Amount& x, const Count& exemptions) {
  const CreditedBand& band = bandOf(table, x);
  const Rate credit = named("credit for each exemption", band.credit) * toReal(exemptions);
  const Amount lower = named("lower bound of the row", band.lower.amount);
  return fromReal(toReal(x - lower) * named("rate of the row", band.rate) + named("tax at the lower bound", band.plus) -
                  credit);
}
}  // namespace oregon

/// Oregon, 1999. Married Claiming Single has no table. `stateDepsDed`: the federal allowance, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `fedTax`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Oregon() {
  using namespace oregon;
  Worksheet& work = worksheet();
  parseExemptions();
  step("Federal tax that is allowed", payData.stateDepsDed, [] { return least(payData.fedTax, federalCap.now()); });
  // Monthly has no such step: the limited tax is deducted once for any number of exemptions.
  step("Federal tax that is allowed, once for each exemption", payData.stateDepsDed, [&]() -> std::optional<Amount> {
    if (!frequencyKnown()) return keep("no pay frequency is chosen");
    if (payData.frequency != frequency::monthly) return payData.stateDepsDed * work.exemptions;
    note("Paid monthly, the federal tax is allowed once, however many the exemptions.");
    return payData.stateDepsDed;
  });
  StateBase();
  step("Wage less the federal tax that is allowed", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [&]() -> std::optional<Amount> {
    const PerFrequency<CreditedBands>* tables = chosenTables();
    if (!tables) return keep("the state has tables for Married and for Single only");
    return taxOf(tables->now(), work.stateWage, work.exemptions);
  });
  finish();
}

}  // namespace TALLYFIN_FIGURES
