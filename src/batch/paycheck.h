#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/csv.h"
#include "engine/services.h"
#include "engine/settings.h"

/// One row, one paycheck: what the cells mean, and what comes of them.

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

/// Which column stands where in the rows of a file.
class Header {
 public:
  struct Entry {
    Column column;
    std::size_t place;  ///< In a row, from 0.
  };

  /// Refuses a row that is no header: gives the reason.
  std::optional<std::string> take(const Row& row);

  std::size_t size() const { return size_; }
  /// The columns that the file has of those that a row is worked from, in the order of these.
  const std::vector<Entry>& known() const { return known_; }

 private:
  std::size_t size_ = 0;
  std::vector<Entry> known_;
};

/// The columns that are added to the header: ",gross_pay" and so on.
const std::string& resultColumns();

/// Works one paycheck after the other, none of which knows of another. It is the worksheet of the engine and sets the
/// options that a state routine reads.
class Paycheck final : public Worksheet, private WorksheetProvider {
 public:
  Paycheck();

  /// Works the row, all of which have the same header, and adds its results to a text, each behind a comma, then the
  /// problem. Gives whether there is one.
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
  /// Takes the cells; false where one of them names nothing.
  bool take(const Header& header, const Row& row);
  void takeCell(Column column, std::string_view text);
  void calculate();
  /// The boxes whose text the program could make nothing of.
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
  std::string additional_;  ///< The additional amount that counts, which needn't be the row's.
  std::string storage_;
  std::string problem_;
};

}  // namespace tallyfin::batch
