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

/// Takes the rows that go out; may throw to end the work.
using Sink = std::function<void(std::string_view)>;

/// Told now and then how many rows are done.
using Onlooker = std::function<void(std::uint64_t rows)>;

struct Choices {
  bool writeHeader = true;
};

struct Account {
  std::uint64_t rows = 0;
  std::uint64_t problems = 0;  ///< Rows that had one.
};

/// Works all rows of a source. Throws Trouble where it can't go on; the rows before that have been written.
Account run(const CsvReader::Source& source, const Sink& sink, const Choices& choices, const Onlooker& onlooker);

}  // namespace tallyfin::batch
