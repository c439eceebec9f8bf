#include <benchmark/benchmark.h>

#include <string_view>

#include "allocations.h"
#include "engine/numbertext.h"

/// Parsing and formatting of numbers.

namespace tallyfin::bench {

namespace {

template <class Act>
void repeat(benchmark::State& rounds, Act act) {
  const AllocationsPerRound allocations(rounds);
  for (auto _ : rounds) benchmark::DoNotOptimize(act());
}

constexpr std::string_view income = "$1,234.56";
const Money amount = Money::ofUnits(12345678);

void toMoneyOfText(benchmark::State& rounds) {
  repeat(rounds, [] { return toMoney(income); });
}
void realOfText(benchmark::State& rounds) {
  repeat(rounds, [] { return realOf("0.0625"); });
}
void toInt16OfText(benchmark::State& rounds) {
  repeat(rounds, [] { return toInt16("12"); });
}
void textOfMoney(benchmark::State& rounds) {
  repeat(rounds, [] { return toText(amount); });
}
void textOfDouble(benchmark::State& rounds) {
  repeat(rounds, [] { return toText(0.0625); });
}
void currencyOfMoney(benchmark::State& rounds) {
  repeat(rounds, [] { return currency(amount); });
}
void currencyOfText(benchmark::State& rounds) {
  repeat(rounds, [] { return currency(income); });
}
void percentageOfDouble(benchmark::State& rounds) {
  repeat(rounds, [] { return percentage(0.0625); });
}

BENCHMARK(toMoneyOfText)->Name("toMoney");
BENCHMARK(realOfText)->Name("realOf");
BENCHMARK(toInt16OfText)->Name("toInt16");
BENCHMARK(textOfMoney)->Name("toText/Money");
BENCHMARK(textOfDouble)->Name("toText/double");
BENCHMARK(currencyOfMoney)->Name("currency/Money");
BENCHMARK(currencyOfText)->Name("currency/text");
BENCHMARK(percentageOfDouble)->Name("percentage");

}  // namespace

}  // namespace tallyfin::bench
