#include "states/eightbandtables.h"
#include "states/states.h"

/// An amount of the pay period for each exemption, then a table of eight rows by status and frequency.

namespace TALLYFIN_FIGURES {

namespace nebraska {
constexpr PerFrequency<PerHead> perExemption{real(28.6), real(62.08), real(57.31), real(124.17),
                                             "allowance for each exemption"};
}

/// Nebraska, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void NebraskaTax() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * nebraska::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [] { return taxByStatus(nebraska::married, nebraska::single); });
  finish();
}

namespace newmexico {
constexpr PerFrequency<PerHead> perExemption{real(51.92), real(112.5), real(103.85), int16(225),
                                             "allowance for each exemption"};
}

/// New Mexico, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void NewMexico() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * newmexico::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [] { return taxByStatus(newmexico::married, newmexico::single); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
