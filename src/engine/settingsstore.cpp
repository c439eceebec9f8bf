#include "engine/settingsstore.h"

#include <utility>

#include "engine/failure.h"

namespace tallyfin {

std::string SettingsStore::get(std::string_view section, std::string_view key, std::string_view defaultText) {
  bool known = false;
  std::string text;
  unlessItFails([&] {
    std::optional<std::string> stored = read(section, key);
    known = true;
    if (stored) {
      text = *std::move(stored);
    } else {
      text = defaultText;
    }
  });
  if (!known) {
    text = defaultText;
    unread_.insert_or_assign({std::string(section), std::string(key)}, text);
  } else if (!unread_.empty()) {
    unread_.erase({std::string(section), std::string(key)});
  }
  return text;
}

void SettingsStore::save(std::string_view section, std::string_view key, const std::string& text) {
  const auto unread = unread_.find({std::string(section), std::string(key)});
  if (unread != unread_.end() && unread->second == text) throw FailedStatement{};
  write(section, key, text);
}

std::optional<std::string> MemoryStore::read(std::string_view section, std::string_view key) const {
  const auto keys = sections_.find(section);
  if (keys == sections_.end()) return std::nullopt;
  const auto entry = keys->second.find(key);
  if (entry == keys->second.end()) return std::nullopt;
  return entry->second;
}

void MemoryStore::write(std::string_view section, std::string_view key, const std::string& text) {
  sections_[std::string(section)][std::string(key)] = text;
}

void MemoryStore::erase(std::string_view section, std::string_view key) {
  const auto keys = sections_.find(section);
  if (keys == sections_.end()) return;
  const auto entry = keys->second.find(key);
  if (entry != keys->second.end()) keys->second.erase(entry);
  if (keys->second.empty()) sections_.erase(keys);
}

std::string getSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view defaultText) {
  if (application != applicationKey) return std::string(defaultText);
  return settingsStore->get(section, key, defaultText);
}

void saveSetting(std::string_view application, std::string_view section, std::string_view key,
                 const std::string& text) {
  if (application == applicationKey) settingsStore->save(section, key, text);
}

}  // namespace tallyfin
