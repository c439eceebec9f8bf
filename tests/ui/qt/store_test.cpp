#include "ui/qt/store.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QLockFile>
#include <QSettings>
#include <QStringList>
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <limits>
#include <set>
#include <sstream>

#include "controls/step.h"
#include "engine/numbertext.h"

namespace tallyfin::qt {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
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

/// An own folder, and nobody's privileges: to root no file is read-only.
class StoreTest : public testing::Test {
 protected:
  StoreTest() {
    std::string name = (fs::temp_directory_path() / "storeXXXXXX").string();
    folder = ::mkdtemp(name.data());
    if (::geteuid() == 0) {
      EXPECT_EQ(::chown(folder.c_str(), nobody, nobody), 0);
      EXPECT_EQ(::seteuid(nobody), 0);
    }
    path = folder / "Tallyfin99.ini";
  }
  ~StoreTest() override {
    fs::permissions(folder, fs::perms::owner_all);
    if (::getuid() == 0) {
      EXPECT_EQ(::seteuid(0), 0);
    }
    fs::remove_all(folder);
  }

  Store opened() const { return Store(QString::fromStdString(path.string())); }
  std::optional<std::string> kept(std::string_view key) const { return opened().read(section::settings, key); }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(folder)) all.push_back(entry.path().filename().string());
    std::sort(all.begin(), all.end());
    return all;
  }

  static constexpr unsigned nobody = 65534;
  fs::path folder;
  fs::path path;
};

#define EXPECT_TROUBLE(store, words) EXPECT_THAT((store).trouble().toStdString(), HasSubstr(words))
#define EXPECT_NO_TROUBLE(store) EXPECT_THAT((store).trouble().toStdString(), IsEmpty())

// --- What is kept ----------------------------------------------------------------------------------------------------

TEST_F(StoreTest, KeepsAValueAtOnce) {
  Store store = opened();
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(bytesOf(path), "[Settings]\nIncAmt=1000\n");
  EXPECT_EQ(kept("IncAmt"), "1000");
  EXPECT_NO_TROUBLE(store);
}

TEST_F(StoreTest, ErasesAValue) {
  Store store = opened();
  store.write(section::settings, "IncAmt", "1000");
  store.erase(section::settings, "IncAmt");
  EXPECT_EQ(kept("IncAmt"), std::nullopt);
  EXPECT_THAT(opened().all(), IsEmpty());
}

TEST_F(StoreTest, DoesNotWriteAnEqualValueAgain) {
  Store store = opened();
  store.write(section::settings, "IncAmt", "1000");
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(::stat(path.c_str(), &before), 0);
  store.write(section::settings, "IncAmt", "1000");
  ASSERT_EQ(::stat(path.c_str(), &after), 0);
  EXPECT_EQ(before.st_ino, after.st_ino);
  EXPECT_EQ(before.st_ctim.tv_nsec, after.st_ctim.tv_nsec);
}

TEST_F(StoreTest, SavesTogetherAtTheEnd) {
  Store store = opened();
  useSettingsStore(store);
  {
    const SavedTogether together;
    lastEntries.save("IncAmt", "1000");
    user.save("UName", "Pat");
    store.erase(section::settings, "IncAmt");
    lastEntries.save("Hours", "40");
    EXPECT_EQ(lastEntries.get("Hours", "80"), "40");
    EXPECT_EQ(bytesOf(path), "");
  }
  EXPECT_EQ(bytesOf(path), "[Settings]\nHours=40\n\n[User]\nUName=Pat\n");
  store.write(section::settings, "Hours", "41");
  EXPECT_EQ(kept("Hours"), "41");
}

TEST_F(StoreTest, SavesTogetherWhatWasWrittenBeforeAFailure) {
  Store store = opened();
  useSettingsStore(store);
  step([] {
    const SavedTogether together;
    lastEntries.save("IncAmt", "1000");
    lastEntries.save("401k", toText(std::numeric_limits<double>::infinity()));
    lastEntries.save("Hours", "40");
  });
  EXPECT_EQ(bytesOf(path), "[Settings]\nIncAmt=1000\n");
}

TEST_F(StoreTest, WritesNoEqualValuesAgainTogether) {
  Store store = opened();
  useSettingsStore(store);
  lastEntries.save("IncAmt", "1000");
  const auto before = fs::last_write_time(path);
  {
    const SavedTogether together;
    lastEntries.save("IncAmt", "1000");
  }
  EXPECT_EQ(fs::last_write_time(path), before);
}

TEST_F(StoreTest, KeepsTheOtherSettingsOfTheFile) {
  put(path,
      "; my notes\n[Window]\nplace = 10, 20\n\n[Settings]\nHours=40\nIncAmt=5\nforeign key=@Rect(1 2 3 4)\n"
      "[Last]\nx=1");
  opened().write(section::settings, "IncAmt", "7");
  EXPECT_EQ(bytesOf(path),
            "[Last]\nx=1\n\n[Settings]\nHours=40\nIncAmt=7\nforeign%20key=@Rect(1 2 3 4)\n\n"
            "[Window]\nplace=10, 20\n");
  EXPECT_EQ(kept("Hours"), "40");
}

TEST_F(StoreTest, ReadsAFileWithTheLineEndsOfOtherSystems) {
  put(path, "[Settings]\r\nIncAmt = 1000 \r\nHours=\" 40 \"\r\n");
  EXPECT_EQ(kept("IncAmt"), "1000");
  EXPECT_EQ(kept("Hours"), " 40 ");
  EXPECT_NO_TROUBLE(opened());
}

TEST_F(StoreTest, ReadsAFileThatIsMarkedAsUtf8) {
  // QSettings takes the mark for a damaged line: a copy of the file is kept, and no setting is lost.
  put(path, "\xEF\xBB\xBF[Settings]\nHours=40\n");
  opened().write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(bytesOf(path), "[Settings]\nHours=40\nIncAmt=1000\n");
}

TEST_F(StoreTest, ReadsAListWithoutQuotesAsItsText) {
  put(path, "[Settings]\nIncAmt=1,000.00\n");
  EXPECT_EQ(kept("IncAmt"), "1,000.00");
}

/// Texts that an INI file has its troubles with.
rc::Gen<std::string> awkwardText() {
  const auto part =
      rc::gen::oneOf(rc::gen::elementOf(std::vector<std::string>{"", "_", "/", "%", "general", "@String(", "\\x",
                                                                 "\uFEFF", "\U0001f600"}),
                     rc::gen::map(rc::gen::elementOf(std::string("@\\\"\n\r\t ;#=,[]%_/ax09()\x7f") + '\0'),
                                  [](char c) { return std::string(1, c); }),
                     rc::gen::map(rc::gen::arbitrary<char>(), [](char c) { return std::string(1, c); }));
  return rc::gen::map(rc::gen::container<std::vector<std::string>>(part), [](const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& each : parts) text += each;
    return text;
  });
}

RC_GTEST_FIXTURE_PROP(StoreTest, GivesBackEveryTextOfEveryName, ()) {
  const std::string sectionName = *awkwardText();
  const std::string key = *awkwardText();
  const std::string text = *awkwardText();
  const std::string other = *awkwardText();
  Store store = opened();
  store.write("Other", "key", other);
  store.write(sectionName, key, "before");
  store.write(sectionName, key, text);
  const Store again = opened();
  RC_ASSERT(again.read(sectionName, key) == text);
  if (sectionName != "Other" || key != "key") RC_ASSERT(again.read("Other", "key") == other);
  RC_ASSERT(again.trouble().isEmpty());
}

TEST_F(StoreTest, TellsGeneralFromItsOtherSpellings) {
  Store store = opened();
  for (const char* name : {"General", "general", "GENERAL", "%General", ""}) store.write(name, name, name);
  for (const char* name : {"General", "general", "GENERAL", "%General", ""}) EXPECT_EQ(opened().read(name, name), name);
}

TEST_F(StoreTest, GivesBackMarksOfByteOrderAndWhatIsNoUtf8) {
  for (const char* text : {"P\xFFt", "\uFEFF", "\uFEFFx", "x\uFEFF", "\n\uFEFF", "\uFEFF\uFEFF"}) {
    opened().write(section::user, "UName", text);
    EXPECT_EQ(opened().read(section::user, "UName"), text);
  }
}

TEST_F(StoreTest, ReadsWhatQSettingsWrites) {
  for (const char* text :
       {"", "1000", " blank ", "a, b", "@x", "line\nline\r\n\t", "a \"quoted\" \\ text;", "\u00e9\u20ac\U0001f600",
        "\x01"
        "f"}) {
    QSettings(QString::fromStdString(path.string()), QSettings::IniFormat).setValue("Settings/key", QString(text));
    EXPECT_EQ(kept("key"), text);
  }
}

// --- Whose it is -----------------------------------------------------------------------------------------------------

TEST_F(StoreTest, IsTheUsersAloneWhateverTheMask) {
  path = folder / "config" / "Tallyfin99" / "Tallyfin99.ini";
  for (const mode_t mask : {0U, 0777U}) {
    const mode_t before = ::umask(mask);
    if (mask == 0) opened().write(section::user, "USSN", "000-00-0000");
    opened().write(section::user, "USSN", std::to_string(mask));
    ::umask(before);
    EXPECT_EQ(modeOf(path), 0600U);
    EXPECT_EQ(modeOf(path.parent_path()), 0700U);
    EXPECT_EQ(modeOf(folder / "config"), 0700U);
  }
}

TEST_F(StoreTest, MakesNothingThatOthersMayReadForAnInstant) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::umask(0);
    for (int i = 0; i < 300; ++i) opened().write(section::user, "USSN", std::to_string(i));
    ::_exit(0);
  }
  int status = -1;
  std::set<std::string> seen;
  while (::waitpid(child, &status, WNOHANG) == 0) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      std::error_code gone;
      const auto mode = entry.status(gone).permissions();
      if (gone || mode == fs::perms::none || !fs::exists(entry.path())) continue;
      EXPECT_EQ(mode & fs::perms(0077), fs::perms::none) << entry.path();
      seen.insert(entry.path().extension());
    }
  }
  EXPECT_EQ(status, 0);
  EXPECT_THAT(seen, testing::IsSupersetOf({".ini", ".lock"}));
  EXPECT_GE(seen.size(), 3U);  // and QSettings' new file
}

TEST_F(StoreTest, TakesAwayWhatOthersMayDo) {
  put(path, "[User]\nUSSN=1\n");
  fs::permissions(path, fs::perms(0666));
  opened();
  EXPECT_EQ(modeOf(path), 0600U);
}

TEST_F(StoreTest, IsWrittenThroughALink) {
  fs::create_directory(folder / "elsewhere");
  put(folder / "elsewhere" / "real.ini", "[Settings]\nHours=40\n");
  fs::create_symlink("elsewhere/real.ini", path);
  opened().write(section::settings, "IncAmt", "1000");
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(bytesOf(folder / "elsewhere" / "real.ini"), "[Settings]\nHours=40\nIncAmt=1000\n");
  EXPECT_EQ(names(), (std::vector<std::string>{"Tallyfin99.ini", "elsewhere"}));
}

TEST_F(StoreTest, TellsOfALinkThatLeadsNowhereAndLeavesIt) {
  fs::create_symlink("nothing.ini", path);
  Store store = opened();
  EXPECT_TROUBLE(store, "is a link that leads nowhere");
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
  EXPECT_EQ(names(), std::vector<std::string>{"Tallyfin99.ini"});
  EXPECT_TRUE(fs::is_symlink(path));
}

// --- What can't be used ----------------------------------------------------------------------------------------------

TEST_F(StoreTest, WorksOnWhereAFolderStandsInThePlace) {
  fs::create_directory(path);
  Store store = opened();
  EXPECT_TROUBLE(store, "is a folder");
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
}

TEST_F(StoreTest, WorksOnWithAReadOnlyFile) {
  put(path, "[Settings]\nHours=40\n");
  fs::permissions(path, fs::perms::owner_read);
  Store store = opened();
  EXPECT_TROUBLE(store, "can't be written");
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
  EXPECT_EQ(bytesOf(path), "[Settings]\nHours=40\n");
}

TEST_F(StoreTest, SavesWhatItCouldNotAsSoonAsItCan) {
  put(path, "[Settings]\nHours=40\n");
  fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
  Store store = opened();
  EXPECT_TROUBLE(store, "can't be written");
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
  EXPECT_EQ(bytesOf(path), "[Settings]\nHours=40\n");

  fs::permissions(folder, fs::perms::owner_all);
  store.write(section::settings, "State", "3");
  EXPECT_NO_TROUBLE(store);
  EXPECT_EQ(bytesOf(path), "[Settings]\nHours=40\nIncAmt=1000\nState=3\n");
}

TEST_F(StoreTest, TellsOfAFolderThatCantBeMade) {
  path = "/proc/nobody/Tallyfin99/Tallyfin99.ini";
  Store store = opened();
  EXPECT_TROUBLE(store, "can't be made");
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
}

TEST_F(StoreTest, LeavesTheOldFileWhereTheDiskIsFull) {
  put(path, "[Settings]\nHours=40\n");
  Store store = opened();
  // A limit on the length of files fails a write as a full disk does.
  struct rlimit limit {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlim_t before = std::exchange(limit.rlim_cur, 10);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  store.write(section::settings, "IncAmt", "1000");
  limit.rlim_cur = before;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  std::signal(SIGXFSZ, handler);

  EXPECT_TROUBLE(store, "can't be written");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
  EXPECT_EQ(bytesOf(path), "[Settings]\nHours=40\n");
  EXPECT_EQ(names(), std::vector<std::string>{"Tallyfin99.ini"});
}

TEST_F(StoreTest, DoesNotTouchAFileOfFiftyMegabytes) {
  put(path, "[Settings]\nHours=40\n");
  fs::resize_file(path, 50'000'000);
  Store store = opened();
  EXPECT_TROUBLE(store, "too large to be a settings file");
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
  EXPECT_EQ(fs::file_size(path), 50'000'000U);
}

TEST_F(StoreTest, HasNoRoomForAValueOfTwentyMegabytesButForTheOthers) {
  Store store = opened();
  const std::string endless(20'000'000, 'x');
  store.write(section::user, "UName", endless);
  EXPECT_TROUBLE(store, "no room");
  EXPECT_EQ(store.read(section::user, "UName"), endless);
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(bytesOf(path), "[Settings]\nIncAmt=1000\n");
}

TEST_F(StoreTest, IsNotHeldUpByAProgramThatHoldsTheFile) {
  put(path, "");
  const int other = ::open(folder.c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(::flock(other, LOCK_EX), 0);
  Store store = opened();
  EXPECT_TROUBLE(store, "held by another program");
  ::close(other);
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_NO_TROUBLE(store);
  EXPECT_EQ(kept("IncAmt"), "1000");
}

// --- Damage ----------------------------------------------------------------------------------------------------------

TEST_F(StoreTest, KeepsACopyOfADamagedFileAndGoesOnWithTheRest) {
  const std::string damaged = "[Settings]\nHours=40\nno setting at all\nSta";
  put(path, damaged);
  for (int start = 0; start < 2; ++start) {
    const Store store = opened();
    EXPECT_TROUBLE(store, "was damaged; what it held is kept as " + path.string() + ".damaged.");
  }
  EXPECT_EQ(bytesOf(path.string() + ".damaged"), damaged);
  EXPECT_EQ(modeOf(path.string() + ".damaged"), 0600U);
  Store store = opened();
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(bytesOf(path), "[Settings]\nHours=40\nIncAmt=1000\n");
  EXPECT_NO_TROUBLE(opened());
  EXPECT_EQ(names(), (std::vector<std::string>{"Tallyfin99.ini", "Tallyfin99.ini.damaged"}));
}

TEST_F(StoreTest, KeepsACopyOfBytesThatAreNoText) {
  for (const std::string value : {"P\xFFt", "\\xd83dx", "x\uFEFF"}) {
    const std::string content = "[Settings]\nHours=40\nUName=" + value + '\n';
    fs::remove(path.string() + ".damaged");
    put(path, content);
    opened().write(section::settings, "IncAmt", "1000");
    EXPECT_EQ(bytesOf(path.string() + ".damaged"), content);
    EXPECT_EQ(kept("Hours"), "40");
  }
}

TEST_F(StoreTest, KeepsACopyWhereANameWontLast) {
  // QSettings reads these names without a word and writes others in their places, or a line that it can't read again.
  for (const std::string other :
       {"=Pat\n", "[Other]\n=Pat\n", "[Other]\nUName/=Pat\n", "[Other]\n//=Pat\n", "[Other]\n/UName=Pat\n",
        "[]\nUName=Pat\n", "[////]\nUName=Pat\n", "[%general]\nUName=Pat\n", "[%GENERAL]\nUName=Pat\n"}) {
    const std::string content = other + "[Settings]\nHours=40\n";
    fs::remove(path.string() + ".damaged");
    put(path, content);
    opened().write(section::settings, "IncAmt", "1000");
    EXPECT_EQ(bytesOf(path.string() + ".damaged"), content);
    EXPECT_EQ(bytesOf(path), "[Settings]\nHours=40\nIncAmt=1000\n");
    EXPECT_NO_TROUBLE(opened());
  }
}

TEST_F(StoreTest, TakesNoNameThatLastsForDamage) {
  const std::string content = "[%General]\nUName=1\n\n[General]\nUName=2\n\n[Other]\na\\b=3\ngeneral=4\n";
  put(path, content);
  opened().write(section::settings, "IncAmt", "1000");
  EXPECT_THAT(names(), testing::ElementsAre("Tallyfin99.ini"));
  for (const char* part : {"[%General]\nUName=1\n", "[General]\nUName=2\n", "[Other]\na\\b=3\ngeneral=4\n"}) {
    EXPECT_THAT(bytesOf(path), HasSubstr(part));
  }
}

TEST_F(StoreTest, KeepsACopyOfAFileThatIsDamagedDuringTheRun) {
  put(path, "[Settings]\nHours=40\n");
  Store store = opened();
  put(path, "[Settings]\nHours=41\nhalf a li");
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(bytesOf(path.string() + ".damaged"), "[Settings]\nHours=41\nhalf a li");
  EXPECT_EQ(bytesOf(path), "[Settings]\nHours=41\nIncAmt=1000\n");
}

TEST_F(StoreTest, ReplacesNoEarlierCopy) {
  put(path.string() + ".damaged", "an earlier one");
  put(path, "[Settings]\nno setting at all\n");
  Store store = opened();
  EXPECT_TROUBLE(store, ".damaged2.");
  EXPECT_EQ(bytesOf(path.string() + ".damaged"), "an earlier one");
  EXPECT_EQ(bytesOf(path.string() + ".damaged2"), "[Settings]\nno setting at all\n");
}

TEST_F(StoreTest, DropsNothingThatItCantCopy) {
  for (const char* number : {"", "2", "3", "4", "5", "6", "7", "8", "9"})
    put(path.string() + ".damaged" + number, "old");
  put(path, "[Settings]\nno setting at all\n");
  Store store = opened();
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_TROUBLE(store, "is damaged, and what it holds can't be copied");
  EXPECT_EQ(store.read(section::settings, "IncAmt"), "1000");
  EXPECT_EQ(bytesOf(path), "[Settings]\nno setting at all\n");
}

RC_GTEST_FIXTURE_PROP(StoreTest, StartsAndWorksOnAnyBytes, (std::string bytes)) {
  fs::remove(path.string() + ".damaged");
  put(path, bytes);
  auto wanted = opened().all();
  opened().write(section::settings, "IncAmt", "1000");
  wanted["Settings"]["IncAmt"] = "1000";
  RC_ASSERT(opened().all() == wanted);
  if (fs::exists(path.string() + ".damaged")) RC_ASSERT(bytesOf(path.string() + ".damaged") == bytes);
}

TEST_F(StoreTest, StartsAndWorksOnMegabytesOfNoise) {
  std::string noise(4'000'000, '\0');
  unsigned seed = 1999;
  for (char& c : noise) c = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
  put(path, noise);
  opened().write(section::settings, "IncAmt", "1000");
  EXPECT_EQ(kept("IncAmt"), "1000");
  EXPECT_EQ(bytesOf(path.string() + ".damaged"), noise);
}

TEST_F(StoreTest, CleansUpAfterAKilledProgram) {
  const std::string killed = path.string();
  put(path, "[Settings]\nHours=40\n");
  put(killed + ".backup", "the user's own, named like QSettings' new file");
  fs::last_write_time(killed + ".backup", fs::last_write_time(path) - std::chrono::hours(1));
  put(killed + ".lock", "");
  put(killed + ".aBcDeF", "[Settings]\nHo");
  put(killed + ".mine", "");
  opened();
  EXPECT_EQ(names(), (std::vector<std::string>{"Tallyfin99.ini", "Tallyfin99.ini.backup", "Tallyfin99.ini.mine"}));
}

TEST_F(StoreTest, LeavesALockThatIsHeld) {
  put(path, "[Settings]\nHours=40\n");
  QLockFile lock(QString::fromStdString(path.string() + ".lock"));
  ASSERT_TRUE(lock.lock());
  Store store = opened();
  EXPECT_TROUBLE(store, "held by another program");
  EXPECT_EQ(store.read(section::settings, "Hours"), "40");
  lock.unlock();
  store.write(section::settings, "IncAmt", "1000");
  EXPECT_NO_TROUBLE(store);
}

// --- Two programs ----------------------------------------------------------------------------------------------------

TEST_F(StoreTest, LosesNothingOfAnotherProgram) {
  Store one = opened();
  Store two = opened();
  one.write(section::settings, "IncAmt", "1");
  two.write(section::settings, "Hours", "2");
  one.write(section::settings, "State", "3");
  EXPECT_EQ(bytesOf(path), "[Settings]\nHours=2\nIncAmt=1\nState=3\n");
  EXPECT_EQ(one.read(section::settings, "Hours"), "2");
}

TEST_F(StoreTest, WritesAValueThatAnotherProgramHasReplaced) {
  Store one = opened();
  Store two = opened();
  one.write(section::settings, "IncAmt", "1");
  two.write(section::settings, "IncAmt", "20");
  one.write(section::settings, "IncAmt", "1");
  EXPECT_EQ(kept("IncAmt"), "1");
}

TEST_F(StoreTest, LosesNothingOfAnotherProgramAtTheSameMoment) {
  constexpr int saves = 300;
  const auto saveAll = [this](const std::string& key) {
    Store store = opened();
    for (int i = 1; i <= saves; ++i) store.write(section::settings, key + std::to_string(i % 7), std::to_string(i));
    return store.trouble().isEmpty();
  };
  const pid_t child = ::fork();
  if (child == 0) ::_exit(saveAll("child") ? 0 : 1);
  EXPECT_TRUE(saveAll("parent"));
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  for (int i = saves - 6; i <= saves; ++i) {
    EXPECT_EQ(kept("child" + std::to_string(i % 7)), std::to_string(i));
    EXPECT_EQ(kept("parent" + std::to_string(i % 7)), std::to_string(i));
  }
}

}  // namespace

}  // namespace tallyfin::qt
