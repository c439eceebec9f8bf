#include "library/names.h"

#include <algorithm>
#include <bit>

namespace tallyfin::library {

namespace {

/// A hash of the length and four of the letters, which has few collisions among the names of a list.
std::size_t hashOf(std::string_view name) {
  if (name.empty()) return 0;
  const auto letter = [&](std::size_t place) {
    return static_cast<std::size_t>(static_cast<unsigned char>(lowered(name[place])));
  };
  const std::size_t last = name.size() - 1;
  std::size_t hash = name.size();
  for (const std::size_t place : {std::size_t{0}, last / 2, last - last / 4, last}) hash = hash * 31 + letter(place);
  return hash ^ (hash >> 9U);
}

}  // namespace

bool sameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char one, char other) { return one == other || lowered(one) == lowered(other); });
}

Names::Names(const std::vector<Named>& all) : slots_(std::bit_ceil(2 * all.size())) {
  for (const Named& entry : all) {
    std::size_t slot = hashOf(entry.name);
    while (!slots_[slot % slots_.size()].name.empty()) ++slot;
    slots_[slot % slots_.size()] = entry;
  }
}

std::optional<int> Names::find(std::string_view name) const {
  for (std::size_t slot = hashOf(name);; ++slot) {
    const Named& entry = slots_[slot & (slots_.size() - 1)];
    if (entry.name.empty()) return std::nullopt;
    if (entry.name == name || sameName(entry.name, name)) return entry.number;
  }
}

}  // namespace tallyfin::library
