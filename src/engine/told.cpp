#include "engine/told.h"

#include <utility>

#include "engine/calculate.h"
#include "engine/entries.h"
#include "engine/recorder.h"

namespace tallyfin {

namespace told {

namespace {

/// What was asked, noted and applied since the running statement began, or since its last line.
struct Recording {
  Tape tape;
  Circumstances since;
  std::optional<AppliedRow> row;  ///< Of the running statement.
  const char* whyKept = "";
  Trace* trace = nullptr;  ///< Null while the main screen takes the federal allowance.
  bool within = false;     ///< A statement is running.
};
thread_local Recording now;

/// The federal allowance as the main screen took it when it was loaded.
struct TakenAllowance {
  Tape tape;
  Amount amount;
  Int16 frequency;
};
thread_local std::optional<TakenAllowance> taken;

thread_local std::optional<Trace> last;

NodeId withCircumstances(Value value, NodeId node, const char* title, Circumstances circumstances) {
  const NodeId made = told::made(Op::titled, value, node, noNode, title);
  now.tape.nodes.back().circumstances = static_cast<int>(now.tape.circumstances.size());
  now.tape.circumstances.push_back(std::move(circumstances));
  return made;
}

/// Calls visit(name, field, plain field) for each field of the record and each working field.
template <class Visit>
void eachField(Visit&& visit) {
  const auto pairs = [&](auto& told, auto& plain) {
    forEachField(told, [&](const char* name, auto& figure) {
      forEachField(plain, [&](const char* other, auto& number) {
        if constexpr (std::same_as<std::remove_cvref_t<decltype(figure)>,
                                   Told<std::remove_cvref_t<decltype(number)>>>) {
          if (std::string_view(name) == other) visit(name, figure, number);
        }
      });
    });
  };
  pairs(payData, tallyfin::payData);
  pairs(static_cast<WorksheetFieldsOf<Amount, Count>&>(theWorksheet),
        static_cast<WorksheetFields&>(tallyfin::worksheet()));
}

/// Begins a tape: each field is what was left in it.
void takeOver(Tape tape) {
  now.tape = std::move(tape);
  now.since = {};
  eachField([](const char* name, auto& figure, const auto& number) {
    figure = {number, made(Op::left, number, noNode, noNode, name)};
  });
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
  for (std::size_t i = 0; i < targets.size(); ++i) {
    std::visit(
        [&](auto* figure) {
          const bool kept = figure->node() == before[i];
          Circumstances its = now.since;
          if (kept && !whyNot.empty()) its.notes.push_back(whyNot);
          *figure = {figure->plain(), withCircumstances(figure->plain(), figure->node(), title, std::move(its))};
        },
        targets[i]);
  }
  handBack();
}

std::string quoted(const char* title) { return std::string("\"") + title + "\""; }

}  // namespace

NodeId made(Op op, Value value, NodeId a, NodeId b, const char* name, bool inDollars) {
  now.tape.nodes.push_back({op, value, a, b, name, inDollars});
  return static_cast<NodeId>(now.tape.nodes.size()) - 1;
}

bool asked(Asked asked) {
  now.since.asked.push_back(asked);
  return asked.held;
}

NodeId titled(const char* title, Value value, NodeId node) {
  return withCircumstances(value, node, title, std::exchange(now.since, {}));
}

NodeId asMuch(const char* title, Value value, NodeId node) {
  const NodeId same = titled(title, value, node);
  now.tape.nodes.back().b = node;
  return same;
}

std::nullopt_t keep(const char* why) {
  now.whyKept = why;
  return std::nullopt;
}

void note(const char* remark) { now.since.notes.emplace_back(remark); }

NodeId noted(Value value, NodeId node, const char* remark) {
  return withCircumstances(value, node, "", {.asked = {}, .notes = {remark}, .row = {}});
}

void applied(AppliedRow row) {
  now.row = row;
  now.since.row = std::move(row);
}

namespace {
template <class T>
Told<T> entered(const Entry& entry, T value) {
  return {value, made(Op::entry, value, noNode, noNode, entry.where)};
}
}  // namespace

Amount toMoney(const Entry& entry) { return entered(entry, tallyfin::toMoney(entry.text)); }
Rate realOf(const Entry& entry) { return entered(entry, tallyfin::realOf(entry.text)); }
Count toInt16(const Entry& entry) { return entered(entry, tallyfin::toInt16(entry.text)); }

void runStatement(OnFailure onFailure, const char* title, std::span<const Target> targets, bool (*run)(void*),
                  void* statement) {
  const bool outer = !std::exchange(now.within, true);
  std::vector<Change> before;
  if (outer) before = figures();
  std::vector<NodeId> nodes;
  for (const Target& target : targets) nodes.push_back(nodeAt(target));
  now.since = {};
  now.row.reset();
  now.whyKept = "";
  const auto end = [&](bool done, const std::string& whyNot) {
    settle(title, targets, nodes, whyNot);
    now.since = {};
    if (!outer) return;
    now.within = false;
    if (now.trace != nullptr) now.trace->statements.push_back({title, done, changesSince(before), now.row});
  };
  const std::string skipped = quoted(title) + " is skipped, because ";
  try {
    const bool assigned = run(statement);
    end(true, assigned ? "" : quoted(title) + " stays as it was: " + now.whyKept + ".");
  } catch (const NotANumber& bad) {
    end(false, skipped + quoted(bad.text.c_str()) + " isn't a number.");
    if (onFailure == OnFailure::passOn) throw;
  } catch (const FailedStatement& failure) {
    end(false, skipped + failure.why + ".");
    if (onFailure == OnFailure::passOn) throw;
  }
}

}  // namespace told

Recorder::Recorder(std::string statusChosen) {
  told::last.emplace();
  told::last->statusChosen = std::move(statusChosen);
  told::takeOver(told::taken ? told::taken->tape : Tape{});
  told::now.trace = &*told::last;
  if (told::taken && told::taken->amount.plain() == payData.depsDed) {
    told::payData.depsDed = told::taken->amount;
    if (told::taken->frequency != payData.frequency) {
      told::noteOn(told::payData.depsDed,
                   "The federal allowance goes by the pay frequency and the exemptions that stood when the main screen "
                   "was loaded.");
    }
  }
}

Recorder::~Recorder() {
  Trace& trace = *told::last;
  std::size_t i = 0;
  for (const auto& row : resultRowsOf<told::PayData>) trace.results.at(i++) = (told::payData.*row.amount).node();
  trace.after = payData;
  trace.tape = std::exchange(told::now.tape, {});
  told::now.trace = nullptr;
}

void Recorder::calculatePaycheck() { told::calculatePaycheck(); }
void Recorder::makeTotals() { told::makeTotals(); }

void recordAllowance(Int16 exemptions) {
  told::takeOver({});
  told::taken.reset();
  const NodeId before = told::payData.depsDed.node();
  told::takeAllowance({exemptions, told::made(Op::entry, exemptions, noNode, noNode, "frmMain.cboExemptions")});
  if (told::now.tape.nodes[static_cast<std::size_t>(told::payData.depsDed.node())].a == before) return;
  told::taken = {std::exchange(told::now.tape, {}), told::payData.depsDed, payData.frequency};
}

void Recorder::stateIs(const char* caption) { told::last->state = caption; }

const Trace* lastTrace() { return told::last ? &*told::last : nullptr; }

void forgetTraces() {
  told::last.reset();
  told::taken.reset();
}

}  // namespace tallyfin
