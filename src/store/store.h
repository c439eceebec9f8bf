#pragma once

#include <filesystem>
#include <memory>

#include "engine/settingsstore.h"
#include "store/patience.h"

namespace tallyfin {

class Database;

/// The settings store as a file of the user's own: one SQLite table of texts by section and key.
///
/// A text is stored before write() returns, so that a killed program loses none, and a reading gives what the file
/// holds at that moment, whoever put it there. The file and what SQLite keeps beside it while it is open are the user's
/// alone from their first instant.
///
/// The file is made by the first write; until then no text is stored. What stands in its place and is no store of this
/// program's (a text, a folder, a damaged file, a database of another form) is left as it is: every reading and every
/// write fails. Each call looks anew. Another program that holds the store is waited for, half a second in all the
/// statements of an act together; five seconds before the store has been opened for the first time, since a program
/// that is being closed may have to wait for a slow disk.
class FileStore : public SettingsStore {
 public:
  explicit FileStore(const std::filesystem::path& path);
  FileStore(const std::filesystem::path& path, const Patience& patience);
  ~FileStore() override;

  std::optional<std::string> read(std::string_view section, std::string_view key) const override;
  void write(std::string_view section, std::string_view key, const std::string& text) override;
  void erase(std::string_view section, std::string_view key) override;
  Sections all() const override;
  void beginAct() override;

 private:
  enum class Opening { existing, making };

  std::shared_ptr<Database> open(Opening opening = Opening::existing) const;
  std::shared_ptr<Database> opened(const std::filesystem::path& path, Opening opening) const;

  std::filesystem::path path_;
  mutable Patience patience_;
  mutable std::shared_ptr<Database> database_;  ///< None until the file has been found to be a store.
};

}  // namespace tallyfin
