#pragma once

#include <sys/stat.h>

#include <QString>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "engine/settingsstore.h"

class QSettings;

namespace tallyfin::qt {

/// The settings store as an INI file of the user's own, mode 0600, written at once.
///
/// QSettings reads and writes it: under its lock it takes the file as it then stands, merges the change into it,
/// flushes a whole new file to the disk and puts it in the old one's place. A killed program leaves the old or the new
/// one, and two programs lose nothing of each other's. Comments and the order of lines don't outlive a save.
///
/// Around QSettings stands what it doesn't do: everything it makes is the user's alone from the first instant; programs
/// take turns, each waiting two seconds at the most; what a killed program left is removed; a damaged file is copied
/// before QSettings drops what it can't read. A file that can't be read or written stops nothing: what is saved then
/// counts for this run, and is tried again with the next change; trouble() says why in words for the user.
class Store : public SettingsStore {
 public:
  explicit Store(const QString& path);

  std::optional<std::string> read(std::string_view section, std::string_view key) const override;
  void write(std::string_view section, std::string_view key, const std::string& text) override;
  void erase(std::string_view section, std::string_view key) override;
  void putOffSaving() override { putOff_ = true; }
  void saveTogether() override;
  Sections all() const override { return known_.all(); }

  /// What keeps the settings from being kept, or what was found damaged; empty if nothing.
  QString trouble() const { return failure_.isEmpty() ? notice_ : failure_; }

  /// Whether the last change was kept.
  bool keeps() const { return failure_.isEmpty(); }

  /// Where the desktop program keeps its settings.
  static QString usualPath();

 private:
  using Text = std::optional<std::string>;

  void open();
  void change(std::string_view section, std::string_view key, const Text& text);
  void apply(std::string_view section, std::string_view key, const Text& text);
  void learn(const QSettings& file);
  void save();
  bool takenTurn(int folder);
  bool clearedAfterKilled() const;
  bool writable();
  void writeUnsaved();
  bool keptIfDamaged();
  bool unchangedOutside() const;
  QString folder() const;
  const char* obstacle();
  void refuse(const char* why);
  void fail(const char* what);

  QString path_;
  QString failure_;      ///< Why the last save didn't succeed.
  QString notice_;       ///< What was found when the file was read.
  struct stat seen_ {};  ///< The file as this run knows it.
  bool putOff_ = false;
  MemoryStore known_;
  std::map<std::pair<std::string, std::string>, Text> unsaved_;
};

}  // namespace tallyfin::qt
