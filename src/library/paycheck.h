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

/// A paycheck as a row: what other programs work paychecks by. The batch program, the C library and the other languages
/// stand on it, so that they agree.

namespace tallyfin::library {

/// The largest income that is tried for a check that is wanted.
inline constexpr Money largestIncome = 1'000'000;

/// One paycheck: its columns, and after work() its results, its problem or its explanation.
///
/// It is worked as the program works it when it is started with the columns' choices stored, its boxes are filled and
/// Calculate is pressed once. No paycheck knows of another. Any number of them may be worked at once on several
/// threads, but a single one by one thread at a time. Working one overwrites the record of the calling thread, and so
/// it isn't for a thread that holds the program's screens.
///
/// All functions may throw std::bad_alloc, and nothing else.
class Paycheck final : private Worksheet, private WorksheetProvider {
 public:
  /// All columns are empty.
  Paycheck() { clear(); }
  Paycheck(const Paycheck&) = delete;
  Paycheck& operator=(const Paycheck&) = delete;

  /// Empties all columns. An empty column is the program's own default.
  void clear();

  /// Sets a column to a text; the empty text empties it. What can't be understood is reported by problem(), not here.
  void set(Column column, std::string_view text) {
    // Rows have much in common: what the column holds already isn't looked at anew.
    if (!text.empty() && given_[indexOf(column)] && text == texts_[indexOf(column)]) return;
    change(column, text);
  }
  /// The same with the text of a number.
  void setInteger(Column column, std::int64_t number);
  /// The same with the shortest text that reads back as the number. One that isn't a number (NaN) empties the column.
  void setReal(Column column, double number);

  /// Works the paycheck; the columns keep what they hold. False where a column can't be understood: there are no
  /// results then.
  bool work();

  /// Makes all results 0.
  void clearResults() noexcept { results_.fill(Money{}); }

  /// One of the twelve results, in the order of `resultNames`; 0 where there are none.
  Money result(std::size_t row) const { return results_[row]; }
  /// What is wrong with the paycheck as worked last, in the order of the columns; empty for nothing. A paycheck with
  /// results may have a problem too.
  const std::string& problem() const { return problem_; }

  /// The explanation of each result, in their order; none where there are no results. Works the paycheck once more.
  std::vector<Explanation> explain();
  /// The same as a JSON object of the titles; "null" where there are none.
  std::string explainAsJson() { return jsonOf(explain()); }

 private:
  /// What the state routines read of the stored options.
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

  /// What is wrong with a column.
  struct Report {
    Column column;
    std::string_view why;  ///< A text that stands for good.
  };

  Options options_;
  std::array<std::string, columnCount> texts_;  ///< Of the boxes and counts; of a choice as it was set.
  std::array<int, columnCount> numbers_{};      ///< Of the choices, flags and counts.
  std::bitset<columnCount> given_;              ///< The columns that aren't empty.
  std::bitset<columnCount> unusable_;           ///< Those whose text can't be understood.

  std::string found_;                        ///< The income found for the check wanted.
  const std::string* income_ = nullptr;      ///< What is in the income box: the column's text, or that.
  std::string exemption_;                    ///< Mississippi's exemption.
  const std::string* additional_ = nullptr;  ///< The additional amount used: the column's text, or that.
  std::array<Money, resultCount> results_{};
  std::vector<Report> reports_;
  std::string problem_;
};

}  // namespace tallyfin::library
