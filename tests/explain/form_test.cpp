#include "explain/form.h"

#include <gmock/gmock.h>

#include "explain/figuretexts.h"
#include "explain/json.h"
#include "explain/sample.h"

/// The worksheets as forms.

namespace tallyfin {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> cut(const std::string& text) {
  std::vector<std::string> parts;
  for (const FormPart& part : partsOf(text)) {
    parts.push_back(part.text);
    for (const int line : part.lines) parts.back() += "|" + std::to_string(line);
  }
  return parts;
}

TEST(Form, CutsATextAtTheLinesThatItNames) {
  EXPECT_THAT(cut("line 1 less line 12"), ElementsAre("line 1|1", " less ", "line 12|12"));
  EXPECT_THAT(cut("the sum of lines 2 to 5 plus $3.00"),
              ElementsAre("the sum of ", "lines 2 to 5|2|3|4|5", " plus $3.00"));
  EXPECT_THAT(cut("lines 2, 3 and 7"), ElementsAre("lines 2, 3 and 7|2|3|7"));
  EXPECT_THAT(cut("lines 2 and 3, rounded up"), ElementsAre("lines 2 and 3|2|3", ", rounded up"));
  EXPECT_THAT(cut("line 3 is from 0 to 1"), ElementsAre("line 3|3", " is from 0 to 1"));
  EXPECT_THAT(cut("lines 2 to 3"), ElementsAre("lines 2 to 3|2|3"));
  EXPECT_THAT(cut("28%"), ElementsAre("28%"));
  EXPECT_THAT(cut("a line of lines, a linesman, a line4"), ElementsAre("a line of lines, a linesman, a line4"));
  EXPECT_THAT(cut("lines 2 and line"), ElementsAre("lines 2|2", " and line"));
  EXPECT_THAT(cut("lines 2 and "), ElementsAre("lines 2|2", " and "));
  EXPECT_THAT(cut(""), ElementsAre());
}

TEST(Form, SpeaksAmountsInWords) {
  EXPECT_EQ(spoken("$887.12"), "887 dollars 12");
  EXPECT_EQ(spoken("line 1 less $1,000.00, then 28% of $1.00"), "line 1 less 1,000 dollars, then 28% of 1 dollar");
  EXPECT_EQ(spoken("($5.05) and (so on)"), "minus 5 dollars 05 and (so on)");
  EXPECT_EQ(spoken("$172.4936."), "172.4936 dollars.");
}

TEST(Form, SetsALineWithoutATitle) {
  ExplanationLine line;
  line.number = 2;
  line.words = "line 1 less $5.00";
  line.figure = "$3.00";
  line.from.origin = Operand::Origin::line;
  const std::vector<Form> forms = formsOf({{"Gross Pay", Money(3), {line}}});
  EXPECT_EQ(forms.at(0).lines.at(0).text(), "Line 1 less $5.00");
  EXPECT_EQ(forms.at(0).lines.at(0).spoken, "Line 2. Line 1 less 5 dollars. 3 dollars.");
}

class FormTest : public ExplainTest {
 protected:
  static Form formOf(const std::string& title) {
    for (const Form& form : formsOf(explain(*lastTrace()))) {
      if (form.title == title) return form;
    }
    return {};
  }
  static Lines texts(const std::vector<FormLine>& lines) {
    Lines texts;
    for (const FormLine& line : lines)
      texts.push_back(std::to_string(line.number) + " " + line.text() + " " + line.figure);
    return texts;
  }
};

TEST_F(FormTest, IsReadAsATaxForm) {
  startSample();
  calculate();
  const Form form = formOf("Federal Tax");
  EXPECT_EQ(form.figure, "$172.49");
  EXPECT_THAT(
      texts(form.lines),
      ElementsAre("0 Pay frequency: Weekly ", "0 Marital status: Single ",
                  "1 Gross Pay, from its own worksheet $1,000.00", "2 401k Deduction, from its own worksheet $60.00",
                  "3 Exemptions, as chosen 1", "4 Wage less the amounts that are not taxed. Line 1 less line 2 $940.00",
                  "5 Federal allowance for the exemptions. Line 3 times $52.88 $52.88",
                  "6 Taxable wage less the federal allowance. Line 4 less line 5 $887.12",
                  "7 Federal tax by the table. $71.10 plus 28% of the amount of line 6 over $525.00, by the "
                  "table \"Federal, Single, Weekly\", where line 6 is over $525.00 but not over $1,125.00 "
                  "$172.4936",
                  "8 Federal tax in whole cents. Line 7, rounded down to whole cents $172.49"));
  EXPECT_EQ(form.lines[0].spoken, "Pay frequency: Weekly");
  EXPECT_EQ(form.lines[7].spoken,
            "Line 6. Taxable wage less the federal allowance. Line 4 less line 5. 887 dollars 12.");
}

TEST_F(FormTest, HasTheTableWithTheRowThatWasUsed) {
  startSample();
  calculate();
  const FormLine line = formOf("Federal Tax").lines.at(8);
  ASSERT_TRUE(line.table);
  EXPECT_EQ(line.table->name, "Federal, Single, Weekly");
  EXPECT_EQ(line.table->of, "Line 6");
  EXPECT_EQ(line.table->used, 2U);
  Lines rows;
  for (const FormTable::Row& row : line.table->rows) rows.push_back(row.where + ": " + row.given);
  EXPECT_THAT(rows,
              ElementsAre("not over $51.00: $0.00", "over $51.00 but not over $525.00: 15% of the amount over $51.00",
                          "over $525.00 but not over $1,125.00: $71.10 plus 28% of the amount over $525.00",
                          "over $1,125.00 but not over $2,535.00: $239.10 plus 31% of the amount over $1,125.00",
                          "over $2,535.00 but not over $5,475.00: $676.20 plus 36% of the amount over $2,535.00",
                          "over $5,475.00: $1,734.60 plus 39.6% of the amount over $5,475.00"));
}

/// The row's percentage counts from an amount above the one from which it holds.
TEST_F(FormTest, AWageBelowTheLowerBoundOfItsRowHasALineForTheDifference) {
  startSample(38);
  main().txtIncome.setText("900");
  calculate();
  const Form form = formOf("State Tax");
  EXPECT_THAT(texts(form.lines),
              testing::IsSupersetOf({"5 Amount over the lower bound of the row. Line 4 less $899.00 ($50.92)",
                                     "6 Tax by the table. $17.41 plus 7% of line 5, by the table \"Vermont, Single, "
                                     "Weekly\", where line 4 is over $517.00 but not over $1,105.00 $13.8456",
                                     "0 In the row that was used, the percentage counts from an amount above the "
                                     "wage, so it lowers the tax. "}));
}

TEST_F(FormTest, BearsTheDateOfEachCalculationAndNotThatOfTheFirst) {
  startSample();
  calculate();
  const auto dated = [] { return headingOf(*lastTrace(), explain(*lastTrace())).at(0).second; };
  EXPECT_EQ(dated(), "Monday, May 17, 1999");
  platform.time += std::chrono::days{1};
  EXPECT_EQ(dated(), "Monday, May 17, 1999");
  calculate();
  EXPECT_EQ(dated(), "Tuesday, May 18, 1999");
}

TEST_F(FormTest, BearsNameDateAndEntries) {
  startSample(29);
  payData.staMarried = 3;
  payData.staDeps = 2;
  payData.staAdd = 5;
  calculate();
  const auto heading = [] {
    Lines entries;
    for (const auto& [title, words] : headingOf(*lastTrace(), explain(*lastTrace())))
      entries.push_back(title + ": " + words);
    return entries;
  };
  EXPECT_THAT(heading(), ElementsAre("Date: Monday, May 17, 1999", "Tax year: 1999", "Pay frequency: Weekly",
                                     "Marital status: Single", "Exemptions: 1", "State: North Carolina",
                                     "Filing status for the state: Married, claiming for both spouses",
                                     "Dependents for the state: 2", "Additional amount for the state: $5.00"));
  store.write(section::user, "UName", "Pat Smith");
  EXPECT_EQ(heading().front(), "Name: Pat Smith");
}

TEST_F(FormTest, IsHandedOverAsJson) {
  startSample();
  calculate();
  const std::string json = formsAsJson(*lastTrace());
  EXPECT_THAT(json, StartsWith(R"({"heading":[["Date","Monday, May 17, 1999"],["Tax year","1999"],)"));
  EXPECT_THAT(json, HasSubstr(R"x("forms":[{"title":"Gross Pay","figure":"$1,000.00","lines":[{"line":1,"parts":)x"
                              R"x([["Income, as entered"]],"figure":"$1,000.00",)x"));
  EXPECT_THAT(json,
              HasSubstr(R"x([["Taxable wage less the federal allowance. "],["Line 4",4],[" less "],["line 5",5]])x"));
  EXPECT_THAT(json,
              HasSubstr(R"x({"parts":[["Pay frequency: Weekly"]],"figure":"","spoken":"Pay frequency: Weekly"})x"));
  EXPECT_THAT(json, HasSubstr(R"x(,"table":{"name":"Federal, Single, Weekly","of":"Line 6","used":2,"rows":)x"
                              R"x([["not over $51.00","$0.00"],["over $51.00 but)x"));
}

/// The tables of each kind among the states.
TEST_F(FormTest, TellsWhatARowGives) {
  TableRow row{.lower = 100, .rate = 0.05};
  EXPECT_EQ(givenText(row), "5% of the amount over $100.00");
  row.lower = 0;
  row.plus = -20;
  EXPECT_EQ(givenText(row), "5% of the amount less $20.00");
  row.credit = 1.75;
  row.plus = 14;
  EXPECT_EQ(givenText(row), "$14.00 plus 5% of the amount, less $1.75 for each exemption");
  EXPECT_EQ(givenText({.gives = TableRow::Gives::amount, .plus = 12000}), "$12,000.00");
  EXPECT_EQ(givenText({.gives = TableRow::Gives::part, .rate = static_cast<double>(0.35F)}), "35%");
  EXPECT_EQ(givenText({}), "$0.00");
}

}  // namespace
}  // namespace tallyfin
