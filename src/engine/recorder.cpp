#include "engine/recorder.h"

#include <utility>

#include "engine/calculate.h"
#include "engine/entries.h"
#include "engine/recording.h"
#include "engine/services.h"

namespace tallyfin {

Recorder::Recorder(std::string statusChosen, std::string date) {
  recorded::Recording& now = recorded::recording();
  now.last.reset();
  recorded::takeOver(now.taken ? now.taken->tape : Tape{});
  const std::string& exemptions = worksheet().exemptionsText();
  const bool known = now.taken && now.taken->amount == payData.depsDed;
  if (known) recorded::payData.depsDed = {now.taken->amount, now.taken->node};
  const bool current =
      known && now.taken->frequency == payData.frequency && toText(now.taken->exemptions) == exemptions;
  const bool none = payData.depsDed == 0 && exemptions == "0";
  if (!current && !none) {
    recorded::noteOn(
        recorded::payData.depsDed,
        "The federal allowance goes by the pay frequency and the exemptions that stood when the main screen "
        "was loaded.");
  }
  // Last, so that there is no trace where one of the statements above throws.
  Trace begun;
  begun.statusChosen = std::move(statusChosen);
  begun.exemptions = exemptions;
  begun.date = std::move(date);
  now.last = std::move(begun);
  now.trace = &*now.last;
}

Recorder::~Recorder() {
  recorded::Recording& now = recorded::recording();
  now.trace = nullptr;
  if (now.within) {  // a statement ended with an exception: no memory
    now.last.reset();
    return;
  }
  Trace& trace = *now.last;
  std::size_t i = 0;
  for (const auto& row : resultRowsOf<recorded::PayData>)
    trace.results.at(i++) = (recorded::payData.*row.amount).node();
  trace.after = payData;
  trace.tape = std::exchange(now.tape, {});
}

void Recorder::calculatePaycheck() { recorded::calculatePaycheck(); }
void Recorder::makeTotals() { recorded::makeTotals(); }

void recordAllowance(Int16 exemptions) {
  recorded::Recording& now = recorded::recording();
  recorded::takeOver({});
  now.taken.reset();
  const recorded::Amount& taken = recorded::payData.depsDed;
  const NodeId before = taken.node();
  recorded::takeAllowance({exemptions, recorded::made(Op::entry, exemptions, noNode, noNode, "frmMain.cboExemptions")});
  if (now.tape.nodes[static_cast<std::size_t>(taken.node())].a == before) return;
  now.taken = {std::exchange(now.tape, {}), taken.plain(), taken.node(), exemptions, payData.frequency};
}

const Trace* lastTrace() {
  const std::optional<Trace>& last = recorded::recording().last;
  return last ? &*last : nullptr;
}

void forgetTraces() {
  recorded::recording().last.reset();
  recorded::recording().taken.reset();
}

void Services::removeRecordings() { recorded::removeRecording(); }

}  // namespace tallyfin
