#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "ui/qt/initext.h"

/// Reads any bytes as a settings file. After a change the file holds the new value and every other one as before.

using namespace tallyfin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const qt::IniContent before = qt::readIni(bytes);
  // The file is its own source of names and values: of the first half they are set in the whole.
  for (const auto& [section, keys] : qt::readIni(bytes.substr(0, size / 2)).sections) {
    for (const auto& [key, text] : keys) {
      auto wanted = before.sections;
      wanted[section][key] = text;
      const std::string edited = qt::editedIni(bytes, section, key, text);
      if (qt::readIni(edited).sections != wanted) std::abort();
      if (qt::editedIni(edited, section, key, text) != edited) std::abort();
    }
  }
  auto wanted = before.sections;
  wanted["Settings"]["IncAmt"] = bytes;
  if (qt::readIni(qt::editedIni(bytes, "Settings", "IncAmt", std::string(bytes))).sections != wanted) std::abort();
  wanted = before.sections;
  wanted["Settings"].erase("IncAmt");
  if (wanted["Settings"].empty()) wanted.erase("Settings");
  if (qt::readIni(qt::editedIni(bytes, "Settings", "IncAmt", std::nullopt)).sections != wanted) std::abort();

  const std::string mended = qt::mendedIni(bytes);
  if (qt::readIni(mended).damaged || qt::readIni(mended).sections != before.sections) std::abort();
  return 0;
}
