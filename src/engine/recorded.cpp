#include "engine/recorded.h"

#include <utility>

#include "engine/doubletext.h"
#include "engine/recording.h"

namespace tallyfin::recorded {

namespace {

NodeId withCircumstances(Value value, NodeId node, const char* title, Circumstances circumstances) {
  const NodeId made = recorded::made(Op::titled, value, node, noNode, title);
  recording().tape.nodes.back().circumstances = static_cast<int>(recording().tape.circumstances.size());
  recording().tape.circumstances.push_back(std::move(circumstances));
  return made;
}

/// Calls visit(name, field, plain field) for each field of the record and each working field.
template <class Visit>
void eachField(Visit&& visit) {
  forFieldsOf(visit, payData, tallyfin::payData);
  forFieldsOf(visit, static_cast<WorksheetFieldsOf<Amount, Count>&>(theWorksheet),
              static_cast<WorksheetFields&>(tallyfin::worksheet()));
}

void handBack() {
  eachField([](const char* /*name*/, const auto& figure, auto& number) { number = figure.plain(); });
}

/// The figures of all fields by their names.
std::vector<Change> figures() {
  std::vector<Change> all;
  const auto add = [&](const char* name, const auto& figure) { all.push_back({name, figure, figure}); };
  forEachField(tallyfin::payData, add);
  forEachField(static_cast<const WorksheetFields&>(tallyfin::worksheet()), add);
  return all;
}

std::vector<Change> changesSince(const std::vector<Change>& before) {
  std::vector<Change> changes;
  const std::vector<Change> after = figures();
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (before[i].from != after[i].to) changes.push_back({before[i].field, before[i].from, after[i].to});
  }
  return changes;
}

NodeId nodeAt(const Target& target) {
  return std::visit([](const auto* figure) { return figure->node(); }, target);
}

/// Gives each target that was assigned the title, and each that wasn't the reason.
void settle(const char* title, std::span<const Target> targets, const std::vector<NodeId>& before,
            const std::string& whyNot) {
  std::optional<std::pair<NodeId, NodeId>> first;  // targets of one figure share its line
  for (std::size_t i = 0; i < targets.size(); ++i) {
    std::visit(
        [&](auto* figure) {
          if (first && first->first == figure->node()) {
            *figure = {figure->plain(), first->second};
            return;
          }
          const NodeId node = figure->node();
          const bool kept = node == before[i];
          Circumstances its = recording().since;
          if (kept && !whyNot.empty()) its.notes.push_back(whyNot);
          *figure = {figure->plain(), withCircumstances(figure->plain(), node, title, std::move(its))};
          first = {node, figure->node()};
        },
        targets[i]);
  }
  handBack();
}

std::string quoted(const char* title) { return std::string("\"") + title + "\""; }

constinit thread_local Recording* ofThisThread = nullptr;

}  // namespace

Recording& recording() {
  if (ofThisThread == nullptr) ofThisThread = new Recording;
  return *ofThisThread;
}

void removeRecording() { delete std::exchange(ofThisThread, nullptr); }

void takeOver(Tape tape) {
  Recording& now = recording();
  now.tape = std::move(tape);
  now.since = {};
  now.trace = nullptr;
  now.within = false;
  eachField([](const char* name, auto& figure, const auto& number) {
    figure = {number, made(Op::left, number, noNode, noNode, name)};
  });
}

NodeId made(Op op, Value value, NodeId a, NodeId b, const char* name, bool inDollars) {
  recording().tape.nodes.push_back({.op = op, .value = value, .a = a, .b = b, .name = name, .inDollars = inDollars});
  return static_cast<NodeId>(recording().tape.nodes.size()) - 1;
}

bool compared(Comparison comparison) {
  recording().since.comparisons.push_back(comparison);
  return comparison.held;
}

NodeId titled(const char* title, Value value, NodeId node) {
  return withCircumstances(value, node, title, std::exchange(recording().since, {}));
}

Count called(const char* title, const Count& choice) {
  recording().tape.nodes[static_cast<std::size_t>(choice.node())].title = title;
  return choice;
}

Rate asRate(const Single& x) {
  const auto rate = static_cast<double>(x.plain());
  const std::string written = shortestTextOf(x.plain());
  if (doubleOf(written) != rate) {
    recording().since.notes.push_back("In single precision " + written + " is " + shortestTextOf(rate) + ".");
  }
  return {rate, x.node()};
}

std::nullopt_t keep(const char* why) {
  recording().whyKept = why;
  return std::nullopt;
}

void note(const char* remark) { recording().since.notes.emplace_back(remark); }

NodeId noted(Value value, NodeId node, const char* remark) {
  return withCircumstances(value, node, "", {.comparisons = {}, .notes = {remark}, .row = {}});
}

void applied(AppliedRow row) {
  const Money lower = row.row().lower;
  if (lower != 0 && std::get<Money>(recording().tape.nodes[static_cast<std::size_t>(row.x)].value) < lower)
    note("In the row that was used, the percentage counts from an amount above the wage, so it lowers the tax.");
  recording().row = row;
  recording().since.row = std::move(row);
}

namespace {
template <class T>
Recorded<T> entered(const Entry& entry, T value) {
  return {value, made(Op::entry, value, noNode, noNode, entry.where)};
}
}  // namespace

Amount toMoney(const Entry& entry) { return entered(entry, tallyfin::toMoney(entry.text)); }
Rate realOf(const Entry& entry) { return entered(entry, tallyfin::realOf(entry.text)); }
Count toInt16(const Entry& entry) { return entered(entry, tallyfin::toInt16(entry.text)); }

void runStatement(OnFailure onFailure, const char* title, std::span<const Target> targets, bool (*run)(void*),
                  void* statement) {
  const bool outer = !std::exchange(recording().within, true);
  std::vector<Change> before;
  if (outer) before = figures();
  std::vector<NodeId> nodes;
  for (const Target& target : targets) nodes.push_back(nodeAt(target));
  recording().since = {};
  recording().row.reset();
  recording().whyKept = "";
  const auto end = [&](bool done, const std::string& whyNot) {
    settle(title, targets, nodes, whyNot);
    recording().since = {};
    if (!outer) return;
    if (recording().trace != nullptr)
      recording().trace->statements.push_back({title, done, changesSince(before), recording().row});
    recording().within = false;
  };
  const auto fail = [&](const std::string& why) {
    end(false, quoted(title) + " is skipped, because " + why + ".");
    if (onFailure == OnFailure::passOn) throw;
  };
  try {
    const bool assigned = run(statement);
    end(true, assigned ? "" : quoted(title) + " stays as it was: " + recording().whyKept + ".");
  } catch (const NotANumber& bad) {
    fail(quoted(bad.text.c_str()) + " isn't a number");
  } catch (const FailedStatement& failure) {
    fail(failure.why);
  }
}

void stateIs(const char* caption) { recording().trace->state = caption; }

}  // namespace tallyfin::recorded
