#include "store/location.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "store/files.h"

namespace tallyfin {

namespace fs = std::filesystem;

namespace {

/// The folder in an environment variable; empty where there is none.
fs::path folderOf(const char* variable) {
  const char* const value = std::getenv(variable);
  const fs::path path = value == nullptr ? "" : value;
  return path.is_absolute() ? path : fs::path();
}

fs::path homeFolder() {
  if (fs::path home = folderOf("HOME"); !home.empty()) return home;
  const passwd* const user = ::getpwuid(::getuid());
  return user == nullptr ? "/nonexistent" : user->pw_dir;  // the system's home of a user without one
}

}  // namespace

fs::path usersStore() {
  const fs::path configuration = folderOf("XDG_CONFIG_HOME");
  const fs::path folder = (configuration.empty() ? homeFolder() / ".config" : configuration) / "Tallyfin99";
  struct stat about {};
  if (::stat(folder.c_str(), &about) == 0 && S_ISDIR(about.st_mode) && about.st_uid == ::geteuid()) {
    takeFromOthers(folder);
  }
  return folder / "Tallyfin99.sqlite";
}

}  // namespace tallyfin
