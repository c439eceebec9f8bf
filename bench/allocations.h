#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>

/// Counts the program's allocations.
namespace tallyfin::bench {

/// The number of allocations so far.
std::uint64_t allocations();

/// The memory in use, bytes.
std::uint64_t bytesInUse();

/// Reports the allocations of one round of a loop during its lifetime.
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
