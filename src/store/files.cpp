#include "store/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace tallyfin {

namespace fs = std::filesystem;

namespace {

constexpr std::array besides{"-journal", "-wal", "-shm"};

}  // namespace

std::string asUri(const fs::path& path) {
  constexpr std::string_view hex = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : path.string()) {
    const auto byte = static_cast<unsigned char>(c);
    uri += {'%', hex[byte / 16], hex[byte % 16]};  // all, because `?`, `#` and `//` have meanings
  }
  return uri;
}

bool changeUnderWay(const fs::path& path) {
  const auto beside = [&](const char* ending) { return FileMark::of(path.string() + ending).length > 0; };
  return beside("-journal") || beside("-wal");
}

bool onlyFilesBeside(const fs::path& path) {
  return std::all_of(besides.begin(), besides.end(), [&](const char* ending) {
    std::error_code none;
    const auto type = fs::symlink_status(path.string() + ending, none).type();
    return type == fs::file_type::regular || type == fs::file_type::not_found;
  });
}

bool mayBeDatabase(const fs::path& path) {
  std::error_code none;
  const auto size = fs::file_size(path, none);  // the largest number where the file doesn't exist any more
  return size <= largestFile && (size % pageSize == 0 || (size != 1 && changeUnderWay(path)));
}

void makeFile(const fs::path& path) {
  const mode_t before = ::umask(S_IRWXG | S_IRWXO);
  std::error_code failed;
  fs::create_directories(path.parent_path(), failed);
  const int made = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (made >= 0) ::close(made);
  ::umask(before);
}

void takeFromOthers(const fs::path& path) {
  std::error_code failed;
  fs::permissions(path, fs::perms::group_all | fs::perms::others_all, fs::perm_options::remove, failed);
}

FileMark FileMark::of(const std::string& path) {
  struct stat about {};
  if (::stat(path.c_str(), &about) != 0) return {};
  return {about.st_dev, about.st_ino, static_cast<std::uintmax_t>(about.st_size)};
}

}  // namespace tallyfin
