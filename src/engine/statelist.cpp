#include "engine/statelist.h"

#include "engine/trace.h"
#include "engine/worksheet.h"

namespace tallyfin {

void callStateRoutine() {
  const int routine = worksheet().stateIndex() - 1;
  if (routine < 0 || routine > 40) return;
  const State& state = stateList[static_cast<std::size_t>(routine) + 1];
  if (recorder == nullptr) return state.routine();
  recorder->stateBegins(state.caption);
  state.routine();
  recorder->stateEnds();
}

}  // namespace tallyfin
