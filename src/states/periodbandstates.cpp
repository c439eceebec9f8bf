#include "states/periodbandtables.h"
#include "states/states.h"

/// A band table, by status and frequency, of the period's wage less an allowance. A status without a table assigns
/// nothing: finish() then adds `staAdd` to the last `stateTax`.

namespace TALLYFIN_FIGURES {

namespace colorado {
/// Dollars a pay period.
constexpr PerFrequency<PerHead> perExemption{real(45.19), real(97.92), real(90.38), real(195.83),
                                             "allowance for each exemption"};

// clang-format off
constexpr Band weekly[] = {
    {atMost, 74, 0, 0},
    {above, 74, 74, 0.05},
};
constexpr Band twiceAMonth[] = {
    {atMost, 160, 0, 0},
    {above, 160, 160, 0.05},
};
constexpr Band everyTwoWeeks[] = {
    {atMost, 148, 0, 0},
    {above, 148, 148, 0.05},
};
constexpr Band monthly[] = {
    {atMost, 321, 0, 0},
    {above, 321, 321, 0.05},
};
// clang-format on
constexpr PerFrequency<Bands> married{weekly, twiceAMonth, everyTwoWeeks, monthly, "Colorado, Married"};
}  // namespace colorado

/// Colorado, 1999. Only Married has a table. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Colorado() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * colorado::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, []() -> std::optional<Amount> {
    if (payData.maritalStat == status::married) return taxBy(colorado::married.now());
    return keep("the state has a table for Married only");
  });
  finish();
}

namespace districtofcolumbia {
constexpr PerFrequency<PerHead> perExemption{real(26.35), real(57.08), real(52.69), real(114.17),
                                             "allowance for each exemption"};
}

/// District of Columbia, 1999. `staMarried` chooses: 0 Single, 3 Married, 6 Married Filing Separately.
/// `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staMarried`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void DCTax() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * districtofcolumbia::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, []() -> std::optional<Amount> {
    switch (payData.staMarried.value()) {
      case stateStatus::single:
      case stateStatus::married: return taxBy(districtofcolumbia::singleOrMarried.now());
      case stateStatus::separately: return taxBy(districtofcolumbia::separately.now());
      default: return keep(noTable);
    }
  });
  finish();
}

namespace hawaii {
constexpr PerFrequency<PerHead> perDependent{int16(20), real(43.35), int16(40), real(86.65),
                                             "allowance for each dependent"};
}

/// Hawaii, 1999. The count is `staDeps`, not the exemptions. `staMarried` chooses: 0 Single, 9 Head of Family, 3
/// Married. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staDeps`, `staMarried`, `staAdd`, `stateDepsDed`.
/// Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void HawaiiTax() {
  Worksheet& work = worksheet();
  step("Allowance for the dependents", payData.stateDepsDed,
       [] { return payData.staDeps * hawaii::perDependent.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, []() -> std::optional<Amount> {
    switch (payData.staMarried.value()) {
      case stateStatus::single:
      case stateStatus::headOfFamily: return taxBy(hawaii::singleOrHead.now());
      case stateStatus::married: return taxBy(hawaii::married.now());
      default: return keep(noTable);
    }
  });
  finish();
}

namespace kansas {
constexpr PerFrequency<PerHead> perExemption{real(48.08), real(104.17), real(96.15), real(208.33),
                                             "allowance for each exemption"};
}

/// Kansas, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Kansas() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * kansas::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [] { return taxByStatus(kansas::married, kansas::single); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
