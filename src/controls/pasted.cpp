#include "controls/pasted.h"

#include <algorithm>
#include <array>

namespace tallyfin {

namespace {

// The web app has the same lists (src/web/page/paste.js); tests/controls/data/pasted.json is held against both.
constexpr std::array<std::string_view, 5> cellEnds{"\t", "\n", "\r", "\u2028", "\u2029"};
constexpr std::array<std::string_view, 21> blanks{" ",      "\v",     "\f",     "\u00A0", "\u1680", "\u2000", "\u2001",
                                                  "\u2002", "\u2003", "\u2004", "\u2005", "\u2006", "\u2007", "\u2008",
                                                  "\u2009", "\u200A", "\u200B", "\u202F", "\u205F", "\u3000", "\uFEFF"};
constexpr std::string_view minus = "\u2212";

/// The length of the blank for which the test holds; 0 where there is none.
template <class Test>
std::size_t lengthOfBlank(Test test) {
  const auto* found = std::find_if(blanks.begin(), blanks.end(), test);
  return found == blanks.end() ? 0 : found->size();
}

std::size_t blankAtStart(std::string_view text) {
  return lengthOfBlank([&](std::string_view blank) { return text.starts_with(blank); });
}

std::string_view trimmed(std::string_view text) {
  while (const std::size_t length = blankAtStart(text)) text.remove_prefix(length);
  const auto atEnd = [&](std::string_view blank) { return text.ends_with(blank); };
  while (const std::size_t length = lengthOfBlank(atEnd)) text.remove_suffix(length);
  return text;
}

std::string plainAmount(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    std::size_t length = 1;
    if (const std::size_t blank = blankAtStart(text)) {
      plain += ' ';
      length = blank;
    } else if (text.starts_with(minus)) {
      plain += '-';
      length = minus.size();
    } else {
      plain += text.front();
    }
    text.remove_prefix(length);
  }
  return plain;
}

}  // namespace

std::string cleanedPaste(std::string_view pasted, PastedInto into) {
  for (const std::string_view end : cellEnds) pasted = pasted.substr(0, pasted.find(end));
  if (into.replacesAll) pasted = trimmed(pasted);
  return into.amount ? plainAmount(pasted) : std::string(pasted);
}

}  // namespace tallyfin
