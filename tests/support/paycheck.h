#pragma once

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>

#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/services.h"

namespace tallyfin {

/// A main screen that is nothing but its texts.
class WorksheetStandIn : public Worksheet, public WorksheetProvider {
 public:
  std::string income;
  std::string rate401k;
  std::string preTax;
  std::string preFica;
  std::string exemptionsEntry = "0";
  int state = 0;
  bool selfEmployedTicked = false;
  std::array<std::string, 9> figures;  ///< By label number; 0 stays empty.

  const std::string& incomeText() const override { return income; }
  const std::string& rate401kText() const override { return rate401k; }
  const std::string& preTaxText() const override { return preTax; }
  const std::string& preFicaText() const override { return preFica; }
  const std::string& exemptionsText() const override { return exemptionsEntry; }
  int stateIndex() const override { return state; }
  bool selfEmployed() const override { return selfEmployedTicked; }
  Worksheet& provideWorksheet() override { return *this; }
  void showFigure(int label, Money figure) override { figures.at(static_cast<std::size_t>(label)) = toText(figure); }
};

/// A fresh record, a fresh worksheet and an empty store in memory for each test.
class PaycheckTest : public testing::Test {
 protected:
  PaycheckTest() { payData = PayData{}; }

  MemoryStore store;
  WorksheetStandIn sheet;

 private:
  const Services services_{store, sheet};
};

/// The amount of a text, for figures with cents: dollars("71.1028").
inline Money dollars(std::string_view text) { return toMoney(text); }

/// How a failed expectation shows them.
inline void PrintTo(Money amount, std::ostream* out) { *out << toText(amount); }
inline void PrintTo(Int16 number, std::ostream* out) { *out << number.value(); }

}  // namespace tallyfin
