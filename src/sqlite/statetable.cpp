#include "sqlite/statetable.h"

namespace tallyfin::sqlite {

std::string StateCursor::schema() {
  return "CREATE TABLE paycheck_state(state TEXT, postal TEXT, \"column\" TEXT, value TEXT, meaning TEXT)";
}

int StateCursor::plan(sqlite3_index_info& info) {
  info.estimatedRows = 500;
  info.estimatedCost = 500;
  return SQLITE_OK;
}

void StateCursor::start(const char* /*plan*/, sqlite3_value** /*arguments*/, int /*count*/) {
  if (values_.empty()) values_ = library::stateValues();
  row_ = 0;
}

void StateCursor::give(sqlite3_context* context, int column) const {
  const library::StateValue& entry = values_[row_];
  switch (column) {
    case 0: return giveText(context, entry.state);
    case 1: return giveText(context, entry.postal);
    case 2: return giveText(context, library::ruleOf(entry.column).name);
    case 3: return giveText(context, entry.value);
    default: return giveText(context, entry.meaning);
  }
}

}  // namespace tallyfin::sqlite
