#include "batch/csv.h"

#include <gmock/gmock.h>

#include "batchrun.h"

namespace tallyfin::batch {
namespace {

using testing::ElementsAre;

/// All rows of a text, a row its cells' texts with the line's end as the last.
struct Reading {
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> bytes;
  CsvReader::Outcome last = CsvReader::Outcome::end;
  std::size_t line = 0;
};

Reading readingOf(std::string_view text, std::size_t atOnce) {
  Reading reading;
  CsvReader reader;
  const auto source = sourceOf(text, atOnce);
  Row row;
  std::string storage;
  while (true) {
    reading.last = reader.next(row);
    if (reading.last == CsvReader::Outcome::needsMore) {
      reader.readMore(source);
      continue;
    }
    if (reading.last != CsvReader::Outcome::row) break;
    auto& cells = reading.rows.emplace_back();
    for (const Cell& cell : row.cells) cells.emplace_back(cell.text(storage));
    cells.emplace_back(row.ending);
    reading.bytes.emplace_back(row.bytes);
  }
  reading.line = reader.line();
  return reading;
}

/// However the bytes arrive.
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

TEST_P(CsvTest, TakesACarriageReturnInsideACellForItself) {
  EXPECT_THAT(read("a\rb,\r\n").rows, ElementsAre(ElementsAre("a\rb", "", "\r\n")));
}

TEST_P(CsvTest, UnquotesCells) {
  EXPECT_THAT(read("\"a,b\",\"c\nd\",\"e\"\"f\",\"\"\n").rows,
              ElementsAre(ElementsAre("a,b", "c\nd", "e\"f", "", "\n")));
  EXPECT_THAT(read("\"\"\"\",\"a\"b\"c,d\"e\n").rows, ElementsAre(ElementsAre("\"", "ab\"c", "d\"e", "\n")));
}

TEST_P(CsvTest, TakesWhatIsBehindAClosingQuoteForItself) {
  EXPECT_THAT(read("\"ab\"c,\"\"d\n").rows, ElementsAre(ElementsAre("abc", "d", "\n")));
}

TEST_P(CsvTest, KeepsTheBytesOfARow) {
  EXPECT_THAT(read("\"a\"\"\",b \r\n c\n").bytes, ElementsAre("\"a\"\"\",b ", " c"));
}

TEST_P(CsvTest, TakesAnEmptyLineForNoCells) {
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

TEST_P(CsvTest, TellsTheLineOfAQuoteThatDoesNotEnd) {
  const Reading reading = read("a\n\"b\nc\"\nd,\"e\n\"\"\nf");
  EXPECT_THAT(reading.rows, ElementsAre(ElementsAre("a", "\n"), ElementsAre("b\nc", "\n")));
  EXPECT_EQ(reading.last, CsvReader::Outcome::openQuote);
  EXPECT_EQ(reading.line, 4U);
  EXPECT_EQ(read("a\n\"").line, 2U);
  EXPECT_EQ(read("\"a\n\",\"").line, 2U);
}

TEST(Csv, ReadsARowLongerThanABlock) {
  const std::string longCell(1'000'000, 'x');
  const Reading reading = readingOf("a," + longCell + ",b\nc\n", 65536);
  EXPECT_THAT(reading.rows, ElementsAre(ElementsAre("a", longCell, "b", "\n"), ElementsAre("c", "\n")));
}

TEST(Csv, ReadsARowOfTheLargestMeasure) {
  const Reading reading = readingOf(std::string(CsvReader::longestRow, 'x'), std::string_view::npos);
  EXPECT_EQ(reading.last, CsvReader::Outcome::end);
  ASSERT_EQ(reading.bytes.size(), 1U);
  EXPECT_EQ(reading.bytes[0].size(), CsvReader::longestRow);
}

TEST(Csv, StopsAtARowBeyondAllMeasure) {
  const std::string beyond(CsvReader::longestRow + 1, 'x');
  EXPECT_EQ(readingOf("a\n" + beyond, 1 << 20).last, CsvReader::Outcome::tooLong);
  const Reading quoted = readingOf("a\n\"" + beyond, 1 << 20);
  EXPECT_EQ(quoted.last, CsvReader::Outcome::openQuote);
  EXPECT_EQ(quoted.line, 2U);
}

}  // namespace
}  // namespace tallyfin::batch
