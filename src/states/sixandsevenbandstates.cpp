#include "states/sixandsevenbandtables.h"
#include "states/states.h"

/// An amount for each exemption, then a table of six or seven rows by status and frequency.

namespace tallyfin {

namespace rhodeisland {
constexpr PerFrequency<PerHead> perExemption{52.88, 114.58, 105.77, 229.17};
}

/// Rhode Island, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
void RhodeIsland() {
  Worksheet& work = worksheet();
  parseExemptions();
  step([&] { payData.stateDepsDed = work.exemptions * rhodeisland::perExemption.now(); });
  StateBase();
  step([&] { work.stateWage = stateGross() - payData.stateDepsDed; });
  step([] {
    if (payData.maritalStat == 0) applyBands(rhodeisland::married.now());
    if (payData.maritalStat == 1) applyBands(rhodeisland::single.now());
  });
  finish();
}

namespace vermont {
constexpr PerFrequency<PerHead> perExemption{51.92, 112.5, 103.85, 225};
}

/// Vermont, 1999. Married Claiming Single has no table. `stateDepsDed`: dollars a pay period.
void Vermont() {
  Worksheet& work = worksheet();
  parseExemptions();
  step([&] { payData.stateDepsDed = work.exemptions * vermont::perExemption.now(); });
  StateBase();
  step([&] { work.stateWage = stateGross() - payData.stateDepsDed; });
  step([] {
    if (payData.maritalStat == 0) applyBands(vermont::married.now());
    if (payData.maritalStat == 1) applyBands(vermont::single.now());
  });
  finish();
}

namespace utah {
constexpr PerFrequency<PerHead> perExemption{38, 83, 76, 166};
}

/// Utah, 1999. Married Claiming Single has no table. The tax is rounded to whole dollars before `staAdd`.
/// `stateDepsDed`: dollars a pay period.
void Utah() {
  Worksheet& work = worksheet();
  parseExemptions();
  step([&] { payData.stateDepsDed = work.exemptions * utah::perExemption.now(); });
  StateBase();
  step([&] { work.stateWage = stateGross() - payData.stateDepsDed; });
  step([] {
    if (payData.maritalStat == 0) applyBands(utah::married.now());
    if (payData.maritalStat == 1) applyBands(utah::single.now());
  });
  step([] { payData.stateTax = integerRounded(payData.stateTax); });
  finish();
}

}  // namespace tallyfin
