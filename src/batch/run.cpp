#include "batch/run.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "batch/header.h"
#include "engine/numbertext.h"
#include "library/paycheck.h"

namespace tallyfin::batch {

namespace {

/// The most characters that a row's results take, with a delimiter before each and one behind.
constexpr std::size_t longestResults = library::resultCount * (1 + longestAmount) + 1;

/// The text of a block's rows with their results.
struct Worked {
  std::string out;
  Account account;  ///< Its line counts from the beginning of the block, from 0.
  std::size_t lines = 0;
};

/// What the threads of a run share. They take blocks by turns and hand over what they have made of them in the same
/// order, so that what comes out doesn't depend on their number.
class Shared {
 public:
  Shared(const Streams& streams, const Choices& choices)
      : streams_(streams), choices_(choices), reader_(streams.source, choices.delimiter) {}

  /// Reads the header, and writes it with the columns of the results.
  void begin();

  /// Takes the next block and the turn in which it is to be handed over; false at the end.
  bool take(Block& block, std::uint64_t& turn);
  /// Writes what was made of a block, when its turn has come.
  void handOver(std::uint64_t turn, const Worked& worked, const Block& block);
  /// Ends the work with an exception, when its turn has come; at once in turn 0.
  void fail(std::uint64_t turn, std::exception_ptr failure);

  /// The sum of all blocks; its line is 0 where there was no problem. Throws what has ended the work.
  Account end() const;

  const Header& header() const { return header_; }
  const Choices& choices() const { return choices_; }
  const std::string& ending() const { return ending_; }

 private:
  Trouble troubleIn(const Block& block) const;

  const Streams& streams_;
  const Choices& choices_;
  Header header_;
  std::string ending_;  ///< Of the header's line.

  std::mutex reading_;
  BlockReader reader_;
  Block first_;  ///< What came with the header.
  std::uint64_t turns_ = 0;

  std::mutex writing_;
  std::condition_variable next_;
  std::uint64_t turn_ = 0;  ///< Whose turn it is to write.
  std::atomic<bool> stopped_ = false;
  std::exception_ptr failure_;
  Account account_;
  std::size_t lines_ = 1;  ///< The line where the block of that turn begins.
};

Trouble Shared::troubleIn(const Block& block) const {
  return Trouble("line " + std::to_string(lines_ + block.troubleLine) + ": " + block.trouble);
}

void Shared::begin() {
  reader_.next(first_);
  RowCutter rows(first_, choices_.delimiter);
  Row row;
  if (!rows.next(row)) {
    // What isn't text at all may look like a row that doesn't end.
    if (first_.trouble == nullptr) throw Trouble("there is no header");
    if (const auto format = otherFormat(reader_.beginning())) throw Trouble(*format);
    throw troubleIn(first_);
  }
  if (const auto reason = header_.take(row, choices_.delimiter)) throw Trouble(*reason);
  if (const std::string lacking = header_.lacks(); !lacking.empty()) streams_.notice(lacking);
  ending_ = row.ending.empty() ? "\n" : row.ending;

  std::string out(row.bytes);
  for (const std::string_view name : library::resultNames)
    appendCell(out += choices_.delimiter, name, choices_.delimiter);
  appendCell(out += choices_.delimiter, library::problemName, choices_.delimiter);
  if (choices_.writeHeader) streams_.sink(out += ending_);

  first_.bytes.pop_back();  // the cutter's sentinel
  const std::size_t taken = row.bytes.size() + row.ending.size();
  lines_ += rows.lines();
  first_.bytes.erase(0, taken);
}

bool Shared::take(Block& block, std::uint64_t& turn) {
  const std::lock_guard lock(reading_);
  turn = turns_++;
  if (stopped_) return false;
  if (turn > 0) return reader_.next(block);
  block = std::move(first_);
  return true;
}

void Shared::handOver(std::uint64_t turn, const Worked& worked, const Block& block) {
  std::unique_lock lock(writing_);
  next_.wait(lock, [&] { return turn_ == turn || stopped_; });
  if (stopped_) return;
  if (!worked.out.empty()) streams_.sink(worked.out);
  if (account_.problems == 0) account_.firstProblem = lines_ + worked.account.firstProblem;
  account_.rows += worked.account.rows;
  account_.problems += worked.account.problems;
  streams_.progress(account_.rows);
  if (block.trouble != nullptr) throw troubleIn(block);
  lines_ += worked.lines;
  ++turn_;
  next_.notify_all();
}

void Shared::fail(std::uint64_t turn, std::exception_ptr failure) {
  std::unique_lock lock(writing_);
  next_.wait(lock, [&] { return turn_ >= turn || stopped_; });
  if (!failure_) failure_ = std::move(failure);
  stopped_ = true;
  next_.notify_all();
}

Account Shared::end() const {
  if (failure_) std::rethrow_exception(failure_);
  return account_.problems > 0 ? account_ : Account{account_.rows};
}

/// Works the rows of blocks.
class Worker {
 public:
  explicit Worker(const Shared& shared) : shared_(shared), delimiter_(shared.choices().delimiter) {}

  const Worked& work(Block& block) {
    worked_.out.clear();
    worked_.account = {};
    RowCutter rows(block, delimiter_);
    while (rows.next(row_)) workRow();
    worked_.lines = rows.lines();
    return worked_;
  }

 private:
  void workRow() {
    std::string& out = worked_.out;
    const std::string_view ending = row_.ending.empty() ? std::string_view(shared_.ending()) : row_.ending;
    if (row_.cells.empty()) {  // an empty line is no row
      out += ending;
      return;
    }
    ++worked_.account.rows;
    const std::size_t columns = shared_.header().size();
    if (row_.cells.size() > columns) {
      const std::string_view last = row_.cells[columns - 1].raw;
      out.append(row_.bytes.data(), last.data() + last.size());
    } else {
      out += row_.bytes;
      out.append(columns - row_.cells.size(), delimiter_);
    }
    if (hasSurplus()) {
      writeNoResults();
      writeProblem("more cells than the header has columns");
    } else {
      workCells();
    }
    out += ending;
  }

  /// Whether there are cells beyond the header's columns that aren't empty.
  bool hasSurplus() {
    const std::size_t columns = shared_.header().size();
    return row_.cells.size() > columns &&
           std::any_of(row_.cells.begin() + static_cast<std::ptrdiff_t>(columns), row_.cells.end(),
                       [&](const Cell& cell) { return !cell.text(storage_).empty(); });
  }

  void workCells() {
    for (const auto& [column, place] : shared_.header().known()) {
      paycheck_.set(column, place < row_.cells.size() ? row_.cells[place].text(storage_) : std::string_view());
    }
    paycheck_.work() ? writeResults() : writeNoResults();
    writeProblem(paycheck_.problem());
  }

  void writeResults() {
    std::array<char, longestResults> results;
    char* end = results.data();
    for (std::size_t row = 0; row < library::resultCount; ++row) {
      *end++ = delimiter_;
      end = writeText(end, paycheck_.result(row));
    }
    *end++ = delimiter_;
    worked_.out.append(results.data(), end);
  }

  void writeNoResults() { worked_.out.append(library::resultCount + 1, delimiter_); }

  void writeProblem(std::string_view problem) {
    if (problem.empty()) return;
    appendCell(worked_.out, problem, delimiter_);
    Account& account = worked_.account;
    if (account.problems++ == 0) account.firstProblem = row_.line;
  }

  const Shared& shared_;
  char delimiter_;
  Worked worked_;
  Row row_;
  std::string storage_;
  library::Paycheck paycheck_;
};

/// What each thread does.
void workBlocks(Shared& shared) {
  std::uint64_t turn = 0;
  try {
    Worker worker(shared);
    Block block;
    while (shared.take(block, turn)) shared.handOver(turn, worker.work(block), block);
  } catch (...) {
    shared.fail(turn, std::current_exception());
  }
}

}  // namespace

Account run(const Streams& streams, const Choices& choices) {
  Shared shared(streams, choices);
  shared.begin();
  {
    std::vector<std::jthread> others;
    try {
      for (unsigned job = 1; job < choices.jobs; ++job) others.emplace_back(workBlocks, std::ref(shared));
    } catch (const std::system_error&) {
      shared.fail(0, std::make_exception_ptr(Trouble("so many threads can't be started")));
    }
    workBlocks(shared);
  }
  return shared.end();
}

void appendCell(std::string& out, std::string_view text, char delimiter) {
  const auto plain = [=](char c) { return c != '"' && c != '\r' && c != '\n' && c != delimiter; };
  if (std::all_of(text.begin(), text.end(), plain)) {
    out += text;
    return;
  }
  out += '"';
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

}  // namespace tallyfin::batch
