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
  const auto bounded = [](const TableRow& row) {
    return "\"test\":" + json(nameOf(row.test)) + ",\"bound\":" + json(toText(row.bound));
  };
  const TableRow* before = used.row.before();
  const std::string above = before ? ",\"above\":{" + bounded(*before) + "}" : "";
  return "{\"name\":" + json(used.row.table) + "," + bounded(used.row.row()) + ",\"x\":" + written(used.x) + above +
         "}";
}

std::string written(const ExplanationLine& line) {
  const std::string title = line.title.empty() ? "" : "\"title\":" + json(line.title) + ",";
  if (line.number == 0) return "{" + title + "\"words\":" + json(line.words) + "}";
  return "{\"line\":" + std::to_string(line.number) + "," + title + "\"words\":" + json(line.words) + "," +
         written(line.value) + ",\"from\":" + written(line.from) +
         (line.table ? ",\"table\":" + written(*line.table) : "") + "}";
}

/// A list of what write() makes of each.
template <class All, class Write>
std::string list(const All& all, Write&& write) {
  std::string elements;
  for (const auto& each : all) elements += (elements.empty() ? "" : ",") + write(each);
  return "[" + elements + "]";
}

std::string written(const FormPart& part) {
  std::string numbers;
  for (const int line : part.lines) numbers += "," + std::to_string(line);
  return "[" + json(part.text) + numbers + "]";
}

std::string written(const FormTable& table) {
  const auto row = [](const FormTable::Row& its) { return "[" + json(its.where) + "," + json(its.given) + "]"; };
  return "{\"name\":" + json(table.name) + ",\"of\":" + json(table.of) + ",\"used\":" + std::to_string(table.used) +
         ",\"rows\":" + list(table.rows, row) + "}";
}

std::string written(const FormLine& line) {
  const auto part = [](const FormPart& its) { return written(its); };
  return "{" + (line.number == 0 ? "" : "\"line\":" + std::to_string(line.number) + ",") +
         "\"parts\":" + list(line.parts, part) + ",\"figure\":" + json(line.figure) +
         ",\"spoken\":" + json(line.spoken) + (line.table ? ",\"table\":" + written(*line.table) : "") + "}";
}

std::string written(const Form& form) {
  const auto line = [](const FormLine& its) { return written(its); };
  return "{\"title\":" + json(form.title) + ",\"figure\":" + json(form.figure) +
         ",\"lines\":" + list(form.lines, line) + "}";
}

}  // namespace

std::string formsAsJson(const Trace& trace) {
  const std::vector<Explanation> explanations = explain(trace);
  const auto entry = [](const auto& its) { return "[" + json(its.first) + "," + json(its.second) + "]"; };
  const auto form = [](const Form& its) { return written(its); };
  return "{\"heading\":" + list(headingOf(trace, explanations), entry) +
         ",\"forms\":" + list(formsOf(explanations), form) + "}";
}

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
