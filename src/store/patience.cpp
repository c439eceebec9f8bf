#include "store/patience.h"

#include <algorithm>
#include <thread>

namespace tallyfin {

void Patience::renew() {
  if (exhausted()) settle();
  waited_ = {};
}

bool Patience::wait() {
  using std::chrono::milliseconds;
  if (exhausted()) return false;
  const auto start = std::chrono::steady_clock::now();
  std::this_thread::sleep_for(
      std::clamp<std::chrono::steady_clock::duration>(waited_, milliseconds(1), milliseconds(20)));
  waited_ += std::chrono::steady_clock::now() - start;
  return true;
}

}  // namespace tallyfin
