#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "library/columns.h"
#include "library/names.h"

/// The choice that the text of a column means, as people and other programs write it.

namespace tallyfin::library {

/// The number of the entry that a text names, by a caption or a number; none where there is no such entry. For a flag
/// 0 or 1. Blanks at either end and letter case are ignored, and a whole number may have a point (2.0).
std::optional<int> entryOf(Column column, std::string_view text);

/// The same by number.
std::optional<int> entryOf(Column column, std::int64_t number);

/// The names of a column's entries, with their numbers: the captions of the list, and other names that payroll programs
/// use. Empty for a column that has numbers only.
std::vector<Named> namesOf(Column column);

/// A 16-bit number; none where the text isn't a number or is beyond its range.
std::optional<int> countOf(std::string_view text);

}  // namespace tallyfin::library
