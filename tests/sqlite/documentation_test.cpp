#include <fstream>
#include <sstream>
#include <string>

#include "sqlite/database.h"

/// Runs docs/sql.md: the result of each block of SQL is the block after it.

namespace tallyfin::sqlite {
namespace {

/// The text up to the line that ends a block.
std::string block(std::istream& in) {
  std::string text;
  for (std::string line; std::getline(in, line) && line != "```";) text += line + "\n";
  return text;
}

TEST(SqlDocumentation, GivesWhatItShows) {
  std::ifstream in(DOCUMENTATION);
  Database database;
  std::string given;
  int shown = 0;
  for (std::string line; std::getline(in, line);) {
    if (line == "```sql") {
      const std::string statements = block(in);
      given = database.askWithNames(statements);
      EXPECT_FALSE(given.starts_with("error")) << statements << given;
    } else if (line == "```") {
      EXPECT_EQ(given, block(in));
      ++shown;
    }
  }
  EXPECT_EQ(shown, 10);
}

}  // namespace
}  // namespace tallyfin::sqlite
