#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "batch/rows.h"

/// A whole file of paychecks.

namespace tallyfin::batch {

/// Input and output of a run. Each function is called by one thread at a time, and may throw to end the work.
struct Streams {
  BlockReader::Source source;
  /// Writes rows.
  std::function<void(std::string_view)> sink;
  /// Called now and then with the number of rows done.
  std::function<void(std::uint64_t rows)> progress;
  /// Called with a warning about the file.
  std::function<void(const std::string&)> notice;
};

struct Choices {
  bool writeHeader = true;
  char delimiter = ',';
  unsigned jobs = 1;  ///< The number of threads.
};

/// Works all rows of a source. Throws Trouble on failure; the rows before that have been written.
/// The account's line is 0 where no row had a problem.
Account run(const Streams& streams, const Choices& choices);

}  // namespace tallyfin::batch
