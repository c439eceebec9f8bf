#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

/// Names of entries, found in any letter case.

namespace tallyfin::library {

/// A letter of ASCII in lower case; any other character as it is.
constexpr char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The text without the blanks (space, tab) at both ends.
constexpr std::string_view trimmed(std::string_view text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

/// Whether two texts are equal except for letter case.
bool sameName(std::string_view a, std::string_view b);

/// A name and the number that it stands for.
struct Named {
  std::string_view name;  ///< The text must outlive this.
  int number = 0;
};

/// Finds the number of a name in constant time: a hash table.
class Names {
 public:
  explicit Names(const std::vector<Named>& all);

  std::optional<int> find(std::string_view name) const;

 private:
  std::vector<Named>
      slots_;  ///< By hash; an empty name is a free slot. The size is a power of two, and half of the slots are free.
};

}  // namespace tallyfin::library
