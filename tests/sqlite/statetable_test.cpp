#include <string>

#include "sqlite/database.h"

namespace tallyfin::sqlite {
namespace {

TEST(StateTable, ListsWhatEachStateReads) {
  Database database;
  EXPECT_EQ(
      database.ask("SELECT * FROM paycheck_state WHERE state = 'Illinois' AND \"column\" = 'illinois_dependents'"),
      "Illinois|IL|illinois_dependents|0 to 15|For Use in Computing Illinois Tax\n");
  EXPECT_EQ(database.ask("SELECT count(*) = (SELECT count(DISTINCT rowid) FROM paycheck_state) FROM paycheck_state"),
            "1\n");
  EXPECT_EQ(database.ask("SELECT DISTINCT a.postal FROM paycheck_state a JOIN paycheck_state b ON b.rowid = a.rowid"
                         " WHERE a.\"column\" = 'state_method' ORDER BY 1"),
            database.ask("SELECT postal FROM paycheck_state WHERE \"column\" = 'state_method' GROUP BY 1 ORDER BY 1"));
}

}  // namespace
}  // namespace tallyfin::sqlite
