#include "batch/run.h"

#include "batch/paycheck.h"

namespace tallyfin::batch {

namespace {

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
    if (row_.cells.size() > header_.size()) {
      // Cells beyond the header's columns are dropped.
      const std::string_view last = row_.cells[header_.size() - 1].raw;
      out_.append(row_.bytes.data(), last.data() + last.size());
    } else {
      out_ += row_.bytes;
      out_.append(header_.size() - row_.cells.size(), ',');
    }
    account_.problems += paycheck_.work(header_, row_, out_) ? 1 : 0;
    ++account_.rows;
    out_ += ending;
  }

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
  Paycheck paycheck_;
  std::string ending_;
  std::string out_;
  Account account_;
};

}  // namespace

Account run(const CsvReader::Source& source, const Sink& sink, const Choices& choices, const Onlooker& onlooker) {
  return Work(source, sink, onlooker).run(choices);
}

}  // namespace tallyfin::batch
