#include "stateoptions/handover.h"

#include <gtest/gtest.h>

namespace tallyfin {
namespace {

TEST(Handover, GivesMississippisExemptionByMaritalOption) {
  EXPECT_STREQ(mississippiExemption(0), "6000");
  EXPECT_STREQ(mississippiExemption(7), "10000");
  EXPECT_STREQ(mississippiExemption(8), "");
  EXPECT_STREQ(mississippiExemption(9), "9500");
  for (const int other : {-1, 1, 6, 10}) EXPECT_EQ(mississippiExemption(other), nullptr);
}

}  // namespace
}  // namespace tallyfin
