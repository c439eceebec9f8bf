#pragma once

#include <string>

#include "engine/trace.h"

namespace tallyfin {

/// Records a calculation. There is one recorder at a time. A calculation that ends with an exception leaves no trace.
class Recorder {
 public:
  /// The caption of the status button that is set, and the date, for the explanation.
  explicit Recorder(std::string statusChosen = {}, std::string date = {});
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  /// The functions of the same names, recorded.
  static void calculatePaycheck();
  static void makeTotals();
};

/// takeAllowance, with its tape kept for later calculations.
void recordAllowance(Int16 exemptions);

/// The trace of the last recorded calculation of this run; null before the first.
const Trace* lastTrace();
/// Removes all traces, for a new run.
void forgetTraces();

}  // namespace tallyfin
