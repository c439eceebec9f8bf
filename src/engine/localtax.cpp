#include "engine/localtax.h"

namespace TALLYFIN_FIGURES {

namespace {

/// The base that `applyTo` chooses; fails outside 1 to 5.
Amount localBase() {
  switch (payData.applyTo.value()) {
    case 1: return payData.grossPay;
    case 2: return payData.grossPay - payData.amt401k;
    case 3: return payData.grossPay - payData.preTax;
    case 4: return payData.grossPay - (payData.amt401k + payData.preTax);
    case 5: return payData.grossPay - payData.stateDepsDed;  // the state's deduction, not the federal one
    default: throw FailedStatement{"no base is chosen for the local tax"};
  }
}

}  // namespace

void LocalTaxCalc() {
  step("Local tax", payData.localTax, [] {
    const Amount base = line("Pay subject to local tax", localBase());
    goesBy(payData.applyTo);
    return fromReal(toReal(base) * payData.localRate);
  });
}

}  // namespace TALLYFIN_FIGURES
