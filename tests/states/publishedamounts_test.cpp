#include <algorithm>
#include <array>
#include <functional>

#include "states/states.h"
#include "support/paycheck.h"
#include "support/published.h"

/// The amounts of a pay period, for each frequency and each count, compared with the published figures.

namespace tallyfin {
namespace {

using published::rounded;
using published::Units;
using published::units;

class PublishedAmounts : public PaycheckTest {
 protected:
  void freshRecord(int frequency) {
    payData = PayData{};
    sheet.exemptions = 0;
    sheet.stateWage = 0;
    sheet.stateStdDed = 0;
    payData.frequency = frequency;
  }

  /// Maryland's local table of rate 50.
  static published::Table localTable(int frequency) {
    for (const auto& table : published::tablesOf("Maryland")) {
      if (table.selection == "mMethod 50" && table.frequency == frequency) return table;
    }
    return {};
  }

  /// Tries each frequency with each count that the lists offer.
  static void forEachCount(const std::string& routine, const std::string& amount,
                           const std::function<void(int frequency, int count, double each)>& check) {
    const auto figures = published::amounts(routine, amount);
    for (const int frequency : {0, 1, 2, 3}) {
      for (int count = 0; count <= 15; ++count) {
        SCOPED_TRACE(testing::Message() << routine << ", frequency " << frequency << ", count " << count);
        check(frequency, count, std::stod(figures.at(static_cast<std::size_t>(frequency))));
      }
    }
  }
};

TEST_F(PublishedAmounts, OfTheExemptionsParsedAnew) {
  struct Parsed {
    const char* name;
    const char* amount;
    void (*run)();
  };
  for (const Parsed& routine : {Parsed{"Colorado", "Amount", Colorado},
                                {"DCTax", "Amount", DCTax},
                                {"Kansas", "Amount", Kansas},
                                {"Idaho", "Amount", Idaho},
                                {"Maryland", "State amount", Maryland},
                                {"WestVirginia", "per exemption", WestVirginia},
                                {"Ohio", "per exemption", Ohio},
                                {"NebraskaTax", "per exemption", NebraskaTax},
                                {"NewMexico", "per exemption", NewMexico},
                                {"RhodeIsland", "per exemption", RhodeIsland},
                                {"Vermont", "per exemption", Vermont},
                                {"Utah", "per exemption", Utah}}) {
    forEachCount(routine.name, routine.amount, [&](int frequency, int count, double each) {
      freshRecord(frequency);
      sheet.exemptionsEntry = std::to_string(count);
      routine.run();
      EXPECT_EQ(sheet.exemptions, count);
      EXPECT_EQ(payData.stateDepsDed, Money::ofUnits(rounded(each * count)));
    });
  }
}

TEST_F(PublishedAmounts, OfTheStateDependents) {
  struct Counted {
    const char* name;
    const char* amount;
    void (*run)();
  };
  for (const Counted& routine : {Counted{"IndianaTax", "Per-dependent amount", IndianaTax},
                                 {"Illinois", "First amount (staDeps)", Illinois},
                                 {"HawaiiTax", "Amount", HawaiiTax},
                                 {"NewJersey", "per exemption", NewJersey}}) {
    forEachCount(routine.name, routine.amount, [&](int frequency, int count, double each) {
      freshRecord(frequency);
      payData.staDeps = count;
      routine.run();
      EXPECT_EQ(payData.stateDepsDed, Money::ofUnits(rounded(each * count)));
    });
  }
}

TEST_F(PublishedAmounts, OfIllinoisSecondCount) {
  forEachCount("Illinois", "Second amount (illDeps)", [&](int frequency, int count, double each) {
    freshRecord(frequency);
    payData.illDeps = count;
    Illinois();
    EXPECT_EQ(payData.stateDepsDed, 0);
    EXPECT_EQ(sheet.stateWage, Money::ofUnits(-rounded(each * count)));
  });
}

TEST_F(PublishedAmounts, OfMichigan) {
  const auto taxOn = [](Units base) { return Money::ofUnits(rounded(published::real(base) * 0.044)); };
  forEachCount("MichiganTax", "Exemption amount", [&](int frequency, int count, double each) {
    freshRecord(frequency);
    sheet.exemptions = count;
    sheet.exemptionsEntry = "99";  // not read
    payData.grossPay = 10000;
    MichiganTax();
    EXPECT_EQ(payData.stateDepsDed, Money::ofUnits(rounded(each * count)));
    EXPECT_EQ(payData.stateTax, taxOn(units(10000) - rounded(each * count)));
  });
  forEachCount("MichiganTax", "Special amount (mMethod)", [&](int frequency, int count, double each) {
    freshRecord(frequency);
    payData.mMethod = count;
    payData.grossPay = 10000;
    MichiganTax();
    EXPECT_EQ(payData.stateTax, taxOn(units(10000) - rounded(each * count)));
  });
  forEachCount("MichiganTax", "Fixed amount", [&](int frequency, int count, double fixed) {
    freshRecord(frequency);
    sheet.exemptions = count;
    payData.staMarried = 9;
    payData.grossPay = 10000;
    MichiganTax();
    EXPECT_EQ(payData.stateDepsDed, 0);
    EXPECT_EQ(payData.stateTax, taxOn(units(10000) - rounded(fixed)));
  });
}

TEST_F(PublishedAmounts, OfMassachusetts) {
  const auto constant = published::amounts("Massachusetts", "constant");
  const auto credit = published::amounts("Massachusetts", "Head-of-family credit");
  forEachCount("Massachusetts", "per exemption", [&](int frequency, int count, double each) {
    const auto column = static_cast<std::size_t>(frequency);
    freshRecord(frequency);
    sheet.exemptionsEntry = std::to_string(count);
    payData.grossPay = 10000;
    payData.staMarried = 9;
    Massachusetts();
    const Units deduction = rounded(each * count + std::stod(constant[column]));
    EXPECT_EQ(payData.stateDepsDed, Money::ofUnits(deduction));
    EXPECT_EQ(payData.stateTax,
              Money::ofUnits(rounded(published::real(units(10000) - deduction) * 0.0595) - units(credit[column])));
  });
}

TEST_F(PublishedAmounts, OfLouisiana) {
  // Without pay periods the bracket step fails, and the exemption deduction can be read.
  forEachCount("Louisiana", "Exemption amount (staExmp)", [&](int frequency, int count, double each) {
    freshRecord(frequency);
    payData.staExmp = count;
    Louisiana();
    EXPECT_EQ(payData.stateDepsDed, Money::ofUnits(rounded(each * count)));
  });
  forEachCount("Louisiana", "Dependent amount (staDeps)", [&](int frequency, int count, double each) {
    freshRecord(frequency);
    payData.staDeps = count;
    Louisiana();
    EXPECT_EQ(sheet.stateStdDed, Money::ofUnits(rounded(each * count)));
  });
}

TEST_F(PublishedAmounts, OfGeorgia) {
  const auto perDependent = published::amounts("Georgia", "per dependent");
  const std::vector<std::pair<int, std::string>> choices{
      {0, "0 \"Single\""}, {3, "3 \"Married, claiming for both spouses (M)\""}, {6, "6 \"Married Filing Separately\""}};
  for (const auto& [choice, name] : choices) {
    forEachCount("Georgia", name, [&, choice = choice](int frequency, int count, double amount) {
      freshRecord(frequency);
      payData.staMarried = choice;
      payData.staDeps = count;
      Georgia();
      const Units first = rounded(amount);
      const Units second = choice == 6 ? 2 * first : first;
      const Units each = units(perDependent[static_cast<std::size_t>(frequency)]);
      EXPECT_EQ(sheet.stateStdDed, Money::ofUnits(first));
      EXPECT_EQ(payData.stateDepsDed, Money::ofUnits(second));
      EXPECT_EQ(sheet.stateWage, Money::ofUnits(-first - (count == 0 ? 0 : second + each * count)));
    });
  }
}

TEST_F(PublishedAmounts, OfCalifornia) {
  for (int count = 0; count <= 15; ++count) {
    const std::string deductionRow = count <= 10 ? "staExmp " + std::to_string(count) : "Multiplier above 10";
    const auto deductions = published::amounts("CalifTax", deductionRow);
    const auto credits = published::amounts("CalifTax", count <= 10 ? "staDeps " + std::to_string(count) : "staDeps 1");
    for (const int frequency : {0, 1, 2, 3}) {
      SCOPED_TRACE(testing::Message() << "frequency " << frequency << ", count " << count);
      const auto column = static_cast<std::size_t>(frequency);
      freshRecord(frequency);
      payData.staMarried = 1;  // no schedule
      payData.stateTax = 1000;
      payData.staExmp = count;
      payData.staDeps = count;
      CalifTax();
      const Units deduction = units(deductions[column]) * (count > 10 ? count : 1);
      const Units credit = count > 10 ? rounded(std::stod(credits[column]) * count) : units(credits[column]);
      EXPECT_EQ(sheet.stateWage, Money::ofUnits(-deduction));
      EXPECT_EQ(payData.stateDepsDed, Money::ofUnits(credit));
      EXPECT_EQ(payData.stateTax, Money::ofUnits(units(1000) - credit));
    }
  }
}

TEST_F(PublishedAmounts, OfMarylandsLocalExemptions) {
  const auto low = published::amounts("Maryland", "Low bound");
  const auto high = published::amounts("Maryland", "High bound");
  forEachCount("Maryland", "Local amount", [&](int frequency, int count, double each) {
    // At least 10 dollars stay above the exemptions.
    const auto column = static_cast<std::size_t>(frequency);
    const Units exemption = rounded(each * count);
    const Units gross = units(10) + exemption + units(high[column]);
    const Units deduction = std::clamp(rounded(published::real(gross) * 0.15), units(low[column]), units(high[column]));
    const Units base = gross - deduction - exemption;
    freshRecord(frequency);
    payData.grossPay = Money::ofUnits(gross);
    payData.mMethod = 50;
    sheet.exemptionsEntry = std::to_string(count);
    Maryland();
    EXPECT_GE(base, units(10));
    EXPECT_EQ(payData.localTax, Money::ofUnits(*localTable(frequency).tax(base)));
  });
}

TEST_F(PublishedAmounts, OfNewYork) {
  forEachCount("NewYork", "per exemption", [&](int frequency, int count, double each) {
    freshRecord(frequency);
    sheet.exemptionsEntry = std::to_string(count);
    NewYork();
    EXPECT_EQ(payData.staDeps, count);
    EXPECT_EQ(sheet.stateStdDed, Money::ofUnits(rounded(each * count)));
  });
}

TEST_F(PublishedAmounts, OfOregonsCap) {
  forEachCount("Oregon", "Cap", [&](int frequency, int count, double cap) {
    for (const Units fedTax : {rounded(cap) - 100, rounded(cap), rounded(cap) + 100}) {
      freshRecord(frequency);
      sheet.exemptionsEntry = std::to_string(count);
      payData.fedTax = Money::ofUnits(fedTax);
      Oregon();
      const Units allowed = std::min(fedTax, rounded(cap));
      EXPECT_EQ(payData.stateDepsDed, Money::ofUnits(frequency == 3 ? allowed : allowed * count));
    }
  });
}

TEST_F(PublishedAmounts, OfNorthCarolinasIncomeTests) {
  const auto higher = published::amounts("NCarolina", "Higher, below the test");
  const auto lower = published::amounts("NCarolina", "Lower, at the test and above");
  for (const int choice : {0, 3, 9}) {
    forEachCount("NCarolina", "Income test, staMarried " + std::to_string(choice),
                 [&](int frequency, int count, double test) {
                   for (const Units cents : {-100, 0, 100}) {
                     freshRecord(frequency);
                     payData.staMarried = choice;
                     payData.staDeps = count;
                     payData.grossPay = Money::ofUnits(rounded(test) + cents);
                     NCarolina();
                     const auto& each = cents < 0 ? higher : lower;
                     EXPECT_EQ(payData.stateDepsDed,
                               Money::ofUnits(rounded(std::stod(each[static_cast<std::size_t>(frequency)]) * count)));
                   }
                 });
  }
}

}  // namespace
}  // namespace tallyfin
