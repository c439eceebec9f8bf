#pragma once

#include <string>
#include <string_view>
#include <vector>

/// JSON as texts, without blanks, in UTF-8. The JSON library writes the strings. Lists and objects are put together as
/// text: the library's own allocate memory in their destructors, where a failure would end the program.

namespace tallyfin {

/// A JSON string. Bytes that aren't valid UTF-8 are replaced.
std::string json(std::string_view text);

/// A JSON list. write() returns the JSON of an element.
template <class All, class Write>
std::string jsonList(const All& all, Write&& write) {
  std::string elements;
  for (const auto& each : all) elements += (elements.empty() ? "" : ",") + write(each);
  return "[" + elements + "]";
}

std::string json(const std::vector<std::string>& texts);
std::string json(const std::vector<std::vector<std::string>>& rows);

/// A JSON object that grows member by member.
class JsonObject {
 public:
  /// Adds a member; the value is JSON already.
  JsonObject& add(std::string_view name, std::string_view value);
  std::string text() const { return "{" + members_ + "}"; }

 private:
  std::string members_;
};

}  // namespace tallyfin
