#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

/// The file of a store, and the files that SQLite keeps beside it.

namespace tallyfin {

inline constexpr std::uintmax_t pageSize = 4096;
inline constexpr std::uintmax_t largestFile = 16'384 * pageSize;

/// The path as a URI, to which options can be added.
std::string asUri(const std::filesystem::path& path);

/// Whether there is a journal or log beside the file: a program is writing, or was killed while it did. SQLite
/// completes or rolls back that change at the next opening; until then the file alone isn't the whole store.
bool changeUnderWay(const std::filesystem::path& path);

/// Whether journal, log and index, where they exist, are regular files: SQLite would block on a pipe.
bool onlyFilesBeside(const std::filesystem::path& path);

/// Whether the length is that of a store: whole pages, or any length except 1 during a change. Any other file was
/// truncated, which SQLite may not detect, or isn't a store: SQLite treats a file of one byte as an empty database.
bool mayBeDatabase(const std::filesystem::path& path);

/// Creates the file and its missing folders, accessible by the user only. An existing file, or a dangling link, isn't
/// changed.
void makeFile(const std::filesystem::path& path);

/// Removes all permissions of others from the file; SQLite gives the files beside it the same mode.
void takeFromOthers(const std::filesystem::path& path);

/// Identity and length of the file of a name; all zero where there is none.
struct FileMark {
  static FileMark of(const std::string& path);
  bool sameFile(const FileMark& other) const { return device == other.device && number == other.number; }
  bool exists() const { return number != 0; }

  dev_t device = 0;
  ino_t number = 0;
  std::uintmax_t length = 0;
};

}  // namespace tallyfin
