#include "engine/statelist.h"

namespace TALLYFIN_FIGURES {

void callStateRoutine() {
  const int routine = worksheet().stateIndex() - 1;
  if (routine < 0 || routine > 40) {
    noteOn(payData.stateTax, "No state is chosen, so the state tax stays as it was.");
    return;
  }
  const State& state = stateList[static_cast<std::size_t>(routine) + 1];
  stateIs(state.caption);
  state.routine();
}

}  // namespace TALLYFIN_FIGURES
