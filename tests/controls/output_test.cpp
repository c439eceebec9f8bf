#include "controls/output.h"

#include <gmock/gmock.h>

#include "controls/screen.h"
#include "platform/dates.h"
#include "platform/platform.h"

namespace tallyfin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GridTest : public testing::Test {
 protected:
  Screen screen{"Page", ""};
  Grid grid{screen, "grid"};
};

TEST_F(GridTest, SplitsARowAtTheSeparatorOutsideTheDelimiters) {
  grid.setFieldDelimiter('!');
  grid.setFieldSeparator(',');
  grid.setRows({{"!Gross Pay!,1234.5"}, {"!One, two!,5"}});
  EXPECT_THAT(grid.rows(), ElementsAre("!Gross Pay!,1234.5", "!One, two!,5"));
  EXPECT_THAT(grid.cells(), ElementsAre(ElementsAre("Gross Pay", "$1,234.50"), ElementsAre("One, two", "$5.00")));
}

TEST_F(GridTest, ShowsAValueThatIsNoNumberAsItIs) {
  grid.setRows({{"Support,555-0147"}});
  EXPECT_THAT(grid.cells(), ElementsAre(ElementsAre("Support", "555-0147")));
}

TEST_F(GridTest, AlwaysHasTwoCells) {
  grid.setRows({{""}, {"Main Office"}, {"a,1,b"}});
  EXPECT_THAT(grid.cells(),
              ElementsAre(ElementsAre("", ""), ElementsAre("Main Office", ""), ElementsAre("a", "$1.00")));
}

TEST_F(GridTest, ReturnsTheKindOfEachRow) {
  grid.setRows({{"a,1"}, {"b,2", RowKind::result}});
  EXPECT_THAT(grid.kinds(), ElementsAre(RowKind::line, RowKind::result));
}

TEST_F(GridTest, NotifiesOnceForAllRows) {
  int changes = 0;
  grid.watch([&] { ++changes; });
  grid.setRows({{"a,1"}, {"b,2"}, {"c,3"}});
  EXPECT_EQ(changes, 1);
}

TEST_F(GridTest, LosesAllRowsAtOnce) {
  grid.setRows({{"a,1", RowKind::total}});
  grid.setRows({{"b,2"}});
  EXPECT_THAT(grid.kinds(), ElementsAre(RowKind::line));
  grid.removeAll();
  EXPECT_THAT(grid.rows(), IsEmpty());
  EXPECT_THAT(grid.cells(), IsEmpty());
  EXPECT_THAT(grid.kinds(), IsEmpty());
}

class PrintEngineTest : public testing::Test {
 protected:
  Screen screen{"Page", ""};
  PrintEngine engine{screen, "engine"};
};

TEST_F(PrintEngineTest, LaysOutATableThatComesAsOneText) {
  engine.startDocument();
  engine.addTable("<3000|>1500;Category|Amount;  Gross Pay|$5.00;|;Alone|;");
  engine.endDocument();
  ASSERT_EQ(engine.columns().size(), 2U);
  EXPECT_FALSE(engine.columns()[0].rightAligned);
  EXPECT_EQ(engine.columns()[0].width, 3000);
  EXPECT_TRUE(engine.columns()[1].rightAligned);
  EXPECT_EQ(engine.columns()[1].width, 1500);
  EXPECT_THAT(engine.cells(), ElementsAre(ElementsAre("Category", "Amount"), ElementsAre("  Gross Pay", "$5.00"),
                                          ElementsAre("", ""), ElementsAre("Alone", "")));
  EXPECT_EQ(engine.pages(), 1);
}

TEST_F(PrintEngineTest, ReturnsTheKindOfEachRow) {
  engine.startDocument();
  engine.addTable("<3000|>1500;Category|Amount;Tax|$5.00;|;Sum|$5.00;Of it|;|$1.00;", {"Sum"});
  EXPECT_THAT(engine.kinds(), ElementsAre(RowKind::heading, RowKind::line, RowKind::blank, RowKind::total,
                                          RowKind::group, RowKind::line));
}

TEST_F(PrintEngineTest, StartsEachDocumentEmpty) {
  for (int document = 0; document < 2; ++document) {
    engine.startDocument();
    engine.addTable("<3000|>1500;Category|Amount;");
    engine.endDocument();
  }
  EXPECT_EQ(engine.columns().size(), 2U);
  EXPECT_EQ(engine.cells().size(), 1U);
  EXPECT_EQ(engine.pages(), 1);
}

LocalTime at(int year, unsigned month, unsigned day, int hour, int minute, int second) {
  using namespace std::chrono;
  return local_days{year_month_day{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}}} +
         hours{hour} + minutes{minute} + seconds{second};
}

TEST(Dates, ReadAsOnAnAmericanForm) {
  EXPECT_EQ(dateAndTime(at(1999, 5, 17, 14, 30, 0)), "5/17/1999 2:30:00 PM");
  EXPECT_EQ(dateAndTime(at(1999, 12, 1, 0, 0, 5)), "12/1/1999 12:00:05 AM");
  EXPECT_EQ(dateAndTime(at(2000, 2, 29, 12, 5, 9)), "2/29/2000 12:05:09 PM");
  EXPECT_EQ(dateAndTime(at(1999, 1, 31, 11, 59, 59)), "1/31/1999 11:59:59 AM");
}

TEST(Dates, AreWrittenOutWithTheDayInTwoDigits) {
  EXPECT_EQ(longDate(at(1999, 5, 17, 14, 30, 0)), "Monday, May 17, 1999");
  EXPECT_EQ(longDate(at(1999, 5, 1, 0, 0, 0)), "Saturday, May 01, 1999");
  EXPECT_EQ(longDate(at(2000, 2, 29, 23, 59, 59)), "Tuesday, February 29, 2000");
}

}  // namespace
}  // namespace tallyfin
