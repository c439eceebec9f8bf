#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/csv.h"
#include "library/columns.h"

/// The header of a file: the positions of the columns in its rows.

namespace tallyfin::batch {

class Header {
 public:
  struct Entry {
    library::Column column;
    std::size_t place;  ///< In a row, from 0.
  };

  /// Reads a header row. Returns the reason where it is refused.
  std::optional<std::string> take(const CsvRow& row, char delimiter);

  std::size_t size() const { return size_; }
  /// The columns of the file that are columns of a paycheck.
  const std::vector<Entry>& known() const { return known_; }
  /// A warning about missing columns; empty for none.
  std::string lacks() const;

 private:
  bool has(library::Column column) const;

  std::size_t size_ = 0;  // mutation: 0 -> 1: written before it is read
  std::vector<Entry> known_;
};

/// The format of a file that isn't CSV text, by its first bytes: compressed, a spreadsheet format, UTF-16; none for
/// anything else.
std::optional<std::string> otherFormat(std::string_view bytes);

}  // namespace tallyfin::batch
