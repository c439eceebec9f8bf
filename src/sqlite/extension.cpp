#include <sqlite3ext.h>

#include "sqlite/explanationtable.h"
#include "sqlite/paychecktable.h"
#include "sqlite/statetable.h"
#include "sqlite/table.h"

SQLITE_EXTENSION_INIT1

/// tallyfin99_sqlite.so: adds the extension's tables to a connection. SQLite makes the name from that of the file.
extern "C" [[gnu::visibility("default")]] int sqlite3_tallyfinsqlite_init(sqlite3* connection, char** /*error*/,
                                                                          const sqlite3_api_routines* api) {
  SQLITE_EXTENSION_INIT2(api)
  using namespace tallyfin::sqlite;
  int code = Table<PaycheckCursor>::add(connection, "paycheck");
  if (code == SQLITE_OK) code = Table<ExplanationCursor>::add(connection, "paycheck_explanation");
  if (code == SQLITE_OK) code = Table<StateCursor>::add(connection, "paycheck_state");
  return code;
}
