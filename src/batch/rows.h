#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "batch/csv.h"
#include "batch/header.h"
#include "library/paycheck.h"

/// The rows of a file, worked block by block in one thread.

namespace tallyfin::batch {

/// Ends the work, with a message of one line for the user.
class Trouble : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Counts of the rows that were worked.
struct Account {
  std::uint64_t rows = 0;
  std::uint64_t problems = 0;    ///< Rows with a problem.
  std::size_t firstProblem = 0;  ///< The line of the first of them; 0 for none.
};

/// The beginning of a file.
struct Beginning {
  Header header;
  std::string out;     ///< The header with the columns of the results, without the line end.
  std::string ending;  ///< The line end of the header.
  // mutation: 0 -> 1: written before it is read
  std::size_t lines = 0;  ///< The number of lines of the header.
  Block rest;             ///< The rows that were read with it.
};

/// Reads the header of a file. Throws Trouble where the file can't be worked.
Beginning readBeginning(BlockReader& reader, char delimiter);

/// The text of a block's rows with their results.
struct Worked {
  std::string out;
  Account account;        ///< Its line counts from the beginning of the block, from 0.
  std::size_t lines = 0;  // mutation: 0 -> 1: written before it is read
};

/// Works the rows of blocks. The header and the line end must outlive it.
class RowWorker {
 public:
  RowWorker(const Header& header, const std::string& ending, char delimiter)
      : header_(header), ending_(ending), delimiter_(delimiter) {}

  /// The result is valid until the next call.
  const Worked& work(Block& block);

 private:
  void workRow();
  bool hasSurplus(std::size_t taken);
  void workCells();
  void writeResults();
  void writeNoResults() { worked_.out.append(library::resultCount + 1, delimiter_); }
  void writeProblem(std::string_view problem);

  const Header& header_;
  const std::string& ending_;  ///< For a last row without a line end.
  char delimiter_;
  Worked worked_;
  CsvRow row_;
  std::string storage_;
  library::Paycheck paycheck_;
};

/// The sum of a file's blocks, added in their order.
class Tally {
 public:
  /// The line that the first block begins in, from 1.
  explicit Tally(std::size_t line) : line_(line) {}

  /// Throws Trouble where nothing can be read after the block.
  void add(const Worked& worked, const Block& block);

  /// Its line is 0 where no row had a problem.
  Account account() const { return account_.problems > 0 ? account_ : Account{account_.rows}; }
  std::uint64_t rows() const { return account_.rows; }

 private:
  Account account_;
  std::size_t line_;  ///< The first line of the next block.
};

/// The exception that ends the work at a block, whose first line is given.
Trouble troubleIn(const Block& block, std::size_t line);

/// Writes a cell, in quotes where it needs them.
void appendCell(std::string& out, std::string_view text, char delimiter);

}  // namespace tallyfin::batch
