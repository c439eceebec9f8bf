#pragma once

#include <chrono>

#include "platform/platform.h"

namespace tallyfin::qt {

/// A clock that stands at two in the afternoon.
class StandingClock : public Clock {
 public:
  explicit StandingClock(std::chrono::year_month_day day = std::chrono::May / 17 / 1999)
      : now_(std::chrono::local_days{day} + std::chrono::hours{14}) {}
  LocalTime now() const override { return now_; }

 private:
  LocalTime now_;
};

}  // namespace tallyfin::qt
