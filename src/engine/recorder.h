#pragma once

#include <string>

#include "engine/trace.h"

namespace tallyfin {

/// Records the calculation that it carries out. One at a time. Of one that an exception breaks off, other than a failed
/// statement, there is no trace.
class Recorder {
 public:
  /// The caption of the status button that is set, and the date, for the explanation.
  explicit Recorder(std::string statusChosen = {}, std::string date = {});
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  /// The functions of the same names, with figures that know how they came about.
  static void calculatePaycheck();
  static void makeTotals();
};

/// takeAllowance, remembered for the calculations that follow.
void recordAllowance(Int16 exemptions);

/// The trace of the last calculation that was recorded in this run; none before the first.
const Trace* lastTrace();
/// Forgets all calculations: a new run begins.
void forgetTraces();

}  // namespace tallyfin
