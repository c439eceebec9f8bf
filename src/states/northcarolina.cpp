#include "states/northcarolinatables.h"
#include "states/states.h"

namespace TALLYFIN_FIGURES {

namespace northcarolina {
/// Dollars a pay period: the higher amount below the income limit of the status, the lower one from it on.
constexpr PerFrequency<PerHead> higherAmount{real(48.08), real(104.17), real(96.15), real(208.33),
                                             "allowance for each dependent"};
constexpr PerFrequency<PerHead> lowerAmount{real(38.46), real(83.33), real(76.92), real(166.67),
                                            "allowance for each dependent"};

struct Status {
  PerFrequency<Dollars> incomeTest;
  PerFrequency<Bands> bands;
};
constexpr Status singleStatus{{1153.85, 2500, 2307.69, 5000, "income test"}, single};
constexpr Status marriedStatus{{961.54, 2083.33, 1923.08, 4166.67, "income test"}, married};
constexpr Status headOfFamilyStatus{{1538.46, 3333.33, 3076.92, 6666.67, "income test"}, headOfFamily};

/// By `staMarried`; null for a value that isn't offered.
static const Status* chosenStatus() {
  switch (payData.staMarried.value()) {
    case stateStatus::single: return &singleStatus;
    case stateStatus::married: return &marriedStatus;
    case stateStatus::headOfFamily: return &headOfFamilyStatus;
    default: return nullptr;
  }
}
}  // namespace northcarolina

/// North Carolina, 1999. The income limit applies to the wage before the allowance, the table to the wage after it. For
/// a status that isn't offered the last `stateDepsDed` is subtracted, and there is no table. `stateDepsDed`: dollars a
/// pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staDeps`, `staMarried`, `staAdd`, `stateDepsDed`.
/// Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void NCarolina() {
  using namespace northcarolina;
  Worksheet& work = worksheet();
  StateBase();
  step("Wage that the state taxes", work.stateWage, stateGross);
  step("Allowance for the dependents", payData.stateDepsDed, [&]() -> std::optional<Amount> {
    const Status* status = chosenStatus();
    if (!status) return keep("the state has no allowance for the filing status chosen");
    if (work.stateWage < status->incomeTest.now()) return payData.staDeps * higherAmount.now();
    return payData.staDeps * lowerAmount.now();
  });
  step("Wage less the allowance", work.stateWage, [&] { return work.stateWage - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, []() -> std::optional<Amount> {
    const Status* status = chosenStatus();
    if (!status) return keep(noTable);
    return taxBy(status->bands.now());
  });
  finish();
}

}  // namespace TALLYFIN_FIGURES
