#include "sqlite/arguments.h"

#include <bit>
#include <bitset>
#include <cmath>
#include <cstring>
#include <string_view>

namespace tallyfin::sqlite {

namespace {

/// The plan is a text with a letter for each argument handed over, which names its column: a capital letter where
/// SQLite relies on the table, a small one where it compares the argument with the column by `=` once more. Letters
/// behind those of the arguments are of columns that the statement wants to be NULL.
constexpr char relied = 'A';
constexpr char compared = 'a';

/// The number of conditions of a statement that SQLite leaves to a table.
constexpr int mostRelied = 16;

using Columns = std::bitset<library::columnCount>;

/// How much more a plan costs for each column that the statement reads and the plan doesn't hand over. It leads SQLite
/// to work `status = 0 AND frequency = 0 OR status = 1 AND frequency = 3` as two paychecks.
constexpr double costOfMissing = 1000;

constexpr char letterOf(char first, std::size_t column) { return static_cast<char>(first + static_cast<char>(column)); }
constexpr std::size_t columnOf(char letter) {
  return static_cast<std::size_t>(letter - (letter >= compared ? compared : relied));
}

std::string nameOf(std::size_t column) { return std::string(library::columnRules[column].name); }

Columns columnsUsed(const sqlite3_index_info& info, int firstHidden) {
  Columns used;
  for (std::size_t column = 0; column < used.size(); ++column) {
    used[column] = ((info.colUsed >> (static_cast<std::size_t>(firstHidden) + column)) & 1U) != 0;
  }
  return used;
}

}  // namespace

std::string hiddenColumns() {
  std::string list;
  for (const library::ColumnRule& rule : library::columnRules) list += ", " + std::string(rule.name) + " HIDDEN";
  return list;
}

int planArguments(sqlite3_index_info& info, int firstHidden) {
  Columns given;
  Columns unknown;
  Columns null;
  std::string plan;
  for (int i = 0; i < info.nConstraint; ++i) {
    const auto& condition = info.aConstraint[i];
    if (condition.iColumn < firstHidden) continue;
    const auto column = static_cast<std::size_t>(condition.iColumn - firstHidden);
    const bool byIs = condition.op == SQLITE_INDEX_CONSTRAINT_IS;
    if (condition.op == SQLITE_INDEX_CONSTRAINT_ISNULL) null.set(column);
    if (condition.op != SQLITE_INDEX_CONSTRAINT_EQ && !byIs) continue;
    if (condition.usable == 0) {
      unknown.set(column);
    } else if (!given[column]) {  // SQLite compares a second one
      given.set(column);
      plan += letterOf(i < mostRelied || byIs ? relied : compared, column);
      info.aConstraintUsage[i].argvIndex = static_cast<int>(plan.size());
      info.aConstraintUsage[i].omit = 1;
    }
  }
  if ((unknown & ~given).any()) return SQLITE_CONSTRAINT;

  null &= ~given;
  for (std::size_t column = 0; column < null.size(); ++column) {
    if (null[column]) plan += letterOf(relied, column);
  }
  info.idxStr = sqlite3_mprintf("%s", plan.c_str());
  if (info.idxStr == nullptr) return SQLITE_NOMEM;
  info.needToFreeIdxStr = 1;
  const auto missing = (columnsUsed(info, firstHidden) & ~given & ~null).count();
  info.estimatedCost = 10 * std::pow(costOfMissing, static_cast<double>(missing));
  return SQLITE_OK;
}

void Arguments::take(const char* plan, sqlite3_value** values, int count, library::Paycheck& paycheck) {
  for (Value& value : values_) value.clear();
  known_.reset();
  for (int i = 0; plan[i] != '\0'; ++i) {
    const std::size_t column = columnOf(plan[i]);
    known_.set(column);
    if (i >= count) continue;
    values_[column].take(values[i]);
    if (plan[i] >= compared && values_[column].isNull()) {
      throw Refusal(nameOf(column) +
                    " is NULL, and behind sixteen conditions SQLite drops such a row: write IS for =, or give ''");
    }
  }
  for (std::size_t column = 0; column < values_.size(); ++column) {
    values_[column].set(paycheck, static_cast<library::Column>(column));
  }
}

void Arguments::give(sqlite3_context* context, std::size_t column) const {
  if (!known_[column])
    throw Refusal(nameOf(column) + " is read, but is no argument of the paycheck as SQLite plans it");
  values_[column].give(context);
}

std::uint64_t Arguments::hash() const {
  std::uint64_t hash = 0;
  for (const Value& value : values_) hash = value.addTo(hash);
  return hash;
}

void Arguments::Value::take(sqlite3_value* value) {
  type_ = sqlite3_value_type(value);
  switch (type_) {
    case SQLITE_INTEGER:
      integer_ = sqlite3_value_int64(value);
      real_ = static_cast<double>(integer_);
      break;
    case SQLITE_FLOAT: real_ = sqlite3_value_double(value); break;
    case SQLITE_TEXT:
    case SQLITE_BLOB: {
      const void* bytes = type_ == SQLITE_TEXT ? sqlite3_value_text(value) : sqlite3_value_blob(value);
      const int size = sqlite3_value_bytes(value);
      if (bytes == nullptr && size > 0) throw std::bad_alloc();
      bytes_.assign(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
      break;
    }
    default: break;
  }
}

void Arguments::Value::set(library::Paycheck& paycheck, library::Column column) const {
  switch (type_) {
    case SQLITE_INTEGER: paycheck.setInteger(column, integer_); break;
    case SQLITE_FLOAT: paycheck.setReal(column, real_); break;
    case SQLITE_TEXT:
    case SQLITE_BLOB: paycheck.set(column, bytes_); break;
    default: paycheck.set(column, {}); break;
  }
}

void Arguments::Value::give(sqlite3_context* context) const {
  switch (type_) {
    case SQLITE_INTEGER: sqlite3_result_int64(context, integer_); break;
    case SQLITE_FLOAT: sqlite3_result_double(context, real_); break;
    case SQLITE_TEXT: giveText(context, bytes_); break;
    case SQLITE_BLOB: sqlite3_result_blob64(context, bytes_.data(), bytes_.size(), SQLITE_TRANSIENT); break;
    default: sqlite3_result_null(context); break;
  }
}

std::uint64_t Arguments::Value::addTo(std::uint64_t hash) const {
  const auto add = [&hash](std::uint64_t number) {
    hash = (hash ^ number) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 32U;
  };
  add(static_cast<std::uint64_t>(type_ == SQLITE_INTEGER ? SQLITE_FLOAT : type_));
  switch (type_) {
    case SQLITE_INTEGER:
    case SQLITE_FLOAT: add(std::bit_cast<std::uint64_t>(real_)); break;
    case SQLITE_TEXT:
    case SQLITE_BLOB:
      add(bytes_.size());
      for (const char c : bytes_) add(static_cast<unsigned char>(c));
      break;
    default: break;
  }
  return hash;
}

}  // namespace tallyfin::sqlite
