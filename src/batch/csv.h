#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Reading CSV as RFC 4180 writes it: cells divided by commas, a cell in double quotes may hold commas, line breaks and
/// doubled quotes, rows end in LF or CRLF. The bytes of a row are kept as they came in, because they go out unchanged.

namespace tallyfin::batch {

/// One cell as it stands in its row.
struct Cell {
  std::string_view raw;  ///< With its quotes.
  bool quoted = false;

  /// What the cell holds, without its quotes. It is put together in `storage` where a quote stands within it.
  std::string_view text(std::string& storage) const;
};

/// One row, valid until the next one is asked for.
struct Row {
  std::string_view bytes;   ///< Without the line's end.
  std::string_view ending;  ///< "\n", "\r\n", or nothing at the end of a file that doesn't end its last line.
  std::vector<Cell> cells;  ///< None for an empty line.
};

/// Cuts a stream into rows. Memory is bounded: it holds one block, or one row where that is longer.
class CsvReader {
 public:
  /// Reads up to `size` bytes into `place`; returns their number, 0 at the end.
  using Source = std::function<std::size_t(char* place, std::size_t size)>;
  enum class Outcome { row, needsMore, end, openQuote, tooLong };

  /// A row longer than this is taken for a quote that somebody forgot to close.
  static constexpr std::size_t longestRow = std::size_t{16} << 20U;

  CsvReader();

  /// Cuts the next row out of what has been read.
  Outcome next(Row& row);
  /// Reads another block; to be called where next() needs more.
  void readMore(const Source& source);
  /// Where next() was last: the line at which its row, or the quoted cell that doesn't end, begins. Counts from 1.
  std::size_t line() const { return troubleLine_; }

 private:
  Outcome unfinished(bool inQuotes);
  bool skipByteOrderMark();

  std::vector<char> buffer_;
  std::size_t begin_ = 0;  ///< Where the next row begins in the buffer.
  std::size_t end_ = 0;    ///< Where the bytes that were read end; one more is kept free.
  bool started_ = false;
  bool finished_ = false;
  std::size_t nextLine_ = 1;
  std::size_t troubleLine_ = 1;
};

}  // namespace tallyfin::batch
