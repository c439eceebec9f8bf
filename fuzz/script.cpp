#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "script/session.h"

/// Runs any bytes as a script on an empty store. Every line has one answer of one line, in one of the three forms.

using namespace tallyfin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  MemoryStore store;
  script::Session session(store);
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const auto answer = session.answer(line);
    if (!answer) continue;
    const bool form = *answer == "ok" || answer->starts_with("= ") || answer->starts_with("! ");
    if (!form || answer->find('\n') != std::string::npos) std::abort();
  }
  return 0;
}
