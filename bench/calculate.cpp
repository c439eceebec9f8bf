#include "engine/calculate.h"

#include <benchmark/benchmark.h>

#include <string>

#include "allocations.h"
#include "engine/paydata.h"
#include "engine/services.h"
#include "engine/statelist.h"
#include "support/worksheet.h"

/// A whole Calculate: four texts parsed, federal tax, FICA, the state, local tax, eight labels.

namespace tallyfin::bench {

namespace {

/// A weekly paycheck of a single person with two exemptions, 1 percent local tax, and options as the state's screen
/// sets them.
void calculate(benchmark::State& rounds, int state) {
  MemoryStore store;
  store.write(section::stateInfo, "sta401", "Y");
  store.write(section::stateInfo, "staPreTax", "N");
  FakeWorksheet sheet;
  sheet.income = "1,000.00";
  sheet.rate401k = "6";
  sheet.preTax = "25.50";
  sheet.preFica = "10";
  sheet.exemptionsEntry = "2";
  const Services services(store, sheet);
  sheet.state = state;
  payData = PayData{};
  payData.maritalStat = 1;
  payData.payPeriods = 52;
  payData.depsDed = Money::ofUnits(1057600);
  payData.localRate = 0.01;
  payData.applyTo = 1;
  payData.staMarried = 1;
  payData.staExmp = 1;
  const AllocationsPerRound allocations(rounds);
  for (auto _ : rounds) {
    Calculate();
    benchmark::DoNotOptimize(payData);
  }
}

/// One line for each entry of the state list, "No State" first.
const bool registered = [] {
  for (int state = 0; state < static_cast<int>(stateList.size()); ++state) {
    const std::string name = std::string("Calculate/") + stateList[static_cast<std::size_t>(state)].caption;
    benchmark::RegisterBenchmark(name.c_str(), calculate, state);
  }
  return true;
}();

}  // namespace

}  // namespace tallyfin::bench
