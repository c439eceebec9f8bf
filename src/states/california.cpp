#include "states/californiatables.h"
#include "states/states.h"

/// California: the period's wage less an estimated deduction, a band table, less a credit.

namespace TALLYFIN_FIGURES {

namespace california {
/// The group by `staMarried`; null for a value that isn't offered. Uses the exemptions that were parsed last.
static const Group* chosenGroup() {
  switch (payData.staMarried.value()) {
    case stateStatus::single:
    case stateStatus::spouseEmployed: return &groupASchedule;
    case stateStatus::married:
      note(exemptionsCountedBefore);
      if (worksheet().exemptions <= 1) return &groupBUpToOneSchedule;
      return &groupBFromTwoSchedule;
    case stateStatus::headOfFamily: return &groupCSchedule;
    default: return nullptr;
  }
}

/// The low-income test of a group.
static bool hasLowIncome(const Group& group) { return worksheet().stateWage <= group.lowIncome.now(); }

/// The only low-income test that ends the calculation: Head of Family, Weekly, has no table, no credit and no `staAdd`.
static bool endsAtLowIncome() {
  const Group* group = chosenGroup();
  return group == &groupCSchedule && payData.frequency == frequency::weekly && hasLowIncome(*group);
}

static void applyGroup() {
  Worksheet& work = worksheet();
  // The table assigns `stateTax` in any case, so the low-income test doesn't change the result.
  step("No tax up to the low-income amount, which the table overrides", payData.stateTax,
       []() -> std::optional<Amount> {
         if (hasLowIncome(*chosenGroup())) return 0;
         return keep("the wage is over the low-income amount");
       });
  step("Wage less the standard deduction", work.stateWage,
       [&] { return work.stateWage - line("Standard deduction", chosenGroup()->deduction.now()); });
  step("Tax by the table", payData.stateTax, [] { return taxBy(chosenGroup()->bands.now()); });
}
}  // namespace california

/// California, 1999. `stateDepsDed`, dollars a pay period, holds the estimated deduction first and the credit
/// afterwards.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staExmp`, `staDeps`, `staMarried`, `staAdd`,
/// `stateDepsDed`, `exemptions`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void CalifTax() {
  using namespace california;
  Worksheet& work = worksheet();
  StateBase();
  step("Estimated deduction", payData.stateDepsDed, []() -> std::optional<Amount> {
    const Count count = called("Estimated deductions", payData.staExmp);
    if (count > 10) return count * estimatedDeductionAboveTen.now();
    if (count >= 0) return estimatedDeduction[count.value()].now();
    return keep("the number of estimated deductions is negative");
  });
  step("Wage less the estimated deduction", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  if (endsAtLowIncome()) {
    step("State tax on a low weekly income of a Head of Family", payData.stateTax, [] {
      endsAtLowIncome();
      return 0;
    });
    return;
  }
  if (chosenGroup() != nullptr) {
    applyGroup();
  } else {
    noteOn(payData.stateTax, "The state has no table for the filing status chosen, so the tax stays as it was.");
  }
  step("Exemption credit", payData.stateDepsDed, []() -> std::optional<Amount> {
    if (payData.staDeps > 10) {
      return fromReal(toReal(payData.staDeps) * toReal(exemptionCredit[1].now()));
    }
    if (payData.staDeps >= 0) return exemptionCredit[payData.staDeps.value()].now();
    return keep("the number of dependents is negative");
  });
  step("State tax with the additional amount", payData.stateTax,
       [] { return line("Tax less the credit", payData.stateTax - payData.stateDepsDed) + payData.staAdd; });
  floorAtZero();
}

}  // namespace TALLYFIN_FIGURES
