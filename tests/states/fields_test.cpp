#include <rapidcheck.h>

#include <algorithm>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "engine/statelist.h"
#include "states/states.h"
#include "support/paycheck.h"

/// Whatever stands in the record, a state routine touches the fields that are its own and no other.

namespace tallyfin {
namespace {

/// What a routine may write, beside `stateTax`, which each may.
struct Written {
  std::vector<std::string> record;
  std::vector<std::string> worksheet;
};

/// By the caption of the state list. "base" stands for the two fields of StateBase.
const std::map<std::string, Written> writtenBy{
    {"Alabama", {{"base", "staExmp", "stateDepsDed"}, {"stateWage"}}},
    {"Arizona", {{}, {}}},
    {"Arkansas", {{"base"}, {"exemptions", "stateWage"}}},
    {"California", {{"base", "stateDepsDed"}, {"stateWage"}}},
    {"Colorado", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Connecticut", {{"base"}, {"stateWage"}}},
    {"Delaware", {{"base", "stateDepsDed"}, {"stateWage"}}},
    {"Dist of Columbia", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Georgia", {{"base", "stateDepsDed"}, {"stateStdDed", "stateWage"}}},
    {"Hawaii", {{"base", "stateDepsDed"}, {"stateWage"}}},
    {"Idaho", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Illinois", {{"base", "stateDepsDed"}, {"stateWage"}}},
    {"Indiana", {{"base", "stateDepsDed"}, {"stateWage"}}},
    {"Iowa", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Kansas", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Kentucky", {{"base"}, {"exemptions", "stateWage"}}},
    {"Louisiana", {{"base", "stateDepsDed"}, {"stateStdDed", "stateWage"}}},
    {"Maine", {{"base"}, {"exemptions", "stateWage"}}},
    {"Maryland", {{"base", "stateDepsDed", "localTax"}, {"exemptions", "stateWage"}}},
    {"Massachusettes", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Michigan", {{"base", "stateDepsDed"}, {}}},
    {"Minnesota", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Mississippi", {{"base", "stateDepsDed"}, {"stateStdDed", "stateWage"}}},
    {"Missouri", {{"base", "stateDepsDed"}, {"exemptions", "stateStdDed", "stateWage"}}},
    {"Nebraska", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"New Jersey", {{"base", "stateDepsDed"}, {"stateWage"}}},
    {"New Mexico", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"New York", {{"base", "staDeps", "stateDepsDed"}, {"stateStdDed", "stateWage"}}},
    {"North Carolina", {{"base", "stateDepsDed"}, {"stateWage"}}},
    {"North Dakota", {{}, {}}},
    {"Ohio", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Oklahoma", {{"base"}, {"stateStdDed", "stateWage"}}},
    {"Oregon", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Pennsylvania", {{"base"}, {}}},
    {"Rhode Island", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"South Carolina", {{"base", "staDeps", "stateDepsDed"}, {"stateStdDed", "stateWage"}}},
    {"Utah", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Vermont", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Virginia", {{"base"}, {"exemptions", "stateWage"}}},
    {"West Virginia", {{"base", "stateDepsDed"}, {"exemptions", "stateWage"}}},
    {"Wisconsin", {{"base"}, {"exemptions", "stateWage"}}},
};

bool has(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// Mostly an everyday figure, now and then one at the end of its type.
Int16 anyCount() { return *rc::gen::oneOf(rc::gen::inRange(-1, 16), rc::gen::inRange(-32768, 32768)); }
Money anyAmount() {
  return Money::ofUnits(*rc::gen::oneOf(
      rc::gen::inRange<std::int64_t>(-10'000'000, 2'000'000'000), rc::gen::arbitrary<std::int64_t>(),
      rc::gen::element(std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max())));
}
Money everydayAmount() { return Money::ofUnits(*rc::gen::inRange<std::int64_t>(0, 2'000'000'000)); }

struct Fill {
  Money (*amount)();
  void operator()(const char*, Money& field) const { field = amount(); }
  void operator()(const char*, Int16& field) const { field = anyCount(); }
  void operator()(const char*, double& field) const { field = *rc::gen::inRange(0, 100) / 100.0; }
};

class StateFields : public PaycheckTest {
 protected:
  void fill(Money (*amount)()) {
    forEachField(payData, Fill{amount});
    payData.frequency = *rc::gen::inRange(-1, 5);
    payData.payPeriods = *rc::gen::element(52, 24, 26, 12, 0);
    payData.maritalStat = *rc::gen::inRange(0, 4);
    payData.staMarried = *rc::gen::inRange(0, 10);
    payData.mMethod = *rc::gen::element(0, 3, 48, 50, 55, 56, 58, 60);
    sheet.exemptions = anyCount();
    sheet.stateWage = amount();
    sheet.stateStdDed = amount();
    sheet.staRate = *rc::gen::inRange(-1, 6);
    sheet.exemptionsEntry = *rc::gen::element<std::string>("0", "1", "2", "3", "12", "15", "-1", "2000", "", "many");
    store.write(section::stateInfo, "sta401", *rc::gen::element<std::string>("Y", "N", "y"));
    store.write(section::stateInfo, "staPreTax", *rc::gen::element<std::string>("Y", "N", ""));
  }
};

/// The record's fields as texts by name.
std::map<std::string, std::string> fieldsOf(const PayData& record) {
  std::map<std::string, std::string> fields;
  forEachField(record, [&](const char* name, const auto& field) { fields[name] = testing::PrintToString(field); });
  return fields;
}
std::map<std::string, std::string> fieldsOf(const Worksheet& sheet) {
  return {{"exemptions", testing::PrintToString(sheet.exemptions)},
          {"stateWage", testing::PrintToString(sheet.stateWage)},
          {"stateStdDed", testing::PrintToString(sheet.stateStdDed)},
          {"staRate", testing::PrintToString(sheet.staRate)}};
}

TEST_F(StateFields, AreLeftAloneButForTheRoutinesOwn) {
  for (const State& state : stateList) {
    if (!state.routine) continue;
    const Written& written = writtenBy.at(state.caption);
    const auto mayWrite = [&](const std::string& name) {
      if (name == "stateTax") return true;
      if (name == "state401k" || name == "statePreTax") return has(written.record, "base");
      return has(written.record, name);
    };
    EXPECT_TRUE(rc::check(state.caption, [&] {
      fill(anyAmount);
      const auto record = fieldsOf(payData);
      const auto worksheet = fieldsOf(sheet);
      state.routine();
      for (const auto& [name, value] : fieldsOf(payData)) {
        if (!mayWrite(name)) RC_ASSERT(std::pair(name, value) == std::pair(name, record.at(name)));
      }
      for (const auto& [name, value] : fieldsOf(sheet)) {
        if (!has(written.worksheet, name)) RC_ASSERT(std::pair(name, value) == std::pair(name, worksheet.at(name)));
      }
    }));
  }
}

TEST_F(StateFields, NeverHoldANegativeTaxOnceTheFinishHasRun) {
  for (const State& state : stateList) {
    if (!state.routine) continue;
    EXPECT_TRUE(rc::check(state.caption, [&] {
      fill(everydayAmount);
      sheet.exemptionsEntry = "2";  // New York doesn't reach its finish with a text that is no number
      state.routine();
      RC_ASSERT(payData.stateTax >= 0);
    }));
  }
}

TEST_F(StateFields, AreWrittenAlikeByTheSameCalculationTwice) {
  // A routine that assigns its tax anew forgets the last one: Pennsylvania, Indiana, Illinois, Massachusetts, Michigan.
  for (const std::size_t state : {34U, 13U, 12U, 20U, 21U}) {
    EXPECT_TRUE(rc::check(stateList[state].caption, [&] {
      fill(everydayAmount);
      payData.frequency = *rc::gen::inRange(0, 4);
      stateList[state].routine();
      const PayData first = payData;
      stateList[state].routine();
      RC_ASSERT(payData == first);
    }));
  }
}

}  // namespace
}  // namespace tallyfin
