#include "states/statebase.h"

#include "engine/settingsstore.h"

namespace tallyfin {

namespace {

bool chosen(std::string_view key) { return getSetting(applicationKey, section::stateInfo, key, "N") == "Y"; }

}  // namespace

void StateBase() {
  payData.state401k = 0;
  payData.statePreTax = 0;
  if (chosen("sta401")) payData.state401k = payData.amt401k;
  if (chosen("staPreTax")) payData.statePreTax = payData.preTax;
}

Money stateGross() { return payData.grossPay - (payData.statePreTax + payData.state401k); }

void parseExemptions() {
  step([] { worksheet().exemptions = toInt16(worksheet().exemptionsText()); });
}

Money perPeriod(Money annual) { return fromReal(toReal(annual) / toReal(payData.payPeriods)); }

void finish() {
  step([] {
    const Money withholding = payData.stateTax + payData.staAdd;
    payData.stateTax = withholding <= 0 ? Money{} : withholding;
  });
}

}  // namespace tallyfin
