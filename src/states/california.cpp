#include "states/californiatables.h"
#include "states/states.h"

/// California takes an estimated deduction from the period's wage, applies a table, and takes a credit from the tax.

namespace tallyfin {

namespace california {
/// The group by `staMarried`; none for a value that isn't offered. The exemptions are those that were parsed last.
static const Group* chosenGroup() {
  switch (payData.staMarried.value()) {
    case 0:
    case 8: return &groupASchedule;
    case 3: return worksheet().exemptions <= 1 ? &groupBUpToOneSchedule : &groupBFromTwoSchedule;
    case 9: return &groupCSchedule;
    default: return nullptr;
  }
}

static void applyGroup(const Group& group) {
  Worksheet& work = worksheet();
  // The table assigns `stateTax` in any case, so that the gate leaves no mark in the result.
  step([&] {
    if (work.stateWage <= group.gate.now()) payData.stateTax = 0;
  });
  step([&] { work.stateWage = work.stateWage - group.deduction.now(); });
  step([&] { applyBands(group.bands.now()); });
}
}  // namespace california

/// California, 1999. `stateDepsDed`, dollars a pay period, holds the estimated deduction first and the credit
/// afterwards.
void CalifTax() {
  Worksheet& work = worksheet();
  StateBase();
  step([] {
    const int deductions = payData.staExmp.value();
    if (deductions > 10) payData.stateDepsDed = payData.staExmp * california::estimatedDeductionAboveTen.now();
    if (deductions >= 0 && deductions <= 10) payData.stateDepsDed = california::estimatedDeduction[deductions].now();
  });
  step([&] { work.stateWage = stateGross() - payData.stateDepsDed; });
  const california::Group* group = california::chosenGroup();
  // The one gate that counts: Head of Family, Weekly, ends here, with neither credit nor `staAdd`.
  if (group == &california::groupCSchedule && payData.frequency == 0 && work.stateWage <= group->gate.weekly) {
    payData.stateTax = 0;
    return;
  }
  if (group) california::applyGroup(*group);
  step([] {
    const int dependents = payData.staDeps.value();
    const Money one = california::exemptionCredit[1].now().amount;
    if (dependents > 10) payData.stateDepsDed = fromReal(toReal(payData.staDeps) * toReal(one));
    if (dependents >= 0 && dependents <= 10) {
      payData.stateDepsDed = california::exemptionCredit[dependents].now().amount;
    }
  });
  step([] { payData.stateTax = (payData.stateTax - payData.stateDepsDed) + payData.staAdd; });
  floorAtZero();
}

}  // namespace tallyfin
