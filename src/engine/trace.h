#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/bands.h"
#include "engine/paydata.h"
#include "engine/step.h"
#include "engine/worksheet.h"

/// What a calculation did, statement by statement, as plain data. Texts are made of it only when somebody asks.

namespace tallyfin {

/// The record and the working fields together, in declaration order.
struct Fields {
  PayData record;
  WorksheetFields work;

  bool operator==(const Fields&) const = default;

  /// Calls visit(name, field) for each, those of the record first.
  template <class Self, class Visit>
  static void each(Self&& self, Visit&& visit) {
    forEachField(self.record, visit);
    forEachField(self.work, visit);
  }
};

/// A number for each field, in their order.
using PerField = std::array<int, 41>;
inline constexpr std::size_t fieldCount = std::tuple_size_v<PerField>;

/// A value of a field, or of a figure that a routine keeps to itself.
using Figure = std::variant<Money, Int16, double>;

/// A field by its number in Fields::each.
struct Change {
  std::size_t field;
  Figure from;
  Figure to;
};

/// What a statement assigned, or would have: a field, or no field but a figure of the routine's own.
struct Outcome {
  std::optional<std::size_t> field;
  Figure before;
  Figure value;  ///< After the statement.
};

/// One statement. Its changes and outcomes stand in the trace.
struct TracedStatement {
  const char* title = "";
  bool done = true;                    ///< False: it failed and was skipped.
  bool assigned = true;                ///< False: none of its cases held.
  bool part = false;                   ///< A part of the last statement before it that isn't a part.
  const char* why = "";                ///< Of the failure, in words that follow "because".
  std::optional<std::string> badText;  ///< The text that isn't a number, if that was the reason.
  std::size_t firstChange = 0, changes = 0;
  std::size_t firstOutcome = 0, outcomes = 0;
  std::optional<AppliedRow> row;
  std::optional<AmountsCounted> counted;
};

/// A calculation from the pay periods to the total and the check. Applied to `before` in their order, the changes of
/// all statements that aren't parts give `after`.
struct Trace {
  Fields before;
  Fields after;
  std::vector<TracedStatement> statements;
  std::vector<Change> changes;
  std::vector<Outcome> outcomes;

  const char* state = "";           ///< The entry of the state list whose routine ran; empty if none did.
  std::size_t firstOfState = 0;     ///< Its statements, from this one ...
  std::size_t endOfState = 0;       ///< ... to the one before this.
  std::optional<Money> allowance;   ///< Federal allowance for each exemption, if the frequency has one.
  std::optional<Int16> exemptions;  ///< As chosen on the main screen, where they are a number.

  int number = 0;            ///< Counts the calculations of a run from 1.
  PerField touchedBy{};      ///< The calculation that assigned a field last; 0 if none did.
  PerField touchedBefore{};  ///< `touchedBy` as it was before this calculation.
  PerField setBefore{};      ///< The last calculation before which something else set a field; 0 for none.
};

/// Records all statements while it lives. One at a time.
class Recorder {
 public:
  Recorder();
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  Trace& trace();

  void record(const char* title, std::span<const Target> targets, RunStatement run, void* statement,
              OnFailure onFailure);
  void rowApplied(const AppliedRow& row);
  void amountsCounted(const AmountsCounted& counted);
  void notANumber(std::string_view text);
  void stateBegins(const char* caption);
  void stateEnds();

 private:
  std::optional<AppliedRow> row_;
  std::optional<AmountsCounted> counted_;
  std::optional<std::string> badText_;
  bool within_ = false;
};

/// The trace of the last calculation that was recorded in this run; none before the first.
const Trace* lastTrace();
/// Forgets all calculations: a new run begins.
void forgetTraces();

}  // namespace tallyfin
