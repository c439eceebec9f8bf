#include "states/newjerseytables.h"
#include "states/states.h"

/// New Jersey: tables for five rate letters, of which only A is used.

namespace TALLYFIN_FIGURES {

namespace newjersey {
constexpr PerFrequency<PerHead> perExemption{real(19.2), real(41.6), real(38.4), real(83.3),
                                             "allowance for each dependent"};

/// The tables of the worksheet's rate letter, 0 A to 4 E. Nothing assigns the letter, so it is always A.
static const PerFrequency<Bands>* chosenRate() {
  switch (worksheet().staRate.value()) {
    case 0: return &rateA;
    case 1: return &rateB;
    case 2: return &rateC;
    case 3: return &rateD;
    case 4: return &rateE;
    default: return nullptr;
  }
}
}  // namespace newjersey

/// New Jersey, 1999. `staDeps` counts the exemptions. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staDeps`, `staAdd`, `stateDepsDed`, `staRate`.
/// Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void NewJersey() {
  Worksheet& work = worksheet();
  step("Allowance for the dependents", payData.stateDepsDed,
       [] { return payData.staDeps * newjersey::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, []() -> std::optional<Amount> {
    const PerFrequency<Bands>* tables = newjersey::chosenRate();
    if (tables == nullptr) return keep("the state has no table for that rate letter");
    return taxBy(tables->now());
  });
  finish();
}

}  // namespace TALLYFIN_FIGURES
