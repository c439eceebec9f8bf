#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/settingsstore.h"
#include "engine/worksheet.h"
#include "explain/explain.h"
#include "explain/json.h"
#include "library/columns.h"

/// A paycheck as a row, for other programs. The batch program, the C library and the bindings to other languages use
/// this class, so their results are identical.

namespace tallyfin::library {

/// The largest income that is tried for a check that is wanted.
inline constexpr Money largestIncome = 1'000'000;

/// One paycheck: its columns, and after work() its results, its problem or its explanation.
///
/// The results are those of the program started with the columns' choices stored, its boxes filled in and Calculate
/// pressed once. Paychecks share no state. Several threads may work paychecks at the same time, but a single paycheck
/// only one thread at a time. work() overwrites the record of the calling thread, so don't call it on the thread of the
/// program's screens.
///
/// All functions may throw std::bad_alloc, and nothing else.
class Paycheck final : private Worksheet, private WorksheetProvider {
 public:
  /// All columns are empty.
  Paycheck() { clear(); }
  Paycheck(const Paycheck&) = delete;
  Paycheck& operator=(const Paycheck&) = delete;

  /// Empties all columns. An empty column means the program's default.
  void clear();

  /// Sets a column to a text; the empty text empties it. A text that can't be understood is reported by problem().
  void set(Column column, std::string_view text) {
    // Rows have much in common, so an unchanged text isn't parsed again.
    if (!text.empty() && given_[indexOf(column)] && text == texts_[indexOf(column)]) return;
    change(column, text);
  }
  /// The same with the text of a number.
  void setInteger(Column column, std::int64_t number);
  /// The same with the shortest text that reads back as the number. NaN empties the column.
  void setReal(Column column, double number);

  /// Works the paycheck; doesn't change the columns. False, and no results, where a column can't be understood.
  bool work();

  /// Makes all results 0.
  void clearResults() noexcept { results_.fill(Money{}); }

  /// One of the twelve results, in the order of `resultNames`; 0 where there are none.
  Money result(std::size_t row) const { return results_[row]; }
  /// The problems of the paycheck when it was worked last, in the order of the columns; empty for none. A paycheck with
  /// results may have a problem too.
  const std::string& problem() const { return problem_; }

  /// The explanation of each result, in their order; none where there are no results. Works the paycheck once more.
  std::vector<Explanation> explain();
  /// The same as a JSON object of the titles; "null" where there are none.
  std::string explainAsJson() { return jsonOf(explain()); }

 private:
  /// The stored options that the state routines read.
  class Options final : public MemoryStore {
   public:
    std::optional<std::string> read(std::string_view section, std::string_view key) const override;

    bool deducts401k = false;
    bool deductsPreTax = false;
  };

  const std::string& incomeText() const override { return *income_; }
  const std::string& rate401kText() const override { return text(Column::rate401k); }
  const std::string& preTaxText() const override { return text(Column::preTax); }
  const std::string& preFicaText() const override { return text(Column::preFica); }
  const std::string& exemptionsText() const override;
  int stateIndex() const override { return number(Column::state); }
  bool selfEmployed() const override { return number(Column::selfEmployed) != 0; }
  void showFigure(int /*label*/, Money /*figure*/) override {}
  Worksheet& provideWorksheet() override { return *this; }

  const std::string& text(Column column) const { return texts_[indexOf(column)]; }
  int number(Column column) const { return numbers_[indexOf(column)]; }
  bool isEmpty(Column column) const { return !given_[indexOf(column)]; }

  void change(Column column, std::string_view text);
  void setNumber(Column column, std::optional<int> number);
  void takeIncome();
  void takeChoices();
  void takeOptions();
  void reportUnusable();
  void reportUnread();
  void reportWhatCannotBeMeant();
  void reportOptions();
  void report(Column column, std::string_view why);
  void makeProblem();

  /// A problem of a column.
  struct Report {
    Column column;
    std::string_view why;  ///< A text of static storage duration.
  };

  Options options_;
  std::array<std::string, columnCount> texts_;  ///< Of the boxes and counts; of a choice as it was set.
  std::array<int, columnCount> numbers_{};      ///< Of the choices, flags and counts.
  std::bitset<columnCount> given_;              ///< The columns that aren't empty.
  std::bitset<columnCount> unusable_;           ///< Those whose text can't be understood.

  std::string found_;                    ///< The income found for the check wanted.
  const std::string* income_ = nullptr;  ///< The text of the income box: that of the column, or `found_`.
  std::string exemption_;                ///< Mississippi's exemption.
  const std::string* additional_ =
      nullptr;  ///< The text of the additional amount: that of the column, or `exemption_`.
  std::array<Money, resultCount> results_{};
  std::vector<Report> reports_;
  std::string problem_;
};

}  // namespace tallyfin::library
