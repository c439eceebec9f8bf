#include "states/californiatables.h"
#include "states/states.h"

/// California takes an estimated deduction from the period's wage, applies a table, and takes a credit from the tax.

namespace tallyfin {

namespace california {
/// The group by `staMarried`; none for a value that isn't offered. The exemptions are those that were parsed last.
static const Group* chosenGroup() {
  switch (payData.staMarried.value()) {
    case stateStatus::single:
    case stateStatus::spouseEmployed: return &groupASchedule;
    case stateStatus::married: return worksheet().exemptions <= 1 ? &groupBUpToOneSchedule : &groupBFromTwoSchedule;
    case stateStatus::headOfFamily: return &groupCSchedule;
    default: return nullptr;
  }
}

/// The low-income test of a group.
static bool withinGate(const Group& group) { return worksheet().stateWage <= group.gate.now(); }

static void applyGroup(const Group& group) {
  Worksheet& work = worksheet();
  // The table assigns `stateTax` in any case, so that the gate leaves no mark in the result.
  step("No tax up to the low-income amount, which the table overrides", payData.stateTax,
       [&] { return withinGate(group) ? std::optional(Money{}) : std::nullopt; });
  step("Less the standard deduction", work.stateWage, [&] { return work.stateWage - group.deduction.now(); });
  step("Tax by the table of filing status and pay period", payData.stateTax, [&] { return taxBy(group.bands.now()); });
}
}  // namespace california

/// California, 1999. `stateDepsDed`, dollars a pay period, holds the estimated deduction first and the credit
/// afterwards.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staExmp`, `staDeps`, `staMarried`, `staAdd`,
/// `stateDepsDed`, `exemptions`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void CalifTax() {
  Worksheet& work = worksheet();
  StateBase();
  step("Estimated deduction", payData.stateDepsDed, []() -> std::optional<Money> {
    const int deductions = payData.staExmp.value();
    if (deductions > 10) return payData.staExmp * california::estimatedDeductionAboveTen.now();
    if (deductions >= 0) return california::estimatedDeduction[deductions].now();
    return std::nullopt;
  });
  step("Gross pay less the untaxed amounts and the estimated deduction", work.stateWage,
       [] { return stateGross() - payData.stateDepsDed; });
  const california::Group* group = california::chosenGroup();
  // The one gate that counts: Head of Family, Weekly, ends here, with neither credit nor `staAdd`.
  if (group == &california::groupCSchedule && payData.frequency == frequency::weekly &&
      california::withinGate(*group)) {
    step("No tax for a Head of Family with a low weekly income", payData.stateTax, [] { return 0; });
    return;
  }
  if (group) california::applyGroup(*group);
  step("Credit for the dependents", payData.stateDepsDed, []() -> std::optional<Money> {
    const int dependents = payData.staDeps.value();
    const Money one = california::exemptionCredit[1].now().amount;
    if (dependents > 10) return fromReal(toReal(payData.staDeps) * toReal(one));
    if (dependents >= 0) return california::exemptionCredit[dependents].now().amount;
    return std::nullopt;
  });
  step("Less the credit, plus the additional amount asked for", payData.stateTax,
       [] { return (payData.stateTax - payData.stateDepsDed) + payData.staAdd; });
  floorAtZero();
}

}  // namespace tallyfin
