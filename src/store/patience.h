#pragma once

#include <chrono>

namespace tallyfin {

/// Limits the time of waiting for other programs: all waits of an act together take no longer than a limit. The first
/// limit is longer, until settle() has been called or an act has reached it.
class Patience {
 public:
  Patience(std::chrono::milliseconds first, std::chrono::milliseconds later) : limit_(first), later_(later) {}

  /// Begins a new act.
  void renew();
  void settle() { limit_ = later_; }
  /// Waits briefly. Returns false at once where the limit has been reached.
  bool wait();

 private:
  bool exhausted() const { return waited_ >= limit_; }

  std::chrono::steady_clock::duration limit_;
  std::chrono::steady_clock::duration later_;
  std::chrono::steady_clock::duration waited_{};
};

}  // namespace tallyfin
