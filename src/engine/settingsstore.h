#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

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

  /// The stored text; none where the key is missing. Where it can't be told, because there is a store that can't be
  /// read, it throws FailedStatement.
  virtual std::optional<std::string> read(std::string_view section, std::string_view key) const = 0;
  /// Stores a text before it returns. Where it can't, what was stored stays and it throws FailedStatement.
  virtual void write(std::string_view section, std::string_view key, const std::string& text) = 0;
  /// Removes a text, under the same terms.
  virtual void erase(std::string_view section, std::string_view key) = 0;
  /// Everything that is stored and can be read; a section without keys is left out.
  virtual Sections all() const = 0;

  /// The stored text, or the default where the key is missing or can't be read.
  std::string get(std::string_view section, std::string_view key, std::string_view defaultText);
  /// Stores a text as write() does. A default that was given in place of a text that couldn't be read isn't what the
  /// user entered: until the key has been read, storing just that default fails.
  void save(std::string_view section, std::string_view key, const std::string& text);

  /// An act of the user lasts from beginAct() to endAct(): a store that another program holds is waited for once in all
  /// statements of the act together. Without an act each statement waits for itself.
  virtual void beginAct() { acting_ = true; }
  void endAct() { acting_ = false; }

 protected:
  bool acting() const { return acting_; }

 private:
  bool acting_ = false;
  /// The defaults given in place of texts that couldn't be read, by section and key.
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
