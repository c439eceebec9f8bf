#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "batch/rows.h"

/// A whole file of paychecks.

namespace tallyfin::batch {

/// What a run reads from and writes to. Each is called by one thread at a time, and may throw to end the work.
struct Streams {
  BlockReader::Source source;
  /// Takes the rows that go out.
  std::function<void(std::string_view)> sink;
  /// Is told now and then how many rows are done.
  std::function<void(std::uint64_t rows)> progress;
  /// Takes what is to be known of a file that is worked all the same.
  std::function<void(const std::string&)> notice;
};

struct Choices {
  bool writeHeader = true;
  char delimiter = ',';
  unsigned jobs = 1;  ///< So many threads work the rows.
};

/// Works all rows of a source. Throws Trouble where it can't go on; the rows before that have been written.
/// The account's line is 0 where no row had a problem.
Account run(const Streams& streams, const Choices& choices);

}  // namespace tallyfin::batch
