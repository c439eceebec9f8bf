#include "ui/qt/desktop.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>
#include <QPixmapCache>
#include <string>

#include "allocations.h"
#include "engine/settingsstore.h"
#include "ui/qt/look.h"
#include "ui/screens.h"

/// The desktop program's screens as their user meets them: from the wish to the drawn screen, and closed again.

namespace tallyfin::bench {

namespace {

/// Everything that waits is done: laid out, drawn, and the widgets of closed screens gone.
void settle() {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
}

template <class S>
void openAndClose(benchmark::State& rounds) {
  MemoryStore store;
  useSettingsStore(store);
  qt::Desktop desktop;
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
  // Qt keeps drawn buttons and the like for the next time, up to 10 MB: they are no part of what a screen leaves.
  const auto held = [] {
    QPixmapCache::clear();
    return bytesInUse();
  };
  for (int i = 0; i < 20; ++i) {
    open();
    close();
  }
  const std::uint64_t before = held();
  for (auto _ : rounds) {
    open();
    rounds.PauseTiming();
    close();
    rounds.ResumeTiming();
  }
  const auto left = static_cast<double>(held()) - static_cast<double>(before);
  rounds.counters["bytes left a round"] = benchmark::Counter(left, benchmark::Counter::kAvgIterations);
}

template <class... Screens>
struct Open {
  static void registerAll() {
    (benchmark::RegisterBenchmark(("open/" + std::string(Screens::screenName)).c_str(), openAndClose<Screens>)
         ->Iterations(1000)
         ->UseRealTime()
         ->Unit(benchmark::kMillisecond),
     ...);
  }
};

/// Without the frame, which is there from the beginning to the end of a run.
template <class Frame, class... Screens>
struct WithoutFirst : Open<Screens...> {};

}  // namespace

}  // namespace tallyfin::bench

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tallyfin::qt::look::apply(application);
  tallyfin::AllScreens<tallyfin::bench::WithoutFirst>::registerAll();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
