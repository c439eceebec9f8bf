#include <algorithm>

#include "states/marylandtables.h"
#include "states/states.h"

/// Maryland works out a local tax beside its own.

namespace tallyfin {

namespace maryland {
/// Dollars a pay period.
constexpr PerFrequency<PerHead> perExemption{real(35.6), real(77.1), real(71.15), real(154.2)};
constexpr PerFrequency<PerHead> perLocalExemption{real(23.1), int16(50), real(46.2), int16(100)};
constexpr PerFrequency<Dollars> lowBound{29, 62.5, 58, 125};
constexpr PerFrequency<Dollars> highBound{38.5, 83.5, 77, 167};

static Money clamped(Money deduction) { return std::clamp(deduction, lowBound.now().amount, highBound.now().amount); }

/// The tables of the county rate whose number `mMethod` holds; none before one is chosen.
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
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `localTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Maryland() {
  Worksheet& work = worksheet();
  Money localBase;
  Money deduction;
  Money localDeduction;
  Money localExemption;
  Money localResult;
  parseExemptions();
  StateBase();
  step("The pay period's wage that the state taxes", work.stateWage, stateGross);
  step("The county starts from the same wage", localBase, [&] { return work.stateWage; });
  step("Standard deduction, 15% of the wage", deduction, [&] { return fromReal(toReal(work.stateWage) * 0.15); });
  step(
      "Allowance for the exemptions, and the standard deduction within its limits",
      [&] {
        payData.stateDepsDed = work.exemptions * maryland::perExemption.now();
        deduction = maryland::clamped(deduction);
      },
      payData.stateDepsDed, deduction);
  step("Less the standard deduction and the allowance", work.stateWage,
       [&] { return work.stateWage - (deduction + payData.stateDepsDed); });
  step("State tax by the table of the pay period", payData.stateTax, [] { return taxBy(maryland::bands.now()); });
  step("The county's standard deduction, 15% of the wage", localDeduction,
       [&] { return fromReal(toReal(localBase) * 0.15); });
  step(
      "The county's allowance for the exemptions, and its standard deduction within the limits",
      [&] {
        localExemption = work.exemptions * maryland::perLocalExemption.now();
        localDeduction = maryland::clamped(localDeduction);
      },
      localExemption, localDeduction);
  step("The county's wage less both", localBase, [&] { return localBase - (localDeduction + localExemption); });
  step("The county's tax by the table of its rate", localResult, [&]() -> std::optional<Money> {
    const auto* tables = maryland::countyRate();
    if (tables == nullptr) return std::nullopt;
    return taxOf(tables->now(), localBase);
  });
  step("Plus the additional amount asked for", payData.stateTax, [] { return payData.stateTax + payData.staAdd; });
  floorAtZero();
  step("The county's tax is at least 0", localResult, [&] { return atLeastZero(localResult); });
  step("The county's tax as local tax", payData.localTax, [&] { return localResult; });
  step("Plus the county's tax", payData.stateTax, [&] { return payData.stateTax + localResult; });
}

}  // namespace tallyfin
