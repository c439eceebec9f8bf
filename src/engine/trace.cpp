#include "engine/trace.h"

#include <utility>

namespace tallyfin {

namespace {

std::optional<Trace> last;

Fields fieldsNow() { return {payData, worksheet()}; }

Figure figureAt(const Target& target) {
  return std::visit(
      [](const auto* value) -> Figure {
        if constexpr (std::is_same_v<decltype(value), const float*>) {
          return static_cast<double>(*value);
        } else {
          return *value;
        }
      },
      target);
}

const void* addressOf(const Target& target) {
  return std::visit([](const auto* value) -> const void* { return value; }, target);
}

std::optional<std::size_t> fieldAt(const void* address) {
  std::optional<std::size_t> found;
  std::size_t number = 0;
  const auto look = [&](const char* /*name*/, const auto& field) {
    if (&field == address) found = number;
    ++number;
  };
  forEachField(payData, look);
  forEachField(static_cast<WorksheetFields&>(worksheet()), look);
  return found;
}

void addChanges(std::vector<Change>& changes, const Fields& before, const Fields& after) {
  std::array<Figure, fieldCount> old;
  std::size_t number = 0;
  Fields::each(before, [&](const char* /*name*/, const auto& field) { old.at(number++) = field; });
  number = 0;
  Fields::each(after, [&](const char* /*name*/, const auto& field) {
    const Figure now = field;
    if (old.at(number) != now) changes.push_back({number, old.at(number), now});
    ++number;
  });
}

}  // namespace

void watch(const char* title, std::span<const Target> targets, RunStatement run, void* statement, OnFailure onFailure) {
  recorder->record(title, targets, run, statement, onFailure);
}

void reportRow(const AppliedRow& row) { recorder->rowApplied(row); }

void reportAmounts(const AmountsCounted& counted) { recorder->amountsCounted(counted); }

Recorder::Recorder() {
  if (!last) last.emplace();
  Trace& trace = *last;
  trace.statements.clear();
  trace.changes.clear();
  trace.outcomes.clear();
  trace.state = "";
  trace.firstOfState = trace.endOfState = 0;
  trace.allowance.reset();
  trace.exemptions.reset();
  trace.touchedBefore = trace.touchedBy;
  ++trace.number;
  trace.before = fieldsNow();
  std::vector<Change> setSince;
  if (trace.number > 1) addChanges(setSince, trace.after, trace.before);
  for (const Change& change : setSince) trace.setBefore.at(change.field) = trace.number;
  trace.after = trace.before;
  recorder = this;
}

Recorder::~Recorder() {
  recorder = nullptr;
  last->after = fieldsNow();
}

Trace& Recorder::trace() { return *last; }

void Recorder::record(const char* title, std::span<const Target> targets, RunStatement run, void* statement,
                      OnFailure onFailure) {
  Trace& trace = *last;
  const std::size_t position = trace.statements.size();
  trace.statements.emplace_back();
  trace.statements.back().title = title;
  trace.statements.back().part = within_;
  const bool outer = !within_;
  within_ = true;
  const auto rowSoFar = std::exchange(row_, std::nullopt);
  counted_.reset();
  badText_.reset();

  std::vector<Figure> figuresBefore;
  for (const Target& target : targets) figuresBefore.push_back(figureAt(target));
  const Fields before = fieldsNow();
  bool done = true;
  bool assigned = false;
  FailedStatement failure;
  try {
    assigned = run(statement);
  } catch (const FailedStatement& failed) {
    done = false;
    failure = failed;
  }
  if (outer) within_ = false;

  TracedStatement& traced = trace.statements[position];
  traced.done = done;
  traced.assigned = assigned;
  if (!done) {
    traced.why = failure.why;
    traced.badText = badText_;
  }
  traced.row = row_;
  if (!row_) row_ = rowSoFar;  // a row that a part applied counts for the whole statement
  traced.counted = counted_;
  traced.firstChange = trace.changes.size();
  if (const Fields after = fieldsNow(); after != before) addChanges(trace.changes, before, after);
  traced.changes = trace.changes.size() - traced.firstChange;
  traced.firstOutcome = trace.outcomes.size();
  for (std::size_t i = 0; i < targets.size(); ++i) {
    const auto field = fieldAt(addressOf(targets[i]));
    trace.outcomes.push_back({field, figuresBefore[i], figureAt(targets[i])});
    if (field && assigned) trace.touchedBy.at(*field) = trace.number;
  }
  traced.outcomes = targets.size();
  if (!done && onFailure == OnFailure::passOn) throw failure;
}

void Recorder::rowApplied(const AppliedRow& row) { row_ = row; }

void Recorder::amountsCounted(const AmountsCounted& counted) { counted_ = counted; }

void Recorder::notANumber(std::string_view text) { badText_ = std::string(text); }

void Recorder::stateBegins(const char* caption) {
  last->state = caption;
  last->firstOfState = last->statements.size();
}

void Recorder::stateEnds() { last->endOfState = last->statements.size(); }

const Trace* lastTrace() { return last ? &*last : nullptr; }

void forgetTraces() { last.reset(); }

}  // namespace tallyfin
