#pragma once

#include <optional>

#include "engine/trace.h"

namespace tallyfin::recorded {

/// The federal allowance, calculated when the main screen was loaded.
struct TakenAllowance {
  Tape tape;
  Money amount;
  NodeId node;  ///< Of the amount.
  Int16 exemptions;
  Int16 frequency;
};

/// The comparisons, remarks and table rows since the start of the running statement, or since its last line; and what
/// is kept from one calculation to the next.
struct Recording {
  Tape tape;
  Circumstances since;
  std::optional<AppliedRow> row;  ///< Of the running statement.
  const char* whyKept = "";
  Trace* trace = nullptr;  ///< Null while the federal allowance is calculated.
  bool within = false;     ///< A statement is running.

  std::optional<TakenAllowance> taken;
  std::optional<Trace> last;
};

/// The recording of this thread. It is created at its first use, and removed by the destructor of the thread's
/// Services. It isn't a thread_local object: without memory to register a destructor, the C library would abort the
/// program.
Recording& recording();
void removeRecording();

/// Begins a tape on which each field of the record is a value from before the calculation.
void takeOver(Tape tape);

}  // namespace tallyfin::recorded
