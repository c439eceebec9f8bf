#include "states/marylandtables.h"
#include "states/states.h"

/// Maryland calculates the state tax and the county tax.

namespace TALLYFIN_FIGURES {

namespace maryland {
/// Dollars a pay period.
constexpr PerFrequency<PerHead> perExemption{real(35.6), real(77.1), real(71.15), real(154.2),
                                             "allowance for each exemption"};
constexpr PerFrequency<PerHead> perLocalExemption{real(23.1), int16(50), real(46.2), int16(100),
                                                  "county's allowance for each exemption"};
constexpr PerFrequency<Dollars> leastDeduction{29, 62.5, 58, 125, "least standard deduction"};
constexpr PerFrequency<Dollars> mostDeduction{38.5, 83.5, 77, 167, "most standard deduction"};
constexpr FixedRate deductionRate{"rate of the standard deduction", 0.15};

static Amount withinLimits(const Amount& deduction) {
  return within(deduction, leastDeduction.now(), mostDeduction.now());
}

/// The tables of the county rate with the number in `mMethod`; null for a number without tables.
static const PerFrequency<Bands>* countyRate() {
  switch (called("County rate", payData.mMethod).value()) {
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

/// Maryland, 1999. The county tax is assigned to `localTax` and added to `stateTax`. `stateDepsDed`: the state
/// exemptions, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `localTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Maryland() {
  using namespace maryland;
  Worksheet& work = worksheet();
  Amount localBase;
  Amount deduction;
  Amount localDeduction;
  Amount localExemption;
  Amount localResult;
  parseExemptions();
  StateBase();
  step("Wage that the state taxes", work.stateWage, stateGross);
  step("Wage that the county taxes", localBase, [&] { return work.stateWage; });
  step("Standard deduction", deduction, [&] { return fromReal(toReal(work.stateWage) * deductionRate); });
  step(
      "Allowance for the exemptions, and the standard deduction within its limits",
      [&] {
        payData.stateDepsDed = line("Allowance for the exemptions", work.exemptions * perExemption.now());
        deduction = line("Standard deduction within its limits", withinLimits(deduction));
      },
      payData.stateDepsDed, deduction);
  step("Wage less the deductions", work.stateWage, [&] { return work.stateWage - (deduction + payData.stateDepsDed); });
  step("State's own tax by the table", payData.stateTax, [] { return taxBy(bands.now()); });
  step("County's standard deduction", localDeduction, [&] { return fromReal(toReal(localBase) * deductionRate); });
  step(
      "County's allowance for the exemptions, and its standard deduction within the limits",
      [&] {
        localExemption = line("County's allowance for the exemptions", work.exemptions * perLocalExemption.now());
        localDeduction = line("County's standard deduction within its limits", withinLimits(localDeduction));
      },
      localExemption, localDeduction);
  step("County's wage less its deductions", localBase, [&] { return localBase - (localDeduction + localExemption); });
  step("County's tax by the table", localResult, [&]() -> Amount {
    const PerFrequency<Bands>* tables = countyRate();
    if (tables != nullptr) return taxOf(tables->now(), localBase);
    note("No county rate is chosen, so there is no county tax.");
    return 0;
  });
  step("State's own tax with the additional amount", payData.stateTax,
       [] { return payData.stateTax + payData.staAdd; });
  floorAtZero();
  step("County's tax", localResult, [&] { return atLeastZero(localResult); });
  step("County's tax as local tax", payData.localTax, [&] { return localResult; });
  step("State tax with the county's", payData.stateTax, [&] { return payData.stateTax + localResult; });
}

}  // namespace TALLYFIN_FIGURES
