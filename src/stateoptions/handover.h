#pragma once

#include <string>

/// Assigns state options to the record, from the boxes of their screen or from the store.

namespace tallyfin {

/// The texts of the state options.
struct StateOptionTexts {
  const std::string& dependents;
  const std::string& illinoisDependents;
  const std::string& special;     ///< The state's special selection.
  const std::string& additional;  ///< Additional withholding, dollars a pay period.
};

/// Assigns the state options to the record. The special selection is assigned to `mMethod` and to `staExmp` for every
/// state. A text that isn't a number leaves its field unchanged.
void takeStateOptions(const StateOptionTexts& texts);

/// The personal exemption for a marital option of Mississippi, which replaces the additional amount: its text, empty
/// where the user must enter it; nullptr for an option without one.
const char* mississippiExemption(int maritalOption);

}  // namespace tallyfin
