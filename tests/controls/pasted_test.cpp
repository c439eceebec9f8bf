#include "controls/pasted.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

/// Pasted texts, by the table that the web app's tests read too.

namespace tallyfin {

namespace {

const nlohmann::json& table() {
  static const auto read = nlohmann::json::parse(std::ifstream(TALLYFIN_PASTED));
  return read;
}

/// A character of the first plane in UTF-8.
std::string utf8(unsigned code) {
  const auto rest = [&](unsigned shift) { return static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
  if (code < 0x80) return {static_cast<char>(code)};
  if (code < 0x800) return {static_cast<char>(0xC0U | (code >> 6U)), rest(0)};
  return {static_cast<char>(0xE0U | (code >> 12U)), rest(6), rest(0)};
}

TEST(PastedText, IsCleanedAsTheTableSays) {
  ASSERT_GT(table()["texts"].size(), 10);
  for (const auto& row : table()["texts"]) {
    const PastedInto into{row[1].get<bool>(), row[2].get<bool>()};
    EXPECT_EQ(cleanedPaste(row[0].get<std::string>(), into), row[3].get<std::string>()) << row;
  }
}

TEST(PastedText, KnowsEachBlankMinusAndEndAndNoOther) {
  const auto amount = [](unsigned code) { return cleanedPaste("1" + utf8(code) + "2", {.amount = true}); };
  std::vector<unsigned> blanks;
  std::vector<unsigned> ends;
  std::vector<unsigned> minuses;
  for (unsigned code = 1; code < 0x10000; ++code) {
    if (code >= 0xD800 && code < 0xE000) continue;  // halves of pairs
    const std::string cleaned = amount(code);
    if (cleaned == "1 2") blanks.push_back(code);
    if (cleaned == "1") ends.push_back(code);
    if (cleaned == "1-2" && code != '-') minuses.push_back(code);
    const bool trimmed = cleanedPaste(utf8(code) + "x" + utf8(code), {.replacesAll = true}) == "x";
    EXPECT_EQ(trimmed, cleaned == "1 2") << code;
  }
  EXPECT_EQ(blanks, table()["blanks"].get<std::vector<unsigned>>());
  EXPECT_EQ(ends, table()["ends"].get<std::vector<unsigned>>());
  EXPECT_EQ(minuses, table()["minuses"].get<std::vector<unsigned>>());
}

}  // namespace

}  // namespace tallyfin
