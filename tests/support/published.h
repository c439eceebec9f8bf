#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "support/table.h"

/// The published tables of 1999 as test data, and arithmetic to compare a routine with them, which uses nothing of the
/// program.

namespace tallyfin::published {

/// Ten-thousandths of a dollar.
using Units = long long;

inline Units units(const std::string& figure) {
  return figure.empty() ? 0 : std::llround(std::stold(figure) * 10000.0L);
}
inline Units units(int dollars) { return dollars * 10000LL; }
inline double real(Units amount) { return static_cast<double>(amount) / 10000; }

/// A real figure in dollars to the nearest ten-thousandth, a half to the even one.
inline Units rounded(double dollars) { return std::llrint(dollars * 10000); }

/// Whole dollars, a half to the even one.
inline Units wholeDollars(Units amount) {
  const Units down = amount >= 0 ? amount / 10000 : -((-amount + 9999) / 10000);
  const Units rest = amount - down * 10000;
  const bool up = rest > 5000 || (rest == 5000 && down % 2 != 0);
  return (down + (up ? 1 : 0)) * 10000;
}

struct Row {
  std::string test;
  Units bound;
  Units lower;
  double rate;
  double plus;
  double extra;

  bool holds(Units x) const {
    return test == "<=" ? x <= bound : test == "<" ? x < bound : test == ">" ? x > bound : x >= bound;
  }

  Units tax(Units x, int exemptions = 0) const { return rounded(real(x - lower) * rate + plus - extra * exemptions); }

  /// The wages between the two at which the tax, rounded to dollars, rises.
  std::vector<Units> risesOfADollar(Units from, Units to) const {
    std::vector<Units> wages;
    if (rate <= 0) return wages;
    for (double half = std::ceil(real(tax(from)) - 0.5) + 0.5; wages.size() < 3; ++half) {
      Units wage = lower + rounded((half - plus) / rate);
      while (real(wholeDollars(tax(wage))) < half) ++wage;
      while (real(wholeDollars(tax(wage - 1))) > half) --wage;
      if (wage > to) break;
      wages.push_back(wage);
    }
    return wages;
  }
};

struct Table {
  std::string routine;
  std::string selection;
  int frequency;  ///< -1 where the table is annual.
  std::vector<Row> rows;

  const Row* rowOf(Units x) const {
    for (const Row& row : rows) {
      if (row.holds(x)) return &row;
    }
    return nullptr;
  }

  /// The tax on x; none in a gap.
  std::optional<Units> tax(Units x, int exemptions = 0) const {
    const Row* row = rowOf(x);
    return row ? std::optional(row->tax(x, exemptions)) : std::nullopt;
  }

  /// Wages at which a row with any other figure would give another tax: one below zero and one far above; around each
  /// bound closely, by a cent and by a dollar; and, because of rounding, where the rounded tax rises.
  std::vector<Units> probes() const {
    std::vector<Units> wages{units(-50), rows.back().bound + 123456700};
    Units from = 0;
    for (const Row& row : rows) {
      for (const Units off : {-10000, -100, 0, 50, 99, 100, 9900, 10000}) wages.push_back(row.bound + off);
      const Units to = &row == &rows.back() ? row.bound + 10000000 : row.bound;
      for (const Units wage : row.risesOfADollar(std::max(from, row.lower), to)) {
        wages.insert(wages.end(), {wage - 100, wage - 1, wage});
      }
      from = row.bound;
    }
    return wages;
  }
};

inline std::vector<Table> tables() {
  std::vector<Table> all;
  for (const tallyfin::Row& cells : tableOf("states/data/bands.tsv")) {
    const auto number = [&](const char* column) { return cells.at(column).empty() ? 0 : std::stod(cells.at(column)); };
    const std::string& frequency = cells.at("frequency");
    if (cells.at("row") == "1") {
      all.push_back({cells.at("routine"), cells.at("selection"), frequency == "-" ? -1 : std::stoi(frequency), {}});
    }
    all.back().rows.push_back({cells.at("test"), units(cells.at("bound")), units(cells.at("lower")), number("rate"),
                               number("plus"), number("extra")});
  }
  return all;
}

/// The tables of a routine.
inline std::vector<Table> tablesOf(const std::string& routine) {
  std::vector<Table> own;
  for (const Table& table : tables()) {
    if (table.routine == routine) own.push_back(table);
  }
  return own;
}

/// The figures of an amount in the order of `frequency`.
inline std::vector<std::string> amounts(const std::string& routine, const std::string& amount) {
  for (const tallyfin::Row& cells : tableOf("states/data/amounts.tsv")) {
    if (cells.at("routine") != routine || cells.at("amount") != amount) continue;
    return {cells.at("weekly"), cells.at("twiceAMonth"), cells.at("everyTwoWeeks"), cells.at("monthly")};
  }
  ADD_FAILURE() << routine << " has no " << amount;
  return {"0", "0", "0", "0"};
}

}  // namespace tallyfin::published
