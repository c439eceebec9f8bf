#include "batch/header.h"

#include <algorithm>
#include <array>
#include <set>

#include "engine/printable.h"
#include "library/names.h"

namespace tallyfin::batch {

namespace {

using library::Column;

std::string lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), library::lowered);
  return result;
}

bool isResult(std::string_view name) {
  const auto& names = library::resultNames;
  return name == library::problemName || std::find(names.begin(), names.end(), name) != names.end();
}

/// Another possible delimiter, and its name.
struct Divider {
  char character;
  const char* name;
  const char* option;
};
constexpr std::array<Divider, 4> dividers{{{';', "semicolons", "--delimiter ';'"},
                                           {'\t', "tabs", "--delimiter tab"},
                                           {'|', "vertical bars", "--delimiter '|'"},
                                           {',', "commas", "no --delimiter"}}};

/// The reason why a header without any known column is refused.
std::string whyUnknown(std::string_view header, char delimiter) {
  for (const Divider& divider : dividers) {
    if (divider.character == delimiter || header.find(divider.character) == std::string_view::npos) continue;
    return std::string("the cells look divided by ") + divider.name + ": use " + divider.option;
  }
  return "no column is one of the program's: the header is " + printable(header);
}

}  // namespace

std::optional<std::string> Header::take(const CsvRow& row, char delimiter) {
  if (row.cells.empty()) return "there is no header";
  if (auto format = otherFormat(row.bytes)) return format;
  size_ = row.cells.size();
  std::set<std::string> seen;
  std::optional<std::string> refused;
  std::string storage;
  for (std::size_t place = 0; place < size_; ++place) {
    const std::string name = lowered(library::trimmed(row.cells[place].text(storage)));
    if (name.empty() || refused) continue;
    if (isResult(name)) refused = "a column is named like a result: " + printable(name);
    if (!seen.insert(name).second) refused = "two columns are named " + printable(name);
    if (const auto column = library::columnNamed(name)) known_.push_back({*column, place});
  }
  if (known_.empty() && !refused) refused = whyUnknown(row.bytes, delimiter);
  return refused;
}

bool Header::has(Column column) const {
  return std::any_of(known_.begin(), known_.end(), [&](const Entry& entry) { return entry.column == column; });
}

std::string Header::lacks() const {
  const bool frequency = has(Column::frequency);
  const bool pay = has(Column::income) || has(Column::net);
  if (frequency && pay) return {};
  if (frequency) return "there is neither a column income nor net";
  return std::string("there is no column frequency") + (pay ? "" : ", and neither income nor net");
}

std::optional<std::string> otherFormat(std::string_view bytes) {
  using namespace std::string_view_literals;
  struct Format {
    std::string_view begins;
    const char* advice;
  };
  static constexpr const char* unpack = "the file is compressed: unpack it first";
  static constexpr const char* save = "the file has a spreadsheet's own format: save it as CSV";
  static constexpr const char* recode = "the file looks like UTF-16: save it as UTF-8";
  static constexpr std::array<Format, 9> formats{{{"\x1F\x8B", unpack},
                                                  {"BZh", unpack},
                                                  {"\xFD"
                                                   "7zXZ",
                                                   unpack},
                                                  {"\x28\xB5\x2F\xFD", unpack},
                                                  {"7z\xBC\xAF", unpack},
                                                  {"PK\x03\x04", save},
                                                  {"\xD0\xCF\x11\xE0", save},
                                                  {"\xFF\xFE", recode},
                                                  {"\xFE\xFF", recode}}};
  for (const Format& format : formats) {
    if (bytes.starts_with(format.begins)) return format.advice;
  }
  if (bytes.find('\0') != std::string_view::npos) return recode;
  return std::nullopt;
}

}  // namespace tallyfin::batch
