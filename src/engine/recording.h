#pragma once

#include <optional>

#include "engine/trace.h"

namespace tallyfin::told {

/// The federal allowance as the main screen took it when it was loaded.
struct TakenAllowance {
  Tape tape;
  Money amount;
  NodeId node;  ///< Of the amount.
  Int16 frequency;
};

/// What was asked, noted and applied since the running statement began, or since its last line; and what is kept from
/// one calculation to the next.
struct Recording {
  Tape tape;
  Circumstances since;
  std::optional<AppliedRow> row;  ///< Of the running statement.
  const char* whyKept = "";
  Trace* trace = nullptr;  ///< Null while the main screen takes the federal allowance.
  bool within = false;     ///< A statement is running.

  std::optional<TakenAllowance> taken;
  std::optional<Trace> last;
};

/// The recording of this thread. It is made at its first use and lasts as long as the thread's Services, whose
/// destructor removes it. It is no thread_local object, because the C library ends the program where it finds no memory
/// to note the destructor of one.
Recording& recording();
void removeRecording();

/// Begins a tape: each field of the record is what was left in it.
void takeOver(Tape tape);

}  // namespace tallyfin::told
