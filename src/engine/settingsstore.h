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
  /// Stores a text before it returns. Where it can't, what was stored stays and it throws FailedStatement.
  virtual void write(std::string_view section, std::string_view key, const std::string& text) = 0;
  /// Removes a text, under the same terms.
  virtual void erase(std::string_view section, std::string_view key) = 0;
  /// Everything that is stored and can be read; a section without keys is left out.
  virtual Sections all() const = 0;
};

/// A store in memory.
class MemoryStore : public SettingsStore {
 public:
  std::optional<std::string> read(std::string_view section, std::string_view key) const override;
  void write(std::string_view section, std::string_view key, const std::string& text) override;
  void erase(std::string_view section, std::string_view key) override;
  Sections all() const override { return sections_; }

 private:
  Sections sections_;
};

/// The store that Services have installed on this thread; null without them.
inline constinit thread_local SettingsStore* settingsStore = nullptr;

/// The stored text, or the default where there is none.
std::string getSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view defaultText);

/// Stores the text before it returns, or throws FailedStatement.
void saveSetting(std::string_view application, std::string_view section, std::string_view key, const std::string& text);

}  // namespace tallyfin
