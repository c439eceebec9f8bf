#include "explain/json.h"

#include <array>
#include <string_view>

#include "engine/numbertext.h"
#include "explain/figuretexts.h"
#include "explain/jsontext.h"

namespace tallyfin {

namespace {

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

std::string written(const FormPart& part) {
  std::string numbers;
  for (const int line : part.lines) numbers += "," + std::to_string(line);
  return "[" + json(part.text) + numbers + "]";
}

std::string written(const FormTable& table) {
  const auto row = [](const FormTable::Row& its) { return "[" + json(its.where) + "," + json(its.given) + "]"; };
  return "{\"name\":" + json(table.name) + ",\"of\":" + json(table.of) + ",\"used\":" + std::to_string(table.used) +
         ",\"rows\":" + jsonList(table.rows, row) + "}";
}

std::string written(const FormLine& line) {
  const auto part = [](const FormPart& its) { return written(its); };
  return "{" + (line.number == 0 ? "" : "\"line\":" + std::to_string(line.number) + ",") +
         "\"parts\":" + jsonList(line.parts, part) + ",\"figure\":" + json(line.figure) +
         ",\"spoken\":" + json(line.spoken) + (line.table ? ",\"table\":" + written(*line.table) : "") + "}";
}

std::string written(const Form& form) {
  const auto line = [](const FormLine& its) { return written(its); };
  return "{\"title\":" + json(form.title) + ",\"figure\":" + json(form.figure) +
         ",\"lines\":" + jsonList(form.lines, line) + "}";
}

}  // namespace

std::string formsAsJson(const Trace& trace) {
  const std::vector<Explanation> explanations = explain(trace);
  const auto entry = [](const auto& its) { return "[" + json(its.first) + "," + json(its.second) + "]"; };
  const auto form = [](const Form& its) { return written(its); };
  return "{\"heading\":" + jsonList(headingOf(trace, explanations), entry) +
         ",\"forms\":" + jsonList(formsOf(explanations), form) + "}";
}

const char* nameOf(Test test) {
  constexpr std::array names{"at most", "below", "above", "at least"};
  return names.at(static_cast<std::size_t>(test));
}

std::string jsonOf(const std::vector<Explanation>& explanations) {
  if (explanations.empty()) return "null";
  const auto line = [](const ExplanationLine& its) { return written(its); };
  JsonObject rows;
  for (const Explanation& row : explanations) rows.add(row.title, jsonList(row.lines, line));
  return rows.text();
}

}  // namespace tallyfin
