#include <string>

#include "sqlite/database.h"

namespace tallyfin::sqlite {
namespace {

class ExplanationTable : public testing::Test {
 protected:
  Database database;

  std::string ask(const std::string& statement) { return database.ask(statement); }
};

TEST_F(ExplanationTable, HasARowForEachLine) {
  EXPECT_EQ(
      ask("SELECT count(DISTINCT title), count(DISTINCT rowid) = count(*) FROM paycheck_explanation(1000, 6, 0, 0,"
          " 'Weekly')"),
      "12|1\n");
  EXPECT_EQ(ask("SELECT value, typeof(value) FROM paycheck_explanation WHERE income = 1000 AND frequency = 'Weekly' AND"
                " title = 'Federal Tax' ORDER BY line DESC LIMIT 1"),
            "142.71|real\n");
}

TEST_F(ExplanationTable, NumbersTheLinesOfEachResult) {
  EXPECT_EQ(
      ask("SELECT title FROM paycheck_explanation(1000, 6, 0, 0, 'Weekly', 'Single', 2, 'NY') WHERE line IS NOT NULL"
          " GROUP BY title HAVING min(line) <> 1 OR max(line) <> count(*)"),
      "");
  EXPECT_EQ(
      ask("SELECT count(*) FROM paycheck_explanation(1000, 6, 0, 0, 'Weekly', 'Single', 2, 'NY') WHERE words = '' OR"
          " (line IS NULL) <> (value IS NULL)"),
      "0\n");
}

TEST_F(ExplanationTable, HasNoRowWithoutResults) {
  EXPECT_EQ(ask("SELECT * FROM paycheck_explanation(1000) WHERE frequency = 'Daily'"), "");
}

TEST_F(ExplanationTable, IsJoined) {
  ask("CREATE TABLE employee(pay); INSERT INTO employee VALUES (1000), ('x'), (2000)");
  EXPECT_EQ(
      ask("SELECT e.pay, x.income, count(*) > 12 FROM paycheck_explanation x JOIN employee e ON x.income = e.pay AND"
          " x.frequency = 0 AND x.state = 'Atlantis' GROUP BY 1"),
      "");
  EXPECT_EQ(
      ask("SELECT e.pay, x.income, count(*) >= 12 FROM paycheck_explanation x JOIN employee e ON x.income = e.pay AND"
          " x.frequency = 0 GROUP BY 1"),
      "1000|1000|1\n2000|2000|1\nx|x|1\n");
}

}  // namespace
}  // namespace tallyfin::sqlite
