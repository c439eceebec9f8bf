#pragma once

#include <optional>

#include "engine/trace.h"

namespace tallyfin::told {

/// What was asked, noted and applied since the running statement began, or since its last line.
struct Recording {
  Tape tape;
  Circumstances since;
  std::optional<AppliedRow> row;  ///< Of the running statement.
  const char* whyKept = "";
  Trace* trace = nullptr;  ///< Null while the main screen takes the federal allowance.
  bool within = false;     ///< A statement is running.
};
extern thread_local Recording now;

/// Begins a tape: each field of the record is what was left in it.
void takeOver(Tape tape);

}  // namespace tallyfin::told
