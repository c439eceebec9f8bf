#pragma once

#include <sys/stat.h>

#include <QString>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "engine/settingsstore.h"

namespace tallyfin::qt {

/// The settings store as an INI file of the user's own, mode 0600, written at once.
///
/// Every change takes the file as it then stands, under a lock, and puts a whole new one in its place, so that a killed
/// program leaves the old or the new one and two programs lose nothing of each other's. A file that can't be read or
/// written stops nothing: what is saved then counts for this run, and is tried again with the next change; trouble()
/// says why in words for the user. Nothing is flushed to the disk before the end of the run: a flush takes longer than
/// all of a calculation's saves, and what a killed program wrote stands without it.
class Store : public SettingsStore {
 public:
  explicit Store(const QString& path);
  ~Store() override;
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  std::optional<std::string> read(std::string_view section, std::string_view key) const override;
  void write(std::string_view section, std::string_view key, const std::string& text) override;
  void erase(std::string_view section, std::string_view key) override;
  Sections all() const override { return known_.all(); }

  /// What keeps the settings from being kept, or what was found damaged; empty if nothing.
  QString trouble() const;

  /// Where the desktop program keeps its settings.
  static QString usualPath();

 private:
  class OpenFile;

  void open();
  void change(std::string_view section, std::string_view key, const std::optional<std::string>& text);
  void apply(std::string_view section, std::string_view key, const std::optional<std::string>& text);
  void learn(std::string_view content);
  void save();
  std::optional<OpenFile> openLocked();
  static std::optional<std::string> contentOf(const OpenFile& file);
  bool keptDamaged(const std::string& content);
  bool unchangedOutside() const;
  bool writableFolder() const;
  std::string newPath() const;
  void refuse(const char* why);
  void fail(const char* what);

  std::string path_;
  bool refused_ = false;  ///< The file isn't touched at all.
  bool held_ = false;     ///< Another program held the file when this one wanted it last.
  bool written_ = false;
  std::string failure_;  ///< Why the last save didn't succeed.
  std::string notice_;   ///< What was found when the file was read.
  struct stat seen_ {};  ///< The file as this run knows it.
  MemoryStore known_;
  std::map<std::pair<std::string, std::string>, std::optional<std::string>> unsaved_;
};

}  // namespace tallyfin::qt
