#include "sqlite/paychecktable.h"

namespace tallyfin::sqlite {

namespace {

constexpr std::size_t problemColumn = library::resultCount;
constexpr std::size_t firstHidden = problemColumn + 1;

}  // namespace

std::string PaycheckCursor::schema() {
  std::string columns;
  for (const std::string_view name : library::resultNames) columns += std::string(name) + " REAL, ";
  return "CREATE TABLE paycheck(" + columns + std::string(library::problemName) + " TEXT" + hiddenColumns() + ")";
}

int PaycheckCursor::plan(sqlite3_index_info& info) {
  info.estimatedRows = 1;
  info.idxFlags = SQLITE_INDEX_SCAN_UNIQUE;
  return planArguments(info, firstHidden);
}

void PaycheckCursor::start(const char* plan, sqlite3_value** arguments, int count) {
  atEnd_ = true;
  arguments_.take(plan, arguments, count, paycheck_);
  hasResults_ = paycheck_.work();
  atEnd_ = false;
}

void PaycheckCursor::give(sqlite3_context* context, int column) const {
  const auto place = static_cast<std::size_t>(column);
  if (place >= firstHidden) return arguments_.give(context, place - firstHidden);
  if (place == problemColumn) {
    if (!paycheck_.problem().empty()) giveText(context, paycheck_.problem());
  } else if (hasResults_) {
    sqlite3_result_double(context, toReal(paycheck_.result(place)));
  }
}

}  // namespace tallyfin::sqlite
