#include "store/location.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

namespace {

/// The fake answer of the user database.
passwd* listed = nullptr;

}  // namespace

// Replaces the system's function.
passwd* getpwuid(uid_t /*user*/) { return listed; }

namespace tallyfin {
namespace {

namespace fs = std::filesystem;

class Location : public testing::Test {
 protected:
  Location() {
    std::string name = (fs::temp_directory_path() / "locationXXXXXX").string();
    home = ::mkdtemp(name.data());
    ::unsetenv("XDG_CONFIG_HOME");
    ::unsetenv("HOME");
    user.pw_dir = const_cast<char*>(home.c_str());
    listed = &user;
  }
  ~Location() override { fs::remove_all(home); }

  fs::path home;
  passwd user{};
};

TEST_F(Location, IsInTheHomeFolder) {
  ::setenv("HOME", "/home/pat", 1);
  EXPECT_EQ(usersStore(), "/home/pat/.config/Tallyfin99/Tallyfin99.sqlite");
}

TEST_F(Location, IsInTheFolderOfConfigurations) {
  ::setenv("HOME", "/home/pat", 1);
  ::setenv("XDG_CONFIG_HOME", "/configurations", 1);
  EXPECT_EQ(usersStore(), "/configurations/Tallyfin99/Tallyfin99.sqlite");
}

TEST_F(Location, IgnoresARelativePath) {
  ::setenv("HOME", "/home/pat", 1);
  for (const char* relative : {"", "configurations", "./x"}) {
    ::setenv("XDG_CONFIG_HOME", relative, 1);
    EXPECT_EQ(usersStore(), "/home/pat/.config/Tallyfin99/Tallyfin99.sqlite");
  }
}

TEST_F(Location, AsksTheListOfUsersWithoutAHome) {
  EXPECT_EQ(usersStore(), home / ".config/Tallyfin99/Tallyfin99.sqlite");
  for (const char* none : {"", "home"}) {
    ::setenv("HOME", none, 1);
    EXPECT_EQ(usersStore(), home / ".config/Tallyfin99/Tallyfin99.sqlite");
  }
  listed = nullptr;
  EXPECT_EQ(usersStore(), "/nonexistent/.config/Tallyfin99/Tallyfin99.sqlite");
}

TEST_F(Location, MakesTheFolderPrivate) {
  const fs::path folder = home / ".config" / "Tallyfin99";
  fs::create_directories(folder);
  fs::permissions(home / ".config", fs::perms::all);
  fs::permissions(folder, fs::perms::all);
  usersStore();
  EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
  EXPECT_EQ(fs::status(home / ".config").permissions(), fs::perms::all);
}

TEST_F(Location, DoesNotChangeAFolderOfSomeoneElse) {
  fs::create_directories(home / ".config");
  const fs::path file = home / ".config" / "Tallyfin99";
  std::ofstream(file) << "no folder";
  fs::permissions(file, fs::perms::all);
  usersStore();
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::all);
  if (::geteuid() != 0) return;
  fs::remove(file);
  fs::create_directories(file);
  EXPECT_EQ(::chown(file.c_str(), 65534, 65534), 0);
  fs::permissions(file, fs::perms::all);
  usersStore();
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::all);
}

}  // namespace
}  // namespace tallyfin
