#include <algorithm>

#include "states/marylandtables.h"
#include "states/states.h"

/// Maryland works out a local tax beside its own.

namespace tallyfin {

namespace maryland {
/// Dollars a pay period.
constexpr PerFrequency<PerHead> perExemption{35.6, 77.1, 71.15, 154.2};
constexpr PerFrequency<PerHead> perLocalExemption{23.1, 50, 46.2, 100};
constexpr PerFrequency<Dollars> lowBound{29, 62.5, 58, 125};
constexpr PerFrequency<Dollars> highBound{38.5, 83.5, 77, 167};

static Money clamped(Money deduction) { return std::clamp(deduction, lowBound.now().amount, highBound.now().amount); }

/// The tables of the county rate that `mMethod` holds; none before a pick.
static const PerFrequency<Bands>* countyRate() {
  switch (payData.mMethod.value()) {
    case 48: return &rate48;
    case 50: return &rate50;
    case 55: return &rate55;
    case 56: return &rate56;
    case 58: return &rate58;
    case 60: return &rate60;
    default: return nullptr;
  }
}
}  // namespace maryland

/// Maryland, 1999. The county's part goes to `localTax` and into `stateTax` both. `stateDepsDed`: the state exemptions,
/// dollars a pay period.
void Maryland() {
  Worksheet& work = worksheet();
  Money localBase;
  Money deduction;
  Money localDeduction;
  Money localExemption;
  Money localResult;
  parseExemptions();
  StateBase();
  step([&] { work.stateWage = stateGross(); });
  localBase = work.stateWage;
  step([&] { deduction = fromReal(toReal(work.stateWage) * 0.15); });
  step([&] {
    payData.stateDepsDed = work.exemptions * maryland::perExemption.now();
    deduction = maryland::clamped(deduction);
  });
  step([&] { work.stateWage = work.stateWage - (deduction + payData.stateDepsDed); });
  step([] { applyBands(maryland::bands.now()); });
  step([&] { localDeduction = fromReal(toReal(localBase) * 0.15); });
  step([&] {
    localExemption = work.exemptions * maryland::perLocalExemption.now();
    localDeduction = maryland::clamped(localDeduction);
  });
  step([&] { localBase = localBase - (localDeduction + localExemption); });
  step([&] {
    if (const auto* tables = maryland::countyRate()) localResult = taxOf(tables->now(), localBase);
  });
  step([] { payData.stateTax = payData.stateTax + payData.staAdd; });
  floorAtZero();
  if (localResult < 0) localResult = 0;
  payData.localTax = localResult;
  step([&] { payData.stateTax = payData.stateTax + localResult; });
}

}  // namespace tallyfin
