#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Reading CSV as RFC 4180 writes it: cells divided by commas, a cell in double quotes may hold commas, line breaks and
/// doubled quotes, rows end in LF or CRLF. The bytes of a row stay at hand as they stood, which is what goes out again.

namespace tallyfin::batch {

/// One cell as it stands in its row.
struct Cell {
  std::string_view raw;  ///< With its quotes.
  bool quoted = false;

  /// What the cell holds. Where that doesn't stand in the row as it is, `storage` takes it.
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
  /// Puts up to so many bytes to a place; gives their number, 0 at the end.
  using Source = std::function<std::size_t(char* place, std::size_t size)>;
  enum class Outcome { row, needsMore, end, openQuote, tooLong };

  /// A row longer than this is taken for a quote that somebody forgot to close.
  static constexpr std::size_t longestRow = std::size_t{16} << 20U;

  CsvReader();

  /// Cuts the next row out of what has been read.
  Outcome next(Row& row);
  /// Reads another block; to be called where next() needs more.
  void readMore(const Source& source);
  /// The line at which the row of the last next() begins, or its open quote; the first line is 1.
  std::size_t line() const { return troubleLine_; }

 private:
  Outcome unfinished(bool inQuotes);
  bool skipByteOrderMark();

  std::vector<char> buffer_;
  std::size_t begin_ = 0;  ///< Of the row that comes next.
  std::size_t end_ = 0;    ///< Of what has been read; one more byte is kept free.
  bool started_ = false;
  bool finished_ = false;
  std::size_t nextLine_ = 1;
  std::size_t troubleLine_ = 1;
};

}  // namespace tallyfin::batch
