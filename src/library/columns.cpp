#include "library/columns.h"

#include <algorithm>

#include "library/names.h"

namespace tallyfin::library {

std::optional<Column> columnNamed(std::string_view name) {
  const auto rule = std::find_if(columnRules.begin(), columnRules.end(),
                                 [&](const ColumnRule& known) { return sameName(known.name, trimmed(name)); });
  if (rule == columnRules.end()) return std::nullopt;
  return static_cast<Column>(rule - columnRules.begin());
}

}  // namespace tallyfin::library
