#include "states/states.h"

/// The two shortest routines: one percentage of one amount of the pay period.

namespace tallyfin {

/// Pennsylvania, 1999.
void Penn() {
  StateBase();
  step([] { payData.stateTax = fromReal(toReal(stateGross()) * 0.028); });
  finish();
}

/// North Dakota, 1999. The federal withholding is the only wage figure that it sees: StateBase isn't called.
void NorthDakota() {
  step([] { payData.stateTax = fromReal(toReal(payData.fedTax) * 0.14); });
  finish();
}

}  // namespace tallyfin
