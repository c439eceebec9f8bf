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

/// The options that a state's routine reads, beside the additional amount.
struct Reads {
  bool dependents = false;
  bool illinoisDependents = false;
  bool special = false;
  bool marital = false;
  bool untaxed = true;  ///< Whether the 401(k) and pre-tax amounts can be deducted.
};

/// What the options screen enables for one entry of the state list, beyond the base shape: no marital button, no rate
/// button, the dependents box, no special list.
struct Shape {
  std::span<const int> marital = {};
  bool rates = false;
  bool dependents = true;
  const SpecialList* special = nullptr;
  bool opens = false;  ///< Whether choosing the entry on the main screen opens the options.
  Reads reads = {};
};

/// The captions of the screen, also for the meanings of saved numbers. Those of the marital buttons are in the order of
/// their index, the number that is saved.
inline constexpr std::array<const char*, 10> maritalCaptions{"Single",
                                                             "Single, claiming full personal exemption(S)",
                                                             "Single, claiming none (O)",
                                                             "Married, claiming for both spouses (M)",
                                                             "Married, claiming for yourself only (S)",
                                                             "Married, claiming none (O)",
                                                             "Married Filing Separately",
                                                             "Married. Spouse NOT employed",
                                                             "Married. Spouse IS employed.",
                                                             "Head of Family (Household)"};
inline constexpr const char* michiganDependentCaption = "Claimed as Dependent by Another";
inline constexpr const char* dependentsCaption = "Dependents (State)";
inline constexpr const char* illinoisDependentsHint = "For Use in Computing Illinois Tax";
inline constexpr const char* additionalCaption = "Additional Withholding Amount (State)";

/// The largest number in the two boxes of dependents, which start at 0.
inline constexpr int mostDependents = 15;

/// The shapes by position in the state list. Required: Arkansas and Maine enable buttons that nothing reads; Kentucky
/// opens the screen only for the additional amount.
extern const std::array<Shape, 42> shapes;

/// Whether choosing this entry on the main screen opens the options.
bool opensStateOptions(int stateIndex);

/// The positions of the states with special behaviour on the screen.
namespace state {
inline constexpr int connecticut = 6;
inline constexpr int maryland = 19;
inline constexpr int michigan = 21;
inline constexpr int mississippi = 23;
inline constexpr int newJersey = 26;
}  // namespace state

}  // namespace tallyfin
