#pragma once

#include <array>

#include "engine/figures.h"

namespace TALLYFIN_FIGURES {

/// An entry of the state list.
struct State {
  const char* caption;
  void (*routine)();   ///< None for "No State".
  const char* source;  ///< The file of src/states that defines the routine.
};

/// The 42 entries in the order of both state lists. The position is the number of the state.
extern const std::array<State, 42> stateList;

/// Calls the routine of the state chosen in the worksheet. For "No State", or no choice, `stateTax` keeps its value.
void callStateRoutine();

}  // namespace TALLYFIN_FIGURES
