#include "store/store.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdarg>
#include <ctime>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <utility>

#include "engine/failure.h"

namespace {

/// The settings of this process's connections, by SQLite's number of the option or limit; the first of each.
std::map<int, int> options;
std::map<int, int> limits;

/// The number of calls that succeed before one fails; none where all do.
std::optional<int> openingsUntilOneFails;
std::optional<int> statementsUntilOneFails;

bool fails(std::optional<int>& until) { return until && (*until)-- == 0; }

/// Called before a file is flushed to the disk.
std::function<void()> beforeFlush;

/// Called before a thread sleeps.
std::function<void()> beforeSleep;

template <class Function>
Function* ofSqlite(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

// These replace SQLite's functions: they record their arguments and call the originals.

int sqlite3_db_config(sqlite3* connection, int what, ...) {
  std::va_list arguments;
  va_start(arguments, what);
  const int value = va_arg(arguments, int);
  int* const answer = va_arg(arguments, int*);
  va_end(arguments);
  options.emplace(what, value);
  return ofSqlite<decltype(sqlite3_db_config)>("sqlite3_db_config")(connection, what, value, answer);
}

int sqlite3_limit(sqlite3* connection, int what, int value) {
  limits.emplace(what, value);
  return ofSqlite<decltype(sqlite3_limit)>("sqlite3_limit")(connection, what, value);
}

int sqlite3_open_v2(const char* name, sqlite3** connection, int access, const char* system) {
  if (fails(openingsUntilOneFails)) return SQLITE_NOMEM;
  return ofSqlite<decltype(sqlite3_open_v2)>("sqlite3_open_v2")(name, connection, access, system);
}

int sqlite3_prepare_v3(sqlite3* connection, const char* sql, int length, unsigned int how, sqlite3_stmt** statement,
                       const char** rest) {
  if (fails(statementsUntilOneFails)) return SQLITE_NOMEM;
  return ofSqlite<decltype(sqlite3_prepare_v3)>("sqlite3_prepare_v3")(connection, sql, length, how, statement, rest);
}

// Visible to SQLite, a shared library.
[[gnu::visibility("default")]] int fdatasync(int file) {
  if (beforeFlush) beforeFlush();
  return ::fsync(file);
}

int nanosleep(const timespec* time, timespec* left) {
  if (beforeSleep) beforeSleep();
  return ::clock_nanosleep(CLOCK_REALTIME, 0, time, left);
}

namespace tallyfin {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

void put(const fs::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
}

std::string bytesOf(const fs::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

unsigned modeOf(const fs::path& path) { return static_cast<unsigned>(fs::status(path).permissions()); }

/// The file, read and changed by SQLite without the store.
class Sql {
 public:
  explicit Sql(const fs::path& path) { EXPECT_EQ(sqlite3_open(path.c_str(), &connection_), SQLITE_OK); }
  ~Sql() { sqlite3_close(connection_); }
  Sql(const Sql&) = delete;
  Sql& operator=(const Sql&) = delete;

  void operator()(const std::string& sql) const {
    EXPECT_EQ(sqlite3_exec(connection_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(connection_);
  }

 private:
  sqlite3* connection_ = nullptr;
};

/// A separate folder, and the user `nobody`: for root no file is read-only.
class StoreTest : public testing::Test {
 protected:
  StoreTest() {
    std::string name = (fs::temp_directory_path() / "storeXXXXXX").string();
    folder = ::mkdtemp(name.data());
    if (::geteuid() == 0) {
      EXPECT_EQ(::chown(folder.c_str(), nobody, nobody), 0);
      EXPECT_EQ(::seteuid(nobody), 0);
    }
    path = folder / "Tallyfin99.sqlite";
  }
  ~StoreTest() override {
    fs::permissions(folder, fs::perms::owner_all);
    if (::getuid() == 0) {
      EXPECT_EQ(::seteuid(0), 0);
    }
    fs::remove_all(folder);
  }

  FileStore opened() const { return FileStore(path); }
  std::optional<std::string> kept(std::string_view key) const { return opened().read(section::settings, key); }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(folder)) all.push_back(entry.path().filename().string());
    std::sort(all.begin(), all.end());
    return all;
  }

  /// The file at the store's path isn't a store: every reading and every save fails, and it isn't changed.
  void expectLeftAlone() const {
    const bool file = fs::is_regular_file(path);
    const std::string before = file ? bytesOf(path) : "";
    const auto beside = names();
    {
      FileStore store = opened();
      EXPECT_THROW(store.read(section::settings, "IncAmt"), FailedStatement);
      EXPECT_THROW(store.write(section::settings, "IncAmt", "1000"), FailedStatement);
      EXPECT_THROW(store.erase(section::settings, "IncAmt"), FailedStatement);
      EXPECT_THROW(store.read(section::settings, "IncAmt"), FailedStatement);
      EXPECT_THAT(store.all(), IsEmpty());
    }
    if (file) {
      EXPECT_TRUE(bytesOf(path) == before);
    }
    EXPECT_EQ(names(), beside);
  }

  static constexpr unsigned nobody = 65534;
  fs::path folder;
  fs::path path;
};

// --- What is kept ----------------------------------------------------------------------------------------------------

TEST_F(StoreTest, KeepsATextAtOnce) {
  FileStore store = opened();
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(kept("IncAmt"), "1000");
  store.write(section::settings, "IncAmt", "2000");
  EXPECT_EQ(kept("IncAmt"), "2000");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "2000");
}

TEST_F(StoreTest, ErasesAText) {
  FileStore store = opened();
  store.write(section::settings, "IncAmt", "1000");
  store.write(section::user, "IncAmt", "Pat");
  store.erase(section::settings, "IncAmt");
  EXPECT_EQ(kept("IncAmt"), std::nullopt);
  EXPECT_EQ(opened().all(), (SettingsStore::Sections{{"User", {{"IncAmt", "Pat"}}}}));
}

TEST_F(StoreTest, IsReadAtAPathOfAnyCharacters) {
  path = folder / "%41 ?mode=ro&x#y" / "..{a}~[Z]@9:\\\xC3\xA9\xFF;'\"`|$+,<=>^_-()";
  opened().write(section::settings, "Hours", "40");
  EXPECT_EQ(kept("Hours"), "40");
  fs::permissions(path.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);  // the snapshot alone is read
  EXPECT_EQ(kept("Hours"), "40");
  fs::permissions(path.parent_path(), fs::perms::owner_all);
}

TEST_F(StoreTest, MakesNothingByReading) {
  path = folder / "config" / "Tallyfin99.sqlite";
  FileStore store = opened();
  EXPECT_EQ(store.read(section::settings, "IncAmt"), std::nullopt);
  store.erase(section::settings, "IncAmt");
  EXPECT_THAT(store.all(), IsEmpty());
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(StoreTest, MakesAnEmptyFileAStoreWhenItSaves) {
  put(path, "");
  EXPECT_EQ(kept("IncAmt"), std::nullopt);
  EXPECT_EQ(bytesOf(path), "");
  opened().write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(kept("IncAmt"), "1000");
}

TEST_F(StoreTest, LeavesOneFileBehind) {
  opened().write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(kept("IncAmt"), "1000");
  EXPECT_THAT(names(), ElementsAre("Tallyfin99.sqlite"));
}

/// After the program has closed them, neither the file nor its log contains a text that was replaced by a longer one or
/// a shorter one, or was removed. Other texts are before and after it, so that the new text isn't written over the old
/// one.
TEST_F(StoreTest, KeepsNothingOfATextThatWasReplaced) {
  const std::string old = "123-45-6789 of Pat";
  for (const std::optional<std::string>& replacement :
       {std::optional<std::string>("-"), std::optional<std::string>(std::string(500, 'x')),
        std::optional<std::string>(std::string(20'000, 'x')), std::optional<std::string>()}) {
    {
      FileStore store = opened();
      for (const char* key : {"A", "Z"}) store.write(section::user, key, std::string(300, 'y'));
      store.write(section::user, "USSN", old);
    }
    EXPECT_NE(bytesOf(path).find(old), std::string::npos);
    {
      FileStore store = opened();
      if (replacement) {
        store.write(section::user, "USSN", *replacement);
      } else {
        store.erase(section::user, "USSN");
      }
    }
    for (const std::string& name : names()) {
      EXPECT_EQ(bytesOf(folder / name).find("123-45"), std::string::npos)
          << name << " after " << (replacement ? std::to_string(replacement->size()) : "none");
    }
  }
}

TEST_F(StoreTest, KeepsNothingOfALongTextThatWasReplaced) {
  std::string old;
  for (int i = 0; i < 3000; ++i) old += "123-45-" + std::to_string(10'000 + i) + ' ';
  opened().write(section::user, "UName", old);
  opened().write(section::user, "UName", "Pat");
  opened().write(section::user, "UAdd", "1 Main St");
  EXPECT_EQ(bytesOf(path).find("123-45-"), std::string::npos);
}

/// Else a loss of power would lose what is stored, or damage a file during a checkpoint.
TEST_F(StoreTest, WritesItsLogToTheDiskBeforeTheFile) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "0");
  int flushes = 0;
  beforeFlush = [&] { ++flushes; };
  const auto before = bytesOf(path);
  for (int i = 1; flushes < 2 && i < 1000; ++i) {
    store.write(section::settings, "Hours", std::to_string(i));
    // The log is flushed first: until then the file isn't changed.
    ASSERT_TRUE(flushes > 0 || bytesOf(path) == before) << i;
  }
  beforeFlush = nullptr;
  EXPECT_GE(flushes, 2) << "the log and the file";
}

TEST_F(StoreTest, CopiesItsLogBackNowAndThen) {
  FileStore store = opened();
  for (int i = 1; i <= 1000; ++i) {
    store.write(section::settings, "Hours", std::to_string(i));
    ASSERT_LT(fs::file_size(path.string() + "-wal"), 1'000'000U) << i;
  }
}

RC_GTEST_FIXTURE_PROP(StoreTest, GivesBackAnyBytesOfAnyName, ()) {
  const auto bytes = rc::gen::arbitrary<std::string>();
  const std::string sectionName = *bytes;
  const std::string key = *bytes;
  const std::string text = *bytes;
  FileStore store = opened();
  store.write("Other", "key", "other");
  store.write(sectionName, key, "before");
  store.write(sectionName, key, text);
  FileStore again = opened();
  RC_ASSERT(again.read(sectionName, key) == text);
  RC_ASSERT(again.all().at(sectionName).at(key) == text);
  if (sectionName != "Other" || key != "key") RC_ASSERT(again.read("Other", "key") == "other");
  again.erase(sectionName, key);
  RC_ASSERT(again.read(sectionName, key) == std::nullopt);
}

TEST_F(StoreTest, GivesBackAwkwardTexts) {
  const std::string megabyte(1'000'000, '\xFF');
  for (const std::string& text :
       {std::string(), std::string(1, '\0'), std::string("a\0b", 3), std::string("'; DROP TABLE setting; --"),
        std::string("\"?1\""), std::string("P\xFFt\xC3"), std::string("\xEF\xBB\xBFx"), std::string("\r\n\t "),
        megabyte}) {
    opened().write(text, text, text);
    EXPECT_EQ(opened().read(text, text), text);
    opened().erase(text, text);
  }
  EXPECT_EQ(opened().read(std::string_view{}, std::string_view{}), std::nullopt);
  opened().write(std::string_view{}, std::string_view{}, "x");
  EXPECT_EQ(opened().read("", ""), "x");
}

TEST_F(StoreTest, DistinguishesKeysByEveryByte) {
  FileStore store = opened();
  for (const std::string& key : {std::string("a"), std::string("A"), std::string("a\0", 2), std::string("a ")}) {
    store.write(section::settings, key, key);
  }
  EXPECT_EQ(store.read(section::settings, "a"), "a");
  EXPECT_EQ(store.read(section::settings, std::string_view("a\0", 2)), std::string_view("a\0", 2));
  EXPECT_EQ(store.all().at("Settings").size(), 4U);
}

TEST_F(StoreTest, RefusesATextOfTwentyMegabytesAndKeepsTheOldOne) {
  FileStore store = opened();
  store.write(section::user, "UName", "Pat");
  EXPECT_THROW(store.write(section::user, "UName", std::string(20'000'000, 'x')), FailedStatement);
  EXPECT_EQ(store.read(section::user, "UName"), "Pat");
  store.write(section::user, "UName", "Ann");
  EXPECT_EQ(store.read(section::user, "UName"), "Ann");
}

TEST_F(StoreTest, GrowsNoFurtherThanItMay) {
  FileStore store = opened();
  const std::string large(7'000'000, 'x');
  int fitting = 0;
  EXPECT_THROW(
      for (; fitting < 20; ++fitting) { store.write(section::user, std::to_string(fitting), large); }, FailedStatement);
  EXPECT_EQ(fitting, 9);
  EXPECT_EQ(store.read(section::user, "8"), large);
  store.erase(section::user, "0");
  store.write(section::user, "9", large);
}

// --- Permissions -----------------------------------------------------------------------------------------------------

/// The mask of new files' modes, until the end of the block.
class Mask {
 public:
  explicit Mask(mode_t mask) : before_(::umask(mask)) {}
  ~Mask() { ::umask(before_); }
  Mask(const Mask&) = delete;
  Mask& operator=(const Mask&) = delete;

 private:
  mode_t before_;
};

TEST_F(StoreTest, IsPrivateWithAnyUmask) {
  for (const mode_t mask : {0U, 0777U}) {
    path = folder / std::to_string(mask) / "config" / "Tallyfin99.sqlite";
    const Mask set(mask);
    FileStore store = opened();
    store.write(section::user, "USSN", "000-00-0000");
    EXPECT_EQ(::umask(mask), mask);
    for (const char* ending : {"", "-wal", "-shm"}) EXPECT_EQ(modeOf(path.string() + ending), 0600U) << ending;
    EXPECT_EQ(modeOf(path.parent_path()), 0700U);
    EXPECT_EQ(modeOf(path.parent_path().parent_path()), 0700U);
  }
}

TEST_F(StoreTest, RemovesPermissionsOfOthers) {
  opened().write(section::user, "USSN", "1");
  fs::permissions(path, fs::perms(0666));
  FileStore store = opened();
  EXPECT_EQ(store.read(section::user, "USSN"), "1");
  for (const char* ending : {"", "-wal", "-shm"}) EXPECT_EQ(modeOf(path.string() + ending), 0600U) << ending;
}

TEST_F(StoreTest, ChangesNoModeOfAnothersFile) {
  put(path, "some text");
  fs::permissions(path, fs::perms(0644));
  expectLeftAlone();
  EXPECT_EQ(modeOf(path), 0644U);
}

TEST_F(StoreTest, FollowsALink) {
  fs::create_directory(folder / "elsewhere");
  const fs::path real = folder / "elsewhere" / "real #1?{.db";
  FileStore(real).write(section::settings, "Hours", "40");
  fs::create_symlink("elsewhere/real #1?{.db", path);
  opened().write(section::settings, "IncAmt", "1000");
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(FileStore(real).read(section::settings, "IncAmt"), "1000");
  EXPECT_EQ(kept("Hours"), "40");
  EXPECT_THAT(names(), ElementsAre("Tallyfin99.sqlite", "elsewhere"));
}

TEST_F(StoreTest, DoesNotReplaceALinkThatLeadsNowhere) {
  fs::create_symlink("nothing", path);
  FileStore store = opened();
  EXPECT_EQ(store.read(section::settings, "IncAmt"), std::nullopt);
  EXPECT_THROW(store.write(section::settings, "IncAmt", "1000"), FailedStatement);
  EXPECT_THAT(names(), ElementsAre("Tallyfin99.sqlite"));
  EXPECT_EQ(fs::read_symlink(path), "nothing");
}

// --- What is no store ------------------------------------------------------------------------------------------------

TEST_F(StoreTest, LeavesAFolderAlone) {
  fs::create_directory(path);
  expectLeftAlone();
}

TEST_F(StoreTest, LeavesATextAlone) {
  for (const char* text : {"x", "[Settings]\nHours=40\n", "SQLite format 3"}) {
    put(path, text);
    expectLeftAlone();
  }
  put(path, std::string("SQLite format 3\0", 16) + std::string(5000, 'x'));
  expectLeftAlone();
}

TEST_F(StoreTest, LeavesAPipeAlone) {
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  expectLeftAlone();
}

TEST_F(StoreTest, LeavesWhatIsTooLargeAlone) {
  opened().write(section::settings, "IncAmt", "1000");
  fs::resize_file(path, 100'000'000);
  FileStore store = opened();
  EXPECT_THROW(store.read(section::settings, "IncAmt"), FailedStatement);
  EXPECT_THROW(store.write(section::settings, "IncAmt", "2"), FailedStatement);
  EXPECT_EQ(fs::file_size(path), 100'000'000U);
}

TEST_F(StoreTest, ReadsTheLargestFileThatItTakes) {
  opened().write(section::settings, "IncAmt", "1000");
  fs::resize_file(path, 67'108'864);
  EXPECT_EQ(kept("IncAmt"), "1000");
  fs::resize_file(path, 67'112'960);
  EXPECT_THROW(kept("IncAmt"), FailedStatement);
}

/// SQLite treats a file of one byte as an empty database.
TEST_F(StoreTest, DoesNotChangeAFileOfOneByteWithAnyFileBesideIt) {
  put(path, "x");
  put(path.string() + "-wal", "no log of SQLite's");
  expectLeftAlone();
}

/// Each opening distrusts the schema of the file, and makes no checkpoint in a file that may not be a store.
TEST_F(StoreTest, OpensAFileAsOneThatMayBeHostile) {
  opened().write(section::settings, "IncAmt", "1000");
  FileStore store = opened();
  options.clear();
  limits.clear();
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
  EXPECT_EQ(options, (std::map<int, int>{{SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                         {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                         {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                                         {SQLITE_DBCONFIG_DQS_DDL, 0},
                                         {SQLITE_DBCONFIG_DQS_DML, 0},
                                         {SQLITE_DBCONFIG_DEFENSIVE, 1},
                                         {SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1}}));
  EXPECT_EQ(limits, (std::map<int, int>{{SQLITE_LIMIT_LENGTH, 8 * 1024 * 1024},
                                        {SQLITE_LIMIT_SQL_LENGTH, 10'000},
                                        {SQLITE_LIMIT_ATTACHED, 0}}));
}

TEST_F(StoreTest, LeavesATruncatedStoreAlone) {
  {
    FileStore store = opened();
    for (int i = 0; i < 300; ++i) store.write(section::settings, std::to_string(i), std::string(100, 'x'));
  }
  const std::string whole = bytesOf(path);
  for (const std::size_t length :
       {2UL, 100UL, 4095UL, 4096UL, 8192UL, whole.size() - 4096, whole.size() - 1000, whole.size() - 1}) {
    put(path, whole.substr(0, length));
    expectLeftAlone();
  }
}

TEST_F(StoreTest, LeavesADatabaseOfAnotherFormAlone) {
  const std::string ours =
      "CREATE TABLE setting(section TEXT NOT NULL, key TEXT NOT NULL, text TEXT NOT NULL, PRIMARY KEY(section, key)) "
      "STRICT, WITHOUT ROWID;";
  for (const std::string& form :
       {std::string("CREATE TABLE other(a, b); INSERT INTO other VALUES(1, 2);"),
        std::string("CREATE TABLE setting(section, key, text); INSERT INTO setting VALUES('Settings', 'IncAmt', 'x');"),
        ours + "CREATE TRIGGER t AFTER INSERT ON setting BEGIN DELETE FROM setting; END;",
        ours + "CREATE VIEW v AS SELECT 1;", ours + "CREATE INDEX i ON setting(text);",
        "PRAGMA encoding = 'UTF-16'; " + ours}) {
    for (const char* mode : {"PRAGMA journal_mode = DELETE;", "PRAGMA journal_mode = WAL;"}) {
      fs::remove(path);
      Sql{path}(mode + form);
      expectLeftAlone();
    }
  }
}

TEST_F(StoreTest, LeavesADamagedDatabaseWithoutTablesAlone) {
  Sql{path}("CREATE TABLE other(a); DROP TABLE other;");
  std::string bytes = bytesOf(path);
  ASSERT_EQ(bytes.at(39), 1);  // pages that are free
  bytes[39] = 7;
  put(path, bytes);
  expectLeftAlone();
}

/// Runs a function on a database in a process that is killed before it closes the database.
void killedAfter(const fs::path& path, const char* sql) {
  const pid_t child = ::fork();
  if (child == 0) {
    sqlite3* connection = nullptr;
    sqlite3_open(path.c_str(), &connection);
    ::_exit(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr));
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_EQ(status, 0);
}

TEST_F(StoreTest, RollsBackAChangeOfAKilledProgram) {
  opened().write(section::settings, "Hours", "40");
  killedAfter(path, "PRAGMA journal_mode = DELETE; BEGIN; UPDATE setting SET text = '41'");
  ASSERT_GT(fs::file_size(path.string() + "-journal"), 0U);
  EXPECT_EQ(kept("Hours"), "40");
  opened().write(section::settings, "Hours", "42");
  EXPECT_EQ(kept("Hours"), "42");
}

TEST_F(StoreTest, CompletesAChangeThatAKilledProgramHasMade) {
  opened().write(section::settings, "Hours", "40");
  killedAfter(path, "UPDATE setting SET text = '41'");
  // The state of a file after a full disk during a checkpoint.
  std::ofstream(path, std::ios::binary | std::ios::app) << "part of a page";
  EXPECT_EQ(kept("Hours"), "41");
  EXPECT_THAT(names(), ElementsAre("Tallyfin99.sqlite"));
}

TEST_F(StoreTest, RemovesPermissionsOfOthersFromWhatAKilledProgramHasLeft) {
  opened().write(section::user, "USSN", "1");
  killedAfter(path, "UPDATE setting SET text = '2'");
  ASSERT_GT(fs::file_size(path.string() + "-wal"), 0U);
  fs::permissions(path, fs::perms(0666));
  EXPECT_EQ(opened().read(section::user, "USSN"), "2");
  EXPECT_EQ(modeOf(path), 0600U);
}

TEST_F(StoreTest, MakesADatabaseWithoutTablesAStoreWhenItSaves) {
  killedAfter(path, "PRAGMA journal_mode = WAL; CREATE TABLE other(a); DROP TABLE other");
  ASSERT_GT(fs::file_size(path.string() + "-wal"), 0U);
  EXPECT_EQ(kept("Hours"), std::nullopt);
  opened().write(section::settings, "Hours", "40");
  EXPECT_EQ(kept("Hours"), "40");
}

TEST_F(StoreTest, LeavesAnUnfinishedDatabaseOfAnotherFormAlone) {
  killedAfter(path, "PRAGMA journal_mode = WAL; CREATE TABLE other(a); INSERT INTO other VALUES(1)");
  ASSERT_GT(fs::file_size(path.string() + "-wal"), 0U);
  const std::string log = bytesOf(path.string() + "-wal");
  expectLeftAlone();
  EXPECT_EQ(bytesOf(path.string() + "-wal"), log);
}

RC_GTEST_FIXTURE_PROP(StoreTest, LeavesAnyBytesAlone, (const std::string& bytes)) {
  RC_PRE(!bytes.empty());
  put(path, bytes);
  expectLeftAlone();
}

/// With some bytes of a page changed, readings return other texts or none, but don't crash.
RC_GTEST_FIXTURE_PROP(StoreTest, AnswersWhateverIsDamaged, ()) {
  opened().write(section::settings, "IncAmt", "1000");
  std::string bytes = bytesOf(path);
  for (const auto& [place, byte] : *rc::gen::container<std::map<std::size_t, char>>(
           rc::gen::inRange<std::size_t>(0, bytes.size()), rc::gen::arbitrary<char>())) {
    bytes[place] = byte;
  }
  put(path, bytes);
  FileStore store = opened();
  bool saved = true;
  try {
    store.write(section::settings, "IncAmt", "2000");
  } catch (const FailedStatement&) {
    saved = false;
  }
  if (saved) {
    RC_ASSERT(opened().read(section::settings, "IncAmt") == "2000");
  } else {
    RC_ASSERT(bytesOf(path) == bytes);
  }
}

// --- Where nothing can be written ------------------------------------------------------------------------------------

TEST_F(StoreTest, ReadsAFileThatMayNotBeWritten) {
  opened().write(section::settings, "Hours", "40");
  fs::permissions(path, fs::perms::owner_read);
  FileStore store = opened();
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  EXPECT_THROW(store.write(section::settings, "Hours", "41"), FailedStatement);
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
}

TEST_F(StoreTest, ReadsInAFolderThatMayNotBeWrittenAndSavesAsSoonAsItMay) {
  opened().write(section::settings, "Hours", "40");
  fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
  FileStore store = opened();
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  EXPECT_THROW(store.write(section::settings, "Hours", "41"), FailedStatement);
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  EXPECT_EQ(store.all(), (SettingsStore::Sections{{"Settings", {{"Hours", "40"}}}}));

  fs::permissions(folder, fs::perms::owner_all);
  store.write(section::settings, "Hours", "41");
  EXPECT_EQ(store.read(section::settings, "Hours"), "41");
}

TEST_F(StoreTest, FailsWhereTheFolderCantBeMade) {
  put(folder / "file", "no folder");
  for (const fs::path& place : {fs::path("/proc/nobody"), folder / "file"}) {
    path = place / "Tallyfin99.sqlite";
    FileStore store = opened();
    EXPECT_THROW(store.write(section::settings, "IncAmt", "1000"), FailedStatement);
    EXPECT_EQ(store.read(section::settings, "IncAmt"), std::nullopt);
  }
}

/// During its lifetime no file grows beyond a length: writes fail like on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t length) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &before_), 0);
    const struct rlimit limit { length, before_.rlim_max };
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FullDisk() {
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &before_), 0);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  struct rlimit before_ {};
  void (*handler_)(int);
};

TEST_F(StoreTest, KeepsTheOldTextsWhereTheDiskIsFull) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  for (const rlim_t room : {0UL, 100UL, 5000UL, 10'000UL}) {
    {
      const FullDisk full(room);
      EXPECT_THROW(
          for (int i = 0; i < 10; ++i) { store.write(section::settings, "IncAmt", std::string(3000, 'x')); },
          FailedStatement);
      EXPECT_EQ(store.read(section::settings, "Hours"), "40");
    }
    store.write(section::settings, "IncAmt", "1000");
    EXPECT_EQ(kept("IncAmt"), "1000");
  }
  EXPECT_EQ(kept("Hours"), "40");
}

TEST_F(StoreTest, ReadsAtAStartOnAFullDisk) {
  opened().write(section::settings, "Hours", "40");
  const FullDisk full(0);
  FileStore store = opened();
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  EXPECT_THROW(store.write(section::settings, "Hours", "41"), FailedStatement);
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
}

TEST_F(StoreTest, BecomesAStoreOnceTheDiskHasRoom) {
  FileStore store = opened();
  for (const rlim_t room : {0UL, 1000UL, 4096UL, 6000UL}) {
    const FullDisk full(room);
    EXPECT_THROW(store.write(section::settings, "Hours", "40"), FailedStatement);
    EXPECT_EQ(store.read(section::settings, "Hours"), std::nullopt);
  }
  store.write(section::settings, "Hours", "40");
  EXPECT_EQ(kept("Hours"), "40");
}

// --- Other programs --------------------------------------------------------------------------------------------------

TEST_F(StoreTest, ReadsWhatAnotherProgramHasJustStored) {
  FileStore one = opened();
  FileStore two = opened();
  EXPECT_EQ(one.read(section::settings, "IncAmt"), std::nullopt);
  two.write(section::settings, "IncAmt", "1");
  EXPECT_EQ(one.read(section::settings, "IncAmt"), "1");
  one.write(section::settings, "IncAmt", "2");
  EXPECT_EQ(two.read(section::settings, "IncAmt"), "2");
  two.erase(section::settings, "IncAmt");
  EXPECT_EQ(one.read(section::settings, "IncAmt"), std::nullopt);
}

TEST_F(StoreTest, ReadsWhatTheUserHasChangedByHand) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  Sql{path}("UPDATE setting SET text = 80");
  EXPECT_EQ(store.read(section::settings, "Hours"), "80");
}

TEST_F(StoreTest, WorksOnInAnotherJournalMode) {
  opened().write(section::settings, "Hours", "40");
  Sql{path}("PRAGMA journal_mode = DELETE");
  FileStore store = opened();
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  store.write(section::settings, "Hours", "41");
  EXPECT_EQ(kept("Hours"), "41");
}

TEST_F(StoreTest, WaitsForABusyStoreLessThanASecond) {
  opened().write(section::settings, "Hours", "40");
  FileStore store = opened();
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  const Sql other(path);
  other("BEGIN IMMEDIATE; UPDATE setting SET text = '41'");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THROW(store.write(section::settings, "Hours", "42"), FailedStatement);
  const auto waited = std::chrono::steady_clock::now() - start;
  EXPECT_GE(waited, std::chrono::milliseconds(400));
  EXPECT_LT(waited, std::chrono::seconds(1));
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  other("COMMIT");
  EXPECT_EQ(store.read(section::settings, "Hours"), "41");
  store.write(section::settings, "Hours", "42");
  EXPECT_EQ(kept("Hours"), "42");
}

/// Runs a function in a process of its own; returns its exit status.
class OtherProgram {
 public:
  explicit OtherProgram(const std::function<void()>& work) : process_(::fork()) {
    if (process_ == 0) {
      work();
      const int status = testing::Test::HasFailure() ? 1 : 0;
#ifdef __SANITIZE_ADDRESS__
      // A search for leaks would read an index that the function has truncated.
      std::fflush(nullptr);
      ::_exit(status);
#else
      std::exit(status);
#endif
    }
  }
  ~OtherProgram() {
    if (process_ == 0) return;  // it has ended
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  int ended() {
    int status = -1;
    EXPECT_GT(::waitpid(std::exchange(process_, 0), &status, 0), 0);
    return status;
  }

 private:
  pid_t process_;
};

/// A pipe on which one process waits for another. Each closes the end that it doesn't use, so that a wait ends when the
/// other process ends.
class Signal {
 public:
  Signal() { EXPECT_EQ(::pipe(ends_), 0); }
  ~Signal() {
    close(0);
    close(1);
  }
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  /// Waits for the other process; false where it ends without a signal.
  bool await() {
    close(1);
    char byte = 0;
    return ::read(ends_[0], &byte, 1) == 1;
  }
  void give() {
    close(0);
    EXPECT_EQ(::write(ends_[1], "x", 1), 1);
  }

 private:
  void close(int end) {
    if (ends_[end] >= 0) ::close(std::exchange(ends_[end], -1));
  }

  int ends_[2]{};
};

TEST_F(StoreTest, ReadsWhileAProgramThatClosesWaitsForTheDisk) {
  int held = 0;
  for (bool reached = true; reached; held += reached ? 1 : 0) {
    Signal flushing;
    Signal read;
    OtherProgram closing([&] {
      FileStore store = opened();
      store.write(section::settings, "Hours", std::to_string(held));
      beforeFlush = [&, left = held]() mutable {
        if (left-- != 0) return;
        flushing.give();
        read.await();
      };
    });
    reached = flushing.await();
    EXPECT_EQ(kept("Hours"), std::to_string(held)) << "flush " << held;
    if (reached) read.give();
    EXPECT_EQ(closing.ended(), 0);
  }
  EXPECT_GE(held, 2) << "the log and the file";
  EXPECT_THAT(names(), ElementsAre("Tallyfin99.sqlite"));
}

/// Locks out all other programs during its lifetime.
class Exclusive {
 public:
  explicit Exclusive(const fs::path& path) : other_(path) {
    other_("PRAGMA locking_mode = EXCLUSIVE; UPDATE setting SET text = text");
  }

 private:
  Sql other_;
};

TEST_F(StoreTest, WaitsAtItsFirstOpeningForAProgramThatKeepsOthersOut) {
  opened().write(section::settings, "Hours", "40");
  auto other = std::make_unique<Exclusive>(path);
  int waits = 0;
  beforeSleep = [&] {
    if (++waits == 3) other.reset();
  };
  FileStore store(path, Patience(std::chrono::minutes(1), std::chrono::milliseconds(0)));
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  beforeSleep = nullptr;
  EXPECT_GE(waits, 3);
}

TEST_F(StoreTest, FailsAsLongAsAnotherProgramKeepsItOut) {
  opened().write(section::settings, "Hours", "40");
  auto other = std::make_unique<Exclusive>(path);
  FileStore store(path, Patience(std::chrono::milliseconds(20), std::chrono::milliseconds(0)));
  EXPECT_THROW(store.read(section::settings, "Hours"), FailedStatement);
  EXPECT_THROW(store.write(section::settings, "Hours", "41"), FailedStatement);
  EXPECT_THROW(store.erase(section::settings, "Hours"), FailedStatement);
  EXPECT_THAT(store.all(), IsEmpty());
  other.reset();
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
}

TEST_F(StoreTest, WaitsOnceInAnAct) {
  opened().write(section::settings, "Hours", "40");
  FileStore store = opened();
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  const Sql other(path);
  other("BEGIN IMMEDIATE; UPDATE setting SET text = '41'");
  const auto start = std::chrono::steady_clock::now();
  store.beginAct();
  for (int i = 0; i < 10; ++i) EXPECT_THROW(store.write(section::settings, "Hours", "42"), FailedStatement);
  store.endAct();
  const auto waited = std::chrono::steady_clock::now() - start;
  EXPECT_GE(waited, std::chrono::milliseconds(400));
  EXPECT_LT(waited, std::chrono::milliseconds(4000));
  other("COMMIT");
  store.write(section::settings, "Hours", "42");
  EXPECT_EQ(kept("Hours"), "42");
}

TEST(Patience, WaitsLongerAtFirst) {
  using std::chrono::milliseconds;
  const auto waits = [](Patience& patience) {
    const auto start = std::chrono::steady_clock::now();
    int count = 0;
    while (patience.wait()) ++count;
    EXPECT_FALSE(patience.wait());
    return std::pair(count > 0, std::chrono::steady_clock::now() - start);
  };
  Patience patience(milliseconds(100), milliseconds(20));
  auto [waited, time] = waits(patience);
  EXPECT_TRUE(waited);
  EXPECT_GE(time, milliseconds(100));
  patience.renew();
  std::tie(waited, time) = waits(patience);
  EXPECT_TRUE(waited);
  EXPECT_GE(time, milliseconds(20));

  Patience settled(std::chrono::hours(1), milliseconds(20));
  settled.renew();
  settled.settle();
  EXPECT_TRUE(waits(settled).first);
}

TEST(Patience, IsShorterFromTheActOnThatWaitedInVain) {
  using std::chrono::milliseconds;
  Patience patience(milliseconds(10), milliseconds(0));
  EXPECT_TRUE(patience.wait());
  while (patience.wait()) {
  }
  patience.renew();
  EXPECT_FALSE(patience.wait());

  Patience stillLong(std::chrono::hours(1), milliseconds(0));
  EXPECT_TRUE(stillLong.wait());
  stillLong.renew();
  EXPECT_TRUE(stillLong.wait());
}

// --- What stands beside it -------------------------------------------------------------------------------------------

TEST_F(StoreTest, WaitsForNoPipeBesideIt) {
  opened().write(section::settings, "Hours", "40");
  for (const char* ending : {"-journal", "-wal", "-shm"}) {
    const fs::path pipe = path.string() + ending;
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    expectLeftAlone();
    fs::remove(pipe);
  }
  EXPECT_EQ(kept("Hours"), "40");
}

TEST_F(StoreTest, MakesAnIndexWholeThatWasCutShort) {
  FileStore store = opened();
  const fs::path index = path.string() + "-shm";
  for (const std::uintmax_t length : {0UL, 50UL, 200UL, 20'000UL}) {
    for (int i = 0; i < 30; ++i) store.write(section::settings, std::to_string(i), std::to_string(length));
    fs::resize_file(index, length);
    EXPECT_EQ(store.read(section::settings, "29"), std::to_string(length));
    fs::resize_file(index, length);
    store.write(section::settings, "Hours", std::to_string(length));
    EXPECT_EQ(kept("Hours"), std::to_string(length));
  }
  fs::resize_file(index, 0);
}

TEST_F(StoreTest, MakesAnIndexWholeThatWasCutShortAfterItHadGrown) {
  OtherProgram cut([this] {
    FileStore store = opened();
    store.write(section::settings, "Hours", "40");
    const fs::path index = path.string() + "-shm";
    const auto atFirst = fs::file_size(index);
    {
      const Sql reader(path);
      reader("BEGIN; SELECT * FROM setting");  // the log stays, and its index grows with it
      for (int i = 0; i < 4; ++i)
        store.write(section::user, "UName", std::string(7'000'000, static_cast<char>('A' + i)));
    }
    EXPECT_EQ(store.read(section::user, "UName")->front(), 'D');
    ASSERT_GT(fs::file_size(index), atFirst);
    fs::resize_file(index, atFirst);
    EXPECT_EQ(store.read(section::user, "UName")->front(), 'D');
  });
  EXPECT_EQ(cut.ended(), 0);
}

TEST_F(StoreTest, TouchesNoIndexThatCantBeMadeWhole) {
  OtherProgram cut([this] {
    auto store = std::make_unique<FileStore>(path);
    store->write(section::settings, "Hours", "40");
    fs::resize_file(path.string() + "-shm", 0);
    const FullDisk full(0);
    EXPECT_THROW(store->read(section::settings, "Hours"), FailedStatement);
    store.reset();
  });
  EXPECT_EQ(cut.ended(), 0);
  EXPECT_EQ(kept("Hours"), "40");
}

TEST_F(StoreTest, KeepsWhatAnotherProgramStoredBeforeItEndedWhereTheIndexWasRemoved) {
  Signal removed;
  OtherProgram other([&] {
    if (removed.await()) opened().write(section::settings, "Hours", "41");
  });
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  fs::remove(path.string() + "-shm");
  removed.give();
  EXPECT_EQ(other.ended(), 0);
  EXPECT_EQ(store.read(section::settings, "Hours"), "41");
  EXPECT_EQ(kept("Hours"), "41");
}

TEST_F(StoreTest, ReadsWhatAnotherProgramStoresAfterItsIndexWasRemoved) {
  Signal removed;
  Signal stored;
  Signal read;
  OtherProgram other([&] {
    if (!removed.await()) return;
    FileStore store = opened();
    store.write(section::settings, "Hours", "41");
    stored.give();
    read.await();
  });
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  fs::remove(path.string() + "-shm");
  removed.give();
  ASSERT_TRUE(stored.await());
  EXPECT_EQ(store.read(section::settings, "Hours"), "41");
  read.give();
  EXPECT_EQ(other.ended(), 0);
  EXPECT_EQ(kept("Hours"), "41");
}

TEST_F(StoreTest, LosesNothingWhereItsLogIsRemoved) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  for (const char* ending : {"-wal", "-shm"}) fs::remove(path.string() + ending);
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(kept("Hours"), "40");
  fs::remove(path.string() + "-shm");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
}

TEST_F(StoreTest, IgnoresALogOfAnotherStore) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  fs::copy_file(path, folder / "copy");
  for (const char* ending : {"-wal", "-shm"})
    fs::rename(path.string() + ending, folder / (std::string("copy") + ending));
  FileStore(folder / "copy").write(section::settings, "Hours", "41");
  // The copy was closed, so its file is complete. It replaces the file, and another program opens it.
  Sql{folder / "copy"}("SELECT * FROM setting");
  const std::string copied = bytesOf(folder / "copy");
  {
    std::ofstream out(path, std::ios::binary);
    out << copied;
  }
  FileStore other = opened();
  other.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(store.read(section::settings, "Hours"), "41");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
}

TEST_F(StoreTest, NeedsNoSpaceForATextThatIsStoredAlready) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  const auto length = fs::file_size(path.string() + "-wal");
  for (int i = 0; i < 100; ++i) store.write(section::settings, "Hours", "40");
  EXPECT_EQ(fs::file_size(path.string() + "-wal"), length);
}

TEST_F(StoreTest, BoundsTheLogUnderAReaderThatStays) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  const std::string log = path.string() + "-wal";
  const auto large = [](int number) { return std::string(7'000'000, static_cast<char>('A' + number)); };
  {
    const Sql reader(path);
    reader("BEGIN; SELECT * FROM setting");
    int fitting = 0;
    const auto saveUntilItFails = [&] {
      for (; fitting < 30; ++fitting) store.write(section::user, "UName", large(fitting));
    };
    EXPECT_THROW(saveUntilItFails(), FailedStatement);
    EXPECT_LT(fs::file_size(log), 82'000'000U);
    EXPECT_EQ(store.read(section::settings, "Hours"), "40");
    EXPECT_EQ(store.read(section::user, "UName"), large(fitting - 1));
  }
  store.write(section::settings, "Hours", "41");
  EXPECT_LT(fs::file_size(log), 1'100'000U);
  EXPECT_EQ(store.read(section::settings, "Hours"), "41");
}

TEST_F(StoreTest, CutsTheLogAgainAfterAReaderThatStayed) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  const std::string log = path.string() + "-wal";
  {
    const Sql reader(path);
    reader("BEGIN; SELECT * FROM setting");
    for (int i = 0; i < 1000; ++i) store.write(section::settings, "Hours", std::to_string(i));
    EXPECT_GT(fs::file_size(log), 4'000'000U);
  }
  store.write(section::settings, "Hours", "41");
  store.write(section::settings, "Hours", "42");
  EXPECT_LT(fs::file_size(log), 1'100'000U);
  EXPECT_EQ(kept("Hours"), "42");
}

TEST_F(StoreTest, LeavesAStoreAloneWhoseKeysAreOutOfOrder) {
  {
    FileStore store = opened();
    store.write(section::settings, "keyA", "1");
    store.write(section::settings, "keyB", "2");
  }
  std::string bytes = bytesOf(path);
  bytes.replace(bytes.find("keyA"), 4, "keyC");
  put(path, bytes);
  expectLeftAlone();
}

// --- Without memory --------------------------------------------------------------------------------------------------

TEST_F(StoreTest, GoesOnAfterAnOpeningThatFailed) {
  opened().write(section::settings, "Hours", "40");
  for (const auto kind : {&openingsUntilOneFails, &statementsUntilOneFails}) {
    int failed = 0;
    for (int until = 0;; ++until) {
      FileStore store = opened();
      *kind = until;
      try {
        EXPECT_EQ(store.read(section::settings, "Hours"), "40");
      } catch (const FailedStatement&) {
        ++failed;
      }
      const bool reached = **kind < 0;
      kind->reset();
      EXPECT_EQ(store.read(section::settings, "Hours"), "40");
      if (!reached) break;
    }
    EXPECT_GE(failed, 2);
  }
}

TEST_F(StoreTest, CreatesTheFileAgainWhereItHasBeenRemoved) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  fs::remove(path);
  EXPECT_EQ(store.read(section::settings, "Hours"), std::nullopt);
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(opened().all(), (SettingsStore::Sections{{"Settings", {{"IncAmt", "1000"}}}}));
}

TEST_F(StoreTest, GoesOverToAFileThatHasTakenThePlace) {
  FileStore store = opened();
  store.write(section::settings, "Hours", "40");
  FileStore(folder / "other").write(section::settings, "Hours", "80");
  fs::rename(folder / "other", path);
  for (const char* ending : {"-wal", "-shm"}) fs::remove(path.string() + ending);
  EXPECT_EQ(store.read(section::settings, "Hours"), "80");
  put(path.string() + ".new", "no store");
  fs::rename(path.string() + ".new", path);
  EXPECT_THROW(store.read(section::settings, "Hours"), FailedStatement);
  EXPECT_THROW(store.write(section::settings, "Hours", "1"), FailedStatement);
  EXPECT_EQ(bytesOf(path), "no store");
}

TEST_F(StoreTest, LosesNothingOfAnotherProgramAtTheSameMoment) {
  constexpr int saves = 1000;
  const auto saveAll = [this](const std::string& key) {
    FileStore store = opened();
    for (int i = 1; i <= saves; ++i) store.write(section::settings, key + std::to_string(i % 7), std::to_string(i));
  };
  const pid_t child = ::fork();
  if (child == 0) {
    try {
      saveAll("child");
      ::_exit(0);
    } catch (const FailedStatement&) {
      ::_exit(1);
    }
  }
  saveAll("parent");
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  for (int i = saves - 6; i <= saves; ++i) {
    EXPECT_EQ(kept("child" + std::to_string(i % 7)), std::to_string(i));
    EXPECT_EQ(kept("parent" + std::to_string(i % 7)), std::to_string(i));
  }
}

}  // namespace

}  // namespace tallyfin
