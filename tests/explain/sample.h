#pragma once

#include <string>
#include <vector>

#include "engine/recorder.h"
#include "explain/explain.h"
#include "support/program.h"

namespace tallyfin {

using Lines = std::vector<std::string>;

class ExplainTest : public ProgramTest {
 protected:
  /// The sample: a week, single, one exemption, $1,000.00, 401(k) 6, Pennsylvania.
  void startSample(int state = 34) {
    put("Frequency", "0");
    put("Deps", "1");
    put("MaritalStat", "1");
    put("State", std::to_string(state).c_str());
    put("IncAmt", "1000");
    put("401k", "6");
    start();
  }
  static Lines linesOf(const std::string& title) {
    Lines lines;
    for (const Explanation& explanation : explain(*lastTrace())) {
      if (explanation.title != title) continue;
      for (const ExplanationLine& line : explanation.lines) lines.push_back(line.print());
    }
    return lines;
  }
};

}  // namespace tallyfin
