#include "states/statebase.h"

#include "engine/settings.h"

namespace tallyfin {

void StateBase() {
  step("401(k) that the state leaves untaxed", payData.state401k,
       [] { return settings::sta401.text() == "Y" ? payData.amt401k : Money{}; });
  step("Pre-tax amount that the state leaves untaxed", payData.statePreTax,
       [] { return settings::staPreTax.text() == "Y" ? payData.preTax : Money{}; });
}

Money stateGross() { return payData.grossPay - (payData.statePreTax + payData.state401k); }

bool frequencyKnown() { return payData.frequency >= 0 && payData.frequency <= 3; }

void parseExemptions() {
  step("Number of exemptions", worksheet().exemptions, [] { return toInt16(worksheet().exemptionsText()); });
}

Money taxBy(Bands table) { return taxOf(table, worksheet().stateWage); }

std::optional<Money> taxByStatus(const PerFrequency<Bands>& married, const PerFrequency<Bands>& single) {
  if (payData.maritalStat == status::married) return taxBy(married.now());
  if (payData.maritalStat == status::single) return taxBy(single.now());
  return std::nullopt;
}

Money perPeriod(Money annual) { return fromReal(toReal(annual) / toReal(payData.payPeriods)); }

void finish() {
  step("Plus the additional amount asked for, and at least 0", payData.stateTax,
       [] { return atLeastZero(payData.stateTax + payData.staAdd); });
}

void floorAtZero() {
  step("At least 0", payData.stateTax, [] { return atLeastZero(payData.stateTax); });
}

}  // namespace tallyfin
