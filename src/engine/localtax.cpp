#include "engine/localtax.h"

#include "engine/paydata.h"
#include "engine/step.h"

namespace tallyfin {

namespace {

/// The base that `applyTo` chooses; there is none outside 1 to 5.
Money localBase() {
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
  double rate = 0;
  Money base;
  step(
      "Local tax on the base chosen on the Local Tax page",
      [&] {
        rate = payData.localRate;
        base = localBase();
        payData.localTax = fromReal(toReal(base) * rate);
      },
      rate, base, payData.localTax);
}

}  // namespace tallyfin
