#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// How a line of the script protocol is cut into words.

namespace tallyfin::script {

/// A word of a command line.
struct Word {
  std::string text;
  bool quoted = false;  ///< It stood as a JSON string.
};

/// The words of a line; none where a quoted one is no JSON string.
std::optional<std::vector<Word>> wordsOf(std::string_view line);

}  // namespace tallyfin::script
