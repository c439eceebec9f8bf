#pragma once

#include <string>
#include <string_view>
#include <utility>

/// The parts of a form's captions.

namespace tallyfin {

struct Caption {
  std::string number;  ///< The line's number or dash, "10.", "A." or "-"; empty where blanks stand in for it.
  std::string words;
};

/// A caption after its line number. One that doesn't begin with a number and blanks, or with blanks, has words alone.
Caption captionOf(std::string_view text);

/// The words on both sides of the gap, two blanks, into which a button belongs. Without a gap the second are empty.
std::pair<std::string, std::string> aroundGap(std::string_view words);

/// The words without padding: of a run of four or more blanks three stay, of dots at the end none.
std::string withoutPadding(std::string_view words);

/// The words with a little less padding: one blank of the first long run, or else the last dot. Words that have none
/// stay.
std::string withLessPadding(std::string_view words);

}  // namespace tallyfin
