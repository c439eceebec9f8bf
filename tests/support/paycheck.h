#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string_view>

#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/services.h"
#include "support/worksheet.h"

namespace tallyfin {

/// A fresh record, a fresh worksheet and an empty store in memory for each test.
class PaycheckTest : public testing::Test {
 protected:
  PaycheckTest() { payData = PayData{}; }

  MemoryStore store;
  FakeWorksheet sheet;

 private:
  const Services services_{store, sheet};
};

/// The amount of a text, for figures with cents: dollars("71.1028").
inline Money dollars(std::string_view text) { return toMoney(text); }

/// For messages of failed expectations.
inline void PrintTo(Money amount, std::ostream* out) { *out << toText(amount); }
inline void PrintTo(Int16 number, std::ostream* out) { *out << number.value(); }

}  // namespace tallyfin
