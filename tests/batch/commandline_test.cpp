#include "batch/commandline.h"

#include <gmock/gmock.h>

#include <thread>

namespace tallyfin::batch {
namespace {

CommandLine of(std::vector<const char*> words) {
  words.insert(words.begin(), "tallyfin99-batch");
  return commandLine(static_cast<int>(words.size()), words.data());
}

std::string refusalOf(const std::vector<const char*>& words) {
  try {
    of(words);
  } catch (const Trouble& trouble) {
    return trouble.what();
  }
  return "none";
}

TEST(BatchCommandLine, StartsTheThreadsOfTheOptionJobs) {
  EXPECT_EQ(of({}).choices.jobs, 1U);
  EXPECT_EQ(of({"--jobs", "1"}).choices.jobs, 1U);
  EXPECT_EQ(of({"--jobs=2"}).choices.jobs, 2U);
  EXPECT_EQ(of({"--jobs", "1000"}).choices.jobs, 1000U);
}

TEST(BatchCommandLine, StartsAThreadForEachCoreWithNoJobs) {
  EXPECT_EQ(of({"--jobs=0"}).choices.jobs, std::max(1U, std::thread::hardware_concurrency()));
}

TEST(BatchCommandLine, RefusesJobsThatAreNoNumberUpTo1000) {
  for (const char* jobs : {"1001", "-1", "x", "2x", "", "99999999999"}) {
    EXPECT_EQ(refusalOf({"--jobs", jobs}), "--jobs takes a number from 0 to 1000") << jobs;
  }
}

TEST(BatchCommandLine, DividesCellsByOneCharacterOrTab) {
  EXPECT_EQ(of({}).choices.delimiter, ',');
  EXPECT_EQ(of({"--delimiter", ";"}).choices.delimiter, ';');
  EXPECT_EQ(of({"--delimiter=tab"}).choices.delimiter, '\t');
  for (const char* delimiter : {"", "ab", "\"", "\n", "\r", ".", "-", "0", "9"}) {
    EXPECT_EQ(refusalOf({"--delimiter", delimiter}),
              "--delimiter takes one character that isn't part of a number, or tab")
        << delimiter;
  }
}

TEST(BatchCommandLine, ReadsAFileOrStandardInput) {
  EXPECT_EQ(of({}).file, std::nullopt);
  EXPECT_EQ(of({"-"}).file, std::nullopt);
  EXPECT_EQ(of({"a"}).file, "a");
  EXPECT_EQ(of({"--", "-a"}).file, "-a");
  EXPECT_EQ(of({"--", "--quiet"}).file, "--quiet");
  EXPECT_EQ(refusalOf({"a", "b"}), "more than one file");
}

TEST(BatchCommandLine, KeepsEachOptionToItself) {
  const CommandLine plain = of({});
  EXPECT_TRUE(plain.choices.writeHeader && !plain.quiet && !plain.problemsOk && !plain.text);
  const CommandLine headless = of({"--no-header"});
  EXPECT_TRUE(!headless.choices.writeHeader && !headless.quiet && !headless.problemsOk && !headless.text);
  EXPECT_TRUE(of({"--no-header", "--header"}).choices.writeHeader);
  const CommandLine quiet = of({"--quiet"});
  EXPECT_TRUE(quiet.choices.writeHeader && quiet.quiet && !quiet.problemsOk && !quiet.text);
  const CommandLine lenient = of({"--problems-ok"});
  EXPECT_TRUE(lenient.choices.writeHeader && !lenient.quiet && lenient.problemsOk && !lenient.text);
}

TEST(BatchCommandLine, NamesWhatItDoesNotUnderstand) {
  EXPECT_EQ(refusalOf({"--faster"}), "unknown option \"--faster\"; --help lists them");
  EXPECT_EQ(refusalOf({"-q"}), "unknown option \"-q\"; --help lists them");
  EXPECT_EQ(refusalOf({"--jobsx"}), "unknown option \"--jobsx\"; --help lists them");
  EXPECT_EQ(refusalOf({"--jobs"}), "--jobs takes an argument");
  EXPECT_EQ(refusalOf({"a", "--delimiter"}), "--delimiter takes an argument");
}

}  // namespace
}  // namespace tallyfin::batch
