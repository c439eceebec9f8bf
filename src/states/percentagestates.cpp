#include "states/states.h"

/// The two shortest routines: one percentage of one amount of the pay period.

namespace tallyfin {

/// Pennsylvania, 1999.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `staAdd`. Writes `state401k`, `stateTax`, `statePreTax`.
void Penn() {
  StateBase();
  Money wage;
  step(
      "Pennsylvania tax, 2.8% of the wage",
      [&] {
        wage = stateGross();
        payData.stateTax = fromReal(toReal(wage) * 0.028);
      },
      wage, payData.stateTax);
  finish();
}

/// North Dakota, 1999. The federal withholding is the only wage figure that it sees: StateBase isn't called.
///
/// Reads `fedTax`, `staAdd`. Writes `stateTax`.
void NorthDakota() {
  Money federalTax;
  step(
      "North Dakota tax, 14% of the federal tax",
      [&] {
        federalTax = payData.fedTax;
        payData.stateTax = fromReal(toReal(federalTax) * 0.14);
      },
      federalTax, payData.stateTax);
  finish();
}

}  // namespace tallyfin
