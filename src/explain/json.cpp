#include "explain/json.h"

#include <array>
#include <nlohmann/json.hpp>
#include <string_view>

#include "engine/numbertext.h"
#include "explain/figuretexts.h"

namespace tallyfin {

namespace {

/// Lists and objects are put together as text: those of the JSON library allocate where they are destroyed.
std::string json(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

/// A value, and its kind where it isn't an amount.
std::string written(const Value& value) {
  constexpr std::array kinds{"", ",\"kind\":\"count\"", ",\"kind\":\"rate\"", ",\"kind\":\"single\""};
  return "\"value\":" + json(plainText(value)) + kinds.at(value.index());
}

std::string written(const Operand& operand) {
  switch (operand.origin) {
    case Operand::Origin::line: return "{\"line\":" + std::to_string(operand.line) + "}";
    case Operand::Origin::row: return "{\"row\":" + json(operand.name) + "}";
    case Operand::Origin::entry: return "{\"entry\":" + json(operand.name) + "," + written(operand.value) + "}";
    case Operand::Origin::constant: return "{\"constant\":" + json(operand.name) + "," + written(operand.value) + "}";
    case Operand::Origin::left: return "{\"left\":" + json(operand.name) + "," + written(operand.value) + "}";
    default: break;
  }
  std::string list = "[" + json(operand.name);
  for (const Operand& each : operand.of) list += "," + written(each);
  return list + "]";
}

std::string written(const UsedRow& used) {
  const auto bounded = [](Test test, Money bound) {
    return "\"test\":" + json(nameOf(test)) + ",\"bound\":" + json(toText(bound));
  };
  std::string above;
  if (used.row.above) above = ",\"above\":{" + bounded(used.row.above->first, used.row.above->second) + "}";
  return "{\"name\":" + json(used.row.table) + "," + bounded(used.row.test, used.row.bound) +
         ",\"x\":" + written(used.x) + above + "}";
}

std::string written(const ExplanationLine& line) {
  const std::string title = line.title.empty() ? "" : "\"title\":" + json(line.title) + ",";
  if (line.number == 0) return "{" + title + "\"words\":" + json(line.words) + "}";
  return "{\"line\":" + std::to_string(line.number) + "," + title + "\"words\":" + json(line.words) + "," +
         written(line.value) + ",\"from\":" + written(line.from) +
         (line.table ? ",\"table\":" + written(*line.table) : "") + "}";
}

}  // namespace

const char* nameOf(Test test) {
  constexpr std::array names{"at most", "below", "above", "at least"};
  return names.at(static_cast<std::size_t>(test));
}

std::string jsonOf(const std::vector<Explanation>& explanations) {
  if (explanations.empty()) return "null";
  std::string rows;
  for (const Explanation& row : explanations) {
    std::string lines;
    for (const ExplanationLine& line : row.lines) lines += (lines.empty() ? "" : ",") + written(line);
    rows += (rows.empty() ? "{" : ",") + json(row.title) + ":[" + lines + "]";
  }
  return rows + "}";
}

}  // namespace tallyfin
