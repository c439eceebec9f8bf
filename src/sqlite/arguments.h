#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>

#include "library/paycheck.h"
#include "sqlite/table.h"

namespace tallyfin::sqlite {

/// The hidden columns at the end of a table's schema, one for each column of a paycheck. They are the arguments of the
/// table-valued function: SQLite makes `column = argument` of them, and the same is written for an argument by name.
std::string hiddenColumns();

/// Plans how SQLite passes the arguments, for a table whose hidden columns begin at a number. Writes the plan for
/// start(). Returns SQLITE_CONSTRAINT where an argument isn't known yet, so that SQLite chooses another join order.
int planArguments(sqlite3_index_info& info, int firstHidden);

/// The arguments of a paycheck.
class Arguments {
 public:
  /// Reads them as planned, and sets the paycheck's columns.
  void take(const char* plan, sqlite3_value** values, int count, library::Paycheck& paycheck);

  /// Returns an argument unchanged. Refuses one that wasn't given: SQLite would compare another paycheck's argument
  /// with NULL and lose rows.
  void give(sqlite3_context* context, std::size_t column) const;

  /// A hash of the arguments: the same for arguments that are equal to SQLite.
  std::uint64_t hash() const;

 private:
  /// A copy of a value of SQLite, whose memory is reused.
  class Value {
   public:
    void clear() { type_ = SQLITE_NULL; }
    bool isNull() const { return type_ == SQLITE_NULL; }
    void take(sqlite3_value* value);
    void set(library::Paycheck& paycheck, library::Column column) const;
    void give(sqlite3_context* context) const;
    std::uint64_t addTo(std::uint64_t hash) const;

   private:
    int type_ = SQLITE_NULL;
    sqlite3_int64 integer_ = 0;
    double real_ = 0;    ///< Of an integer too.
    std::string bytes_;  ///< Of a text or a BLOB.
  };

  std::array<Value, library::columnCount> values_;
  std::bitset<library::columnCount> known_;
};

}  // namespace tallyfin::sqlite
