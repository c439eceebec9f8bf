#include "states/sixandsevenbandtables.h"
#include "states/states.h"

/// An amount for each exemption, then a table of six or seven rows by status and frequency.

namespace tallyfin {

namespace rhodeisland {
constexpr PerFrequency<PerHead> perExemption{real(52.88), real(114.58), real(105.77), real(229.17)};
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
  step("Gross pay less the untaxed amounts and the allowance", work.stateWage,
       [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table of status and pay period", payData.stateTax,
       [] { return taxByStatus(rhodeisland::married, rhodeisland::single); });
  finish();
}

namespace vermont {
constexpr PerFrequency<PerHead> perExemption{real(51.92), real(112.5), real(103.85), int16(225)};
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
  step("Gross pay less the untaxed amounts and the allowance", work.stateWage,
       [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table of status and pay period", payData.stateTax,
       [] { return taxByStatus(vermont::married, vermont::single); });
  finish();
}

namespace utah {
constexpr PerFrequency<PerHead> perExemption{int16(38), int16(83), int16(76), int16(166)};
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
  step("Gross pay less the untaxed amounts and the allowance", work.stateWage,
       [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table of status and pay period", payData.stateTax,
       [] { return taxByStatus(utah::married, utah::single); });
  step("To whole dollars", payData.stateTax, [] { return integerRounded(payData.stateTax); });
  finish();
}

}  // namespace tallyfin
