#include "engine/printable.h"

namespace tallyfin {

std::string printable(std::string_view bytes, std::size_t most) {
  constexpr const char* digits = "0123456789abcdef";
  std::string text = "\"";
  for (const char c : bytes.substr(0, most)) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x20 || code > 0x7E) {
      ((text += "\\x") += digits[code >> 4U]) += digits[code & 0xFU];
    } else {
      if (c == '"' || c == '\\') text += '\\';
      text += c;
    }
  }
  return text + (bytes.size() > most ? "...\"" : "\"");
}

}  // namespace tallyfin
