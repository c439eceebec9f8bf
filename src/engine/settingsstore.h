#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tallyfin {

/// The application key of all settings.
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

  /// The stored text; none where the key is missing. Throws FailedStatement where the store can't be read.
  virtual std::optional<std::string> read(std::string_view section, std::string_view key) const = 0;
  /// Stores a text before it returns. Where that fails, the stored text doesn't change, and it throws FailedStatement.
  virtual void write(std::string_view section, std::string_view key, const std::string& text) = 0;
  /// Removes a text. Fails like write().
  virtual void erase(std::string_view section, std::string_view key) = 0;
  /// All stored texts that can be read, without empty sections.
  virtual Sections all() const = 0;

  /// The stored text, or the default where the key is missing or can't be read.
  std::string get(std::string_view section, std::string_view key, std::string_view defaultText);
  /// Stores a text as write() does. Where get() returned a default because the key couldn't be read, storing that
  /// default fails until the key has been read: it would overwrite what the user entered.
  void save(std::string_view section, std::string_view key, const std::string& text);

  /// Begin and end of an act of the user. For a store that another program has locked, all statements of an act
  /// together wait once; outside an act each statement waits.
  virtual void beginAct() { acting_ = true; }
  void endAct() { acting_ = false; }

 protected:
  bool acting() const { return acting_; }

 private:
  bool acting_ = false;
  /// The defaults that get() returned for texts that couldn't be read, by section and key.
  std::map<std::pair<std::string, std::string>, std::string> unread_;
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
