#pragma once

#include <array>
#include <string_view>

/// Names that other programs use for the entries of the state list.

namespace tallyfin::library {

/// The postal codes by position in the state list; "No State" has none.
inline constexpr std::array<std::string_view, 42> postalCodes{
    "",   "AL", "AZ", "AR", "CA", "CO", "CT", "DE", "DC", "GA", "HI", "ID", "IL", "IN",
    "IA", "KS", "KY", "LA", "ME", "MD", "MA", "MI", "MN", "MS", "MO", "NE", "NJ", "NM",
    "NY", "NC", "ND", "OH", "OK", "OR", "PA", "RI", "SC", "UT", "VT", "VA", "WV", "WI"};

/// A state whose caption in the list isn't its name.
struct RightName {
  int state;
  std::string_view name;
};
inline constexpr std::array<RightName, 2> rightNames{{{8, "District of Columbia"}, {20, "Massachusetts"}}};

/// A state without an income tax, which isn't in the list: it means "No State".
struct UntaxedState {
  std::string_view name;
  std::string_view postalCode;
};
inline constexpr std::array<UntaxedState, 9> untaxedStates{{{"Alaska", "AK"},
                                                            {"Florida", "FL"},
                                                            {"Nevada", "NV"},
                                                            {"New Hampshire", "NH"},
                                                            {"South Dakota", "SD"},
                                                            {"Tennessee", "TN"},
                                                            {"Texas", "TX"},
                                                            {"Washington", "WA"},
                                                            {"Wyoming", "WY"}}};

}  // namespace tallyfin::library
