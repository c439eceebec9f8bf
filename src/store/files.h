#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

/// The file of a store, and what SQLite keeps beside it, as the system sees them.

namespace tallyfin {

inline constexpr std::uintmax_t pageSize = 4096;
inline constexpr std::uintmax_t largestFile = 16'384 * pageSize;

/// The path as a URI, to which options can be added.
std::string asUri(const std::filesystem::path& path);

/// Whether a journal or log stands beside the file: a program is writing, or was ended while it did. SQLite completes
/// or undoes that change at the next opening; until then the file alone doesn't say what is stored.
bool changeUnderWay(const std::filesystem::path& path);

/// Whether all that stands under the names of journal, log and index is files: SQLite would wait for a pipe.
bool onlyFilesBeside(const std::filesystem::path& path);

/// Whether the length is that of a store: whole pages, or any length but 1 while a change is under way. Any other file
/// was cut off, which SQLite may not notice, or isn't a store: SQLite takes one byte for an empty database.
bool mayBeDatabase(const std::filesystem::path& path);

/// Creates the file, and the folders that it lacks, for the user alone. What is there already stays, even a link that
/// leads nowhere.
void makeFile(const std::filesystem::path& path);

/// Removes all permissions of others from the file; SQLite gives the files beside it the same mode.
void takeFromOthers(const std::filesystem::path& path);

/// Which file stands under a name, and how long it is; all zero where there is none.
struct FileMark {
  static FileMark of(const std::string& path);
  bool sameFile(const FileMark& other) const { return device == other.device && number == other.number; }
  bool exists() const { return number != 0; }

  dev_t device = 0;
  ino_t number = 0;
  std::uintmax_t length = 0;
};

}  // namespace tallyfin
