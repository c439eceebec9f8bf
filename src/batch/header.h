#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/csv.h"
#include "library/columns.h"

/// The header of a file: which column is where in its rows.

namespace tallyfin::batch {

class Header {
 public:
  struct Entry {
    library::Column column;
    std::size_t place;  ///< In a row, from 0.
  };

  /// Reads a header row; returns why it is refused, if it is.
  std::optional<std::string> take(const Row& row, char delimiter);

  std::size_t size() const { return size_; }
  /// The columns of the file that a row is worked from.
  const std::vector<Entry>& known() const { return known_; }
  /// What the file lacks, though it is worked; empty for nothing.
  std::string lacks() const;

 private:
  bool has(library::Column column) const;

  std::size_t size_ = 0;  // mutation: 0 -> 1: written before it is read
  std::vector<Entry> known_;
};

/// What the beginning of a file looks like that isn't CSV text: compressed, a spreadsheet's own format, UTF-16; none
/// where it looks like none of these.
std::optional<std::string> otherFormat(std::string_view bytes);

/// Bytes as they may be shown on a terminal: in quotes, what isn't printable ASCII escaped, a long text cut.
std::string printable(std::string_view bytes);

}  // namespace tallyfin::batch
