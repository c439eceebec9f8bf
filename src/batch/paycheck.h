#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/csv.h"
#include "engine/services.h"
#include "engine/settings.h"

/// One row, one paycheck: what the cells mean, and the results.

namespace tallyfin::batch {

/// The columns that a row is worked from. Every other one is carried through.
enum Column : std::size_t {
  income,
  rate401k,
  preTax,
  preFica,
  frequency,
  status,
  exemptionCount,
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
  columnCount
};

/// The header of a file: which column is where in its rows.
class Header {
 public:
  struct Entry {
    Column column;
    std::size_t place;  ///< In a row, from 0.
  };

  /// Reads a header row; returns why it is refused, if it is.
  std::optional<std::string> take(const Row& row);

  std::size_t size() const { return size_; }
  /// The columns of the file that a row is worked from, in the order of Column.
  const std::vector<Entry>& known() const { return known_; }

 private:
  std::size_t size_ = 0;
  std::vector<Entry> known_;
};

/// The columns that are added to the header: ",gross_pay" and so on.
const std::string& resultColumns();

/// Works paychecks, each independent of the others. It is the worksheet of the engine and sets the
/// options that a state routine reads.
class Paycheck final : public Worksheet, private WorksheetProvider {
 public:
  Paycheck();

  /// Works a row; all rows must have the same header. Appends the results to `out`, each behind a comma, then the
  /// problem. Returns whether there is one.
  bool work(const Header& header, const Row& row, std::string& out);

  const std::string& incomeText() const override { return texts_[income]; }
  const std::string& rate401kText() const override { return texts_[rate401k]; }
  const std::string& preTaxText() const override { return texts_[preTax]; }
  const std::string& preFicaText() const override { return texts_[preFica]; }
  const std::string& exemptionsText() const override { return exemptionsText_; }
  int stateIndex() const override { return numbers_[state]; }
  bool selfEmployed() const override { return numbers_[batch::selfEmployed] != 0; }
  void showFigure(int /*label*/, Money /*figure*/) override {}

 private:
  Worksheet& provideWorksheet() override { return *this; }
  /// Takes the cells; false where one of them is no entry of its list or no count.
  bool take(const Header& header, const Row& row);
  void takeCell(Column column, std::string_view text);
  void calculate();
  /// Reports the boxes whose text isn't a number.
  void nameUnreadTexts();
  void problem(Column column, const char* why);
  void setOption(const settings::Text& option, bool chosen, bool& stored);

  MemoryStore store_;
  Services services_{store_, *this};
  bool stored401k_ = false;
  bool storedPreTax_ = false;
  std::array<std::string, columnCount> texts_;  ///< Of the boxes.
  std::array<int, columnCount> numbers_{};      ///< Of the choices and counts.
  std::string exemptionsText_;
  std::string additional_;  ///< The additional amount used: the row's, or Mississippi's exemption.
  std::string storage_;
  std::string problem_;
};

}  // namespace tallyfin::batch
