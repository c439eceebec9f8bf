#pragma once

#include <array>

#include "engine/figures.h"

namespace TALLYFIN_FIGURES {

/// An entry of the state list: its caption, the routine that turns the record into `stateTax`, and where that stands.
struct State {
  const char* caption;
  void (*routine)();   ///< None for "No State".
  const char* source;  ///< The file of src/states that holds the routine.
};

/// The 42 entries in the order of both state lists; the position is the number of the entry everywhere.
extern const std::array<State, 42> stateList;

/// Calls the routine of the entry that the worksheet has chosen. "No State", or no entry, calls none: `stateTax` then
/// keeps what the last calculation left there.
void callStateRoutine();

}  // namespace TALLYFIN_FIGURES
