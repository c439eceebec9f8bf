#include "batch/run.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace tallyfin::batch {

namespace {

/// The state that the threads of a run share. They read blocks in turn and write the results in the same order, so the
/// output doesn't depend on the number of threads.
class Shared {
 public:
  /// Reads the header, and writes it with the columns of the results.
  Shared(const Streams& streams, const Choices& choices);

  /// Reads the next block and returns its turn for writing; false at the end.
  bool take(Block& block, std::uint64_t& turn);
  /// Writes the result of a block when its turn has come.
  void handOver(std::uint64_t turn, const Worked& worked, const Block& block);
  /// Ends the work with an exception, when its turn has come; at once in turn 0.
  void fail(std::uint64_t turn, std::exception_ptr failure);

  /// The sum of all blocks. Throws the exception that has ended the work.
  Account end() const;

  RowWorker worker() const { return {beginning_.header, beginning_.ending, choices_.delimiter}; }

 private:
  const Streams& streams_;
  const Choices& choices_;

  std::mutex reading_;
  BlockReader reader_;
  Beginning beginning_;
  std::uint64_t turns_ = 0;

  std::mutex writing_;
  std::condition_variable next_;
  std::uint64_t turn_ = 0;  ///< The turn that writes next.
  std::atomic<bool> stopped_ = false;
  std::exception_ptr failure_;
  Tally tally_;
};

Shared::Shared(const Streams& streams, const Choices& choices)
    : streams_(streams),
      choices_(choices),
      reader_(streams.source, choices.delimiter),
      beginning_(readBeginning(reader_, choices.delimiter)),
      tally_(1 + beginning_.lines) {
  if (const std::string lacking = beginning_.header.lacks(); !lacking.empty()) streams_.notice(lacking);
  if (choices_.writeHeader) streams_.sink(beginning_.out + beginning_.ending);
}

bool Shared::take(Block& block, std::uint64_t& turn) {
  const std::lock_guard lock(reading_);
  turn = turns_++;
  if (stopped_) return false;
  if (turn > 0) return reader_.next(block);
  block = std::move(beginning_.rest);
  return true;
}

void Shared::handOver(std::uint64_t turn, const Worked& worked, const Block& block) {
  std::unique_lock lock(writing_);
  next_.wait(lock, [&] { return turn_ == turn || stopped_; });
  if (stopped_) return;
  if (!worked.out.empty()) streams_.sink(worked.out);
  streams_.progress(tally_.rows() + worked.account.rows);
  tally_.add(worked, block);
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
  return tally_.account();
}

/// The work of each thread.
void workBlocks(Shared& shared) {
  std::uint64_t turn = 0;  // mutation: 0 -> 1: written before it is read
  try {
    RowWorker worker = shared.worker();
    Block block;
    while (shared.take(block, turn)) shared.handOver(turn, worker.work(block), block);
  } catch (...) {
    shared.fail(turn, std::current_exception());
  }
}

}  // namespace

Account run(const Streams& streams, const Choices& choices) {
  Shared shared(streams, choices);
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

}  // namespace tallyfin::batch
