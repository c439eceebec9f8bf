#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <initializer_list>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "engine/settingsstore.h"
#include "store/files.h"
#include "store/patience.h"

namespace tallyfin {

struct Freed {
  void operator()(sqlite3* connection) const { sqlite3_close(connection); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, Freed>;
using Statement = std::unique_ptr<sqlite3_stmt, Freed>;

/// Holds SQLite's shared lock on a file during its lifetime, without creating files beside it. Meanwhile no program
/// that closes the file makes a checkpoint or removes the log.
class ReaderLock {
 public:
  /// Waits for a program that has locked readers out.
  ReaderLock(const std::filesystem::path& path, Patience& patience);
  bool held() const { return held_; }

 private:
  Connection connection_;
  bool held_ = false;
};

/// A connection to a file that may be any file until it has been checked.
class Database {
  Connection connection_;  // must outlive its statements

 public:
  enum class Form { none, empty, store };
  enum class Access {
    live,     ///< With the log, as all programs that have the file open see it.
    snapshot  ///< The file alone; nothing is written, locked or created.
  };

  Database(const std::filesystem::path& path, Access by, Patience& patience);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  const Access access;
  Form form = Form::none;

  /// Makes an empty database a store, unless another program has done so meanwhile.
  void make();
  /// Prepares the statements of a store; false where that fails.
  bool prepare();
  /// Whether the file, and the files that SQLite keeps beside it, are still those that were opened. A truncated index
  /// of the log is extended first, because an access beyond its end would be a bus error; fails where it can't be
  /// extended.
  bool stillInPlace();

  /// Keeps the file unchanged while this is open.
  void keep(std::unique_ptr<ReaderLock> lock) { lock_ = std::move(lock); }

  // Each throws FailedStatement on failure.
  std::optional<std::string> get(std::string_view section, std::string_view key) const;
  void put(std::string_view section, std::string_view key, std::string_view text) const;
  void erase(std::string_view section, std::string_view key) const;
  SettingsStore::Sections all() const;

 private:
  void configure(int what, int value) { sqlite3_db_config(connection_.get(), what, value, nullptr); }
  void run(const std::string& sql) { sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr); }
  Statement prepared(const char* sql) const;
  std::optional<std::string> answer(const char* sql) const;
  void learnForm();
  bool moved() const;
  bool mendIndex();
  int checkpoint(int how) const;

  std::unique_ptr<ReaderLock> lock_;
  const std::string path_;
  const std::string logPath_;
  const std::string indexPath_;
  std::list<Connection> placeAmongAbandoned_{
      1};  ///< A list node for the connection, so that no memory is needed later.
  FileMark log_;
  FileMark index_;
  Statement get_;
  Statement put_;
  Statement erase_;
  Statement all_;
};

}  // namespace tallyfin
