#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Reading CSV as RFC 4180 writes it: cells divided by commas, or by another character, a cell in double quotes may
/// hold such characters, line breaks and doubled quotes, rows end in LF or CRLF. The bytes of a row are kept as they
/// came in, because they go out unchanged.

namespace tallyfin::batch {

/// One cell as it stands in its row.
struct Cell {
  std::string_view raw;  ///< With its quotes.
  bool quoted = false;

  /// What the cell holds, without its quotes. It is put together in `storage` where a quote stands within it.
  std::string_view text(std::string& storage) const;
};

/// One row, valid as long as its block.
struct Row {
  std::string_view bytes;   ///< Without the line's end.
  std::string_view ending;  ///< "\n", "\r\n", or nothing at the end of a file that doesn't end its last line.
  std::vector<Cell> cells;  ///< None for an empty line.
  // mutation: 0 -> 1: written before it is read
  std::size_t line = 0;  ///< Where the row begins in its block, from 0.
};

/// Some whole rows of a file.
struct Block {
  std::string bytes;
  /// Why nothing can be read behind these rows; null where something can.
  const char* trouble = nullptr;
  // mutation: 0 -> 1: written before it is read
  std::size_t troubleLine = 0;  ///< Where that is, counted from the beginning of the block, from 0.
};

/// Reads a stream in blocks of whole rows. Memory is bounded: it holds what one reading gives, or one row where that is
/// longer.
class BlockReader {
 public:
  /// Reads up to `size` bytes into `place`; returns their number, 0 at the end.
  using Source = std::function<std::size_t(char* place, std::size_t size)>;

  /// A row longer than this is taken for a quote that somebody forgot to close.
  static constexpr std::size_t longestRow = std::size_t{16} << 20U;  // mutation: 16 -> 17: the limit is chosen freely

  explicit BlockReader(Source source, char delimiter = ',') : source_(std::move(source)), delimiter_(delimiter) {}

  /// Reads until there is at least one whole row. False at the end, and behind a trouble.
  bool next(Block& block);

  /// The first bytes of the stream.
  const std::string& beginning() const { return beginning_; }

 private:
  /// Reads once more behind the bytes of a block.
  void readMore(std::string& bytes);
  void skipByteOrderMark(std::string& bytes);
  /// Looks for the end of the last whole row in the bytes that haven't been looked at.
  void findRows(std::string_view bytes);
  bool skipQuoted(std::string_view bytes);
  void stop(Block& block, const char* reason);

  Source source_;
  char delimiter_;
  std::string beginning_;
  std::string rest_;  ///< The beginning of a row that the last block didn't end.
  bool started_ = false;
  bool finished_ = false;

  // Of the block that is being read:
  // mutation: 0 -> 1: written before it is read
  std::size_t seen_ = 0;  ///< How much of it has been looked at.
  // mutation: 0 -> 1: written before it is read
  std::size_t rowsEnd_ = 0;  ///< Where its last whole row ends.
  bool inQuotes_ = false;    ///< Whether a quoted cell is open behind what has been looked at.
  // mutation: 0 -> 1: written before it is read
  std::size_t quote_ = 0;  ///< Where that cell begins.
};

/// Cuts a block into its rows.
class RowCutter {
 public:
  /// The block must outlive the cutter, and gets a byte more at its end.
  explicit RowCutter(Block& block, char delimiter = ',');

  /// The next row; false at the end.
  bool next(Row& row);

  /// How many lines have been cut.
  std::size_t lines() const { return line_; }

 private:
  const char* at_;
  const char* end_;
  char delimiter_;
  std::size_t line_ = 0;
};

}  // namespace tallyfin::batch
