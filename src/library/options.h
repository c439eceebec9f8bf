#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "library/columns.h"

/// What each state reads of the columns that begin with "state_" and of illinois_dependents, made from the tables that
/// the options screen uses.

namespace tallyfin::library {

/// A value, or a range of values, that a column takes for a state.
struct StateValue {
  std::string_view state;   ///< The entry of the state list.
  std::string_view postal;  ///< Its postal code.
  Column column;
  std::string value;    ///< "3", "0 to 15", "Y or N", "an amount".
  std::string meaning;  ///< The captions of the screen.
};

/// All values of all states, by state and column. Options that the state's routine doesn't read, or that
/// reach the record only when their screen is opened, are left out.
std::vector<StateValue> stateValues();

/// Whether the options screen of a state offers a number for a column. Where it offers none, true for 0.
bool isOffered(int state, Column column, int number);

/// The numbers that a state offers for a column, as a text: "0 3 8 9", "0 to 15", "none".
std::string offeredText(int state, Column column);

/// The columns with numbers that a state may offer.
inline constexpr std::array optionColumns{Column::stateDependents, Column::illinoisDependents, Column::stateExemptions,
                                          Column::stateMarital, Column::stateMethod};

/// The reports of one column of a state.
struct OptionReports {
  std::string notOffered;
  std::string notChosen;  ///< For 0, the default, where the state reads the column and doesn't offer 0. Else empty.
};
/// Those of a state, in the order of `optionColumns`.
const std::array<OptionReports, optionColumns.size()>& optionReports(int state);

}  // namespace tallyfin::library
