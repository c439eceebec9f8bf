#include "batch/run.h"

#include <array>

#include "batch/header.h"
#include "engine/numbertext.h"
#include "library/paycheck.h"

namespace tallyfin::batch {

namespace {

/// The most characters that a row's results take, with a comma before each and one behind.
constexpr std::size_t longestResults = library::resultCount * (1 + longestAmount) + 1;

class Work {
 public:
  Work(const CsvReader::Source& source, const Sink& sink, const Onlooker& onlooker)
      : source_(source), sink_(sink), onlooker_(onlooker) {}

  Account run(const Choices& choices) {
    if (!nextRow()) throw Trouble("there is no header");
    if (const auto reason = header_.take(row_)) throw Trouble(*reason);
    ending_ = row_.ending.empty() ? "\n" : row_.ending;
    if (choices.writeHeader) ((out_ += row_.bytes) += resultColumns()) += ending_;
    while (nextRow()) workRow();
    flush();
    return account_;
  }

 private:
  /// The next row; false at the end.
  bool nextRow() {
    while (true) {
      switch (reader_.next(row_)) {
        case CsvReader::Outcome::row: return true;
        case CsvReader::Outcome::end: return false;
        case CsvReader::Outcome::openQuote: stop("a quoted cell doesn't end");
        case CsvReader::Outcome::tooLong: stop("the row is too long");
        case CsvReader::Outcome::needsMore: break;
      }
      // The finished rows go out before it waits for more.
      flush();
      onlooker_(account_.rows);
      reader_.readMore(source_);
    }
  }

  [[noreturn]] void stop(const char* reason) {
    flush();
    throw Trouble("line " + std::to_string(reader_.line()) + ": " + reason);
  }

  void workRow() {
    const std::string_view ending = row_.ending.empty() ? std::string_view(ending_) : row_.ending;
    if (row_.cells.empty()) {  // an empty line is no row
      out_ += ending;
      return;
    }
    ++account_.rows;
    if (row_.cells.size() > header_.size()) {
      // Cells beyond the header's columns are dropped.
      const std::string_view last = row_.cells[header_.size() - 1].raw;
      out_.append(row_.bytes.data(), last.data() + last.size());
      writeNoResults();
      out_ += "more cells than the header has columns";
      ++account_.problems;
    } else {
      out_ += row_.bytes;
      out_.append(header_.size() - row_.cells.size(), ',');
      workCells();
    }
    out_ += ending;
  }

  void workCells() {
    for (const auto& [column, place] : header_.known()) {
      paycheck_.set(column, place < row_.cells.size() ? row_.cells[place].text(storage_) : std::string_view());
    }
    paycheck_.work() ? writeResults() : writeNoResults();
    out_ += paycheck_.problem();
    account_.problems += paycheck_.problem().empty() ? 0 : 1;
  }

  void writeResults() {
    std::array<char, longestResults> results;
    char* end = results.data();
    for (std::size_t row = 0; row < library::resultCount; ++row) {
      *end++ = ',';
      end = writeText(end, paycheck_.result(row));
    }
    *end++ = ',';
    out_.append(results.data(), end);
  }

  void writeNoResults() { out_.append(library::resultCount + 1, ','); }

  void flush() {
    if (!out_.empty()) sink_(out_);
    out_.clear();
  }

  const CsvReader::Source& source_;
  const Sink& sink_;
  const Onlooker& onlooker_;
  CsvReader reader_;
  Row row_;
  Header header_;
  library::Paycheck paycheck_;
  std::string storage_;
  std::string ending_;
  std::string out_;
  Account account_;
};

}  // namespace

Account run(const CsvReader::Source& source, const Sink& sink, const Choices& choices, const Onlooker& onlooker) {
  return Work(source, sink, onlooker).run(choices);
}

}  // namespace tallyfin::batch
