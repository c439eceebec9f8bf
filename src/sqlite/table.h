#pragma once

#include <sqlite3ext.h>

#include <exception>
#include <new>
#include <string>
#include <string_view>

extern "C" {
SQLITE_EXTENSION_INIT3
}

namespace tallyfin::sqlite {

/// Fails a statement; SQLite reports the text.
class Refusal : public std::exception {
 public:
  explicit Refusal(std::string text) : text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

/// A table that exists in every connection by its name and is read through objects of a class:
///
///   static std::string schema();                       its CREATE TABLE
///   static int plan(sqlite3_index_info&);              sqlite3_module.xBestIndex
///   void start(const char* plan, sqlite3_value** arguments, int count);
///   bool atEnd() const;
///   void next();
///   void give(sqlite3_context*, int column);
///   sqlite3_int64 rowid() const;                       SQLite treats rows of the same number as one
///
/// They may throw std::bad_alloc and Refusal.
template <class Cursor>
class Table {
 public:
  /// Returns a result code of SQLite.
  static int add(sqlite3* connection, const char* name) {
    return sqlite3_create_module_v2(connection, name, &module, nullptr, nullptr);
  }

 private:
  struct OpenCursor : sqlite3_vtab_cursor {
    Cursor cursor;
  };

  static Cursor& of(sqlite3_vtab_cursor* cursor) { return static_cast<OpenCursor*>(cursor)->cursor; }

  /// Runs a function; turns an exception into a result code and the table's error message.
  template <class Act>
  static int codeOf(sqlite3_vtab* table, Act act) {
    try {
      act();
      return SQLITE_OK;
    } catch (const Refusal& refusal) {
      sqlite3_free(table->zErrMsg);
      table->zErrMsg = sqlite3_mprintf("%s", refusal.what());
      return SQLITE_ERROR;
    } catch (const std::bad_alloc&) {
      return SQLITE_NOMEM;
    }
  }

  static int connect(sqlite3* connection, void* /*data*/, int /*count*/, const char* const* /*arguments*/,
                     sqlite3_vtab** table, char** /*error*/) {
    try {
      int code = sqlite3_declare_vtab(connection, Cursor::schema().c_str());
      if (code == SQLITE_OK) code = sqlite3_vtab_config(connection, SQLITE_VTAB_INNOCUOUS);
      if (code == SQLITE_OK) *table = new sqlite3_vtab{};
      return code;
    } catch (const std::bad_alloc&) {
      return SQLITE_NOMEM;
    }
  }

  static int disconnect(sqlite3_vtab* table) {
    delete table;
    return SQLITE_OK;
  }

  static int bestIndex(sqlite3_vtab* table, sqlite3_index_info* info) {
    int code = SQLITE_OK;
    const int failed = codeOf(table, [&] { code = Cursor::plan(*info); });
    return failed != SQLITE_OK ? failed : code;
  }

  static int open(sqlite3_vtab* table, sqlite3_vtab_cursor** cursor) {
    return codeOf(table, [&] { *cursor = new OpenCursor{}; });
  }

  static int close(sqlite3_vtab_cursor* cursor) {
    delete static_cast<OpenCursor*>(cursor);
    return SQLITE_OK;
  }

  static int filter(sqlite3_vtab_cursor* cursor, int /*number*/, const char* plan, int count,
                    sqlite3_value** arguments) {
    return codeOf(cursor->pVtab, [&] { of(cursor).start(plan, arguments, count); });
  }

  static int next(sqlite3_vtab_cursor* cursor) {
    return codeOf(cursor->pVtab, [&] { of(cursor).next(); });
  }

  static int atEnd(sqlite3_vtab_cursor* cursor) { return of(cursor).atEnd() ? 1 : 0; }

  static int give(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
    return codeOf(cursor->pVtab, [&] { of(cursor).give(context, column); });
  }

  static int rowid(sqlite3_vtab_cursor* cursor, sqlite3_int64* number) {
    *number = of(cursor).rowid();
    return SQLITE_OK;
  }

  static constexpr sqlite3_module makeModule() {
    sqlite3_module made{};  // without xCreate it needs no CREATE VIRTUAL TABLE
    made.xConnect = connect;
    made.xBestIndex = bestIndex;
    made.xDisconnect = disconnect;
    made.xOpen = open;
    made.xClose = close;
    made.xFilter = filter;
    made.xNext = next;
    made.xEof = atEnd;
    made.xColumn = give;
    made.xRowid = rowid;
    return made;
  }
  static constexpr sqlite3_module module = makeModule();
};

/// Returns a text as the value of a column.
inline void giveText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

}  // namespace tallyfin::sqlite
