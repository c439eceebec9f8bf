#pragma once

#include <string>

/// How the state options reach the record, where they stand in the boxes of their screen or were stored by it.

namespace tallyfin {

/// The texts of the state options.
struct StateOptionTexts {
  const std::string& dependents;
  const std::string& illinoisDependents;
  const std::string& special;     ///< The state's special selection.
  const std::string& additional;  ///< Additional withholding, dollars a pay period.
};

/// Hands the state options over to the record. The special selection becomes `mMethod` and `staExmp`, whatever the
/// state; a text that is no number leaves its field.
void takeStateOptions(const StateOptionTexts& texts);

/// The marital option of Mississippi puts the personal exemption that goes with it in the place of the additional
/// amount, whatever was saved there: its text, empty where it must be entered; nullptr for an option that goes with
/// none.
const char* mississippiExemption(int maritalOption);

}  // namespace tallyfin
