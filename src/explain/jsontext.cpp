#include "explain/jsontext.h"

#include <nlohmann/json.hpp>

namespace tallyfin {

std::string json(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string json(const std::vector<std::string>& texts) {
  return jsonList(texts, [](const std::string& text) { return json(text); });
}

std::string json(const std::vector<std::vector<std::string>>& rows) {
  return jsonList(rows, [](const std::vector<std::string>& row) { return json(row); });
}

JsonObject& JsonObject::add(std::string_view name, std::string_view value) {
  if (!members_.empty()) members_ += ',';
  ((members_ += json(name)) += ':') += value;
  return *this;
}

}  // namespace tallyfin
