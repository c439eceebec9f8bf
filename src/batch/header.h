#pragma once

#include <cstddef>
#include <optional>
#include <string>
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
  std::optional<std::string> take(const Row& row);

  std::size_t size() const { return size_; }
  /// The columns of the file that a row is worked from.
  const std::vector<Entry>& known() const { return known_; }

 private:
  std::size_t size_ = 0;
  std::vector<Entry> known_;
};

/// The columns that are added to the header, each behind a comma.
const std::string& resultColumns();

}  // namespace tallyfin::batch
