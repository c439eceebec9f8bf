#pragma once

#include <filesystem>
#include <memory>

#include "engine/settingsstore.h"
#include "store/patience.h"

namespace tallyfin {

class Database;

/// The settings store in a file of the user: one SQLite table of texts by section and key.
///
/// A text is stored before write() returns, so a killed program loses none. A reading returns what the file holds at
/// that moment, also where another program wrote it. The file, and those that SQLite keeps beside it, are created
/// accessible by the user only.
///
/// The first write creates the file. Anything else at its path (a text, a folder, a damaged file, a database with
/// another schema) isn't changed: every reading and every write fails. Each call checks again. Where another program
/// has locked the store, the statements of an act together wait half a second; five seconds before the store has been
/// opened for the first time, because a closing program may have to wait for a slow disk.
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
  mutable std::shared_ptr<Database> database_;  ///< Null until the file is known to be a store.
};

}  // namespace tallyfin
