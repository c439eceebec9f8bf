#include "library/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "engine/statelist.h"
#include "library/paycheck.h"
#include "library/states.h"

namespace tallyfin::library {
namespace {

using testing::ElementsAre;

/// The columns of state options, each with two valid values.
struct Probe {
  Column column;
  std::vector<int> values;
};
const std::vector<Probe> probes{{Column::state401k, {0, 1}},
                                {Column::statePreTax, {0, 1}},
                                {Column::stateDependents, {0, 1, 5}},
                                {Column::illinoisDependents, {0, 1, 5}},
                                {Column::stateExemptions, {0, 1, 2, 10, 32, 48, 60}},
                                {Column::stateMarital, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
                                {Column::stateAdditional, {0, 5}}};

/// Whether the state tax depends on a column, at some of many paychecks.
bool counts(int state, const Probe& probe) {
  Paycheck paycheck;
  for (const int income : {100, 700, 1900, 3000}) {
    for (const int frequency : {0, 3}) {
      for (const int marital : {0, 1, 3, 7, 9}) {
        paycheck.clear();
        paycheck.setInteger(Column::state, state);
        paycheck.setInteger(Column::income, income);
        paycheck.setInteger(Column::frequency, frequency);
        paycheck.setInteger(Column::exemptions, 1);
        paycheck.setInteger(Column::preTax, 90);
        paycheck.setInteger(Column::rate401k, 7);
        paycheck.setInteger(Column::stateMarital, marital);
        // The options that Mississippi offers replace the additional amount.
        if (probe.column == Column::stateAdditional && !isOffered(state, Column::stateMarital, marital)) continue;
        std::set<std::int64_t> taxes;
        for (const int value : probe.values) {
          paycheck.setInteger(probe.column, value);
          paycheck.work();
          taxes.insert(paycheck.result(5).units());
        }
        if (taxes.size() > 1) return true;
      }
    }
  }
  return false;
}

TEST(Options, ListWhatTheRoutinesOfTheStatesRead) {
  std::set<std::pair<std::string, Column>> listed;
  for (const StateValue& entry : stateValues()) listed.emplace(entry.state, entry.column);
  for (int state = 1; state <= 41; ++state) {
    const std::string caption = stateList[static_cast<std::size_t>(state)].caption;
    for (const Probe& probe : probes) {
      EXPECT_EQ(listed.contains({caption, probe.column}), counts(state, probe))
          << caption << " " << ruleOf(probe.column).name;
    }
  }
}

std::vector<std::string> linesOf(std::string_view state) {
  std::vector<std::string> lines;
  for (const StateValue& entry : stateValues()) {
    if (entry.state != state) continue;
    lines.push_back(std::string(entry.postal) + "," + std::string(ruleOf(entry.column).name) + "," + entry.value + "," +
                    entry.meaning);
  }
  return lines;
}

TEST(Options, ListEachValueAndItsMeaning) {
  EXPECT_THAT(linesOf("Illinois"), ElementsAre("IL,state_401k,Y or N,Deduct from Taxable State Amount? 401k",
                                               "IL,state_pre_tax,Y or N,Deduct from Taxable State Amount? Pre-Tax Amt",
                                               "IL,state_dependents,0 to 15,Dependents (State)",
                                               "IL,illinois_dependents,0 to 15,For Use in Computing Illinois Tax",
                                               "IL,state_additional,an amount,Additional Withholding Amount (State)"));
  EXPECT_THAT(linesOf("Arizona"), ElementsAre("AZ,state_exemptions,10,Select Withholding Percentage",
                                              "AZ,state_exemptions,20,Select Withholding Percentage",
                                              "AZ,state_exemptions,22,Select Withholding Percentage",
                                              "AZ,state_exemptions,28,Select Withholding Percentage",
                                              "AZ,state_exemptions,32,Select Withholding Percentage",
                                              "AZ,state_additional,an amount,Additional Withholding Amount (State)"));
  EXPECT_THAT(linesOf("Michigan"), testing::Contains("MI,state_marital,9,Claimed as Dependent by Another"));
  EXPECT_THAT(
      linesOf("Mississippi"),
      ElementsAre(testing::_, testing::_, "MS,state_dependents,0 to 15,Dependents (State)", "MS,state_marital,0,Single",
                  "MS,state_marital,7,Married. Spouse NOT employed", "MS,state_marital,8,Married. Spouse IS employed.",
                  "MS,state_marital,9,Head of Family (Household)"));
  EXPECT_THAT(linesOf("No State"), ElementsAre());
}

/// The problem of a paycheck with one option, a frequency and a state.
std::string problemOf(const char* state, Column column, const char* value) {
  Paycheck paycheck;
  paycheck.set(Column::frequency, "Weekly");
  paycheck.set(Column::state, state);
  paycheck.set(column, value);
  EXPECT_TRUE(paycheck.work());
  return paycheck.problem();
}

TEST(Options, ReportANumberThatTheStateDoesNotOffer) {
  EXPECT_EQ(problemOf("California", Column::stateMarital, "1"), "state_marital: California offers 0 3 8 9");
  EXPECT_EQ(problemOf("California", Column::stateMarital, "3"), "");
  EXPECT_EQ(problemOf("California", Column::stateExemptions, "11"), "state_exemptions: California offers 0 to 10");
  EXPECT_EQ(problemOf("Delaware", Column::stateDependents, "16"), "state_dependents: Delaware offers 0 to 15");
  EXPECT_EQ(problemOf("Delaware", Column::stateDependents, "-1"), "state_dependents: Delaware offers 0 to 15");
  EXPECT_EQ(problemOf("Delaware", Column::stateDependents, "15"), "");
  EXPECT_EQ(problemOf("New York", Column::stateDependents, "1"), "state_dependents: New York offers none");
  EXPECT_EQ(problemOf("New York", Column::stateDependents, "0"), "");
  EXPECT_EQ(problemOf("Illinois", Column::illinoisDependents, "3"), "");
  EXPECT_EQ(problemOf("Illinois", Column::illinoisDependents, "16"), "illinois_dependents: Illinois offers 0 to 15");
  EXPECT_EQ(problemOf("Delaware", Column::illinoisDependents, "3"), "illinois_dependents: Delaware offers none");
  EXPECT_EQ(problemOf("Pennsylvania", Column::stateMarital, "3"), "state_marital: Pennsylvania offers none");
  EXPECT_EQ(problemOf("Pennsylvania", Column::stateMarital, "0"), "");
  EXPECT_EQ(problemOf("Michigan", Column::stateMethod, "5"), "");
  EXPECT_EQ(problemOf("Michigan", Column::stateMethod, "6"), "state_method: Michigan offers 0 to 5");
  EXPECT_EQ(problemOf("California", Column::stateMethod, "1"), "state_method: California offers none");
  EXPECT_EQ(problemOf("No State", Column::stateExemptions, "1"), "state_exemptions: No State offers none");
}

TEST(Options, ReportWhatMustBeChosen) {
  EXPECT_EQ(problemOf("Alabama", Column::stateMarital, ""),
            "state_marital: none is chosen where Alabama offers 1 to 5");
  EXPECT_EQ(problemOf("Alabama", Column::stateMarital, "0"), "state_marital: Alabama offers 1 to 5");
  EXPECT_EQ(problemOf("Alabama", Column::stateMarital, "5"), "");
  EXPECT_EQ(problemOf("AZ", Column::stateMarital, ""),
            "state_exemptions: none is chosen where Arizona offers 10 20 22 28 32");
  EXPECT_EQ(problemOf("MD", Column::stateExemptions, ""),
            "state_exemptions: none is chosen where Maryland offers 48 50 55 56 58 60");
  EXPECT_EQ(problemOf("MD", Column::stateExemptions, "50"), "");
  EXPECT_EQ(problemOf("Arkansas", Column::stateMarital, ""), "");  // its buttons aren't read
}

}  // namespace
}  // namespace tallyfin::library
