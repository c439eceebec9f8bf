#include "controls/caption.h"

#include <algorithm>

namespace tallyfin {

namespace {

constexpr std::string_view dot = " .";
constexpr std::string_view longRun = "    ";

bool isIn(char c, char first, char last) { return c >= first && c <= last; }

/// The length of the number, letter or dash at the front of a text.
std::size_t numberLength(std::string_view text) {
  if (text.substr(0, 1) == "-") return 1;
  if (text.size() > 1 && isIn(text[0], 'A', 'Z') && text[1] == '.') return 2;
  std::size_t digits = 0;
  while (digits < text.size() && isIn(text[digits], '0', '9')) ++digits;
  return digits > 0 && text.substr(digits, 1) == "." ? digits + 1 : digits;
}

}  // namespace

Caption captionOf(std::string_view text) {
  const std::size_t number = numberLength(text);
  const std::size_t words = std::min(text.find_first_not_of(' ', number), text.size());
  if (words == number) return {"", std::string(text)};
  return {std::string(text.substr(0, number)), std::string(text.substr(words))};
}

std::pair<std::string, std::string> aroundGap(std::string_view words) {
  const std::size_t gap = words.find("  ");
  if (gap == std::string_view::npos) return {std::string(words), ""};
  return {std::string(words.substr(0, gap)), std::string(words.substr(gap + 2))};
}

std::string withLessPadding(std::string_view words) {
  std::string less(words);
  if (const std::size_t run = less.find(longRun); run != std::string::npos) {
    less.erase(run, 1);
  } else if (less.ends_with(dot)) {
    less.erase(less.size() - dot.size());
  }
  return less;
}

std::string withoutPadding(std::string_view words) {
  std::string bare(words);
  for (std::string less = withLessPadding(bare); less != bare; less = withLessPadding(bare)) bare = std::move(less);
  return bare;
}

}  // namespace tallyfin
