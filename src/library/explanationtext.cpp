#include "library/explanationtext.h"

#include <nlohmann/json.hpp>
#include <string_view>

namespace tallyfin::library {

namespace {

/// Lists and objects are put together as text: those of the JSON library allocate where they are destroyed.
std::string json(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace

std::string textOf(const std::vector<Explanation>& explanations) {
  if (explanations.empty()) return "null";
  std::string all;
  for (const Explanation& explanation : explanations) {
    std::string lines;
    for (const std::string& sentence : explanation.sentences()) lines += (lines.empty() ? "" : ",") + json(sentence);
    all += (all.empty() ? "{" : ",") + json(explanation.title) + ":[" + lines + "]";
  }
  return all + "}";
}

}  // namespace tallyfin::library
