#pragma once

#include <string>
#include <vector>

#include "engine/tape.h"

namespace tallyfin {

/// How a figure came about: a figure of another line, or an operation on others.
struct Operand {
  enum class Origin {
    line,
    row,       ///< The figure of another row of the results.
    entry,     ///< What the user entered.
    constant,  ///< A figure of the rules.
    left,      ///< What stood in a field before the calculation.
    result     ///< Of an operation.
  };
  Origin origin = Origin::constant;
  std::string name;  ///< Of the row, the control, the constant, the field, the operation.
  int line = 0;
  Value value;
  std::vector<Operand> of;
};

}  // namespace tallyfin
