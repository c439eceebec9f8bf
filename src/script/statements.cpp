#include "script/statements.h"

#include <variant>

#include "engine/numbertext.h"
#include "engine/trace.h"
#include "explain/json.h"
#include "explain/jsontext.h"

namespace tallyfin::script {

namespace {

std::string written(const Change::Figure& figure) {
  return json(std::visit([](const auto& number) { return toText(number); }, figure));
}

std::string written(const TableRow& row) {
  return JsonObject()
      .add("test", json(nameOf(row.test)))
      .add("bound", json(toText(row.bound)))
      .add("lower", json(toText(row.lower)))
      .add("rate", json(toText(row.rate)))
      .add("plus", json(toText(row.plus)))
      .text();
}

std::string written(const Change& change) {
  return JsonObject()
      .add("field", json(change.field))
      .add("from", written(change.from))
      .add("to", written(change.to))
      .text();
}

std::string written(const TracedStatement& statement) {
  JsonObject object;
  object.add("step", json(statement.title)).add("done", statement.done ? "true" : "false");
  object.add("changes", jsonList(statement.changes, [](const Change& change) { return written(change); }));
  if (statement.row) object.add("row", written(statement.row->row()));
  return object.text();
}

}  // namespace

std::string statementsAsJson(const Trace& trace) {
  return jsonList(trace.statements, [](const TracedStatement& statement) { return written(statement); });
}

}  // namespace tallyfin::script
