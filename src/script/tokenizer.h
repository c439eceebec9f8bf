#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The tokenizer of the script protocol.

namespace tallyfin::script {

/// A word of a command line.
struct Word {
  std::string text;
  bool quoted = false;  ///< It was a JSON string.
};

/// The words of a line; none where a quoted word isn't a JSON string.
std::optional<std::vector<Word>> wordsOf(std::string_view line);

}  // namespace tallyfin::script
