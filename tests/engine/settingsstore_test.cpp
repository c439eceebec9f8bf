#include "engine/settingsstore.h"

#include <gmock/gmock.h>

#include "engine/services.h"

namespace tallyfin {
namespace {

using testing::Optional;

TEST(MemoryStoreTest, HoldsTextsBySectionAndKey) {
  MemoryStore store;
  EXPECT_EQ(store.read("Settings", "Hours"), std::nullopt);
  store.write("Settings", "Hours", "40");
  store.write("User", "Hours", "9");
  EXPECT_THAT(store.read("Settings", "Hours"), Optional(std::string("40")));
  store.write("Settings", "Hours", "");
  EXPECT_THAT(store.read("Settings", "Hours"), Optional(std::string()));
  EXPECT_THAT(store.read("User", "Hours"), Optional(std::string("9")));
}

TEST(MemoryStoreTest, ForgetsASectionWithItsLastKey) {
  MemoryStore store;
  store.write("User", "UName", "-");
  store.erase("User", "UAdd");
  store.erase("Nobody", "UName");
  EXPECT_EQ(store.all().size(), 1U);
  store.erase("User", "UName");
  EXPECT_TRUE(store.all().empty());
}

TEST(Settings, GiveTheDefaultForAMissingKeyOnly) {
  MemoryStore store;
  const Installed<SettingsStore*> installed(settingsStore, &store);
  EXPECT_EQ(getSetting(applicationKey, section::settings, "Hours", "80"), "80");
  saveSetting(applicationKey, section::settings, "Hours", "");
  EXPECT_EQ(getSetting(applicationKey, section::settings, "Hours", "80"), "");
}

TEST(Settings, StandUnderOneApplication) {
  MemoryStore store;
  const Installed<SettingsStore*> installed(settingsStore, &store);
  saveSetting("Another", section::settings, "Hours", "40");
  EXPECT_TRUE(store.all().empty());
  saveSetting(applicationKey, section::settings, "Hours", "40");
  EXPECT_EQ(getSetting("Another", section::settings, "Hours", "80"), "80");
}

}  // namespace
}  // namespace tallyfin
