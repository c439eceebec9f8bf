#include "engine/settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "engine/services.h"

namespace tallyfin {

namespace {

using testing::ElementsAre;

/// A store in which every save fails.
struct FullStore : MemoryStore {
  void write(std::string_view /*section*/, std::string_view /*key*/, const std::string& /*text*/) override {
    throw FailedStatement{};
  }
};

struct SettingsTest : testing::Test {
  MemoryStore store;
  const Installed<SettingsStore*> installed{settingsStore, &store};
};

/// The default of a setting, and its section and key.
template <class Held>
std::vector<std::string> kept(const Setting<Held>& setting, const Held& value) {
  MemoryStore store;
  const Installed<SettingsStore*> installed(settingsStore, &store);
  const std::string before = setting.text();
  setting.save(value);
  for (const auto& [section, keys] : store.all()) {
    for (const auto& [key, text] : keys) return {section, key, before, text};
  }
  return {};
}

TEST_F(SettingsTest, KeepTheLastEntries) {
  const Money amount = toMoney("12.5");
  EXPECT_THAT(kept(settings::incAmt, amount), ElementsAre("Settings", "IncAmt", "0", "12.5"));
  EXPECT_THAT(kept(settings::rate401k, 0.06), ElementsAre("Settings", "401k", "0", "0.06"));
  EXPECT_THAT(kept(settings::notTax, amount), ElementsAre("Settings", "NotTax", "0", "12.5"));
  EXPECT_THAT(kept(settings::ssExmp, amount), ElementsAre("Settings", "SSExmp", "0", "12.5"));
  EXPECT_THAT(kept<std::string>(settings::hours, "86.66"), ElementsAre("Settings", "Hours", "80", "86.66"));
  EXPECT_THAT(kept<Int16>(settings::state, 7), ElementsAre("Settings", "State", "0", "7"));
  EXPECT_THAT(kept<Int16>(settings::deps, 3), ElementsAre("Settings", "Deps", "0", "3"));
  EXPECT_THAT(kept<Int16>(settings::frequency, 2), ElementsAre("Settings", "Frequency", "", "2"));
  EXPECT_THAT(kept<Int16>(settings::maritalStat, 1), ElementsAre("Settings", "MaritalStat", "0", "1"));
  EXPECT_THAT(kept(settings::localAmt, amount), ElementsAre("Settings", "LocalAmt", "", "12.5"));
  EXPECT_THAT(kept<std::string>(settings::local, "2"), ElementsAre("Settings", "Local", "0", "2"));
  EXPECT_THAT(kept<Int16>(settings::applyTo, 5), ElementsAre("Settings", "ApplyTo", "0", "5"));
  EXPECT_THAT(kept<Int16>(settings::applyToDisp, 4), ElementsAre("Settings", "ApplyToDisp", "0", "4"));
  EXPECT_THAT(kept<Int16>(settings::self, -1), ElementsAre("Settings", "Self", "0", "-1"));
}

TEST_F(SettingsTest, KeepTheStateOptions) {
  EXPECT_THAT(kept<Int16>(settings::staDeps, 1), ElementsAre("StateInfo", "staDeps", "0", "1"));
  EXPECT_THAT(kept<Int16>(settings::illDeps, 2), ElementsAre("StateInfo", "IllDeps", "0", "2"));
  EXPECT_THAT(kept<Int16>(settings::staExmp, 3), ElementsAre("StateInfo", "staExmp", "0", "3"));
  EXPECT_THAT(kept(settings::staAdd, toMoney("12.5")), ElementsAre("StateInfo", "staAdd", "0", "12.5"));
  EXPECT_THAT(kept<Int16>(settings::staMarried, 9), ElementsAre("StateInfo", "staMarried", "0", "9"));
  EXPECT_THAT(kept<Int16>(settings::staRate, 4), ElementsAre("StateInfo", "staRate", "0", "4"));
  EXPECT_THAT(kept<Int16>(settings::staMethod, -1), ElementsAre("StateInfo", "staMethod", "", "-1"));
  EXPECT_THAT(kept<std::string>(settings::sta401, "Y"), ElementsAre("StateInfo", "sta401", "N", "Y"));
  EXPECT_THAT(kept<std::string>(settings::staPreTax, "Y"), ElementsAre("StateInfo", "staPreTax", "N", "Y"));
  EXPECT_THAT(kept<Int16>(settings::mMethod, 6), ElementsAre("StateInfo", "MMethod", "0", "6"));
}

TEST_F(SettingsTest, KeepThePersonalDetails) {
  EXPECT_THAT(kept<std::string>(settings::uName, "Pat"), ElementsAre("User", "UName", "-", "Pat"));
  EXPECT_THAT(kept<std::string>(settings::uAdd, "a"), ElementsAre("User", "UAdd", "-", "a"));
  EXPECT_THAT(kept<std::string>(settings::uCity, "b"), ElementsAre("User", "UCity", "-", "b"));
  EXPECT_THAT(kept<std::string>(settings::uSSN, "1"), ElementsAre("User", "USSN", "-", "1"));
  EXPECT_THAT(kept<std::string>(settings::marital0, "x"), ElementsAre("User", "Marital0", "0", "x"));
  EXPECT_THAT(kept<std::string>(settings::marital1, "y"), ElementsAre("User", "Marital1", "0", "y"));
  EXPECT_THAT(kept<Int16>(settings::dontShow, 1), ElementsAre("User", "DontShow", "0", "1"));
}

TEST_F(SettingsTest, ReadANumberAsOne) {
  EXPECT_EQ(settings::deps.number(), 0);
  store.write(section::settings, "Deps", " 3 ");
  EXPECT_EQ(settings::deps.number(), 3);
}

TEST_F(SettingsTest, FailWhereATextIsNoNumber) {
  store.write(section::settings, "Deps", "three");
  EXPECT_EQ(settings::deps.text(), "three");
  EXPECT_THROW(settings::deps.number(), FailedStatement);
}

TEST_F(SettingsTest, TakeTheReadersDefaultWhereTheTableHasNone) {
  EXPECT_EQ(settings::frequency.numberOr(-1), -1);
  store.write(section::settings, "Frequency", "2");
  EXPECT_EQ(settings::frequency.numberOr(-1), 2);
}

TEST_F(SettingsTest, SkipASaveOfWhatHasNoText) {
  settings::rate401k.save(0.06);
  settings::rate401k.save(std::numeric_limits<double>::infinity());
  EXPECT_EQ(settings::rate401k.text(), "0.06");
}

TEST_F(SettingsTest, SkipASaveThatTheStoreRefuses) {
  FullStore full;
  const Installed<SettingsStore*> unwilling(settingsStore, &full);
  settings::hours.save("40");
  EXPECT_EQ(settings::hours.text(), "80");
}

}  // namespace

}  // namespace tallyfin
