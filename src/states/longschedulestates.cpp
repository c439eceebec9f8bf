#include "states/longscheduletables.h"
#include "states/states.h"

/// A long band table, by status and frequency, of the period's wage less deductions.

namespace TALLYFIN_FIGURES {

namespace georgia {
/// By `staMarried`: Single, Married, Married Filing Separately.
constexpr PerFrequency<Dollars> singleDeduction{44.25, 95.75, 88.5, 191.5, "standard deduction"};
constexpr PerFrequency<Dollars> marriedDeduction{57.5, 125, 115, 250, "standard deduction"};
constexpr PerFrequency<Dollars> separatelyDeduction{28.75, 62.5, 57.5, 125, "standard deduction"};

constexpr PerFrequency<Dollars> perDependent{48, 104, 96, 208, "allowance for each dependent"};

static const PerFrequency<Dollars>* chosenDeduction() {
  switch (payData.staMarried.value()) {
    case stateStatus::single: return &singleDeduction;
    case stateStatus::married: return &marriedDeduction;
    case stateStatus::separately: return &separatelyDeduction;
    default: return nullptr;
  }
}
}  // namespace georgia

/// Georgia, 1999. `staMarried` sets the deductions, `maritalStat` the table. Without dependents the second
/// deduction is added back. `stateDepsDed`: that second deduction, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staDeps`, `staMarried`, `staAdd`,
/// `stateDepsDed`, `stateStdDed`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`,
/// `stateStdDed`.
void Georgia() {
  using namespace georgia;
  Worksheet& work = worksheet();
  Amount dependentAllowance;
  step(
      "Standard deduction and personal allowance of the filing status",
      [&] {
        const PerFrequency<Dollars>* deduction = chosenDeduction();
        if (!deduction) return keepAll("the state has no deductions for the filing status chosen");
        work.stateStdDed = line("Standard deduction", Amount(deduction->now()));
        if (payData.staMarried == stateStatus::separately) {
          payData.stateDepsDed = line("Personal allowance", work.stateStdDed * named("times", Int16(2)));
        } else {
          payData.stateDepsDed = line("Personal allowance", Amount(deduction->now()));
        }
        return true;
      },
      work.stateStdDed, payData.stateDepsDed);
  StateBase();
  step("Wage less both deductions", work.stateWage,
       [&] { return stateGross() - work.stateStdDed - payData.stateDepsDed; });
  step("Allowance for the dependents", dependentAllowance, [] { return perDependent.now() * payData.staDeps; });
  step("Wage less the allowance for the dependents", work.stateWage, [&] {
    if (payData.staDeps != 0) return work.stateWage - dependentAllowance;
    note("Without dependents the personal allowance is given back.");
    return line("Wage with the personal allowance given back", work.stateWage + payData.stateDepsDed);
  });
  step("Tax by the table", payData.stateTax, []() -> std::optional<Amount> {
    note("The filing status for the state sets the deductions; the marital status picks the table.");
    if (payData.maritalStat == status::marriedClaimingSingle) return taxBy(marriedClaimingSingle.now());
    return taxByStatus(married, single);
  });
  finish();
}

namespace idaho {
constexpr PerFrequency<PerHead> perExemption{real(48.08), real(104.17), real(96.15), real(208.33),
                                             "allowance for each exemption"};
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
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [] { return taxByStatus(idaho::married, idaho::single); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
