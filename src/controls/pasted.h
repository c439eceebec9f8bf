#pragma once

#include <string>
#include <string_view>

namespace tallyfin {

/// What a pasted or dropped text goes into.
struct PastedInto {
  bool amount = false;       ///< A box for an amount.
  bool replacesAll = false;  ///< The whole text of the box is replaced.
};

/// The text to insert for a pasted one, UTF-8: up to the first line break or tab, so that of a spreadsheet's selection
/// it is the first cell. In an amount, Unicode's blanks and minus sign become ASCII. Surrounding blanks are removed
/// where the whole text is replaced.
std::string cleanedPaste(std::string_view pasted, PastedInto into);

}  // namespace tallyfin
