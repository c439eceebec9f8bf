#include "states/states.h"

/// One percentage of one amount of the pay period.

namespace TALLYFIN_FIGURES {

namespace pennsylvania {
constexpr FixedRate rate{"tax rate", 0.028};
}

/// Pennsylvania, 1999.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `staAdd`. Writes `state401k`, `stateTax`, `statePreTax`.
void Penn() {
  StateBase();
  step("Pennsylvania tax", payData.stateTax, [] { return fromReal(toReal(stateGross()) * pennsylvania::rate); });
  finish();
}

namespace northdakota {
constexpr FixedRate rate{"rate of the federal tax", 0.14};
}

/// North Dakota, 1999: a percentage of the federal withholding. StateBase isn't called.
///
/// Reads `fedTax`, `staAdd`. Writes `stateTax`.
void NorthDakota() {
  step("North Dakota tax", payData.stateTax, [] { return fromReal(toReal(payData.fedTax) * northdakota::rate); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
