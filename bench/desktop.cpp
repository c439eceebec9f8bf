#include "ui/qt/desktop.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>
#include <cstdlib>
#include <string>

#include "allocations.h"
#include "engine/settingsstore.h"
#include "ui/qt/frame/dialogs.h"
#include "ui/qt/widgets/look.h"
#include "ui/screens.h"

/// Opening each screen of the desktop program until it is drawn, and closing it.

namespace tallyfin::bench {

namespace {

/// Processes all pending events: layout, drawing, and deletion of the widgets of closed screens.
void settle() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
}

template <class S>
void openAndClose(benchmark::State& rounds) {
  MemoryStore store;
  qt::SystemDialogs dialogs;
  qt::Desktop desktop(store, dialogs);
  desktop.start();
  const auto open = [] {
    S& screen = desk.use<S>();
    screen.maximized = screen.place() == Place::document;
    desk.show(screen);
    settle();
  };
  const auto close = [] {
    if (S* screen = desk.find<S>()) desk.userClose(*screen);
    settle();
  };
  for (int i = 0; i < 20; ++i) {
    open();
    close();
  }
  const std::uint64_t before = bytesInUse();
  const auto left = [before] { return static_cast<double>(bytesInUse()) - static_cast<double>(before); };
  double leftAfterAFifth = 0;
  benchmark::IterationCount done = 0;
  for (auto _ : rounds) {
    open();
    rounds.PauseTiming();
    close();
    if (++done == rounds.max_iterations / 5) leftAfterAFifth = left();
    rounds.ResumeTiming();
  }
  rounds.counters["bytes left"] = left();
  rounds.counters["bytes left after a fifth"] = leftAfterAFifth;
}

template <class... Screens>
struct Open {
  static void registerAll(int rounds) {
    (benchmark::RegisterBenchmark(("open/" + std::string(Screens::screenName)).c_str(), openAndClose<Screens>)
         ->Iterations(rounds)
         ->UseRealTime()
         ->Unit(benchmark::kMillisecond),
     ...);
  }
};

/// Without the frame, which is open for the whole run.
template <class Frame, class... Screens>
struct WithoutFirst : Open<Screens...> {};

}  // namespace

}  // namespace tallyfin::bench

/// tallyfin99-desktop-bench [ROUNDS]: opens and closes each screen ROUNDS times (10,000).
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tallyfin::qt::look::apply(application);
  benchmark::Initialize(&argc, argv);
  tallyfin::AllScreens<tallyfin::bench::WithoutFirst>::registerAll(argc > 1 ? std::atoi(argv[1]) : 10'000);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
