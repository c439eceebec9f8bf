#include "states/statebase.h"

#include "engine/settings.h"

namespace TALLYFIN_FIGURES {

void StateBase() {
  step("401(k) contribution that the state leaves untaxed", payData.state401k, [] {
    if (settings::sta401.text() == "Y") return payData.amt401k;
    noteIfAny(payData.amt401k, "The state taxes the 401(k) contribution too: its options don't deduct it.");
    return Amount(0);
  });
  step("Pre-tax amount that the state leaves untaxed", payData.statePreTax, [] {
    if (settings::staPreTax.text() == "Y") return payData.preTax;
    noteIfAny(payData.preTax, "The state taxes the pre-tax amount too: its options don't deduct it.");
    return Amount(0);
  });
}

Amount stateGross() {
  return line("Wage that the state taxes", payData.grossPay - (payData.statePreTax + payData.state401k));
}

Amount yearsWage() { return stateGross() * payData.payPeriods; }

bool frequencyKnown() { return payData.frequency >= 0 && payData.frequency <= 3; }

void parseExemptions() {
  step("Exemptions", worksheet().exemptions, [] { return toInt16(worksheet().exemptionsText()); });
}

Amount taxBy(TaxTable table) { return taxOf(table, worksheet().stateWage); }

std::optional<Amount> taxByStatus(const PerFrequency<Bands>& married, const PerFrequency<Bands>& single) {
  if (payData.maritalStat == status::married) return taxBy(married.now());
  if (payData.maritalStat == status::single) return taxBy(single.now());
  return keep("the state has tables for Married and for Single only");
}

Amount perPeriod(Amount annual) { return fromReal(toReal(annual) / toReal(payData.payPeriods)); }

void finish() {
  step("State tax", payData.stateTax,
       [] { return atLeastZero(line("State tax with the additional amount", payData.stateTax + payData.staAdd)); });
}

void floorAtZero() {
  step("State tax", payData.stateTax, [] { return atLeastZero(payData.stateTax); });
}

}  // namespace TALLYFIN_FIGURES
