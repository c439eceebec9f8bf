#include "controls/caption.h"

#include <gmock/gmock.h>

namespace tallyfin {
namespace {

using testing::FieldsAre;
using testing::Pair;

TEST(Caption, IsPartedAfterItsNumber) {
  EXPECT_THAT(captionOf("10.  Add lines"), FieldsAre("10.", "Add lines"));
  EXPECT_THAT(captionOf("5 Total"), FieldsAre("5", "Total"));
  EXPECT_THAT(captionOf("A.  Enter 1"), FieldsAre("A.", "Enter 1"));
  EXPECT_THAT(captionOf("- Last year"), FieldsAre("-", "Last year"));
  EXPECT_THAT(captionOf("    City"), FieldsAre("", "City"));
  EXPECT_THAT(captionOf("3 "), FieldsAre("3", ""));
}

TEST(Caption, IsWordsAloneWithoutANumberAndBlanks) {
  for (const char* words : {"", "Total", "1-800", "10.Add", "A Form", "Z.", "a. b", "-", "99"}) {
    EXPECT_THAT(captionOf(words), FieldsAre("", words));
  }
}

TEST(Caption, IsPartedAtItsGap) {
  EXPECT_THAT(aroundGap("Find the number in  it here."), Pair("Find the number in", "it here."));
  EXPECT_THAT(aroundGap("No gap"), Pair("No gap", ""));
}

TEST(Caption, LosesItsPaddingBitByBit) {
  EXPECT_EQ(withLessPadding("a      b     c . ."), "a     b     c . .");
  EXPECT_EQ(withLessPadding("a   b . ."), "a   b .");
  EXPECT_EQ(withLessPadding("a   b."), "a   b.");
  EXPECT_EQ(withoutPadding("a      b     c . ."), "a   b   c");
  EXPECT_EQ(withoutPadding("a b"), "a b");
}

}  // namespace
}  // namespace tallyfin
