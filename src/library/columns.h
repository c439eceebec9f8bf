#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "engine/entries.h"

/// The columns of a paycheck as a row, and the names of its results.

namespace tallyfin::library {

/// The entries of a paycheck, in the order of the arguments and of the reports in a problem.
enum class Column : std::size_t {
  income,
  rate401k,
  preTax,
  preFica,
  frequency,
  status,
  exemptions,
  state,
  selfEmployed,
  state401k,
  statePreTax,
  localRate,
  localBase,
  stateDependents,
  illinoisDependents,
  stateExemptions,
  stateMarital,
  stateMethod,
  stateAdditional,
  net
};
inline constexpr std::size_t columnCount = 20;

/// The meaning of a column's text.
enum class Kind {
  box,     ///< As typed into a box: an amount or a rate.
  choice,  ///< An entry of a list, by its caption or its number.
  flag,    ///< Yes or no.
  count,   ///< A 16-bit number.
  wanted   ///< The check that is wanted.
};

struct ColumnRule {
  std::string_view name;
  Kind kind;
  int first = 0;  ///< `first` to `last`: the numbers of a choice.
  int last = 0;
  int byDefault = 0;
};

inline constexpr std::array<ColumnRule, columnCount> columnRules{{
    {"income", Kind::box},
    {"rate_401k", Kind::box},
    {"pre_tax", Kind::box},
    {"pre_fica", Kind::box},
    {"frequency", Kind::choice, 0, 3, -1},
    {"status", Kind::choice, 0, 2},
    {"exemptions", Kind::choice, 0, 15},
    {"state", Kind::choice, 0, 41},
    {"self_employed", Kind::flag},
    {"state_401k", Kind::flag},
    {"state_pre_tax", Kind::flag},
    {"local_rate", Kind::box},
    {"local_base", Kind::choice, 1, 5, 1},
    {"state_dependents", Kind::count},
    {"illinois_dependents", Kind::count},
    {"state_exemptions", Kind::count},
    {"state_marital", Kind::count},
    {"state_method", Kind::count},
    {"state_additional", Kind::box},
    {"net", Kind::wanted},
}};

constexpr std::size_t indexOf(Column column) { return static_cast<std::size_t>(column); }
constexpr const ColumnRule& ruleOf(Column column) { return columnRules[indexOf(column)]; }

/// The column of a name; letter case and blanks at either end are ignored.
std::optional<Column> columnNamed(std::string_view name);

/// The names of the results, in the order of `resultRows`.
inline constexpr std::size_t resultCount = resultRows.size();
inline constexpr std::array<std::string_view, resultCount> resultNames{
    "gross_pay", "amt_401k", "non_taxable",     "pre_fica_pay", "federal_tax",      "state_tax",
    "local_tax", "fica",     "social_security", "medicare",     "total_deductions", "check_amount"};
/// The name of the problem, which follows the results.
inline constexpr std::string_view problemName = "problem";

}  // namespace tallyfin::library
