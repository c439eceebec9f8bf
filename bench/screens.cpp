#include "ui/screens.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "allocations.h"
#include "engine/paydata.h"
#include "store/store.h"
#include "ui/program.h"

/// The screens' models: opening and closing every one of them, and the toolbar's Calculate with the store on disk.

namespace tallyfin::bench {

namespace {

template <class S>
void openAndClose(benchmark::State& rounds) {
  MemoryStore store;
  Program program(store, plainPlatform());
  program.start();
  const auto act = [] {
    desk.show<S>();
    desk.userClose(desk.use<S>());  // the end of the act frees its memory
  };
  act();  // allocates what is kept for all rounds
  const std::uint64_t before = bytesInUse();
  {
    const AllocationsPerRound allocations(rounds);
    for (auto _ : rounds) act();
  }
  rounds.counters["bytes left"] = static_cast<double>(bytesInUse()) - static_cast<double>(before);
}

template <class... Screens>
struct OpenAndClose {
  static bool registered() {
    (benchmark::RegisterBenchmark(("open and close/" + std::string(Screens::screenName)).c_str(), openAndClose<Screens>)
         ->Iterations(100'000)
         ->Unit(benchmark::kMicrosecond),
     ...);
    return true;
  }
};

/// Without the frame, which is open for the whole run.
template <class Frame, class... Screens>
struct WithoutFirst : OpenAndClose<Screens...> {};

const bool registered = AllScreens<WithoutFirst>::registered();

/// Each of the ten values that the command saves differs from the round before.
void toolbarCalculate(benchmark::State& rounds, SettingsStore& store) {
  Program program(store, plainPlatform());
  program.start();
  frmMain& screen = desk.use<frmMain>();
  desk.show(screen);
  payData.applyTo = 1;
  int round = 0;
  for (auto _ : rounds) {
    rounds.PauseTiming();
    const bool odd = ++round % 2 != 0;
    screen.txtIncome.setText(std::to_string(1000 + round));
    screen.txt401k.setText(odd ? "6" : "7");
    screen.txtPreTax.setText(odd ? "10" : "20");
    screen.txtPreFICA.setText(odd ? "30" : "40");
    screen.lstFrequency.setIndex(odd ? 0 : 2);
    screen.txtHours.setText(odd ? "41" : "79");
    screen.cboState.setIndex(odd ? 1 : 2);
    screen.cboExemptions.setIndex(odd ? 1 : 2);
    screen.optStatus[odd ? 0 : 1].select();
    desk.close<frmState>();
    payData.localRate = odd ? 0.01 : 0.02;
    rounds.ResumeTiming();
    screen.cmdToolBar[frmMain::calculate].click();
  }
}

void inMemory(benchmark::State& rounds) {
  MemoryStore store;
  toolbarCalculate(rounds, store);
}

void onDisk(benchmark::State& rounds) {
  std::string folder = (std::filesystem::current_path() / "benchXXXXXX").string();
  if (::mkdtemp(folder.data()) == nullptr) return rounds.SkipWithError("no folder can be made here");
  {
    FileStore store(folder + "/Tallyfin99.sqlite");
    toolbarCalculate(rounds, store);
    if (!store.read(section::settings, "IncAmt")) rounds.SkipWithError("the store couldn't be written");
  }
  std::filesystem::remove_all(folder);
}

BENCHMARK(inMemory)->Name("toolbar's Calculate/store in memory")->Unit(benchmark::kMicrosecond)->Iterations(200);
BENCHMARK(onDisk)
    ->Name("toolbar's Calculate/store on disk")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(200)
    ->UseRealTime();

}  // namespace

}  // namespace tallyfin::bench
