#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace tallyfin::sqlite {

/// A database in memory with the extension loaded.
class Database {
 public:
  Database() : Database(":memory:") {}
  explicit Database(const char* file) {
    sqlite3* opened = nullptr;
    require(sqlite3_open(file, &opened));
    connection_.reset(opened);
    require(sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 1, nullptr));
    require(sqlite3_load_extension(opened, EXTENSION, nullptr, nullptr));
  }

  sqlite3* connection() { return connection_.get(); }

  /// The rows of a statement, or its error: cells separated by `|`, rows by line ends, NULL for none.
  std::string ask(const std::string& statements) { return ask(statements, false); }

  /// The same with the names of the columns as the first row.
  std::string askWithNames(const std::string& statements) { return ask(statements, true); }

 private:
  std::string ask(const std::string& statements, bool withNames) {
    std::string rows;
    const char* rest = statements.c_str();
    while (*rest != '\0') {
      sqlite3_stmt* prepared = nullptr;
      if (sqlite3_prepare_v2(connection(), rest, -1, &prepared, &rest) != SQLITE_OK) return error();
      const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(prepared, sqlite3_finalize);
      int code = SQLITE_DONE;
      if (withNames && sqlite3_column_count(prepared) > 0) rows += names(prepared);
      while (prepared != nullptr && (code = sqlite3_step(prepared)) == SQLITE_ROW) rows += row(prepared);
      if (code != SQLITE_DONE) return error();
    }
    return rows;
  }

  void require(int code) {
    if (code != SQLITE_OK) throw std::runtime_error(connection_ ? error() : sqlite3_errstr(code));
  }

  std::string error() { return std::string("error: ") + sqlite3_errmsg(connection()); }

  static std::string names(sqlite3_stmt* statement) {
    std::string names;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
      if (column > 0) names += '|';
      names += sqlite3_column_name(statement, column);
    }
    return names + "\n";
  }

  static std::string row(sqlite3_stmt* statement) {
    std::string cells;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
      if (column > 0) cells += '|';
      cells += text != nullptr ? text : "NULL";
    }
    return cells + "\n";
  }

  std::unique_ptr<sqlite3, decltype(&sqlite3_close)> connection_{nullptr, sqlite3_close};
};

}  // namespace tallyfin::sqlite
