#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <thread>

#include "platform/platform.h"

namespace tallyfin {
namespace {

/// The process in a time zone for as long as this stands.
class InZone {
 public:
  explicit InZone(const char* zone) {
    if (const char* before = std::getenv("TZ")) before_ = before;
    setenv("TZ", zone, 1);
    tzset();
  }
  ~InZone() {
    before_ ? setenv("TZ", before_->c_str(), 1) : unsetenv("TZ");
    tzset();
  }
  InZone(const InZone&) = delete;
  InZone& operator=(const InZone&) = delete;

 private:
  std::optional<std::string> before_;
};

/// What the clock tells, less the coordinated time of the same moment. A second may pass in between.
void expectAhead(std::chrono::seconds difference) {
  const auto utc = [] { return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()); };
  const auto before = utc().time_since_epoch();
  const auto told = SystemClock().now().time_since_epoch();
  const auto after = utc().time_since_epoch();
  // The system's coarse clock, which the clock asks, may be behind by a moment.
  EXPECT_GE(told, before + difference - std::chrono::seconds{1});
  EXPECT_LE(told, after + difference);
}

TEST(SystemClock, ReturnsTheTimeOfTheUsersZoneAndNotThatOfGreenwich) {
  {
    const InZone zone("JST-9");
    expectAhead(std::chrono::hours{9});
  }
  {
    const InZone zone("EST5");
    expectAhead(-std::chrono::hours{5});
  }
  const InZone zone("NPT-5:45");
  expectAhead(std::chrono::hours{5} + std::chrono::minutes{45});
}

TEST(SystemClock, GoesOn) {
  const LocalTime first = SystemClock().now();
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds{60};
  while (SystemClock().now() == first && std::chrono::steady_clock::now() < end) std::this_thread::yield();
  EXPECT_GT(SystemClock().now(), first);
}

}  // namespace
}  // namespace tallyfin
