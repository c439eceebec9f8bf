#include "script/tokenizer.h"

#include <nlohmann/json.hpp>

namespace tallyfin::script {

namespace {

constexpr std::string_view blanks = " \t\r";

/// The length of the quoted word at the beginning of a text; npos where it isn't closed.
std::size_t quotedLength(std::string_view text) {
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '"') return i + 1;
    if (text[i] == '\\') ++i;
  }
  return std::string_view::npos;
}

}  // namespace

std::optional<std::vector<Word>> wordsOf(std::string_view line) {
  std::vector<Word> words;
  for (;;) {
    const auto start = line.find_first_not_of(blanks);
    if (start == std::string_view::npos) return words;
    line.remove_prefix(start);
    const bool quoted = line.front() == '"';
    const auto length = quoted ? quotedLength(line) : line.find_first_of(blanks);
    if (quoted && length == std::string_view::npos) return std::nullopt;
    const std::string_view word = line.substr(0, length);
    line.remove_prefix(word.size());
    if (!quoted) {
      words.push_back({std::string(word), false});
      continue;
    }
    const auto text = nlohmann::json::parse(word, nullptr, false);
    const bool ends = line.empty() || blanks.find(line.front()) != std::string_view::npos;
    if (!text.is_string() || !ends) return std::nullopt;
    words.push_back({text.get<std::string>(), true});
  }
}

}  // namespace tallyfin::script
