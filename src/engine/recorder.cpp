#include "engine/recorder.h"

#include <utility>

#include "engine/calculate.h"
#include "engine/entries.h"
#include "engine/recording.h"

namespace tallyfin {

namespace told {

namespace {

/// The federal allowance as the main screen took it when it was loaded.
struct TakenAllowance {
  Tape tape;
  Amount amount;
  Int16 frequency;
};
thread_local std::optional<TakenAllowance> taken;

thread_local std::optional<Trace> last;

}  // namespace

}  // namespace told

Recorder::Recorder(std::string statusChosen, std::string date) {
  told::last.emplace();
  told::last->statusChosen = std::move(statusChosen);
  told::last->exemptions = worksheet().exemptionsText();
  told::last->date = std::move(date);
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

const Trace* lastTrace() { return told::last ? &*told::last : nullptr; }

void forgetTraces() {
  told::last.reset();
  told::taken.reset();
}

}  // namespace tallyfin
