#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

#include "../batch/batchrun.h"
#include "batch/run.h"
#include "engine/numbertext.h"
#include "library/paycheck.h"

/// Paychecks on several threads at once. tests/library/threads runs these under the thread sanitizer.

namespace tallyfin::library {
namespace {

constexpr int threadCount = 8;
constexpr int paycheckCount = 400;

/// The results of a different paycheck for each number, in all states, sometimes with the explanation.
std::string worked(Paycheck& paycheck, int number) {
  paycheck.setInteger(Column::income, 300 + 7 * number);
  paycheck.setInteger(Column::frequency, number % 4);
  paycheck.setInteger(Column::status, number % 3);
  paycheck.setInteger(Column::state, number % 42);
  paycheck.setInteger(Column::stateMarital, number % 10);
  paycheck.set(Column::preTax, number % 5 == 0 ? "x" : "20");
  paycheck.set(Column::state401k, number % 2 == 0 ? "Y" : "N");
  paycheck.setReal(Column::rate401k, 0.01 * (number % 9));
  paycheck.work();
  std::string text;
  for (std::size_t row = 0; row < resultCount; ++row) text += toText(paycheck.result(row)) + ",";
  text += paycheck.problem();
  if (number % 20 == 0) {
    for (const Explanation& explanation : paycheck.explain()) {
      for (const std::string& line : explanation.printed()) text += line;
    }
  }
  return text;
}

TEST(Threads, WorkDifferentPaychecksAtOnce) {
  std::vector<std::string> alone;
  Paycheck paycheck;
  for (int number = 0; number < threadCount * paycheckCount; ++number) alone.push_back(worked(paycheck, number));

  std::array<std::vector<std::string>, threadCount> together;
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
      threads.emplace_back([&together, thread] {
        Paycheck own;
        for (int i = 0; i < paycheckCount; ++i) {
          together[static_cast<std::size_t>(thread)].push_back(worked(own, i * threadCount + thread));
        }
      });
    }
  }
  for (int number = 0; number < threadCount * paycheckCount; ++number) {
    const auto thread = static_cast<std::size_t>(number % threadCount);
    EXPECT_EQ(together[thread][static_cast<std::size_t>(number / threadCount)],
              alone[static_cast<std::size_t>(number)]);
  }
}

TEST(Threads, WorkAPaycheckThatAnotherThreadHasSet) {
  Paycheck paycheck;
  const std::string here = worked(paycheck, 7);
  std::string there;
  std::jthread([&] {
    paycheck.work();
    for (std::size_t row = 0; row < resultCount; ++row) there += toText(paycheck.result(row)) + ",";
    there += paycheck.problem();
  }).join();
  EXPECT_EQ(there, here);
}

TEST(Threads, WorkTheRowsOfAFile) {
  std::string in = "income,frequency,state\n";
  for (int row = 0; row < 2000; ++row) {
    in += std::to_string(row) + "," + std::to_string(row % 5) + "," + std::to_string(row % 43) + "\n";
  }
  const batch::Outcome one = batch::outcomeOf(in);
  const batch::Outcome many = batch::outcomeOf(in, {.jobs = threadCount}, 500);
  EXPECT_EQ(many.out, one.out);
  EXPECT_EQ(many.account.problems, one.account.problems);
}

}  // namespace
}  // namespace tallyfin::library
