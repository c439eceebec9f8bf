#include "store/database.h"

#include <unistd.h>

#include <cstring>

#include "engine/failure.h"

namespace tallyfin {

namespace {

namespace fs = std::filesystem;

/// The only table of a store, exactly as in SQLite's schema table.
constexpr std::string_view table =
    "setting(section TEXT NOT NULL, key TEXT NOT NULL, text TEXT NOT NULL, PRIMARY KEY(section, key)) "
    "STRICT, WITHOUT ROWID";

constexpr int largestText = 8 * 1024 * 1024;

/// Options of every connection. secure_delete overwrites a text that is replaced or removed; cell_size_check detects a
/// damaged page before it is used; journal_size_limit truncates a log that has grown during a slow read.
std::string everyConnection() {
  return "PRAGMA synchronous = NORMAL; PRAGMA secure_delete = ON; PRAGMA cell_size_check = ON; PRAGMA mmap_size = 0; "
         "PRAGMA temp_store = MEMORY; PRAGMA wal_autocheckpoint = 100; PRAGMA journal_size_limit = 1000000; "
         "PRAGMA max_page_count = " +
         std::to_string(largestFile / pageSize) + "; PRAGMA page_size = " + std::to_string(pageSize);
}

/// Resets a prepared statement and clears its bindings in the destructor.
struct Rewound {
  void operator()(sqlite3_stmt* statement) const {
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
  }
};
using Running = std::unique_ptr<sqlite3_stmt, Rewound>;

Running with(const Statement& statement, std::initializer_list<std::string_view> texts) {
  int number = 0;
  for (const std::string_view text : texts) {
    // A null address would bind NULL. A text that is too long stays unbound, that is NULL, which the table rejects.
    sqlite3_bind_text64(statement.get(), ++number, text.empty() ? "" : text.data(), text.size(), SQLITE_STATIC,
                        SQLITE_UTF8);
  }
  return Running(statement.get());
}

/// Whether there is another row.
bool nextRow(const Running& running) {
  const int state = sqlite3_step(running.get());
  if (state != SQLITE_ROW && state != SQLITE_DONE) throw FailedStatement{};
  return state == SQLITE_ROW;
}

std::string textIn(const Running& running, int column) {
  const void* bytes = sqlite3_column_blob(running.get(), column);
  const auto length = static_cast<std::size_t>(sqlite3_column_bytes(running.get(), column));
  return std::string(std::string_view(static_cast<const char*>(bytes), length));
}

sqlite3_file* fileOf(sqlite3* connection) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  return file;
}

Connection opened(const std::string& name, int access) {
  sqlite3* connection = nullptr;
  const int state = sqlite3_open_v2(name.c_str(), &connection, access | SQLITE_OPEN_NOMUTEX, nullptr);
  Connection owned(connection);
  if (state != SQLITE_OK) return nullptr;
  return owned;
}

/// Connections that can't be closed, because closing would access an index file that was truncated.
std::list<Connection>& abandoned() {
  static auto& all = *new std::list<Connection>;
  return all;
}

int waitOnce(void* patience, int /*count*/) { return static_cast<Patience*>(patience)->wait() ? 1 : 0; }

}  // namespace

ReaderLock::ReaderLock(const fs::path& path, Patience& patience)
    : connection_(opened(path.string(), SQLITE_OPEN_READONLY)) {
  if (!connection_) return;
  sqlite3_file* const file = fileOf(connection_.get());
  int state = SQLITE_OK;
  do {
    state = file->pMethods->xLock(file, SQLITE_LOCK_SHARED);
  } while (state == SQLITE_BUSY && patience.wait());
  held_ = state != SQLITE_BUSY;  // without locks on the disk there is no program to wait for
}

Database::Database(const fs::path& path, Access by, Patience& patience)
    : access(by), path_(path.string()), logPath_(path_ + "-wal"), indexPath_(path_ + "-shm") {
  abandoned();  // created here, because the destructor must not allocate
  const bool live = access == Access::live;
  connection_ = live ? opened(path_, SQLITE_OPEN_READWRITE)
                     : opened(asUri(path) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
  if (!connection_) return;
  sqlite3_busy_handler(connection_.get(), waitOnce, &patience);
  for (const int harmful : {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW,
                            SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_DQS_DML}) {
    configure(harmful, 0);
  }
  configure(SQLITE_DBCONFIG_DEFENSIVE, 1);
  configure(SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1);  // nothing is written before the file is known to be a store
  sqlite3_limit(connection_.get(), SQLITE_LIMIT_LENGTH, largestText);
  sqlite3_limit(connection_.get(), SQLITE_LIMIT_SQL_LENGTH, 10'000);
  sqlite3_limit(connection_.get(), SQLITE_LIMIT_ATTACHED, 0);
  run(everyConnection());
  learnForm();
}

Database::~Database() {
  if (!connection_ || form != Form::store) return;
  // A log that has replaced this one has newer texts, and so may this one where its index was replaced: programs see
  // what the others add by their common index. Where the file was replaced, the log beside it belongs to the new file.
  const FileMark log = FileMark::of(logPath_);
  const bool shared = log.sameFile(log_) && FileMark::of(indexPath_).sameFile(index_);
  if (moved() || (log.exists() && !shared)) return;
  if (!mendIndex()) {
    placeAmongAbandoned_.front() = std::move(connection_);
    abandoned().splice(abandoned().end(), placeAmongAbandoned_);
    return;
  }
  // Closing makes a checkpoint under a lock that excludes readers for as long as the disk takes. With checkpoints
  // before, that is short: each copies what others have written during the last one, and costs nothing where they
  // haven't. The last program that closes the file removes the files that SQLite keeps beside it.
  for (int times = 0; times < 3; ++times) checkpoint(SQLITE_CHECKPOINT_PASSIVE);
  configure(SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0);
}

bool Database::moved() const {
  int answer = 0;
  sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &answer);
  return answer != 0;
}

/// Makes a checkpoint: copies the log into the file.
int Database::checkpoint(int how) const {
  return sqlite3_wal_checkpoint_v2(connection_.get(), "main", how, nullptr, nullptr);
}

void Database::make() {
  run("PRAGMA journal_mode = WAL");
  run(std::string("CREATE TABLE IF NOT EXISTS ").append(table));
  learnForm();
}

bool Database::prepare() {
  run("PRAGMA journal_mode = WAL");
  get_ = prepared("SELECT text FROM setting WHERE section = ?1 AND key = ?2");
  // Writing the same text again would only grow the log.
  put_ = prepared(
      "INSERT INTO setting VALUES(?1, ?2, ?3) "
      "ON CONFLICT DO UPDATE SET text = excluded.text WHERE text IS NOT excluded.text");
  erase_ = prepared("DELETE FROM setting WHERE section = ?1 AND key = ?2");
  all_ = prepared("SELECT section, key, text FROM setting");
  log_ = FileMark::of(logPath_);
  index_ = FileMark::of(indexPath_);
  return get_ && put_ && erase_ && all_;
}

bool Database::stillInPlace() {
  if (moved() || !FileMark::of(logPath_).sameFile(log_) || !FileMark::of(indexPath_).sameFile(index_)) {
    return false;
  }
  if (!mendIndex()) throw FailedStatement{};
  return true;
}

/// Extends a truncated index of the log to its former length; false where that fails. SQLite then detects the damage by
/// the header, and reads the log again.
bool Database::mendIndex() {
  constexpr int region = 32'768;
  constexpr std::size_t header = 96;  // two copies, compared at each reading
  const FileMark now = FileMark::of(indexPath_);
  if (!now.sameFile(index_)) return true;
  if (now.length >= index_.length) {
    index_.length = now.length;
    return true;
  }
  // By its name: closing a descriptor of the file would release SQLite's locks.
  if (::truncate(indexPath_.c_str(), static_cast<off_t>(index_.length)) != 0) return false;
  sqlite3_file* const file = fileOf(connection_.get());
  void volatile* start = nullptr;
  file->pMethods->xShmMap(file, 0, region, 0, &start);  // the address of the existing mapping
  std::memset(const_cast<void*>(start), 0, header);
  return true;
}

std::optional<std::string> Database::get(std::string_view section, std::string_view key) const {
  const Running running = with(get_, {section, key});
  if (!nextRow(running)) return std::nullopt;
  return textIn(running, 0);
}

void Database::put(std::string_view section, std::string_view key, std::string_view text) const {
  // An open read transaction would keep SQLite from restarting the log.
  if (FileMark::of(logPath_).length > largestFile && checkpoint(SQLITE_CHECKPOINT_TRUNCATE) != SQLITE_OK) {
    throw FailedStatement{};
  }
  nextRow(with(put_, {section, key, text}));
}

void Database::erase(std::string_view section, std::string_view key) const { nextRow(with(erase_, {section, key})); }

SettingsStore::Sections Database::all() const {
  SettingsStore::Sections sections;
  const Running running = with(all_, {});
  while (nextRow(running)) sections[textIn(running, 0)][textIn(running, 1)] = textIn(running, 2);
  return sections;
}

Statement Database::prepared(const char* sql) const {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(connection_.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  return Statement(statement);
}

/// The first column of a query's rows, one line each; none where the query fails.
std::optional<std::string> Database::answer(const char* sql) const {
  const Statement statement = prepared(sql);
  if (!statement) return std::nullopt;
  const Running running = with(statement, {});
  std::string rows;
  int state = SQLITE_ROW;
  while ((state = sqlite3_step(running.get())) == SQLITE_ROW) rows += textIn(running, 0) + '\n';
  if (state != SQLITE_DONE) return std::nullopt;
  return rows;
}

void Database::learnForm() {
  form = Form::none;
  // textIn() compares bytes, so a schema in another encoding isn't a store.
  const auto schema = answer("SELECT sql FROM sqlite_schema");
  if (schema != "" && schema != std::string("CREATE TABLE ").append(table) + '\n') return;
  if (answer("PRAGMA integrity_check(1)") == "ok\n") form = schema == "" ? Form::empty : Form::store;
}

}  // namespace tallyfin
