#include "engine/settingsstore.h"

#include <utility>

namespace tallyfin {

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
  auto stored = settingsStore->read(section, key);
  return stored ? *std::move(stored) : std::string(defaultText);
}

void saveSetting(std::string_view application, std::string_view section, std::string_view key,
                 const std::string& text) {
  if (application == applicationKey) settingsStore->write(section, key, text);
}

}  // namespace tallyfin
