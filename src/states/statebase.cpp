#include "states/statebase.h"

#include "engine/settings.h"

namespace tallyfin {

void StateBase() {
  payData.state401k = 0;
  payData.statePreTax = 0;
  if (settings::sta401.text() == "Y") payData.state401k = payData.amt401k;
  if (settings::staPreTax.text() == "Y") payData.statePreTax = payData.preTax;
}

Money stateGross() { return payData.grossPay - (payData.statePreTax + payData.state401k); }

bool frequencyKnown() { return payData.frequency >= 0 && payData.frequency <= 3; }

void parseExemptions() {
  step([] { worksheet().exemptions = toInt16(worksheet().exemptionsText()); });
}

void applyBands(Bands table) { payData.stateTax = taxOf(table, worksheet().stateWage); }

Money perPeriod(Money annual) { return fromReal(toReal(annual) / toReal(payData.payPeriods)); }

void finish() {
  step([] {
    const Money withholding = payData.stateTax + payData.staAdd;
    payData.stateTax = withholding <= 0 ? Money{} : withholding;
  });
}

void floorAtZero() {
  if (payData.stateTax <= 0) payData.stateTax = 0;
}

}  // namespace tallyfin
