#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <map>
#include <set>

#include "states/states.h"
#include "support/paycheck.h"
#include "support/published.h"

/// Every row of every band table for every status and frequency, at its bound and a cent and a dollar to both sides,
/// compared with the published figures. `staAdd` is large enough to show a negative tax.

namespace tallyfin {
namespace {

using published::real;
using published::rounded;
using published::Table;
using published::Units;
using published::units;
using published::wholeDollars;

constexpr int additional = 5000;

/// The tax in the record before: a gap of the table leaves it unchanged.
const Units formerTax = units("77.1234");

Units integerRounded(Units amount) {
  const Units whole = wholeDollars(amount);
  return whole < units(-32768) || whole > units(32767) ? amount : whole;
}

Money money(Units amount) { return Money::ofUnits(amount); }

class PublishedTables : public PaycheckTest {
 protected:
  /// How to make a routine apply a table, and its other steps.
  struct Drive {
    /// Settings that choose the table, each to be tried.
    std::vector<std::function<void()>> settings{[] {}};
    /// The amount that is subtracted from the gross to get x.
    Units deduction = 0;
    /// From the table's tax to the tax of the period, before `staAdd`.
    std::function<Units(Units)> after = [](Units tax) { return tax; };
  };

  void freshRecord(const Table& table) {
    payData = PayData{};
    sheet.exemptions = 0;
    sheet.stateWage = 0;
    sheet.stateStdDed = 0;
    sheet.staRate = 0;
    sheet.exemptionsEntry = "0";
    payData.frequency = table.frequency;
    payData.payPeriods = 1;  // a year of one period, so that every annual wage can be met exactly
    payData.staAdd = additional;
    payData.stateTax = money(formerTax);
  }

  /// Settings for the status that the published selection names.
  static std::vector<std::function<void()>> status(const Table& table) {
    const auto marital = [](int value) { return [value] { payData.maritalStat = value; }; };
    if (table.selection == "Married") return {marital(0)};
    if (table.selection == "Single") return {marital(1)};
    if (table.selection == "Married Claiming Single") return {marital(2)};
    if (table.selection == "-") return {[] {}};
    // "staMarried 0 or 3"
    std::vector<std::function<void()>> settings;
    for (const char digit : table.selection) {
      if (std::isdigit(digit)) settings.push_back([digit] { payData.staMarried = digit - '0'; });
    }
    return settings;
  }

  static void expectTax(Units before) {
    const Units total = before + units(additional);
    EXPECT_EQ(payData.stateTax, money(total <= 0 ? 0 : total));
  }

  /// Runs the routine over all its tables.
  void hold(const std::string& routine, void (*run)(), const std::function<Drive(const Table&)>& driveOf) {
    const auto tables = published::tablesOf(routine);
    ASSERT_FALSE(tables.empty());
    for (const Table& table : tables) {
      const Drive drive = driveOf(table);
      for (const auto& setting : drive.settings) {
        for (const Units x : table.probes()) {
          SCOPED_TRACE(testing::Message() << table.selection << ", frequency " << table.frequency << ", x " << real(x));
          freshRecord(table);
          setting();
          payData.grossPay = money(x + drive.deduction);
          run();
          EXPECT_EQ(sheet.stateWage, money(x));
          expectTax(drive.after(table.tax(x).value_or(formerTax)));
        }
      }
    }
  }

  /// A routine that applies the table of its status to the gross.
  void holdPlain(const std::string& routine, void (*run)()) {
    hold(routine, run, [](const Table& table) { return Drive{.settings = status(table)}; });
  }
};

TEST_F(PublishedTables, Alabama) {
  // A wage of 100,000 has the full standard deduction; the federal tax brings it to x.
  const Units wage = units(100000);
  for (const Table& table : published::tablesOf("Alabama")) {
    const bool married = table.selection == "Married";
    for (const int option : married ? std::vector{3} : std::vector{1, 2, 4, 5}) {
      const int personal = option == 3 ? 3000 : option == 1 || option == 4 ? 1500 : 0;
      const int standard = option == 3 ? 4000 : 2000;
      for (const Units x : table.probes()) {
        SCOPED_TRACE(testing::Message() << "option " << option << ", x " << real(x));
        freshRecord(table);
        payData.staMarried = option;
        payData.grossPay = money(wage);
        payData.fedTax = money(wage - x - units(personal + standard));
        Alabama();
        EXPECT_EQ(payData.staExmp, standard);
        EXPECT_EQ(payData.stateDepsDed, personal);
        EXPECT_EQ(sheet.stateWage, money(x));
        expectTax(*table.tax(x));
      }
    }
  }
}

TEST_F(PublishedTables, Arkansas) {
  hold("Arkansas", Arkansas, [](const Table&) { return Drive{.deduction = units(2000)}; });
}

TEST_F(PublishedTables, ArkansasAndIowaMultiplyByThePeriodsOfTheFrequency) {
  struct Annual {
    const char* name;
    void (*run)();
    Units deduction;
    std::function<Units(Units)> after;
  };
  for (const Annual& routine : {Annual{"Arkansas", Arkansas, units(2000), [](Units tax) { return tax; }},
                                Annual{"IowaTax", IowaTax, units(1500), integerRounded}}) {
    const Table table = published::tablesOf(routine.name).front();
    for (const int frequency : {0, 1, 2, 3}) {
      const int periods = std::array{52, 24, 26, 12}.at(static_cast<std::size_t>(frequency));
      for (const published::Row& row : table.rows) {
        for (const Units gross :
             {(row.bound + routine.deduction) / periods, (row.bound + routine.deduction) / periods + 1}) {
          SCOPED_TRACE(testing::Message() << routine.name << ", frequency " << frequency << ", gross " << real(gross));
          freshRecord(table);
          payData.frequency = frequency;
          payData.payPeriods = periods;
          payData.grossPay = money(gross);
          routine.run();
          const Units annual = *table.tax(gross * periods - routine.deduction);
          expectTax(routine.after(rounded(real(annual) / periods)));
        }
      }
    }
  }
}

TEST_F(PublishedTables, Delaware) {
  for (const auto& [choice, deduction] : {std::pair{0, 3250}, {3, 4000}, {6, 2000}, {1, 0}}) {
    hold("Delaware", Delaware, [choice = choice, deduction = deduction](const Table&) {
      return Drive{.settings = {[choice] { payData.staMarried = choice; }}, .deduction = units(deduction)};
    });
  }
}

TEST_F(PublishedTables, Kentucky) {
  hold("Kentucky", Kentucky, [](const Table&) { return Drive{.deduction = units(650)}; });
}

TEST_F(PublishedTables, Iowa) {
  hold("IowaTax", IowaTax, [](const Table&) { return Drive{.deduction = units(1500), .after = integerRounded}; });
}

TEST_F(PublishedTables, Maine) {
  hold("MaineTax", MaineTax, [](const Table& table) {
    return Drive{.settings = status(table),
                 .after = [](Units tax) { return tax <= units(40) ? 0 : integerRounded(tax); }};
  });
}

TEST_F(PublishedTables, Minnesota) {
  // The additional amount is whole, so rounding the sum rounds the tax.
  hold("Minnesota", Minnesota,
       [](const Table& table) { return Drive{.settings = status(table), .after = wholeDollars}; });
}

TEST_F(PublishedTables, Mississippi) {
  // Single, and the additional amount counts as a personal exemption.
  hold("Mississippi", Mississippi,
       [](const Table&) { return Drive{.deduction = units(2300 + additional), .after = integerRounded}; });
}

TEST_F(PublishedTables, Missouri) {
  // Married without exemptions.
  hold("Missouri", Missouri, [](const Table&) { return Drive{.deduction = units(4300), .after = wholeDollars}; });
}

TEST_F(PublishedTables, Colorado) { holdPlain("Colorado", Colorado); }
TEST_F(PublishedTables, DistrictOfColumbia) { holdPlain("DCTax", DCTax); }
TEST_F(PublishedTables, Hawaii) { holdPlain("HawaiiTax", HawaiiTax); }
TEST_F(PublishedTables, Kansas) { holdPlain("Kansas", Kansas); }
TEST_F(PublishedTables, Idaho) { holdPlain("Idaho", Idaho); }
TEST_F(PublishedTables, Wisconsin) { holdPlain("Wisconsin", Wisconsin); }  // no exemptions
TEST_F(PublishedTables, WestVirginia) { holdPlain("WestVirginia", WestVirginia); }
TEST_F(PublishedTables, Ohio) { holdPlain("Ohio", Ohio); }
TEST_F(PublishedTables, SouthCarolina) { holdPlain("SCarolina", SCarolina); }
TEST_F(PublishedTables, Nebraska) { holdPlain("NebraskaTax", NebraskaTax); }
TEST_F(PublishedTables, NewMexico) { holdPlain("NewMexico", NewMexico); }
TEST_F(PublishedTables, RhodeIsland) { holdPlain("RhodeIsland", RhodeIsland); }
TEST_F(PublishedTables, Vermont) { holdPlain("Vermont", Vermont); }
TEST_F(PublishedTables, NorthCarolina) { holdPlain("NCarolina", NCarolina); }

TEST_F(PublishedTables, WisconsinWithAnExemption) {
  for (const Table& table : published::tablesOf("Wisconsin")) {
    for (const Units x : table.probes()) {
      SCOPED_TRACE(testing::Message() << table.selection << ", x " << real(x));
      freshRecord(table);
      payData.maritalStat = table.selection == "Married" ? 0 : 1;
      sheet.exemptionsEntry = "1";
      payData.grossPay = money(x);
      Wisconsin();
      const Units tax = x < table.rows.front().bound ? 0 : *table.tax(x);
      expectTax(tax - units(20));
    }
  }
}

TEST_F(PublishedTables, Utah) {
  hold("Utah", Utah, [](const Table& table) { return Drive{.settings = status(table), .after = integerRounded}; });
}

TEST_F(PublishedTables, Virginia) {
  hold("Virginia", Virginia, [](const Table&) { return Drive{.deduction = units(2500), .after = integerRounded}; });
}

TEST_F(PublishedTables, NewYork) {
  for (const int marital : {0, 1, 2}) {
    hold("NewYork", NewYork, [marital](const Table& table) {
      const auto frequency = static_cast<std::size_t>(table.frequency);
      const Units deduction =
          marital == 2 ? 0 : units(published::amounts("NewYork", marital == 0 ? "0 Married" : "1 Single")[frequency]);
      return Drive{.settings = {[marital] { payData.maritalStat = marital; }}, .deduction = deduction};
    });
  }
}

TEST_F(PublishedTables, NewJersey) {
  EXPECT_EQ(published::tablesOf("NewJersey").size(), 20U);
  hold("NewJersey", NewJersey, [this](const Table& table) {
    const int letter = table.selection.back() - 'A';  // "Rate A"
    return Drive{.settings = {[this, letter] { sheet.staRate = letter; }}};
  });
}

TEST_F(PublishedTables, Georgia) {
  // A `staMarried` that isn't offered leaves both deductions at 0.
  hold("Georgia", Georgia, [](const Table& table) {
    auto drive = Drive{.settings = status(table)};
    for (auto& setting : drive.settings) {
      setting = [setting] {
        setting();
        payData.staMarried = 1;
      };
    }
    return drive;
  });
}

TEST_F(PublishedTables, California) {
  struct Choice {
    int staMarried;
    int exemptions;
    const char* schedule;
  };
  const std::map<std::string, std::vector<Choice>> choices{
      {"Group A", {{0, 0, "A"}, {8, 2, "A"}}},
      {"Group B", {{3, 0, "B, exemptions ≤ 1"}, {3, 1, "B, exemptions ≤ 1"}, {3, 2, "B, exemptions ≥ 2"}}},
      {"Group C", {{9, 0, "C"}}}};
  for (const Table& table : published::tablesOf("CalifTax")) {
    const auto frequency = static_cast<std::size_t>(table.frequency);
    for (const Choice& choice : choices.at(table.selection)) {
      const std::string schedule = choice.schedule;
      const Units deduction = units(published::amounts("CalifTax", schedule + ": deduction")[frequency]);
      const Units gate = units(published::amounts("CalifTax", schedule + ": gate")[frequency]);
      auto probes = table.probes();
      for (const int cents : {-1, 0, 1}) probes.push_back(gate - deduction + cents * 100);
      for (const Units x : probes) {
        SCOPED_TRACE(testing::Message() << schedule << ", frequency " << table.frequency << ", x " << real(x));
        freshRecord(table);
        payData.staMarried = choice.staMarried;
        sheet.exemptions = choice.exemptions;
        payData.grossPay = money(x + deduction);
        CalifTax();
        if (schedule == "C" && table.frequency == 0 && x + deduction <= gate) {
          EXPECT_EQ(payData.stateTax, 0);
        } else {
          expectTax(*table.tax(x));
        }
      }
    }
  }
}

TEST_F(PublishedTables, Maryland) {
  std::map<int, Table> stateTables;
  for (const Table& table : published::tablesOf("Maryland")) {
    const bool local = table.selection != "-";
    if (!local) stateTables.emplace(table.frequency, table);
    const auto frequency = static_cast<std::size_t>(table.frequency);
    const Units low = units(published::amounts("Maryland", "Low bound")[frequency]);
    const Units high = units(published::amounts("Maryland", "High bound")[frequency]);
    std::size_t held = 0;
    for (const Units x : table.probes()) {
      SCOPED_TRACE(testing::Message() << table.selection << ", frequency " << table.frequency << ", x " << real(x));
      // 15 percent lies below the low bound for every bound of the table, and far above it above the high one.
      const bool farAbove = (x + high) * 15 > high * 100;
      const Units gross = x + (farAbove ? high : low);
      if (!farAbove && gross * 15 >= low * 100) continue;
      ++held;
      freshRecord(table);
      payData.grossPay = money(gross);
      payData.mMethod = local ? std::stoi(table.selection.substr(8)) : 0;  // "mMethod 48"
      Maryland();
      const Units localTax = local ? std::max<Units>(*table.tax(x), 0) : 0;
      const Units stateTax = *stateTables.at(table.frequency).tax(x) + units(additional);
      EXPECT_EQ(sheet.stateWage, money(x));
      EXPECT_EQ(payData.localTax, money(localTax));
      EXPECT_EQ(payData.stateTax, money(stateTax + localTax));
    }
    EXPECT_GE(held, 8 * table.rows.size());
  }
}

TEST_F(PublishedTables, Oregon) {
  for (const Table& table : published::tablesOf("Oregon")) {
    const bool married = table.selection == "Married";
    const bool below = table.selection == "Single below 3 exemptions";
    for (const int exemptions : married ? std::vector{0, 2, 5} : below ? std::vector{0, 2} : std::vector{3, 7}) {
      for (const Units x : table.probes()) {
        SCOPED_TRACE(testing::Message() << table.selection << ", frequency " << table.frequency << ", " << exemptions
                                        << " exemptions, x " << real(x));
        freshRecord(table);
        payData.maritalStat = married ? 0 : 1;
        sheet.exemptionsEntry = std::to_string(exemptions);
        payData.grossPay = money(x);
        Oregon();
        expectTax(*table.tax(x, exemptions));
      }
    }
  }
}

/// Oklahoma's x for an annual wage without dependents, below the ceiling.
Units oklahomaBase(int staMarried, Units wage) {
  const Units standard = std::clamp(rounded(real(wage) * 0.15), units(1000), units(2000));
  const Units estimateBase = staMarried == 0   ? wage * 2750 - units(4300)
                             : staMarried == 3 ? wage - units(7200)
                                               : wage - units(4300);
  return wage - standard - rounded(real(estimateBase) * 0.15);
}

TEST_F(PublishedTables, Oklahoma) {
  for (const Table& table : published::tablesOf("Oklahoma")) {
    const int choice = table.selection.back() - '0';  // "staMarried 0"
    std::size_t held = 0;
    for (const Units wanted : table.probes()) {
      // The wage next to it: x rises with the wage, but falls for Single.
      Units from = units(-100);
      Units to = units(22560);
      while (to - from > 1) {
        const Units middle = from + (to - from) / 2;
        const bool reached =
            choice == 0 ? oklahomaBase(choice, middle) <= wanted : oklahomaBase(choice, middle) >= wanted;
        (reached ? to : from) = middle;
      }
      if (std::abs(oklahomaBase(choice, to) - wanted) > 3000) continue;  // no wage up to the ceiling leads there
      ++held;
      for (const Units wage : {to - 3, to - 2, to - 1, to, to + 1, to + 2, to + 3}) {
        const Units x = oklahomaBase(choice, wage);
        SCOPED_TRACE(testing::Message() << table.selection << ", wage " << real(wage) << ", x " << real(x));
        freshRecord(table);
        payData.staMarried = choice;
        payData.grossPay = money(wage);
        Oklahoma();
        EXPECT_EQ(sheet.stateWage, money(x));
        expectTax(wholeDollars(*table.tax(x)));
      }
    }
    EXPECT_GE(held, 8 * table.rows.size());
  }
}

TEST_F(PublishedTables, Connecticut) {
  std::map<std::string, Table> byName;
  for (const Table& table : published::tablesOf("Connecticut")) byName.emplace(table.selection, table);
  EXPECT_EQ(byName.size(), 9U);
  const std::vector<std::array<std::string, 3>> schedules{
      {"exemptions of selector 0", "bands of selectors 0 and 3", "credits of selector 0"},
      {"exemptions of selector 1", "bands of selector 1", "credits of selector 1"},
      {"exemptions of selectors 2 and 3", "bands of selector 2", "credits of selector 2"},
      {"exemptions of selectors 2 and 3", "bands of selectors 0 and 3", ""}};
  int letter = 0;
  for (const auto& [exemptionName, bandName, creditName] : schedules) {
    const Table& exemptions = byName.at(exemptionName);
    const Table& bands = byName.at(bandName);
    auto annualBases = exemptions.probes();
    for (const Units x : bands.probes()) annualBases.push_back(x + rounded(exemptions.rows.front().plus));
    if (!creditName.empty()) {
      for (const Units base : byName.at(creditName).probes()) annualBases.push_back(base);
    }
    for (const int frequency : {-1, 0, 1, 2, 3}) {
      // Without a frequency the base isn't multiplied and can be met exactly; else by the nearest gross.
      const int periods = std::array{1, 52, 24, 26, 12}.at(static_cast<std::size_t>(frequency + 1));
      for (const Units wanted : annualBases) {
        freshRecord(bands);
        payData.frequency = frequency;
        payData.payPeriods = periods;
        payData.grossPay = money(wanted / periods);
        sheet.staRate = letter;
        const Units annual = wanted / periods * periods;
        SCOPED_TRACE(testing::Message() << "letter " << letter << ", frequency " << frequency << ", " << real(annual));
        Connecticut();
        const Units exemption = rounded(exemptions.rowOf(annual)->plus);
        const auto fraction =
            creditName.empty() ? 0.0F : static_cast<float>(byName.at(creditName).rowOf(annual)->extra);
        const Units tax = *bands.tax(annual - exemption);
        const Units credited = rounded(real(tax) * (1 - static_cast<double>(fraction)));
        expectTax(rounded(real(credited) / periods));
      }
    }
    ++letter;
  }
}

TEST_F(PublishedTables, AreAllHeldHere) {
  std::set<std::string> routines;
  std::size_t rows = 0;
  for (const Table& table : published::tables()) {
    routines.insert(table.routine);
    rows += table.rows.size();
  }
  EXPECT_EQ(routines.size(), 33U);
  EXPECT_EQ(published::tables().size(), 216U);
  EXPECT_EQ(rows, 1326U);
}

}  // namespace
}  // namespace tallyfin
