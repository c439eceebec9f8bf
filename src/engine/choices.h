#pragma once

#include <array>

/// The numbers of the choices that rules compare, with the captions of those on the main screen. A stored number may be
/// any other one: each rule defines its effect.

namespace tallyfin {

/// The entries of `frequency`, in the order of the list box.
namespace frequency {
inline constexpr int weekly = 0;
inline constexpr int twiceAMonth = 1;
inline constexpr int everyTwoWeeks = 2;
inline constexpr int monthly = 3;
inline constexpr std::array captions{"Weekly", "Twice A Month", "Every Two Weeks", "Monthly"};
}  // namespace frequency

/// The options of `maritalStat`.
namespace status {
inline constexpr int married = 0;
inline constexpr int single = 1;
inline constexpr int marriedClaimingSingle = 2;
inline constexpr std::array captions{"Married", "Single", "Married Claiming Single"};
}  // namespace status

/// The options of `staMarried` that have a rule: the marital buttons of the state options by index.
namespace stateStatus {
inline constexpr int single = 0;
inline constexpr int married = 3;  ///< Claiming for both spouses, where the state asks.
inline constexpr int separately = 6;
inline constexpr int spouseNotEmployed = 7;
inline constexpr int spouseEmployed = 8;
inline constexpr int headOfFamily = 9;
}  // namespace stateStatus

}  // namespace tallyfin
