#include "engine/statelist.h"

#include "engine/worksheet.h"

namespace tallyfin {

void callStateRoutine() {
  const int routine = worksheet().stateIndex() - 1;
  if (routine < 0 || routine > 40) return;
  stateList[static_cast<std::size_t>(routine) + 1].routine();
}

}  // namespace tallyfin
