#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "library/paycheck.h"
#include "sqlite/arguments.h"
#include "sqlite/table.h"

namespace tallyfin::sqlite {

/// paycheck_explanation(income, rate_401k, ...): a row for each line of the worksheets of the results: the title of the
/// result, the line's number (NULL for a remark), its words, and its value in dollars (NULL without one).
class ExplanationCursor {
 public:
  static std::string schema();
  static int plan(sqlite3_index_info& info);

  void start(const char* plan, sqlite3_value** arguments, int count);
  bool atEnd() const { return result_ >= explanations_.size(); }
  void next();
  void give(sqlite3_context* context, int column) const;
  sqlite3_int64 rowid() const;

 private:
  void skipEmpty();

  library::Paycheck paycheck_;
  Arguments arguments_;
  std::vector<Explanation> explanations_;
  std::size_t result_ = 0;
  std::size_t line_ = 0;
};

}  // namespace tallyfin::sqlite
