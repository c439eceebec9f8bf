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

/// Holds SQLite's lock of a reader on a file for as long as it lives, without making anything beside it. No program
/// that closes the file copies its log into it meanwhile, or removes the log.
class ReaderLock {
 public:
  /// Waits for a program that keeps readers out.
  ReaderLock(const std::filesystem::path& path, Patience& patience);
  bool held() const { return held_; }

 private:
  Connection connection_;
  bool held_ = false;
};

/// A connection to a file whose content isn't known before it has been looked at.
class Database {
  Connection connection_;  // goes after its statements

 public:
  enum class Form { none, empty, store };
  enum class View {
    live,     ///< As all programs see it that have it open.
    snapshot  ///< The file alone and as it stands; nothing is written, locked or made beside it.
  };

  Database(const std::filesystem::path& path, View seenAs, Patience& patience);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  const View view;
  Form form = Form::none;

  /// Makes an empty database a store, or finds that another program has done so meanwhile.
  void make();
  /// Prepares the statements of a store; false where that fails.
  bool prepare();
  /// Whether the file, and what SQLite keeps beside it, are still those that were opened. Where the index of the log
  /// was cut short, it is made whole first, since touching what is missing of it would end the process; fails where it
  /// can't be.
  bool stillInPlace();

  /// Keeps the file unchanged for as long as this is open.
  void keep(std::unique_ptr<ReaderLock> lock) { lock_ = std::move(lock); }

  // Each throws FailedStatement where it can't be carried out.
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
  std::list<Connection> placeAmongAbandoned_{1};  ///< A place that takes the connection without memory.
  FileMark log_;
  FileMark index_;
  Statement get_;
  Statement put_;
  Statement erase_;
  Statement all_;
};

}  // namespace tallyfin
