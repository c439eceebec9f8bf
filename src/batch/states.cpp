#include "batch/states.h"

#include "batch/rows.h"
#include "library/options.h"

namespace tallyfin::batch {

std::string statesTable(char delimiter) {
  std::string table;
  const auto addRow = [&](std::initializer_list<std::string_view> cells) {
    char before = '\0';
    for (const std::string_view cell : cells) {
      if (before != '\0') table += before;
      appendCell(table, cell, delimiter);
      before = delimiter;
    }
    table += '\n';
  };
  addRow({"state", "postal", "column", "value", "meaning"});
  for (const library::StateValue& entry : library::stateValues()) {
    addRow({entry.state, entry.postal, library::ruleOf(entry.column).name, entry.value, entry.meaning});
  }
  return table;
}

}  // namespace tallyfin::batch
