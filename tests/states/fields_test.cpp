#include <rapidcheck.h>

#include <bit>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "engine/statelist.h"
#include "states/states.h"
#include "support/paycheck.h"

/// For any record, a state routine reads and writes exactly the fields that its comment names. Its tables are in the
/// header named after its source.

namespace tallyfin {
namespace {

using Names = std::set<std::string>;

/// The fields that a routine reads and writes. Leaving a field unchanged doesn't count as reading it.
struct Touched {
  Names reads;
  Names writes;

  bool operator==(const Touched&) const = default;
};

std::string listed(const Names& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "`" : ", `") + name + "`";
  return list.empty() ? "nothing" : list;
}
void PrintTo(const Touched& touched, std::ostream* out) {
  *out << "Reads " << listed(touched.reads) << ". Writes " << listed(touched.writes) << ".";
}

std::string textOf(const std::string& file) {
  std::ifstream in(std::string(TESTS_FOLDER) + "/../src/states/" + file);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The text between the first `from` after the position and the next `to`.
std::string between(const std::string& text, std::size_t position, const std::string& from, const std::string& to) {
  const auto start = text.find(from, position);
  if (start == std::string::npos) return "";
  const auto inside = start + from.size();
  return text.substr(inside, text.find(to, inside) - inside);
}

/// The fields in the comment of a state's routine: "Reads `a`, `b`. Writes `c`."
Touched toldOf(const State& state) {
  const std::string name = between(textOf("statelist.cpp"), 0, "{\"" + std::string(state.caption) + "\", ", ",");
  const std::string source = textOf(state.source);
  const auto routine = source.find("\nvoid " + name + "()");
  const auto comment = source.rfind("\n\n", routine);
  const auto namesAfter = [&](const char* word) {
    const std::string sentence = between(source.substr(0, routine), comment, word, ".");
    Names names;
    for (auto start = sentence.find('`'); start != std::string::npos;) {
      const auto end = sentence.find('`', start + 1);
      names.insert(sentence.substr(start + 1, end - start - 1));
      start = sentence.find('`', end + 1);
    }
    return names;
  };
  return {namesAfter("Reads"), namesAfter("Writes")};
}

TEST(StateSources, IncludeNoTablesButThoseOfTheirOwnName) {
  for (const State& state : stateList) {
    if (!state.routine) continue;
    const std::string source = textOf(state.source);
    ASSERT_NE(source, "") << state.source;
    std::string name = state.source;
    name.resize(name.rfind(".cpp"));
    if (name.ends_with("states")) name.resize(name.size() - 6);
    for (std::size_t end = source.find("tables.h\"\n"); end != std::string::npos;
         end = source.find("tables.h\"\n", end + 1)) {
      const std::size_t start = source.rfind('/', end) + 1;
      EXPECT_EQ(source.substr(start, end - start), name) << state.caption;
    }
  }
}

/// Mostly a usual figure, sometimes a limit of its type.
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
    const Names written = toldOf(state).writes;
    EXPECT_TRUE(rc::check(state.caption, [&] {
      fill(anyAmount);
      const auto record = fieldsOf(payData);
      const auto worksheet = fieldsOf(sheet);
      state.routine();
      for (const auto& [name, value] : fieldsOf(payData)) {
        if (!written.contains(name)) RC_ASSERT(std::pair(name, value) == std::pair(name, record.at(name)));
      }
      for (const auto& [name, value] : fieldsOf(sheet)) {
        if (!written.contains(name)) RC_ASSERT(std::pair(name, value) == std::pair(name, worksheet.at(name)));
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
  // Routines that always assign the tax don't read the last one: Pennsylvania, Indiana, Illinois, Massachusetts,
  // Michigan.
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

/// The numbers of a run, the same in each.
class Numbers {
 public:
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  void operator()(const char*, Money& field) { field = Money::ofUnits(below(40) == 0 ? 0 : below(200'000'000)); }
  void operator()(const char* name, Int16& field) {
    const std::string_view which = name;
    if (which == "payPeriods") {
      field = std::array{52, 24, 26, 12, 0}.at(static_cast<std::size_t>(below(5)));
    } else {
      field = which == "mMethod" && below(2) == 0 ? 48 + below(14) : below(8) == 0 ? below(4000) : below(12) - 1;
    }
  }
  void operator()(const char*, double& field) { field = below(100) / 100.0; }
  void operator()(std::string& field) { field = std::to_string(below(8)); }

 private:
  std::mt19937 random_{1999};
};

/// All fields that a routine may read, by name.
struct Everything {
  PayData record;
  WorksheetFields work;
  std::string exemptionsText;

  template <class Self, class Visit>
  static void each(Self&& self, Visit&& visit) {
    forEachField(self.record, visit);
    forEachField(self.work, visit);
  }
};

class StateRoutines : public PaycheckTest {
 protected:
  /// All fields after the routine.
  Everything after(const State& state, const Everything& before) {
    payData = before.record;
    static_cast<WorksheetFields&>(sheet) = before.work;
    sheet.exemptionsEntry = before.exemptionsText;
    state.routine();
    return {payData, sheet, before.exemptionsText};
  }

  using Values = std::vector<std::int64_t>;
  static std::int64_t valueOf(Money field) { return field.units(); }
  static std::int64_t valueOf(Int16 field) { return field.value(); }
  static std::int64_t valueOf(double field) { return std::bit_cast<std::int64_t>(field); }
  static Values valuesOf(const Everything& all) {
    Values values;
    values.reserve(64);
    Everything::each(all, [&](const char*, const auto& field) { values.push_back(valueOf(field)); });
    return values;
  }

  /// The fields found by changing one field after another.
  Touched touchedBy(const State& state) {
    std::vector<std::string> names;
    Everything::each(Everything{}, [&](const char* name, const auto&) { names.emplace_back(name); });
    names.emplace_back("exemptionsText");

    Touched touched;
    Numbers numbers;
    for (int round = 0; round < 150; ++round) {
      Everything before;
      Everything::each(before, numbers);
      numbers(before.exemptionsText);
      const Values old = valuesOf(before);
      const Values made = valuesOf(after(state, before));
      for (std::size_t i = 0; i < made.size(); ++i) {
        if (made[i] != old[i]) touched.writes.insert(names[i]);
      }
      std::size_t changed = 0;
      const auto look = [&](const Everything& otherwise) {
        const Values oldOtherwise = valuesOf(otherwise);
        const Values madeOtherwise = valuesOf(after(state, otherwise));
        for (std::size_t i = 0; i < made.size(); ++i) {
          const bool kept = i == changed && made[i] == old[i] && madeOtherwise[i] == oldOtherwise[i];
          if (!kept && made[i] != madeOtherwise[i]) touched.reads.insert(names[changed]);
        }
        ++changed;
      };
      Everything::each(before, [&](const char* name, auto& field) {
        const auto kept = field;
        numbers(name, field);
        look(before);
        field = kept;
      });
      numbers(before.exemptionsText);
      look(before);
    }
    return touched;
  }
};

TEST_F(StateRoutines, ReadAndWriteTheFieldsThatTheirCommentsName) {
  store.write(section::stateInfo, "sta401", "Y");
  store.write(section::stateInfo, "staPreTax", "Y");
  for (const State& state : stateList) {
    if (!state.routine) continue;
    EXPECT_EQ(toldOf(state), touchedBy(state)) << state.caption;
  }
}

}  // namespace
}  // namespace tallyfin
