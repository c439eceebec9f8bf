#include "states/sixandsevenbandtables.h"
#include "states/states.h"

/// An amount for each exemption, then a table of six or seven rows by status and frequency.

namespace TALLYFIN_FIGURES {

namespace rhodeisland {
constexpr PerFrequency<PerHead> perExemption{real(52.88), real(114.58), real(105.77), real(229.17),
                                             "allowance for each exemption"};
}

/// Rhode Island, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void RhodeIsland() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * rhodeisland::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [] { return taxByStatus(rhodeisland::married, rhodeisland::single); });
  finish();
}

namespace vermont {
constexpr PerFrequency<PerHead> perExemption{real(51.92), real(112.5), real(103.85), int16(225),
                                             "allowance for each exemption"};
}

/// Vermont, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Vermont() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * vermont::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [] { return taxByStatus(vermont::married, vermont::single); });
  finish();
}

namespace utah {
constexpr PerFrequency<PerHead> perExemption{int16(38), int16(83), int16(76), int16(166),
                                             "allowance for each exemption"};
}

/// Utah, 1999. Married Claiming Single has no table. The tax is rounded to whole dollars before `staAdd`.
/// `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Utah() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * utah::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [] { return taxByStatus(utah::married, utah::single); });
  step("Tax in whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
