#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "engine/failure.h"
#include "engine/numbertext.h"
#include "engine/settingsstore.h"

/// Every setting of the program: its section, key, default and type.

namespace tallyfin {

/// One setting with its type; the store keeps texts. save() is one statement: where the value has no text (a double
/// that isn't finite), or can't be stored, nothing is saved and nothing is reported.
template <class Held>
struct Setting {
  std::string_view section;
  std::string_view key;
  std::string_view defaultText = {};

  /// The stored text, which needn't be a number.
  std::string text() const { return getSetting(applicationKey, section, key, defaultText); }

  /// The stored text as a number. Fails for a text that isn't one.
  Int16 number() const requires std::is_same_v<Held, Int16> { return toInt16(text()); }
  /// The same with the caller's default.
  Int16 numberOr(Int16 otherwise) const requires std::is_same_v<Held, Int16> {
    return toInt16(getSetting(applicationKey, section, key, toText(otherwise)));
  }

  void save(const Held& value) const {
    unlessItFails([&] {
      if constexpr (std::is_same_v<Held, std::string>) {
        saveSetting(applicationKey, section, key, value);
      } else {
        saveSetting(applicationKey, section, key, toText(value));
      }
    });
  }
};

namespace settings {

using Text = Setting<std::string>;
using Amount = Setting<Money>;
using Fraction = Setting<double>;
using Number = Setting<Int16>;

// The last entries of the main screen and its tools.
inline constexpr Amount incAmt{section::settings, "IncAmt", "0"};
inline constexpr Fraction rate401k{section::settings, "401k", "0"};  ///< A typed 6 comes back as 0.06.
inline constexpr Amount notTax{section::settings, "NotTax", "0"};
inline constexpr Amount ssExmp{section::settings, "SSExmp", "0"};
inline constexpr Text hours{section::settings, "Hours", "80"};
inline constexpr Number state{section::settings, "State", "0"};
inline constexpr Number deps{section::settings, "Deps", "0"};
inline constexpr Number frequency{section::settings,
                                  "Frequency"};  ///< The default is the choice in the list of the main screen.
inline constexpr Number maritalStat{section::settings, "MaritalStat", "0"};
inline constexpr Amount localAmt{section::settings, "LocalAmt"};  ///< Nothing reads it.
inline constexpr Text local{section::settings, "Local", "0"};     ///< The local rate as typed.
inline constexpr Number applyTo{section::settings, "ApplyTo", "0"};
inline constexpr Number applyToDisp{section::settings, "ApplyToDisp", "0"};
inline constexpr Number self{section::settings, "Self", "0"};  ///< -1 or 0.

// The state options.
inline constexpr Number staDeps{section::stateInfo, "staDeps", "0"};
inline constexpr Number illDeps{section::stateInfo, "IllDeps", "0"};
inline constexpr Number staExmp{section::stateInfo, "staExmp", "0"};
inline constexpr Amount staAdd{section::stateInfo, "staAdd", "0"};
inline constexpr Number staMarried{section::stateInfo, "staMarried", "0"};
inline constexpr Number staRate{section::stateInfo, "staRate", "0"};
inline constexpr Number staMethod{section::stateInfo, "staMethod"};     ///< Nothing reads it.
inline constexpr Text sta401{section::stateInfo, "sta401", "N"};        ///< "Y" or "N".
inline constexpr Text staPreTax{section::stateInfo, "staPreTax", "N"};  ///< "Y" or "N".
inline constexpr Number mMethod{section::stateInfo, "MMethod", "0"};

// The user's personal details.
inline constexpr Text uName{section::user, "UName", "-"};
inline constexpr Text uAdd{section::user, "UAdd", "-"};
inline constexpr Text uCity{section::user, "UCity", "-"};
inline constexpr Text uSSN{section::user, "USSN", "-"};
inline constexpr Text marital0{section::user, "Marital0", "0"};  ///< Nothing saves it.
inline constexpr Text marital1{section::user, "Marital1", "0"};  ///< Nothing saves it.
inline constexpr Number dontShow{section::user, "DontShow", "0"};

}  // namespace settings

}  // namespace tallyfin
