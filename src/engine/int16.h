#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>

#include "engine/failure.h"

namespace tallyfin {

/// A signed 16-bit count or selection. Sums and products are 16-bit too and fail beyond -32768..32767 instead of
/// wrapping: 12 exemptions times 2750 fails.
class Int16 {
 public:
  constexpr Int16() = default;

  template <std::integral T>
  constexpr Int16(T number)  // NOLINT(google-explicit-constructor): a whole number is a count
      : number_(checked(number)) {}

  constexpr int value() const { return number_; }

  friend constexpr Int16 operator+(Int16 a, Int16 b) { return a.value() + b.value(); }
  friend constexpr Int16 operator-(Int16 a, Int16 b) { return a.value() - b.value(); }
  friend constexpr Int16 operator*(Int16 a, Int16 b) { return a.value() * b.value(); }

  friend constexpr bool operator==(Int16, Int16) = default;
  friend constexpr auto operator<=>(Int16, Int16) = default;

 private:
  template <std::integral T>
  static constexpr std::int16_t checked(T number) {
    if (number < std::numeric_limits<std::int16_t>::min() || number > std::numeric_limits<std::int16_t>::max()) {
      throw FailedStatement{"the number is beyond the range of a whole number, -32,768 to 32,767"};
    }
    return static_cast<std::int16_t>(number);
  }

  std::int16_t number_ = 0;
};

}  // namespace tallyfin
