#pragma once

#include <array>
#include <optional>
#include <span>

namespace tallyfin {

/// The special selection that a state offers.
struct SpecialList {
  const char* caption;
  std::span<const char* const> entries;
  const char* text;  ///< What is chosen at first; empty for nothing.
};

/// What the options screen enables for one entry of the state list, beyond the base shape: no marital button, no rate
/// button, the dependents box, no special list.
struct Shape {
  std::span<const int> marital = {};
  bool rates = false;
  bool dependents = true;
  const SpecialList* special = nullptr;
  bool opens = false;  ///< Whether choosing the entry on the main screen opens the options by itself.
};

/// The shapes by position in the state list. They are uneven on purpose: Arkansas and Maine enable buttons that nothing
/// reads, Kentucky opens the screen for nothing but the additional amount.
extern const std::array<Shape, 42> shapes;

/// Whether choosing this entry on the main screen opens the options.
bool opensStateOptions(int stateIndex);

/// The positions that have rules of their own on the screen.
namespace state {
inline constexpr int connecticut = 6;
inline constexpr int maryland = 19;
inline constexpr int michigan = 21;
inline constexpr int mississippi = 23;
inline constexpr int newJersey = 26;
}  // namespace state

}  // namespace tallyfin
