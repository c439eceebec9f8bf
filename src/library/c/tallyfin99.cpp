#include "library/c/tallyfin99.h"

#include <string>

#include "library/paycheck.h"

/// The C interface: checks its arguments and turns exceptions into results.

using tallyfin::library::Column;
using tallyfin::library::columnCount;
using tallyfin::library::columnNamed;
using tallyfin::library::columnRules;
using tallyfin::library::indexOf;
using tallyfin::library::Paycheck;
using tallyfin::library::resultCount;
using tallyfin::library::resultNames;

struct tallyfin99_paycheck {
  Paycheck paycheck;
  bool outOfMemory = false;  ///< In the last call of tallyfin99_work.
  std::string explanation;
};

namespace {

bool isColumn(int number) { return number >= 0 && static_cast<std::size_t>(number) < columnCount; }

bool isResult(int number) { return number >= 0 && static_cast<std::size_t>(number) < resultCount; }

/// The result of a function, or the other value where it throws std::bad_alloc. It throws nothing else.
template <class Value, class Act>
Value unlessNoMemory(Value otherwise, Act act) noexcept {
  try {
    return act();
  } catch (...) {
    return otherwise;
  }
}

/// Sets a column by a function of the paycheck.
template <class Act>
bool set(tallyfin99_paycheck* paycheck, int column, Act act) noexcept {
  if (paycheck == nullptr || !isColumn(column)) return false;
  return unlessNoMemory(false, [&] {
    act(paycheck->paycheck, static_cast<Column>(column));
    return true;
  });
}

}  // namespace

const char* tallyfin99_version() { return TALLYFIN_VERSION; }

int tallyfin99_columns() { return static_cast<int>(columnCount); }

const char* tallyfin99_column_name(int column) {
  return isColumn(column) ? columnRules[static_cast<std::size_t>(column)].name.data() : nullptr;
}

int tallyfin99_column(const char* name) {
  if (name == nullptr) return -1;
  const auto column = columnNamed(name);
  return column ? static_cast<int>(indexOf(*column)) : -1;
}

int tallyfin99_results() { return static_cast<int>(resultCount); }

const char* tallyfin99_result_name(int result) {
  return isResult(result) ? resultNames[static_cast<std::size_t>(result)].data() : nullptr;
}

tallyfin99_paycheck* tallyfin99_new() {
  return unlessNoMemory<tallyfin99_paycheck*>(nullptr, [] { return new tallyfin99_paycheck; });
}

void tallyfin99_free(tallyfin99_paycheck* paycheck) { delete paycheck; }

void tallyfin99_clear(tallyfin99_paycheck* paycheck) {
  if (paycheck != nullptr) paycheck->paycheck.clear();
}

bool tallyfin99_set(tallyfin99_paycheck* paycheck, int column, const char* text, size_t length) {
  if (text == nullptr && length > 0) return false;
  return set(paycheck, column, [&](Paycheck& it, Column to) { it.set(to, std::string_view(text, length)); });
}

bool tallyfin99_set_integer(tallyfin99_paycheck* paycheck, int column, int64_t number) {
  return set(paycheck, column, [&](Paycheck& it, Column to) { it.setInteger(to, number); });
}

bool tallyfin99_set_real(tallyfin99_paycheck* paycheck, int column, double number) {
  return set(paycheck, column, [&](Paycheck& it, Column to) { it.setReal(to, number); });
}

bool tallyfin99_work(tallyfin99_paycheck* paycheck) {
  if (paycheck == nullptr) return false;
  paycheck->outOfMemory = true;
  const bool worked = unlessNoMemory(false, [&] {
    const bool hasResults = paycheck->paycheck.work();
    paycheck->outOfMemory = false;
    return hasResults;
  });
  if (!worked) paycheck->paycheck.clearResults();
  return worked;
}

int64_t tallyfin99_result(const tallyfin99_paycheck* paycheck, int result) {
  if (paycheck == nullptr || !isResult(result)) return 0;
  return paycheck->paycheck.result(static_cast<std::size_t>(result)).units();
}

const char* tallyfin99_problem(const tallyfin99_paycheck* paycheck) {
  if (paycheck == nullptr) return nullptr;
  return paycheck->outOfMemory ? "there is not enough memory" : paycheck->paycheck.problem().c_str();
}

const char* tallyfin99_explanation(tallyfin99_paycheck* paycheck) {
  if (paycheck == nullptr) return nullptr;
  return unlessNoMemory<const char*>(nullptr, [&] {
    paycheck->explanation = paycheck->paycheck.explainAsJson();
    return paycheck->explanation.c_str();
  });
}
