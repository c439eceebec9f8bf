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

/// The user's last entries between runs: texts by application, section and key.
class SettingsStore {
 public:
  using Section = std::map<std::string, std::string, std::less<>>;
  using Sections = std::map<std::string, Section, std::less<>>;

  virtual ~SettingsStore() = default;

  /// The stored text; none where the key is missing or can't be read.
  virtual std::optional<std::string> read(std::string_view section, std::string_view key) const = 0;
  /// Stores a text at once. Where that is impossible what was stored stays, and it is a failed statement.
  virtual void write(std::string_view section, std::string_view key, const std::string& text) = 0;
  /// Likewise.
  virtual void erase(std::string_view section, std::string_view key) = 0;
  /// Everything that is stored and can be read; a section without keys doesn't stand there.
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

/// Where settings are kept, while Services have said so.
inline SettingsStore* settingsStore = nullptr;

/// The stored text, or the default where there is none.
std::string getSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view defaultText);

/// Writes at once.
void saveSetting(std::string_view application, std::string_view section, std::string_view key, const std::string& text);

}  // namespace tallyfin
