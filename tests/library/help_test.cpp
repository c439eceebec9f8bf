#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "engine/numbertext.h"
#include "library/options.h"
#include "library/paycheck.h"

/// The help repeats amounts and rates of the rules. These tests read the help and look for each figure in worksheets,
/// which name every constant of a calculation, or in the rows of tables.

namespace tallyfin::library {
namespace {

/// Amounts, and percentages as the number before the sign.
struct Figures {
  std::set<Money> amounts;
  std::set<Money> percents;
};

/// The first group of each match of a pattern.
std::vector<std::string> matches(const std::string& text, const std::string& pattern) {
  const std::regex regex(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
    found.push_back((*match)[1]);
  return found;
}

/// The topic of a help file, from its title to the next one.
std::string topic(const std::string& id) {
  std::ifstream in(std::string(TESTS_FOLDER) + "/../help/Tallyfin.hlp");
  std::stringstream read;
  read << in.rdbuf();
  const std::string help = read.str();
  const std::size_t from = help.find("<h1 id=\"" + id + "\">");
  EXPECT_NE(from, std::string::npos) << id;
  return help.substr(from, help.find("<h1 ", from + 1) - from);
}

const std::string number = R"(\d[\d,]*(?:\.\d+)?)";

/// The figures of a text: "$1,500", "2, 4 and 5 percent".
Figures figuresOf(const std::string& text) {
  Figures figures;
  for (const std::string& amount : matches(text, R"(\$()" + number + ")")) figures.amounts.insert(toMoney(amount));
  for (const std::string& list : matches(text, R"(((?:\d[\d.]*(?:, | and | to )?)+) percent)"))
    for (const std::string& percent : matches(list, R"((\d+(?:\.\d+)?))")) figures.percents.insert(toMoney(percent));
  return figures;
}

/// The cells of a frequency's column in the tables of a text.
std::set<Money> cellsOf(const std::string& text, int frequency) {
  std::set<Money> amounts;
  for (const std::string& row : matches(text, "<tr>(.*)</tr>")) {
    const std::vector<std::string> cells = matches(row, "<td align=\"right\">(" + number + ")</td>");
    if (!cells.empty()) amounts.insert(toMoney(cells.at(static_cast<std::size_t>(frequency))));
  }
  return amounts;
}

/// The constants that the worksheet of a result names, without the numbers of its lines.
Figures namedIn(const Explanation& worksheet) {
  static const std::regex lineNumber(R"([Ll]ines? \d+)");
  static const std::regex constant("(" + number + ")(%?)");
  Figures figures;
  for (const ExplanationLine& line : worksheet.lines) {
    const std::string words = std::regex_replace(line.words, lineNumber, "");
    for (std::sregex_iterator match(words.begin(), words.end(), constant), end; match != end; ++match)
      ((*match)[2].length() > 0 ? figures.percents : figures.amounts).insert(toMoney((*match)[1].str()));
  }
  return figures;
}

/// The numbers that the options screen of a state offers for a column.
std::vector<int> offered(int state, Column column) {
  std::vector<int> numbers;
  for (int i = 0; i <= 60; ++i)
    if (isOffered(state, column, i)) numbers.push_back(i);
  return numbers.empty() ? std::vector{0} : numbers;
}

constexpr std::size_t federalTax = 4;
constexpr std::size_t stateTax = 5;

/// Works paychecks of a state with all its options, and calls `goesOn` with each worksheet of the state tax until it
/// returns false.
template <class Use>
void forPaychecks(int state, int frequency, Use goesOn) {
  Paycheck paycheck;
  paycheck.setInteger(Column::state, state);
  paycheck.setInteger(Column::frequency, frequency);
  int count = 0;
  for (const double income : {1'000.0, 200.0, 500.0, 2'000.0, 4'000.0, 8'000.0, 20.0, 60.0, 300.0, 1'500.0, 30'000.0}) {
    paycheck.setReal(Column::income, income);
    for (const int status : {0, 1}) {
      paycheck.setInteger(Column::status, status);
      for (const int marital : offered(state, Column::stateMarital)) {
        paycheck.setInteger(Column::stateMarital, marital);
        for (const int choice : offered(state, Column::stateExemptions)) {
          paycheck.setInteger(Column::stateExemptions, choice);
          ++count;
          for (const Column column : {Column::exemptions, Column::stateDependents, Column::illinoisDependents})
            paycheck.setInteger(column, count % 4);
          if (paycheck.work() && !goesOn(paycheck.explain().at(stateTax))) return;
        }
      }
    }
  }
}

void erase(std::set<Money>& figures, const std::set<Money>& others) {
  for (const Money figure : others) figures.erase(figure);
}

/// Amounts of the topics that aren't constants of a rule: jumps of tables, which another test checks; an example of an
/// additional amount for Minnesota; a text of Mississippi's options screen.
const std::map<int, std::set<Money>> notOfTheRules{{6, {2700}}, {10, {13}}, {22, {toMoney("10.40")}},
                                                   {23, {500}}, {31, {24}}, {41, {769}}};

class HelpOfState : public testing::TestWithParam<int> {};

TEST_P(HelpOfState, NamesFiguresOfItsRules) {
  const int state = GetParam();
  const std::string text = topic("state-" + std::to_string(state));
  Figures missing = figuresOf(text);
  if (const auto others = notOfTheRules.find(state); others != notOfTheRules.end())
    erase(missing.amounts, others->second);
  for (int frequency = 0; frequency < 4; ++frequency) {
    std::set<Money> cells = cellsOf(text, frequency);
    forPaychecks(state, frequency, [&](const Explanation& worksheet) {
      const Figures named = namedIn(worksheet);
      erase(cells, named.amounts);
      erase(missing.amounts, named.amounts);
      erase(missing.percents, named.percents);
      return !cells.empty() || !missing.amounts.empty() || !missing.percents.empty();
    });
    for (const Money cell : cells) ADD_FAILURE() << toText(cell) << " at frequency " << frequency;
  }
  for (const Money amount : missing.amounts) ADD_FAILURE() << "$" << toText(amount);
  for (const Money percent : missing.percents) ADD_FAILURE() << toText(percent) << " percent";
}

INSTANTIATE_TEST_SUITE_P(All, HelpOfState, testing::Range(1, 42));

/// The tax that a row of a table gives.
double taxOf(const TableRow& row, double wage) { return (wage - toReal(row.lower)) * row.rate + row.plus; }

struct Jump {
  int state;
  double bound;
  double below;  ///< The tax at the bound by the row below it, in whole dollars.
  double by;     ///< How much more it is by the row above, in whole dollars.
  const char* help;
};

bool isJump(const TableRow& row, const TableRow& next, const Jump& jump) {
  const double below = taxOf(row, jump.bound);
  return std::round(below) == jump.below && std::round(taxOf(next, jump.bound) - below) == jump.by;
}

/// Whether a table that a state applies has that jump.
bool hasJump(const Jump& jump) {
  bool found = false;
  forPaychecks(jump.state, 0, [&](const Explanation& worksheet) {
    for (const ExplanationLine& line : worksheet.lines) {
      if (!line.table) continue;
      const std::vector<TableRow>& rows = line.table->row.rows;
      for (std::size_t i = 0; i + 1 < rows.size(); ++i)
        found = found || (rows[i].bound == fromReal(jump.bound) && isJump(rows[i], rows[i + 1], jump));
    }
    return !found;
  });
  return found;
}

TEST(HelpOfStates, NamesJumpsOfTheTables) {
  for (const Jump& jump :
       {Jump{6, 10'000, 300, 2'700, "passes $10,000: by $2,700 for the year"},
        Jump{10, 308, 19, -13, "falls by some $13 where the taxed pay passes $308"},
        Jump{31, 1'923, 96, 24, "jumps by some $24 where the taxed pay passes $1,923"},
        Jump{41, 14'000, 769, -244, "about $769 a year just under $14,000 of pay, and is $525 at $14,000"}}) {
    EXPECT_NE(topic("state-" + std::to_string(jump.state)).find(jump.help), std::string::npos) << jump.help;
    EXPECT_TRUE(hasJump(jump)) << jump.help;
  }
}

/// "0, 1 or 2", and "0 to 10" for more of them.
std::string inWords(const std::vector<int>& numbers) {
  if (numbers.size() > 3 && numbers.back() - numbers.front() + 1 == static_cast<int>(numbers.size()))
    return std::to_string(numbers.front()) + " to " + std::to_string(numbers.back());
  std::string words = std::to_string(numbers.front());
  for (std::size_t i = 1; i < numbers.size(); ++i)
    words += (i + 1 < numbers.size() ? ", " : " or ") + std::to_string(numbers[i]);
  return words;
}

TEST(HelpOfStates, ListsNumbersOfTheOptions) {
  int lists = 0;
  for (int state = 1; state < 42; ++state) {
    const std::vector<int> numbers = offered(state, Column::stateExemptions);
    if (numbers.size() == 1) continue;
    ++lists;
    const std::string text = topic("state-" + std::to_string(state));
    EXPECT_NE(text.find(inWords(numbers)), std::string::npos) << state << ": " << inWords(numbers);
  }
  EXPECT_GE(lists, 5);
}

TEST(Help, NamesRatesOfFica) {
  Paycheck paycheck;
  paycheck.set(Column::income, "1000");
  paycheck.set(Column::frequency, "Weekly");
  const std::string text = topic("results");
  for (const char* selfEmployed : {"N", "Y"}) {
    paycheck.set(Column::selfEmployed, selfEmployed);
    ASSERT_TRUE(paycheck.work());
    for (const std::size_t row : {7U, 8U, 9U}) {
      const Figures named = namedIn(paycheck.explain().at(row));
      EXPECT_FALSE(named.percents.empty()) << row;
      for (const Money rate : named.percents) EXPECT_NE(text.find(toText(rate)), std::string::npos) << toText(rate);
    }
  }
  EXPECT_NE(topic("frmMain").find("doubles FICA: 15.3 percent in place of 7.65"), std::string::npos);
}

TEST(Help, NamesFederalAllowances) {
  const std::string text = topic("frmMain");
  const std::vector<std::string> named =
      matches(text, "(It is .* for each exemption paid weekly, .* twice a month, .* every two weeks and .* monthly)");
  ASSERT_EQ(named.size(), 1U);
  const std::vector<std::string> allowances = matches(named[0], R"(\$([\d.]+))");
  ASSERT_EQ(allowances.size(), 4U);
  Paycheck paycheck;
  paycheck.set(Column::income, "1000");
  paycheck.set(Column::exemptions, "1");
  for (const auto& [frequency, entry] : {std::pair{0, 0U}, {1, 1U}, {2, 2U}, {3, 3U}}) {
    paycheck.setInteger(Column::frequency, frequency);
    ASSERT_TRUE(paycheck.work());
    EXPECT_TRUE(namedIn(paycheck.explain().at(federalTax)).amounts.contains(toMoney(allowances[entry]))) << frequency;
  }
}

TEST(Help, WorksTheSample) {
  Paycheck paycheck;
  paycheck.set(Column::income, "1000");
  paycheck.set(Column::rate401k, "6");
  paycheck.set(Column::frequency, "Weekly");
  paycheck.set(Column::status, "Single");
  paycheck.set(Column::exemptions, "1");
  paycheck.set(Column::state, "Pennsylvania");
  ASSERT_TRUE(paycheck.work());
  const std::string text = topic("sample");
  const std::vector<std::string> results = matches(text, R"(<tr><td>"[^"]+"</td><td align="right">\$([\d.,]+)</td>)");
  ASSERT_EQ(results.size(), resultCount);
  for (std::size_t row = 0; row < resultCount; ++row)
    EXPECT_EQ(toText(toMoney(results[row])), toText(roundCents(paycheck.result(row)))) << row;
}

}  // namespace
}  // namespace tallyfin::library
