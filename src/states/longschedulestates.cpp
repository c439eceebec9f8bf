#include "states/longscheduletables.h"
#include "states/states.h"

/// The period's wage, less deductions of the period, through a long band table by status and frequency.

namespace tallyfin {

namespace georgia {
/// By `staMarried`: Single, Married, Married Filing Separately.
constexpr PerFrequency<Dollars> singleDeduction{44.25, 95.75, 88.5, 191.5};
constexpr PerFrequency<Dollars> marriedDeduction{57.5, 125, 115, 250};
constexpr PerFrequency<Dollars> separatelyDeduction{28.75, 62.5, 57.5, 125};

constexpr PerFrequency<int> perDependent{48, 104, 96, 208};
}  // namespace georgia

/// Georgia, 1999. `staMarried` sets the deductions and `maritalStat` picks the table. Without dependents the second
/// deduction is given back. `stateDepsDed`: that second deduction, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staDeps`, `staMarried`, `staAdd`,
/// `stateDepsDed`, `stateStdDed`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`,
/// `stateStdDed`.
void Georgia() {
  Worksheet& work = worksheet();
  Money dependentAllowance;
  step(
      "Standard deduction of the filing status, and as much for oneself",
      [&] {
        switch (payData.staMarried.value()) {
          case stateStatus::single: work.stateStdDed = georgia::singleDeduction.now().amount; break;
          case stateStatus::married: work.stateStdDed = georgia::marriedDeduction.now().amount; break;
          case stateStatus::separately: work.stateStdDed = georgia::separatelyDeduction.now().amount; break;
          default: return false;
        }
        payData.stateDepsDed = payData.staMarried == stateStatus::separately ? work.stateStdDed * 2 : work.stateStdDed;
        return true;
      },
      work.stateStdDed, payData.stateDepsDed);
  StateBase();
  step("Gross pay less the untaxed amounts and both deductions", work.stateWage,
       [&] { return stateGross() - work.stateStdDed - payData.stateDepsDed; });
  step("Allowance for the dependents", dependentAllowance,
       [] { return Money(georgia::perDependent.now()) * payData.staDeps; });
  step("Less the allowance; without dependents the second deduction is given back", work.stateWage, [&] {
    return payData.staDeps == 0 ? work.stateWage + payData.stateDepsDed : work.stateWage - dependentAllowance;
  });
  step("Tax by the table of status and pay period", payData.stateTax, []() -> std::optional<Money> {
    if (payData.maritalStat == status::marriedClaimingSingle) return taxBy(georgia::marriedClaimingSingle.now());
    return taxByStatus(georgia::married, georgia::single);
  });
  finish();
}

namespace idaho {
constexpr PerFrequency<PerHead> perExemption{real(48.08), real(104.17), real(96.15), real(208.33)};
}

/// Idaho, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Idaho() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * idaho::perExemption.now(); });
  StateBase();
  step("Gross pay less the untaxed amounts and the allowance", work.stateWage,
       [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table of status and pay period", payData.stateTax,
       [] { return taxByStatus(idaho::married, idaho::single); });
  finish();
}

}  // namespace tallyfin
