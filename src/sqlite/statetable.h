#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "library/options.h"
#include "sqlite/table.h"

namespace tallyfin::sqlite {

/// paycheck_state: a row for each value that a state reads: state, postal, column, value, meaning.
class StateCursor {
 public:
  static std::string schema();
  static int plan(sqlite3_index_info& info);

  void start(const char* plan, sqlite3_value** arguments, int count);
  bool atEnd() const { return row_ >= values_.size(); }
  void next() { ++row_; }
  void give(sqlite3_context* context, int column) const;
  sqlite3_int64 rowid() const { return static_cast<sqlite3_int64>(row_) + 1; }

 private:
  std::vector<library::StateValue> values_;
  std::size_t row_ = 0;
};

}  // namespace tallyfin::sqlite
