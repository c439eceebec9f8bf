#pragma once

#include <array>
#include <optional>
#include <string>

#include "engine/worksheet.h"

namespace tallyfin {

/// A fake main screen: its texts only.
class FakeWorksheet : public Worksheet, public WorksheetProvider {
 public:
  std::string income;
  std::string rate401k;
  std::string preTax;
  std::string preFica;
  std::string exemptionsEntry = "0";
  int state = 0;
  bool selfEmployedTicked = false;
  std::array<std::optional<Money>, 9> figures;  ///< By label number; 0 stays empty.

  const std::string& incomeText() const override { return income; }
  const std::string& rate401kText() const override { return rate401k; }
  const std::string& preTaxText() const override { return preTax; }
  const std::string& preFicaText() const override { return preFica; }
  const std::string& exemptionsText() const override { return exemptionsEntry; }
  int stateIndex() const override { return state; }
  bool selfEmployed() const override { return selfEmployedTicked; }
  Worksheet& provideWorksheet() override { return *this; }
  void showFigure(int label, Money figure) override { figures.at(static_cast<std::size_t>(label)) = figure; }
};

}  // namespace tallyfin
