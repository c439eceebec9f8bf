#include <gmock/gmock.h>

#include <latch>
#include <string>
#include <vector>

#include "batchrun.h"

namespace tallyfin::batch {
namespace {

using testing::StartsWith;
using testing::ThrowsMessage;

/// Many rows, some with line breaks in quotes, some with problems, in files longer than many readings.
std::string manyRows() {
  std::string in = "id,income,frequency,state,note\n";
  for (int row = 0; row < 3000; ++row) {
    const std::string number = std::to_string(row);
    in += number + "," + number + ".5," + (row % 97 == 96 ? "9" : std::to_string(row % 4)) + "," +
          std::to_string(row % 42) + (row % 5 == 0 ? ",\"a\nb,\"\"c\"" : ",") + (row % 3 == 0 ? "\r\n" : "\n");
  }
  return in;
}

TEST(BatchJobs, GiveTheSameWhateverTheirNumber) {
  const std::string in = manyRows();
  const Outcome one = outcomeOf(in);
  EXPECT_EQ(one.account.rows, 3000U);
  for (const unsigned jobs : {2U, 3U, 8U}) {
    for (const std::size_t atOnce : {std::size_t{700}, std::size_t{4096}, std::string_view::npos}) {
      const Outcome many = outcomeOf(in, {.jobs = jobs}, atOnce);
      EXPECT_EQ(many.out, one.out);
      EXPECT_EQ(many.account.rows, one.account.rows);
      EXPECT_EQ(many.account.problems, one.account.problems);
      EXPECT_EQ(many.account.firstProblem, one.account.firstProblem);
    }
  }
}

TEST(BatchJobs, WriteTheRowsBeforeAQuoteThatDoesNotEnd) {
  const std::string in = manyRows();
  const std::string whole = outcomeOf(in).out;
  for (const unsigned jobs : {1U, 2U, 8U}) {
    const Outcome outcome = outcomeOf(in + "7,\"x\n7,7\n", {.jobs = jobs}, 700);
    EXPECT_EQ(outcome.out, whole);
    EXPECT_EQ(outcome.trouble, "line 3602: a quoted cell doesn't end");
  }
}

TEST(BatchJobs, EndWhereASourceOrASinkFails) {
  const std::string in = manyRows();
  const std::string whole = outcomeOf(in).out;
  for (const unsigned jobs : {1U, 2U, 8U}) {
    std::string out;
    auto source = sourceOf(in, 700);
    int readings = 0;
    const Streams failing{[&](char* place, std::size_t size) {
                            if (++readings > 30) throw Trouble("unreadable");
                            return source(place, size);
                          },
                          [&](std::string_view text) { out += text; }, [](std::uint64_t) {}, [](const std::string&) {}};
    EXPECT_THROW(run(failing, {.jobs = jobs}), Trouble);
    EXPECT_GT(out.size(), 2000U);
    EXPECT_THAT(whole, StartsWith(out));
    std::size_t writings = 0;
    const Streams full{sourceOf(in, 700),
                       [&](std::string_view) {
                         if (++writings == 3) throw Trouble("full");
                       },
                       [](std::uint64_t) {}, [](const std::string&) {}};
    EXPECT_THROW(run(full, {.jobs = jobs}), Trouble);
    EXPECT_EQ(writings, 3U);
  }
}

TEST(BatchJobs, DropWhatComesBehindAFailure) {
  std::latch nextIsRead(1);
  int readings = 0;
  int writings = 0;
  const std::vector<std::string> lines{"frequency\n", "0\n", "1\n"};
  const Streams streams{[&](char* place, std::size_t) -> std::size_t {
                          const auto line = static_cast<std::size_t>(readings++);
                          if (line >= lines.size()) return 0;
                          if (line + 1 == lines.size()) nextIsRead.count_down();
                          return lines[line].copy(place, lines[line].size());
                        },
                        [&](std::string_view) {
                          ++writings;
                          nextIsRead.wait();
                          throw Trouble("full");
                        },
                        [](std::uint64_t) {}, [](const std::string&) {}};
  EXPECT_THROW(run(streams, {.writeHeader = false, .jobs = 2}), Trouble);
  EXPECT_EQ(writings, 1);
}

TEST(BatchJobs, ReportTheFirstOfTwoFailures) {
  std::latch nextFails(1);
  int readings = 0;
  const std::vector<std::string> lines{"frequency\n", "0\n"};
  const Streams streams{[&](char* place, std::size_t) -> std::size_t {
                          const auto line = static_cast<std::size_t>(readings++);
                          if (line < lines.size()) return lines[line].copy(place, lines[line].size());
                          nextFails.count_down();
                          throw Trouble("unreadable");
                        },
                        [&](std::string_view) {
                          nextFails.wait();
                          throw Trouble("full");
                        },
                        [](std::uint64_t) {}, [](const std::string&) {}};
  EXPECT_THAT([&] { run(streams, {.writeHeader = false, .jobs = 2}); }, ThrowsMessage<Trouble>("full"));
}

}  // namespace
}  // namespace tallyfin::batch
