#include "store/store.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <initializer_list>

#include "engine/failure.h"

namespace tallyfin {

namespace {

namespace fs = std::filesystem;

/// The one table of a store, exactly as its definition stands in SQLite's schema.
const std::string table =
    "setting(section TEXT NOT NULL, key TEXT NOT NULL, text TEXT NOT NULL, PRIMARY KEY(section, key)) "
    "STRICT, WITHOUT ROWID";

constexpr int patience = 500;  ///< The longest wait for another program that is writing, milliseconds.
constexpr int largestText = 8 * 1024 * 1024;
constexpr std::uintmax_t pageSize = 4096;
constexpr std::uintmax_t largestFile = 16'384 * pageSize;

/// Options of every connection. secure_delete overwrites a text that is replaced or removed; cell_size_check notices a
/// damaged page before it is used.
const std::string everyConnection =
    "PRAGMA synchronous = NORMAL; PRAGMA secure_delete = ON; PRAGMA cell_size_check = ON; PRAGMA mmap_size = 0; "
    "PRAGMA temp_store = MEMORY; PRAGMA wal_autocheckpoint = 100; PRAGMA max_page_count = " +
    std::to_string(largestFile / pageSize) + "; PRAGMA page_size = " + std::to_string(pageSize);

struct Freed {
  void operator()(sqlite3* connection) const { sqlite3_close(connection); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, Freed>;
using Statement = std::unique_ptr<sqlite3_stmt, Freed>;

/// Resets a prepared statement, and forgets its texts, once its rows have been read.
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
    // A null address would bind NULL. A text that is too long stays unbound, NULL, which the table refuses.
    sqlite3_bind_text64(statement.get(), ++number, text.empty() ? "" : text.data(), text.size(), SQLITE_STATIC,
                        SQLITE_UTF8);
  }
  return Running(statement.get());
}

bool nextRow(const Running& running) { return sqlite3_step(running.get()) == SQLITE_ROW; }

void carryOut(const Running& running) {
  if (sqlite3_step(running.get()) != SQLITE_DONE) throw FailedStatement{};
}

std::string textIn(const Running& running, int column) {
  const void* bytes = sqlite3_column_blob(running.get(), column);
  const auto length = static_cast<std::size_t>(sqlite3_column_bytes(running.get(), column));
  return std::string(std::string_view(static_cast<const char*>(bytes), length));
}

/// The path as a URI, to which options can be added.
std::string asUri(const fs::path& path) {
  constexpr std::string_view hex = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : path.string()) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '/' || std::isalnum(byte) != 0) {
      uri += c;
    } else {
      uri += {'%', hex[byte / 16], hex[byte % 16]};
    }
  }
  return uri;
}

/// Whether a journal or log stands beside the file: a program is writing, or was ended while it did. SQLite completes
/// or undoes that change at the next opening; until then the file alone doesn't say what is stored.
bool changeUnderWay(const fs::path& path) {
  const auto beside = [&](const char* ending) {
    std::error_code none;
    const auto size = fs::file_size(path.string() + ending, none);
    return !none && size > 0;
  };
  return beside("-journal") || beside("-wal");
}

/// Creates the file, and the folders that it lacks, for the user alone. What is there already stays, even a link that
/// leads nowhere.
void makeFile(const fs::path& path) {
  const mode_t before = ::umask(S_IRWXG | S_IRWXO);
  std::error_code failed;
  fs::create_directories(path.parent_path(), failed);
  const int made = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (made >= 0) ::close(made);
  ::umask(before);
}

/// Removes all permissions of others from the file; SQLite gives the files beside it the same mode.
void takeFromOthers(const fs::path& path) {
  std::error_code failed;
  fs::permissions(path, fs::perms::group_all | fs::perms::others_all, fs::perm_options::remove, failed);
}

/// Whether the length is that of a store: whole pages, or any length but 1 while a change is under way. Any other file
/// was cut off, which SQLite may not notice, or isn't a store: SQLite takes one byte for an empty database.
bool mayBeDatabase(const fs::path& path) {
  std::error_code none;
  if (!fs::is_regular_file(path, none)) return false;
  const auto size = fs::file_size(path, none);  // the largest number where the file has gone
  return size <= largestFile && (size % pageSize == 0 || (size != 1 && changeUnderWay(path)));
}

}  // namespace

/// A connection to a file whose content isn't known yet.
class FileStore::Database {
  Connection connection_;  // goes after its statements

 public:
  enum class Form { none, empty, store };
  enum class View {
    live,     ///< As all programs see it that have it open.
    snapshot  ///< The file alone and as it stands; nothing is written, locked or made beside it.
  };

  Database(const fs::path& path, View seenAs) : view(seenAs) {
    const bool live = view == View::live;
    const std::string name = live ? path.string() : asUri(path) + "?immutable=1";
    const int access = live ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    sqlite3* opened = nullptr;
    sqlite3_open_v2(name.c_str(), &opened, access | SQLITE_OPEN_NOMUTEX, nullptr);
    connection_.reset(opened);
    sqlite3_busy_timeout(opened, patience);
    for (const int harmful : {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_TRIGGER,
                              SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_DQS_DML}) {
      configure(harmful, 0);
    }
    configure(SQLITE_DBCONFIG_DEFENSIVE, 1);
    configure(SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1);  // until it is known to be a store, nothing is written
    sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, largestText);
    sqlite3_limit(opened, SQLITE_LIMIT_SQL_LENGTH, 10'000);
    sqlite3_limit(opened, SQLITE_LIMIT_ATTACHED, 0);
    run(everyConnection);
    learnForm();
  }

  ~Database() {
    // The last program that closes the file removes what SQLite keeps beside it. Where the file itself was replaced
    // meanwhile, the files beside its name may belong to the new one.
    if (form == Form::store && !moved()) configure(SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0);
  }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  /// Whether the file is no longer the one under its name.
  bool moved() const {
    int answer = 0;
    sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &answer);
    return answer != 0;
  }

  /// Makes an empty database a store, or finds that another program has done so meanwhile.
  void make() {
    run("PRAGMA journal_mode = WAL");
    run("BEGIN IMMEDIATE; CREATE TABLE IF NOT EXISTS " + table + "; COMMIT");
    learnForm();
  }

  void prepare() {
    run("PRAGMA journal_mode = WAL");
    get = prepared("SELECT text FROM setting WHERE section = ?1 AND key = ?2");
    put = prepared("INSERT INTO setting VALUES(?1, ?2, ?3) ON CONFLICT DO UPDATE SET text = excluded.text");
    erase = prepared("DELETE FROM setting WHERE section = ?1 AND key = ?2");
    all = prepared("SELECT section, key, text FROM setting");
  }

  const View view;
  Form form = Form::none;
  Statement get;
  Statement put;
  Statement erase;
  Statement all;

 private:
  void configure(int what, int value) { sqlite3_db_config(connection_.get(), what, value, nullptr); }
  void run(const std::string& sql) { sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr); }

  Statement prepared(const char* sql) const {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(connection_.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    return Statement(statement);
  }

  /// The first column of a query's rows, one line each; none where it fails.
  std::optional<std::string> answer(const char* sql) const {
    const Statement statement = prepared(sql);
    const Running running = with(statement, {});
    std::string rows;
    int state = SQLITE_ROW;
    while ((state = sqlite3_step(running.get())) == SQLITE_ROW) rows += textIn(running, 0) + '\n';
    if (state != SQLITE_DONE) return std::nullopt;
    return rows;
  }

  void learnForm() {
    form = Form::none;
    // textIn() compares bytes: a schema in another encoding isn't ours.
    const auto schema = answer("SELECT sql FROM sqlite_schema");
    if (schema != "" && schema != "CREATE TABLE " + table + '\n') return;
    if (answer("PRAGMA quick_check(1)") == "ok\n") form = schema == "" ? Form::empty : Form::store;
  }
};

FileStore::FileStore(const fs::path& path) : path_(fs::absolute(path)) {}

FileStore::~FileStore() = default;

std::optional<std::string> FileStore::read(std::string_view section, std::string_view key) const {
  const Database* database = open();
  if (database == nullptr) return std::nullopt;
  const Running running = with(database->get, {section, key});
  if (!nextRow(running)) return std::nullopt;
  return textIn(running, 0);
}

void FileStore::write(std::string_view section, std::string_view key, const std::string& text) {
  makeFile(path_);
  const Database* database = open(Opening::making);
  if (database == nullptr) throw FailedStatement{};
  carryOut(with(database->put, {section, key, text}));
}

void FileStore::erase(std::string_view section, std::string_view key) {
  if (const Database* database = open()) carryOut(with(database->erase, {section, key}));
}

SettingsStore::Sections FileStore::all() const {
  Sections sections;
  const Database* database = open();
  if (database == nullptr) return sections;
  const Running running = with(database->all, {});
  while (nextRow(running)) sections[textIn(running, 0)][textIn(running, 1)] = textIn(running, 2);
  return sections;
}

/// The open store; null where the file isn't one. Opening::making turns an empty file into one.
FileStore::Database* FileStore::open(Opening opening) const {
  using Form = Database::Form;
  using View = Database::View;
  if (database_ && database_->view == View::live && !database_->moved()) return database_.get();
  database_.reset();
  std::error_code none;
  const fs::path path = fs::canonical(path_, none);
  if (!mayBeDatabase(path)) return nullptr;

  const auto usable = [&](Form form) {
    return form == Form::store || (form == Form::empty && opening == Opening::making);
  };
  // The snapshot comes first, because opening the live view creates files beside any database, ours or not.
  auto snapshot = std::make_unique<Database>(path, View::snapshot);
  const bool whole = !changeUnderWay(path);
  if (whole && !usable(snapshot->form)) return nullptr;
  if (usable(snapshot->form)) takeFromOthers(path);

  auto live = std::make_unique<Database>(path, View::live);
  if (live->form == Form::empty && opening == Opening::making) live->make();
  // In a folder, or on a disk, where nothing can be written only the snapshot can be read.
  if (live->form != Form::store && whole && opening == Opening::existing) live = std::move(snapshot);
  if (live->form != Form::store) return nullptr;
  live->prepare();
  database_ = std::move(live);
  return database_.get();
}

}  // namespace tallyfin
