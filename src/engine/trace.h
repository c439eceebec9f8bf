#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "engine/paydata.h"
#include "engine/tape.h"

/// What a calculation did, statement by statement, and where its figures come from, as plain data. Texts are made of it
/// when an explanation is requested.

namespace tallyfin {

/// A field that a statement changed.
struct Change {
  using Figure = std::variant<Money, Int16, double>;
  const char* field;
  Figure from;
  Figure to;
};

struct TracedStatement {
  const char* title = "";
  bool done = true;  ///< False: it failed and was skipped.
  std::vector<Change> changes;
  std::optional<AppliedRow> row;
};

/// A calculation from the pay periods to the total and the check.
struct Trace {
  std::vector<TracedStatement> statements;
  Tape tape;
  std::array<NodeId, 12> results{};  ///< Of the rows of the results.
  PayData after;
  const char* state = "";    ///< The entry of the state list whose routine ran; empty if none did.
  std::string statusChosen;  ///< The caption of the status button that is set.
  std::string exemptions;    ///< As entered.
  std::string date;          ///< Of the paycheck, in words.
};

}  // namespace tallyfin
