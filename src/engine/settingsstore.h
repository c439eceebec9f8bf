#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tallyfin {

/// The application key under which everything is kept.
inline constexpr std::string_view applicationKey = "Tallyfin99";

/// The sections of the store.
namespace section {
inline constexpr std::string_view settings = "Settings";    ///< The last entries of the main screen and its tools.
inline constexpr std::string_view stateInfo = "StateInfo";  ///< The state options.
inline constexpr std::string_view user = "User";            ///< Personal details.
}  // namespace section

/// The user's last entries between runs: texts by application, section and key. A value is written at once,
/// several together at the end of a SavedTogether.
class SettingsStore {
 public:
  using Section = std::map<std::string, std::string, std::less<>>;
  using Sections = std::map<std::string, Section, std::less<>>;

  virtual ~SettingsStore() = default;

  /// The stored text; none where the key is missing.
  virtual std::optional<std::string> read(std::string_view section, std::string_view key) const = 0;
  /// Stores a text at once. Where that is impossible the text still counts for this run.
  virtual void write(std::string_view section, std::string_view key, const std::string& text) = 0;
  virtual void erase(std::string_view section, std::string_view key) = 0;
  /// What is written from here to saveTogether() counts at once, but need not be stored before.
  virtual void putOffSaving() {}
  virtual void saveTogether() {}
  /// Everything that is stored; a section without keys doesn't stand there.
  virtual Sections all() const = 0;
};

/// A store for the life of the process.
class MemoryStore : public SettingsStore {
 public:
  std::optional<std::string> read(std::string_view section, std::string_view key) const override;
  void write(std::string_view section, std::string_view key, const std::string& text) override;
  void erase(std::string_view section, std::string_view key) override;
  Sections all() const override { return sections_; }

 private:
  Sections sections_;
};

/// Says where settings are kept from now on; the store must outlive its use.
void useSettingsStore(SettingsStore& store);

/// The stored text, or the default if the key is missing.
std::string getSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view defaultText);

/// Writes at once, or with others at the end of a SavedTogether.
void saveSetting(std::string_view application, std::string_view section, std::string_view key, const std::string& text);

/// While it lives, values are written as ever and stored together at its end, so that the disk is waited for once.
class SavedTogether {
 public:
  SavedTogether();
  ~SavedTogether();
  SavedTogether(const SavedTogether&) = delete;
  SavedTogether& operator=(const SavedTogether&) = delete;
};

/// One section of the program's own settings.
class SettingsSection {
 public:
  constexpr explicit SettingsSection(std::string_view name) : name_(name) {}

  std::string get(std::string_view key, std::string_view defaultText) const {
    return getSetting(applicationKey, name_, key, defaultText);
  }
  void save(std::string_view key, const std::string& text) const { saveSetting(applicationKey, name_, key, text); }

 private:
  std::string_view name_;
};
inline constexpr SettingsSection lastEntries{section::settings};
inline constexpr SettingsSection stateInfo{section::stateInfo};
inline constexpr SettingsSection user{section::user};

}  // namespace tallyfin
