#include <algorithm>
#include <set>

#include "engine/calculate.h"
#include "engine/recorder.h"
#include "engine/statelist.h"
#include "support/paycheck.h"
#include "support/published.h"

/// The tables in explanations, row by row: also figures without an effect on any tax, because of rounding to dollars or
/// because no wage reaches the row.

namespace tallyfin {
namespace {

/// A row's figures in ten-thousandths of a dollar, and its rates.
using Figures = std::tuple<std::string, published::Units, published::Units, double, double, double>;
using Rows = std::vector<Figures>;

Figures figuresOf(const published::Row& row) { return {row.test, row.bound, row.lower, row.rate, row.plus, row.extra}; }

Figures figuresOf(const TableRow& row) {
  constexpr std::array tests{"<=", "<", ">", ">="};
  const std::string test = tests.at(static_cast<std::size_t>(row.test));
  // The fractions are in single precision: their decimals have two places.
  const bool part = row.gives == TableRow::Gives::part;
  const double extra = part ? std::round(row.rate * 100) / 100 : row.credit;
  return {test, row.bound.units(), row.lower.units(), part ? 0 : row.rate, row.plus, extra};
}

class RecordedTables : public PaycheckTest {
 protected:
  /// All tables that a state applies, for every choice of its options.
  std::set<Rows> tablesOf(int state) {
    std::set<Rows> tables;
    for (const int choice : {0, 1, 2, 3, 4, 5, 6, 8, 9}) {
      for (const int marital : {0, 1, 2}) {
        for (const int frequency : {0, 1, 2, 3}) {
          choose(state, choice, marital, frequency);
          collect(tables);
        }
      }
    }
    return tables;
  }

 private:
  void choose(int state, int choice, int marital, int frequency) {
    payData = PayData{};
    sheet.state = state;
    sheet.income = "2000";
    sheet.exemptionsEntry = choice < 5 ? "0" : "5";
    sheet.staRate = choice;
    payData.staMarried = choice;
    payData.mMethod = std::array{0, 48, 50, 55, 56, 58, 60, 0, 0, 0}.at(static_cast<std::size_t>(choice));
    payData.maritalStat = marital;
    payData.frequency = frequency;
  }

  static void collect(std::set<Rows>& tables) {
    {
      const Recorder recorder;
      Recorder::calculatePaycheck();
    }
    for (const Circumstances& each : lastTrace()->tape.circumstances) {
      if (!each.row || each.row->table.starts_with("Federal")) continue;
      Rows rows;
      for (const TableRow& row : each.row->rows) rows.push_back(figuresOf(row));
      tables.insert(rows);
    }
  }
};

TEST_F(RecordedTables, AreThePublishedOnes) {
  std::set<Rows> published;
  for (const published::Table& table : published::tables()) {
    Rows rows;
    for (const published::Row& row : table.rows) rows.push_back(figuresOf(row));
    published.insert(rows);
  }
  std::set<Rows> recorded;
  for (int state = 1; state < static_cast<int>(stateList.size()); ++state) recorded.merge(tablesOf(state));
  for (const Rows& rows : published)
    EXPECT_TRUE(recorded.contains(rows)) << "recorded nowhere: " << testing::PrintToString(rows);
  for (const Rows& rows : recorded)
    EXPECT_TRUE(published.contains(rows)) << "published nowhere: " << testing::PrintToString(rows);
}

}  // namespace
}  // namespace tallyfin
