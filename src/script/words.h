#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// How a line of the script protocol is cut into words, and how texts are written as JSON.

namespace tallyfin::script {

/// A word of a command line.
struct Word {
  std::string text;
  bool quoted = false;  ///< It stood as a JSON string.
};

/// The words of a line; none where a quoted one is no JSON string.
std::optional<std::vector<Word>> wordsOf(std::string_view line);

/// A text as a JSON string, without blanks, beyond ASCII as UTF-8.
std::string json(std::string_view text);
std::string json(const std::vector<std::string>& texts);
std::string json(const std::vector<std::vector<std::string>>& rows);

}  // namespace tallyfin::script
