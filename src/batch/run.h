#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "batch/csv.h"

/// A whole file of paychecks.

namespace tallyfin::batch {

/// Ends the work; its text is the one line on standard error.
class Trouble : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

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

struct Account {
  std::uint64_t rows = 0;
  std::uint64_t problems = 0;    ///< Rows that had one.
  std::size_t firstProblem = 0;  ///< The line of the first of them; 0 for none.
};

/// Works all rows of a source. Throws Trouble where it can't go on; the rows before that have been written.
Account run(const Streams& streams, const Choices& choices);

/// Writes a cell, in quotes where it needs them.
void appendCell(std::string& out, std::string_view text, char delimiter);

}  // namespace tallyfin::batch
