#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/settingsstore.h"

/// The text of the settings file: INI, as QSettings writes it too. A change touches the lines of its own key and no
/// other, so that comments, foreign sections and whatever else a user keeps there stay as they are, byte for byte.
namespace tallyfin::qt {

/// What a text holds.
struct IniContent {
  SettingsStore::Sections sections;
  bool damaged = false;  ///< Some line is neither a section nor a setting, a comment or blank.
};

/// Reads a text of any bytes. A line that can't be read is passed over; of two lines of one key the later counts.
IniContent readIni(std::string_view text);

/// The text with one value set, or removed where there is none.
std::string editedIni(std::string_view text, std::string_view section, std::string_view key,
                      const std::optional<std::string>& value);

/// The text without the lines that can't be read.
std::string mendedIni(std::string_view text);

}  // namespace tallyfin::qt
