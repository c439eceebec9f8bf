#include "batch/csv.h"

#include <gmock/gmock.h>

#include "batchrun.h"

namespace tallyfin::batch {
namespace {

using testing::ElementsAre;

/// All rows of a text: the texts of the cells, then the line end.
struct Reading {
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> bytes;
  std::vector<std::size_t> lines;
  std::string trouble;
};

Reading readingOf(std::string_view text, std::size_t atOnce, char delimiter = ',') {
  Reading reading;
  BlockReader reader(sourceOf(text, atOnce), delimiter);
  Block block;
  std::string storage;
  std::size_t line = 1;
  while (reader.next(block)) {
    if (block.trouble != nullptr) {
      reading.trouble = "line " + std::to_string(line + block.troubleLine) + ": " + block.trouble;
    }
    RowCutter cutter(block, delimiter);
    CsvRow row;
    while (cutter.next(row)) {
      auto& cells = reading.rows.emplace_back();
      for (const Cell& cell : row.cells) cells.emplace_back(cell.text(storage));
      cells.emplace_back(row.ending);
      reading.bytes.emplace_back(row.bytes);
      reading.lines.push_back(line + row.line);
    }
    line += cutter.lines();
  }
  return reading;
}

/// Tested with pieces of every size.
class CsvTest : public testing::TestWithParam<std::size_t> {
 protected:
  Reading read(std::string_view text) const { return readingOf(text, GetParam()); }
};
INSTANTIATE_TEST_SUITE_P(AtOnce, CsvTest, testing::Values(1, 2, 3, 7, 100000));

TEST_P(CsvTest, CutsRowsAndCells) {
  EXPECT_THAT(read("a,b\n1,,\n,\n").rows,
              ElementsAre(ElementsAre("a", "b", "\n"), ElementsAre("1", "", "", "\n"), ElementsAre("", "", "\n")));
}

TEST_P(CsvTest, EndsRowsInEitherWay) {
  EXPECT_THAT(read("a\r\nb\nc").rows,
              ElementsAre(ElementsAre("a", "\r\n"), ElementsAre("b", "\n"), ElementsAre("c", "")));
  EXPECT_THAT(read("a,\"b\"\r\n\"c\"").rows, ElementsAre(ElementsAre("a", "b", "\r\n"), ElementsAre("c", "")));
}

TEST_P(CsvTest, KeepsACarriageReturnInsideACell) {
  EXPECT_THAT(read("a\rb,\r\n").rows, ElementsAre(ElementsAre("a\rb", "", "\r\n")));
}

TEST_P(CsvTest, UnquotesCells) {
  EXPECT_THAT(read("\"a,b\",\"c\nd\",\"e\"\"f\",\"\"\n").rows,
              ElementsAre(ElementsAre("a,b", "c\nd", "e\"f", "", "\n")));
  EXPECT_THAT(read("\"\"\"\",\"a\"b\"c,d\"e\n").rows, ElementsAre(ElementsAre("\"", "ab\"c", "d\"e", "\n")));
}

TEST_P(CsvTest, KeepsTextAfterAClosingQuote) {
  EXPECT_THAT(read("\"ab\"c,\"\"d\n").rows, ElementsAre(ElementsAre("abc", "d", "\n")));
}

TEST_P(CsvTest, KeepsTheBytesOfARow) {
  EXPECT_THAT(read("\"a\"\"\",b \r\n c\n").bytes, ElementsAre("\"a\"\"\",b ", " c"));
}

TEST_P(CsvTest, HasNoCellsInAnEmptyLine) {
  EXPECT_THAT(read("\n\r\na\n").rows, ElementsAre(ElementsAre("\n"), ElementsAre("\r\n"), ElementsAre("a", "\n")));
}

TEST_P(CsvTest, AcceptsAByteOrderMarkInFrontOnly) {
  EXPECT_THAT(read("\xEF\xBB\xBF"
                   "a\n\xEF\xBB\xBF"
                   "b\n")
                  .rows,
              ElementsAre(ElementsAre("a", "\n"), ElementsAre("\xEF\xBB\xBF"
                                                              "b",
                                                              "\n")));
  EXPECT_THAT(read("\xEF\xBB").rows, ElementsAre(ElementsAre("\xEF\xBB", "")));
  EXPECT_THAT(read("\xEF\xBB\xBF").rows, ElementsAre());
}

TEST_P(CsvTest, ReportsTheLineOfAQuoteThatDoesNotEnd) {
  const Reading reading = read("a\n\"b\nc\"\nd,\"e\n\"\"\nf");
  EXPECT_THAT(reading.rows, ElementsAre(ElementsAre("a", "\n"), ElementsAre("b\nc", "\n")));
  EXPECT_EQ(reading.trouble, "line 4: a quoted cell doesn't end");
  EXPECT_EQ(read("a\n\"").trouble, "line 2: a quoted cell doesn't end");
  EXPECT_EQ(read("\"a\n\",\"").trouble, "line 2: a quoted cell doesn't end");
  EXPECT_EQ(read("\n\"").trouble, "line 2: a quoted cell doesn't end");
}

TEST_P(CsvTest, ReportsTheLineOfEachRow) {
  EXPECT_THAT(read("a\n\n\"b\nc\",\"d\n\"\ne\n").lines, ElementsAre(1, 2, 3, 6));
}

TEST_P(CsvTest, KeepsAQuoteWithinACell) {
  EXPECT_THAT(read("a\"b,c\n\"d\"e\"\nf\"\n").rows,
              ElementsAre(ElementsAre("a\"b", "c", "\n"), ElementsAre("de\"", "\n"), ElementsAre("f\"", "\n")));
}

TEST_P(CsvTest, DividesCellsByAnotherCharacter) {
  EXPECT_THAT(readingOf("a,b;\"c;d\"\n;\n", GetParam(), ';').rows,
              ElementsAre(ElementsAre("a,b", "c;d", "\n"), ElementsAre("", "", "\n")));
}

/// The number of readings for the first block of a source that begins with these bytes.
std::size_t readingsFor(std::string_view first) {
  std::size_t readings = 0;
  const std::vector<std::string_view> given{first, "z\n", "z\n"};
  BlockReader reader([&](char* place, std::size_t) {
    const std::string_view part = given.at(readings++);
    return part.copy(place, part.size());
  });
  Block block;
  EXPECT_TRUE(reader.next(block));
  return readings;
}

TEST(Csv, GivesARowAwayBeforeItWaitsForMore) {
  EXPECT_EQ(readingsFor("abc\nd"), 1U);
  EXPECT_EQ(readingsFor("ab\n"), 1U);   // as long as a byte order mark
  EXPECT_EQ(readingsFor("a\n"), 2U);    // which might still be the beginning of one
  EXPECT_EQ(readingsFor("\nabc"), 1U);  // a line without cells
}

TEST(Csv, KeepsTheBeginningOfTheStreamForAnotherFormat) {
  BlockReader reader(sourceOf("\x1F\x8B,\n"));
  Block block;
  EXPECT_TRUE(reader.next(block));
  EXPECT_EQ(reader.beginning(), "\x1F\x8B,\n");
}

TEST(Csv, ReadsARowLongerThanABlock) {
  const std::string longCell(1'000'000, 'x');
  const Reading reading = readingOf("a," + longCell + ",b\nc\n", 65536);
  EXPECT_THAT(reading.rows, ElementsAre(ElementsAre("a", longCell, "b", "\n"), ElementsAre("c", "\n")));
}

TEST(Csv, ReadsARowOfTheLargestMeasure) {
  const Reading reading = readingOf(std::string(BlockReader::longestRow, 'x'), std::string_view::npos);
  EXPECT_EQ(reading.trouble, "");
  ASSERT_EQ(reading.bytes.size(), 1U);
  EXPECT_EQ(reading.bytes[0].size(), BlockReader::longestRow);
}

TEST(Csv, StopsAtARowBeyondAllMeasure) {
  const std::string beyond(BlockReader::longestRow + 1, 'x');
  EXPECT_EQ(readingOf("a\n" + beyond, 1 << 20).trouble, "line 2: the row is too long");
  const Reading quoted = readingOf("a\n\"" + beyond, 1 << 20);
  EXPECT_EQ(quoted.trouble, "line 2: a quoted cell doesn't end");
  EXPECT_THAT(quoted.rows, ElementsAre(ElementsAre("a", "\n")));
}

}  // namespace
}  // namespace tallyfin::batch
