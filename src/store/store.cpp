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

/// The one table of a store, in the words by which SQLite keeps it.
const std::string table =
    "setting(section TEXT NOT NULL, key TEXT NOT NULL, text TEXT NOT NULL, PRIMARY KEY(section, key)) "
    "STRICT, WITHOUT ROWID";

constexpr int patience = 500;  ///< How long another program that is writing is waited for, milliseconds.
constexpr int largestText = 8 * 1024 * 1024;
constexpr std::uintmax_t pageSize = 4096;
constexpr std::uintmax_t largestFile = 16'384 * pageSize;

/// For every connection. secure_delete leaves nothing of a text that has been replaced in the file; a page that is
/// damaged is noticed before it is used.
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

/// A prepared statement with its texts, to be stepped through; afterwards it is free for the next.
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
    // Without an address it would be no text at all. One that is too long stays unbound, which the table refuses.
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

/// The path in a form that SQLite takes options behind.
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

/// Whether a program was ended, or is, in the middle of a change that SQLite completes or takes back at the next
/// opening. Until then the file alone doesn't say what is stored.
bool changeUnderWay(const fs::path& path) {
  const auto beside = [&](const char* ending) {
    std::error_code none;
    const auto size = fs::file_size(path.string() + ending, none);
    return !none && size > 0;
  };
  return beside("-journal") || beside("-wal");
}

/// Makes the file, and the folders that it lacks, the user's alone. Whatever stands there already stays, be it a link
/// that leads nowhere.
void makeFile(const fs::path& path) {
  const mode_t before = ::umask(S_IRWXG | S_IRWXO);
  std::error_code failed;
  fs::create_directories(path.parent_path(), failed);
  const int made = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (made >= 0) ::close(made);
  ::umask(before);
}

/// Takes away what others may do with the file; what SQLite makes beside it has the same mode.
void takeFromOthers(const fs::path& path) {
  std::error_code failed;
  fs::permissions(path, fs::perms::group_all | fs::perms::others_all, fs::perm_options::remove, failed);
}

/// A file of another length has been cut off, though SQLite may not notice, or is none of ours: SQLite takes one byte
/// for an empty database.
bool mayBeDatabase(const fs::path& path) {
  std::error_code none;
  if (!fs::is_regular_file(path, none)) return false;
  const auto size = fs::file_size(path, none);  // the largest number where there is none any more
  return size <= largestFile && (size % pageSize == 0 || (size != 1 && changeUnderWay(path)));
}

}  // namespace

/// A connection to a file that may be anything.
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
    // What SQLite keeps beside the file goes with the last program that has it open. Beside the name of a file that has
    // been removed meanwhile it may be another one's.
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

  /// What a statement without texts answers in the first column, a line a row; none where it fails.
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
    // Byte by byte: in another encoding the words are others.
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

/// The store as it now stands; none where there is none. Making turns an empty file into one.
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
  // The snapshot comes first, since by the live view alone SQLite makes files beside a database, whoever's it is.
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
