#pragma once

#include <QSettings>
#include <QString>
#include <optional>
#include <string>

#include "engine/settingsstore.h"

namespace tallyfin::qt {

/// The settings store as an INI file of the user's own, mode 0600, written at once.
///
/// A file that can't be read or written stops nothing: what is saved then counts for this run only, and trouble() says
/// why in words for the user.
class Store : public SettingsStore {
 public:
  explicit Store(const QString& path);

  std::optional<std::string> read(std::string_view section, std::string_view key) const override;
  void write(std::string_view section, std::string_view key, const std::string& text) override;
  void erase(std::string_view section, std::string_view key) override;
  Sections all() const override;

  /// What keeps the settings from being kept; empty if nothing does.
  QString trouble() const;

  /// Where the desktop program keeps its settings.
  static QString usualPath();

 private:
  void save();

  QString path_;
  QString refusal_;  ///< Why the file isn't touched at all.
  /// What the file holds as this run knows it; the file is read once and written at every change.
  MemoryStore known_;
  std::optional<QSettings> file_;
};

}  // namespace tallyfin::qt
