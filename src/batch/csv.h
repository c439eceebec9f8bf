#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// A reader of CSV (RFC 4180): cells are separated by commas or another delimiter; a cell in double quotes may contain
/// delimiters, line breaks and doubled quotes; rows end in LF or CRLF. The bytes of a row are kept, because they are
/// written unchanged.

namespace tallyfin::batch {

/// One cell of a row.
struct Cell {
  std::string_view raw;  ///< With its quotes.
  bool quoted = false;

  /// The text of the cell without its quotes. Uses `storage` where the text contains a quote.
  std::string_view text(std::string& storage) const;
};

/// One row, valid as long as its block.
struct CsvRow {
  std::string_view bytes;   ///< Without the line's end.
  std::string_view ending;  ///< "\n", "\r\n", or nothing at the end of a file that doesn't end its last line.
  std::vector<Cell> cells;  ///< None for an empty line.
  // mutation: 0 -> 1: written before it is read
  std::size_t line = 0;  ///< The line in its block in which the row begins, from 0.
};

/// Some whole rows of a file.
struct Block {
  std::string bytes;
  /// The reason why nothing can be read after these rows; null for none.
  const char* trouble = nullptr;
  // mutation: 0 -> 1: written before it is read
  std::size_t troubleLine = 0;  ///< The line of that, counted from the beginning of the block, from 0.
};

/// Reads a stream in blocks of whole rows. Memory is bounded by the size of one reading, or of one row if that is
/// longer.
class BlockReader {
 public:
  /// Reads up to `size` bytes into `place`; returns their number, 0 at the end.
  using Source = std::function<std::size_t(char* place, std::size_t size)>;

  /// A longer row is reported as a quote that isn't closed.
  static constexpr std::size_t longestRow = std::size_t{16} << 20U;  // mutation: 16 -> 17: the limit is chosen freely

  explicit BlockReader(Source source, char delimiter = ',') : source_(std::move(source)), delimiter_(delimiter) {}

  /// Reads until there is at least one whole row. False at the end, and after a trouble.
  bool next(Block& block);

  /// The first bytes of the stream.
  const std::string& beginning() const { return beginning_; }

 private:
  /// Appends one more reading to the bytes of a block.
  void readMore(std::string& bytes);
  void skipByteOrderMark(std::string& bytes);
  /// Searches the bytes from `seen_` on for the end of the last whole row.
  void findRows(std::string_view bytes);
  bool skipQuoted(std::string_view bytes);
  void stop(Block& block, const char* reason);

  Source source_;
  char delimiter_;
  std::string beginning_;
  std::string rest_;  ///< The beginning of a row that isn't complete in the last block.
  bool started_ = false;
  bool finished_ = false;

  // Of the block that is being read:
  // mutation: 0 -> 1: written before it is read
  std::size_t seen_ = 0;  ///< The number of bytes that have been searched.
  // mutation: 0 -> 1: written before it is read
  std::size_t rowsEnd_ = 0;  ///< The end of its last whole row.
  bool inQuotes_ = false;    ///< Whether a quoted cell is open at `seen_`.
  // mutation: 0 -> 1: written before it is read
  std::size_t quote_ = 0;  ///< The beginning of that cell.
};

/// Splits a block into its rows.
class RowCutter {
 public:
  /// The block must outlive this, and gets one byte more at its end.
  explicit RowCutter(Block& block, char delimiter = ',');

  /// The next row; false at the end.
  bool next(CsvRow& row);

  /// The number of lines so far.
  std::size_t lines() const { return line_; }

 private:
  const char* at_;
  const char* end_;
  char delimiter_;
  std::size_t line_ = 0;
};

}  // namespace tallyfin::batch
