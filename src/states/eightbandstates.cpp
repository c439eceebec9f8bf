#include "states/eightbandtables.h"
#include "states/states.h"

/// The pure form of a state by the pay period: an amount for each exemption, then a table of eight rows by status and
/// frequency.

namespace tallyfin {

namespace nebraska {
constexpr PerFrequency<PerHead> perExemption{28.6, 62.08, 57.31, 124.17};
}

/// Nebraska, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
void NebraskaTax() {
  Worksheet& work = worksheet();
  parseExemptions();
  step([&] { payData.stateDepsDed = work.exemptions * nebraska::perExemption.now(); });
  StateBase();
  step([&] { work.stateWage = stateGross() - payData.stateDepsDed; });
  step([] {
    if (payData.maritalStat == 0) applyBands(nebraska::married.now());
    if (payData.maritalStat == 1) applyBands(nebraska::single.now());
  });
  finish();
}

namespace newmexico {
constexpr PerFrequency<PerHead> perExemption{51.92, 112.5, 103.85, 225};
}

/// New Mexico, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
void NewMexico() {
  Worksheet& work = worksheet();
  parseExemptions();
  step([&] { payData.stateDepsDed = work.exemptions * newmexico::perExemption.now(); });
  StateBase();
  step([&] { work.stateWage = stateGross() - payData.stateDepsDed; });
  step([] {
    if (payData.maritalStat == 0) applyBands(newmexico::married.now());
    if (payData.maritalStat == 1) applyBands(newmexico::single.now());
  });
  finish();
}

}  // namespace tallyfin
