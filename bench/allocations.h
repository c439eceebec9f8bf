#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>

/// Counts the program's allocations, to show beside the times.
namespace tallyfin::bench {

/// How often memory has been asked for so far.
std::uint64_t allocations();

/// How much memory is in use at this moment, bytes.
std::uint64_t bytesInUse();

/// Shows the allocations of one round of the loop between its life's beginning and end.
class AllocationsPerRound {
 public:
  explicit AllocationsPerRound(benchmark::State& state) : state_(state), before_(allocations()) {}
  ~AllocationsPerRound() {
    const auto count = static_cast<double>(allocations() - before_);
    state_.counters["allocations"] = benchmark::Counter(count, benchmark::Counter::kAvgIterations);
  }
  AllocationsPerRound(const AllocationsPerRound&) = delete;
  AllocationsPerRound& operator=(const AllocationsPerRound&) = delete;

 private:
  benchmark::State& state_;
  std::uint64_t before_;
};

}  // namespace tallyfin::bench
