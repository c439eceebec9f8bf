#include "explain/jsontext.h"

#include <gtest/gtest.h>

namespace tallyfin {
namespace {

TEST(JsonText, IsWrittenWithoutBlanksAndBeyondAsciiAsUtf8) {
  EXPECT_EQ(json("a \"b\" \\ \u00E9\t\x01"), "\"a \\\"b\\\" \\\\ \u00E9\\t\\u0001\"");
  EXPECT_EQ(json(std::vector<std::string>{"a", "b"}), "[\"a\",\"b\"]");
  EXPECT_EQ(json(std::vector<std::vector<std::string>>{{"a"}, {}}), "[[\"a\"],[]]");
}

TEST(JsonText, ReplacesBytesThatAreNoText) { EXPECT_EQ(json("a\xFF"), "\"a\xEF\xBF\xBD\""); }

TEST(JsonText, KeepsTheMembersOfAnObjectInTheirOrder) {
  EXPECT_EQ(JsonObject().text(), "{}");
  EXPECT_EQ(JsonObject().add("z", "1").add("a \"b\"", json("x")).text(), "{\"z\":1,\"a \\\"b\\\"\":\"x\"}");
}

}  // namespace
}  // namespace tallyfin
