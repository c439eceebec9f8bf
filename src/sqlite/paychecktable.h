#pragma once

#include <string>

#include "library/paycheck.h"
#include "sqlite/arguments.h"
#include "sqlite/table.h"

namespace tallyfin::sqlite {

/// paycheck(income, rate_401k, ...): one row with the twelve results, in dollars, and the problem. Results are NULL
/// where there are none, and so is the problem.
class PaycheckCursor {
 public:
  static std::string schema();
  static int plan(sqlite3_index_info& info);

  void start(const char* plan, sqlite3_value** arguments, int count);
  bool atEnd() const { return atEnd_; }
  void next() { atEnd_ = true; }
  void give(sqlite3_context* context, int column) const;
  sqlite3_int64 rowid() const { return static_cast<sqlite3_int64>(arguments_.hash()); }

 private:
  library::Paycheck paycheck_;
  Arguments arguments_;
  bool hasResults_ = false;
  bool atEnd_ = true;
};

}  // namespace tallyfin::sqlite
