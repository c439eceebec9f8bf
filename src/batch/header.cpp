#include "batch/header.h"

#include <algorithm>
#include <set>

#include "library/names.h"

namespace tallyfin::batch {

namespace {

std::string lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), library::lowered);
  return result;
}

bool isResult(std::string_view name) {
  const auto& names = library::resultNames;
  return name == library::problemName || std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

std::optional<std::string> Header::take(const Row& row) {
  if (row.cells.empty()) return "there is no header";
  size_ = row.cells.size();
  std::set<std::string> seen;
  std::string storage;
  for (std::size_t place = 0; place < size_; ++place) {
    const std::string name = lowered(library::trimmed(row.cells[place].text(storage)));
    if (!seen.insert(name).second) return "two columns are named " + name;
    if (isResult(name)) return "a column is named like a result: " + name;
    if (const auto column = library::columnNamed(name)) known_.push_back({*column, place});
  }
  return std::nullopt;
}

const std::string& resultColumns() {
  static const std::string columns = [] {
    std::string all;
    for (const std::string_view name : library::resultNames) (all += ',') += name;
    (all += ',') += library::problemName;
    return all;
  }();
  return columns;
}

}  // namespace tallyfin::batch
