#include "batch/run.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <sstream>

#include "batchrun.h"

namespace tallyfin::batch {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const std::string results =
    ",gross_pay,amt_401k,non_taxable,pre_fica_pay,federal_tax,state_tax,local_tax,fica,social_security,medicare,"
    "total_deductions,check_amount,problem";
const std::string noResults(12, ',');
const std::string noFrequency = "frequency: none is chosen and so there is no federal tax";

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// The results and the problem of a file with one row.
std::string resultOf(const std::string& header, const std::string& row) {
  const std::string out = outcomeOf(header + "\n" + row + "\n").out;
  const std::vector<std::string> lines = linesOf(out);
  if (lines.size() != 2 || lines[0] != header + results || !lines[1].starts_with(row)) return "not one row: " + out;
  return lines[1].substr(row.size());
}

TEST(Batch, WorksAWeeklyPaycheck) {
  // Married, weekly: (1000 - 60 - 2 * 52.88 - 124) * 0.15 is 106.536.
  EXPECT_EQ(resultOf("income,rate_401k,frequency,exemptions", "1000,6,Weekly,2"),
            ",1000,60,0,0,106.54,0,0,76.5,62,14.5,243.04,756.96,");
}

TEST(Batch, TakesTheProgramsDefaults) {
  EXPECT_EQ(resultOf("income,pre_tax", ","), ",0,0,0,0,0,0,0,0,0,0,0,0," + noFrequency);
  EXPECT_EQ(resultOf("rate_401k", "7"), ",0,0,0,0,0,0,0,0,0,0,0,0," + noFrequency);
  // No frequency: no federal table.
  EXPECT_EQ(resultOf("income,status", "100,Single"), ",100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35," + noFrequency);
}

TEST(Batch, FillsInARowThatIsTooShort) {
  EXPECT_THAT(
      linesOf(outcomeOf("id,income,pre_tax\n7,100\n8\n").out),
      ElementsAre("id,income,pre_tax" + results, "7,100,,100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35," + noFrequency,
                  "8,,,0,0,0,0,0,0,0,0,0,0,0,0," + noFrequency));
}

TEST(Batch, CopiesOtherColumns) {
  EXPECT_EQ(resultOf("name,income,note", "\"Doe, \"\"J\"\"\",100, x "),
            ",100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35," + noFrequency);
}

TEST(Batch, KnowsColumnsAndCaptionsInAnyCaseAndWithBlanks) {
  const std::string plain = resultOf("income,frequency,status,state", "1000,Monthly,Single,Utah");
  EXPECT_THAT(plain, StartsWith(",1000,"));
  EXPECT_EQ(resultOf(" Income,FREQUENCY ,Status,\" state\"", "1000, monthly ,SINGLE,\"\tutah\""), plain);
  EXPECT_EQ(resultOf("state,status,frequency,income", "37,1,3,1000"), plain);
}

TEST(Batch, KnowsTheFirstAndTheLastNumberOfEachList) {
  const std::string header = "frequency,status,exemptions,state,local_base";
  EXPECT_EQ(resultOf(header, "0,0,0,0,1"), ",0,0,0,0,0,0,0,0,0,0,0,0,");
  EXPECT_EQ(resultOf(header, "3,2,15,41,5"), ",0,0,0,0,0,0,0,0,0,0,0,0,");
}

TEST(Batch, KnowsEveryLetterInEitherCase) {
  // Arizona: 20 % of the federal tax, which is (1000 - 913) * 0.28 + 118.35.
  EXPECT_THAT(resultOf("income,frequency,state,state_exemptions", "1000,0,ARIZONA,20"),
              StartsWith(",1000,0,0,0,142.71,28.542,"));
}

TEST(Batch, RowsShareNoState) {
  const std::string header = "income,frequency,state,local_rate,state_401k,rate_401k\n";
  const std::string first = "3000,Weekly,Maryland,2,Y,10\n";
  const std::string second = "10,,No State,,,\n";
  const std::string both = outcomeOf(header + first + second).out;
  EXPECT_THAT(both, StartsWith(outcomeOf(header + first).out));
  EXPECT_EQ(linesOf(both)[2], linesOf(outcomeOf(header + second).out)[1]);
}

TEST(Batch, GivesNoExemptionForAnOptionThatMississippiDoesNotOffer) {
  const std::string with =
      outcomeOf("income,frequency,state,state_marital,state_additional\n0,0,Mississippi,5,5\n").out;
  EXPECT_THAT(with, HasSubstr("0,0,Mississippi,5,5,0,0,0,0,0,5,0,"));
}

TEST(Batch, GivesNothingForTheOptionWhoseExemptionMustBeEntered) {
  const std::string with =
      outcomeOf("income,frequency,state,state_marital,state_additional\n0,0,Mississippi,8,5\n").out;
  EXPECT_THAT(with, HasSubstr("0,0,Mississippi,8,5,0,0,0,0,0,0,0,"));
}

TEST(Batch, StopsAtARowThatIsTooLong) {
  const std::string row(3 * BlockReader::longestRow, 'x');
  EXPECT_EQ(outcomeOf("income\n5\n" + row + "\n").trouble, "line 3: the row is too long");
}

TEST(Batch, LeavesMississippisExemptionToItsRow) {
  // With marital option 7 Mississippi uses an exemption of 10,000 in place of the additional amount. Kentucky adds the
  // amount to (0 * 52 - 650) * 0.02 / 52, which is -0.25.
  const auto stateTaxOfTheLast = [](const std::string& in) {
    const std::vector<std::string> lines = linesOf(outcomeOf(in).out);
    const std::string& last = lines.back();
    return last.substr(last.find(",0,0,0,0,0,"));
  };
  EXPECT_THAT(stateTaxOfTheLast("frequency,state,state_marital\n0,Mississippi,7\n0,Kentucky,7\n"),
              StartsWith(",0,0,0,0,0,0,0,"));
  EXPECT_THAT(stateTaxOfTheLast("frequency,state,state_marital,state_additional\n0,Mississippi,7,\n0,Kentucky,7,\n"),
              StartsWith(",0,0,0,0,0,0,0,"));
  EXPECT_THAT(stateTaxOfTheLast("frequency,state,state_marital,state_additional\n0,Mississippi,7,5\n0,Kentucky,7,5\n"),
              StartsWith(",0,0,0,0,0,4.75,0,"));
}

TEST(Batch, GivesEachRowInAnyOrderWhatItGivesAlone) {
  const std::string header =
      "income,rate_401k,pre_tax,frequency,status,exemptions,state,self_employed,state_401k,state_pre_tax,local_rate,"
      "local_base,state_dependents,illinois_dependents,state_exemptions,state_marital,state_method,state_additional\n";
  std::vector<std::string> rows;
  for (int state = 0; state <= 41; ++state) {
    const std::string number = std::to_string(state);
    rows.push_back("4000,6,100,3,1,2," + number + ",Y,Y,Y,2,5,2,1,2,7,3,15\n");
    rows.push_back("900,,,0,,1," + number + ",,,Y,,,,,1,0,,\n");
    rows.push_back("$12.50,x,5,1,2,," + number + ",,Y,,1,4,1,,,9,1,x\n");
    rows.push_back(",,,,,," + number + ",,,,,,,,,,,\n");
    rows.push_back("500,,,2,0,15," + number + ",Maybe,,,,,,,,8,,7\n");
  }
  std::shuffle(rows.begin(), rows.end(), std::mt19937(1999));
  std::string in = header;
  std::string alone = header.substr(0, header.size() - 1) + results + "\n";
  for (const std::string& row : rows) {
    in += row;
    alone += outcomeOf(header + row, {.writeHeader = false}).out;
  }
  EXPECT_EQ(linesOf(outcomeOf(in).out), linesOf(alone));
}

TEST(Batch, UsesTheStateOptionsWhereTheStateOpensThem) {
  // Pennsylvania doesn't open the options: 1000 * 0.028. Kentucky does: (0 * 52 - 650) * 0.02 / 52 + 5.
  EXPECT_THAT(resultOf("income,state,state_additional", "1000,Pennsylvania,5"), StartsWith(",1000,0,0,0,0,28,"));
  EXPECT_THAT(resultOf("frequency,state,state_additional", "0,Kentucky,5"), StartsWith(",0,0,0,0,0,4.75,"));
}

TEST(Batch, TakesTheStoredOptionsIntoTheStatesBase) {
  // (1000 - 60) * 0.028 and (1000 - 25) * 0.028
  EXPECT_THAT(resultOf("income,rate_401k,state,state_401k", "1000,6,Pennsylvania,y"),
              StartsWith(",1000,60,0,0,0,26.32,"));
  EXPECT_THAT(resultOf("income,pre_tax,state,state_pre_tax", "1000,25,Pennsylvania,Y"),
              StartsWith(",1000,0,25,0,0,27.3,"));
}

TEST(Batch, TakesTheLocalTaxByRateAndBase) {
  EXPECT_THAT(resultOf("income,local_rate", "1000,2"), StartsWith(",1000,0,0,0,0,0,20,"));
  EXPECT_THAT(resultOf("income,local_rate,local_base,pre_tax", "1000,0.02,3,100"), StartsWith(",1000,0,100,0,0,0,18,"));
  EXPECT_THAT(resultOf("income,local_base", "1000,3"), StartsWith(",1000,0,0,0,0,0,0,"));
}

// --- What goes wrong -------------------------------------------------------------------------------------------------

/// A cell without a meaning: its column, the cell, the reason.
struct BadCell {
  const char* column;
  const char* cell;
  const char* why;
};
class BatchBadCell : public testing::TestWithParam<BadCell> {};
INSTANTIATE_TEST_SUITE_P(
    All, BatchBadCell,
    testing::Values(BadCell{"state", "Atlantis", "no such entry"}, BadCell{"state", "42", "no such entry"},
                    BadCell{"state", "-1", "no such entry"}, BadCell{"frequency", "4", "no such entry"},
                    BadCell{"frequency", "Daily", "no such entry"}, BadCell{"frequency", " ", "no such entry"},
                    BadCell{"status", "3", "no such entry"}, BadCell{"exemptions", "16", "no such entry"},
                    BadCell{"exemptions", "two", "no such entry"}, BadCell{"exemptions", "2.5", "no such entry"},
                    BadCell{"local_base", "0", "no such entry"}, BadCell{"local_base", "6", "no such entry"},
                    BadCell{"self_employed", "Maybe", "neither Y nor N"}, BadCell{"state_401k", "2", "neither Y nor N"},
                    BadCell{"state_pre_tax", "Yess", "neither Y nor N"},
                    BadCell{"state_dependents", "32768", "no 16-bit number"},
                    BadCell{"illinois_dependents", "-32769", "no 16-bit number"},
                    BadCell{"state_exemptions", "x", "no 16-bit number"},
                    BadCell{"state_marital", "1E5", "no 16-bit number"},
                    BadCell{"state_method", "40000", "no 16-bit number"}));

TEST_P(BatchBadCell, EmptiesTheResultsOfItsRowAlone) {
  const auto& [column, cell, why] = GetParam();
  const std::string good = "7,100,,100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35," + noFrequency;
  const Outcome outcome = outcomeOf(std::string("id,income,") + column + "\n7,100,\n8,100," + cell + "\n7,100,\n");
  EXPECT_THAT(linesOf(outcome.out),
              ElementsAre(std::string("id,income,") + column + results, good,
                          std::string("8,100,") + cell + noResults + "," + column + ": " + why, good));
  EXPECT_EQ(outcome.account.rows, 3U);
  EXPECT_EQ(outcome.account.problems, 3U);
  EXPECT_EQ(outcome.trouble, "");
}

TEST(Batch, TakesTheLimitsOfA16BitNumber) {
  EXPECT_THAT(resultOf("state,state_dependents,state_marital", "Hawaii,32767,-32768"), StartsWith(",0,0,0,0,0,0,"));
}

TEST(Batch, NamesAllBadCellsOfARow) {
  EXPECT_EQ(resultOf("state,exemptions", "Atlantis,16"),
            noResults + ",exemptions: no such entry; state: no such entry");
}

TEST(Batch, RefusesARowWithMoreCellsThanTheHeader) {
  const Outcome outcome = outcomeOf("frequency,income\n1,2,3,4\n1,\"2\",,x\n0,100\n");
  EXPECT_THAT(linesOf(outcome.out),
              ElementsAre("frequency,income" + results, "1,2" + noResults + ",more cells than the header has columns",
                          "1,\"2\"" + noResults + ",more cells than the header has columns",
                          "0,100,100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35,"));
  EXPECT_EQ(outcome.account.problems, 2U);
  EXPECT_EQ(outcome.account.firstProblem, 2U);
}

TEST(Batch, DropsSurplusCellsThatAreEmpty) {
  EXPECT_THAT(linesOf(outcomeOf("frequency,income\n0,100,\n0,100,,\"\",\n").out),
              ElementsAre("frequency,income" + results, "0,100,100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35,",
                          "0,100,100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35,"));
}

TEST(Batch, SkipsTheStatementOfATextThatIsNoNumber) {
  EXPECT_EQ(resultOf("income,frequency", "abc,0"), ",0,0,0,0,0,0,0,0,0,0,0,0,income: not a number");
  EXPECT_EQ(resultOf("income,rate_401k", "100,x"),
            ",100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35,rate_401k: not a number; " + noFrequency);
  EXPECT_EQ(resultOf("income,pre_tax,pre_fica,local_rate", "100,x, ,1%"),
            ",100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35,"
            "pre_tax: not a number; pre_fica: not a number; " +
                noFrequency + "; local_rate: not a number");
  EXPECT_EQ(resultOf("income,state,state_additional", "0,Kentucky,x"),
            ",0,0,0,0,0,0,0,0,0,0,0,0," + noFrequency + "; state_additional: not a number");
}

TEST(Batch, NamesATextThatIsBeyondAnAmount) {
  EXPECT_EQ(resultOf("income,frequency", "1E30,0"), ",0,0,0,0,0,0,0,0,0,0,0,0,income: not a number");
}

TEST(Batch, FindsNoFaultWithAZero) {
  for (const char* zero : {"0", "0.00", "$0", "(0)", "-0", " 0 ", "\"\""}) {
    EXPECT_EQ(
        resultOf("income,pre_tax,rate_401k,state_additional", std::string(zero) + "," + zero + "," + zero + "," + zero),
        ",0,0,0,0,0,0,0,0,0,0,0,0," + noFrequency);
  }
}

TEST(Batch, WantsAHeader) {
  for (const char* in : {"", "\xEF\xBB\xBF", "\n", "\r\n1000\n"}) {
    const Outcome outcome = outcomeOf(in);
    EXPECT_EQ(outcome.trouble, "there is no header");
    EXPECT_EQ(outcome.out, "");
  }
}

TEST(Batch, RefusesAnUnclearHeaderAtOnce) {
  for (const char* in : {"income,id,income\n1,2,3\n", "Income, income\n", "\"INCOME\",income\n"}) {
    EXPECT_EQ(outcomeOf(in).trouble, "two columns are named \"income\"");
    EXPECT_EQ(outcomeOf(in).out, "");
  }
  EXPECT_EQ(outcomeOf("income,a\\\x1B[2J,A\\\x1B[2j\n").trouble, "two columns are named \"a\\\\\\x1b[2j\"");
  for (const char* in : {"problem\n1\n", "id,Fica\n", "income,check_amount\n", "fica,income,income\n"}) {
    EXPECT_THAT(outcomeOf(in).trouble, StartsWith("a column is named like a result: "));
    EXPECT_EQ(outcomeOf(in).out, "");
  }
}

TEST(Batch, CarriesColumnsWithoutANameThrough) {
  EXPECT_THAT(linesOf(outcomeOf(",frequency,\"\", \n7,0,8,9\n").out),
              ElementsAre(",frequency,\"\", " + results, "7,0,8,9,0,0,0,0,0,0,0,0,0,0,0,0,"));
}

/// A header without any known column.
struct Foreign {
  std::string in;
  const char* why;
};
class BatchForeign : public testing::TestWithParam<Foreign> {};
INSTANTIATE_TEST_SUITE_P(
    All, BatchForeign,
    testing::Values(Foreign{"income;frequency\n1;0\n", "the cells look divided by semicolons: use --delimiter ';'"},
                    Foreign{"income\tfrequency\n1\t0\n", "the cells look divided by tabs: use --delimiter tab"},
                    Foreign{"income|frequency\n1|0\n", "the cells look divided by vertical bars: use --delimiter '|'"},
                    Foreign{std::string("\xFF\xFEi\0n\0\n\0", 8), "the file looks like UTF-16: save it as UTF-8"},
                    Foreign{std::string("\xFE\xFF\0i\0n\0\n", 8), "the file looks like UTF-16: save it as UTF-8"},
                    Foreign{std::string("i\0n\0c\0o\0m\0e\0,\0\n\0", 16),
                            "the file looks like UTF-16: save it as UTF-8"},
                    Foreign{"\x1F\x8B\x08\n", "the file is compressed: unpack it first"},
                    Foreign{"\x1F\x8B\x08,\"\n", "the file is compressed: unpack it first"},
                    Foreign{"BZh91AY\n", "the file is compressed: unpack it first"},
                    Foreign{"\x28\xB5\x2F\xFD\n", "the file is compressed: unpack it first"},
                    Foreign{"PK\x03\x04\n", "the file has a spreadsheet's own format: save it as CSV"},
                    Foreign{"\xD0\xCF\x11\xE0\n", "the file has a spreadsheet's own format: save it as CSV"},
                    Foreign{"name,pay ~\n", "no column is one of the program's: the header is \"name,pay ~\""},
                    Foreign{"\"na\x1B[2Jme\xC3\xA9\"\n",
                            "no column is one of the program's: the header is \"\\\"na\\x1b[2Jme\\xc3\\xa9\\\"\""}));

TEST_P(BatchForeign, IsRefusedWithWhatItLooksLike) {
  EXPECT_EQ(outcomeOf(GetParam().in).trouble, GetParam().why);
  EXPECT_EQ(outcomeOf(GetParam().in).out, "");
}

TEST(Batch, CutsALongHeaderThatItShows) {
  EXPECT_EQ(outcomeOf(std::string(61, 'x') + "\n").trouble,
            "no column is one of the program's: the header is \"" + std::string(60, 'x') + "...\"");
  EXPECT_EQ(outcomeOf(std::string(60, 'x') + "\n").trouble,
            "no column is one of the program's: the header is \"" + std::string(60, 'x') + "\"");
}

TEST(Batch, DistinguishesCommasFromTheDelimiter) {
  EXPECT_EQ(outcomeOf("income,frequency\n", {.delimiter = ';'}).trouble,
            "the cells look divided by commas: use no --delimiter");
}

TEST(Batch, NoticesWhatTheHeaderLacks) {
  EXPECT_EQ(outcomeOf("income,frequency\n").notice, "");
  EXPECT_EQ(outcomeOf("net,frequency\n").notice, "");
  EXPECT_EQ(outcomeOf("income\n").notice, "there is no column frequency");
  EXPECT_EQ(outcomeOf("frequency\n").notice, "there is neither a column income nor net");
  EXPECT_EQ(outcomeOf("state\n").notice, "there is no column frequency, and neither income nor net");
}

TEST(Batch, UsesTheDelimiterOption) {
  const Choices semicolons{.delimiter = ';'};
  EXPECT_EQ(outcomeOf("frequency;income\n0;1,000\n", semicolons).out,
            "frequency;income;gross_pay;amt_401k;non_taxable;pre_fica_pay;federal_tax;state_tax;local_tax;fica;"
            "social_security;medicare;total_deductions;check_amount;problem\n"
            "0;1,000;1000;0;0;0;142.71;0;0;76.5;62;14.5;219.21;780.79;\n");
  EXPECT_THAT(outcomeOf("frequency;state\n4;Atlantis\n", semicolons).out,
              HasSubstr(";\"frequency: no such entry; state: no such entry\"\n"));
  EXPECT_THAT(outcomeOf("frequency_income_\n", {.delimiter = '_'}).out, StartsWith("frequency_income__\"gross_pay\"_"));
  EXPECT_THAT(outcomeOf("frequency\n0,\n", {.delimiter = '\t'}).out, HasSubstr("no such entry"));
}

TEST(Batch, QuotesACellThatNeedsIt) {
  const auto cell = [](std::string_view text) {
    std::string out;
    appendCell(out, text, ',');
    return out;
  };
  EXPECT_EQ(cell("a b"), "a b");
  EXPECT_EQ(cell("a,b"), "\"a,b\"");
  EXPECT_EQ(cell("a\"b"), "\"a\"\"b\"");
  EXPECT_EQ(cell("a\nb"), "\"a\nb\"");
  EXPECT_EQ(cell("a\rb"), "\"a\rb\"");
}

TEST(Batch, ReportsTheLineOfTheFirstProblem) {
  const Outcome outcome = outcomeOf("frequency,note\n0,\"a\nb\"\n\n4,\n5,\n");
  EXPECT_EQ(outcome.account.problems, 2U);
  EXPECT_EQ(outcome.account.firstProblem, 5U);
}

TEST(Batch, ReportsNoLineWhereNoRowHadAProblem) {
  const Outcome outcome = outcomeOf("frequency\n0\n1\n");
  EXPECT_EQ(outcome.account.rows, 2U);
  EXPECT_EQ(outcome.account.problems, 0U);
  EXPECT_EQ(outcome.account.firstProblem, 0U);
}

// --- Bytes -----------------------------------------------------------------------------------------------------------

TEST(Batch, WritesTheRowsBeforeAQuoteThatDoesNotEnd) {
  const Outcome outcome = outcomeOf("income,note\n100,\"a\nb\"\n100,\"c\n100,d\n");
  EXPECT_EQ(outcome.out,
            "income,note" + results + "\n100,\"a\nb\",100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35," + noFrequency + "\n");
  EXPECT_EQ(outcome.trouble, "line 4: a quoted cell doesn't end");
  EXPECT_EQ(outcomeOf("income,\"note\n100,a\n").trouble, "line 1: a quoted cell doesn't end");
}

TEST(Batch, EndsLinesAsTheInputDoes) {
  const std::string zeros(",0,0,0,0,0,0,0,0,0,0,0,0,");
  EXPECT_EQ(outcomeOf("frequency\r\n1\r\n2\n3").out,
            "frequency" + results + "\r\n1" + zeros + "\r\n2" + zeros + "\n3" + zeros + "\r\n");
  EXPECT_EQ(outcomeOf("income").out, "income" + results + "\n");
}

TEST(Batch, AcceptsAByteOrderMark) {
  EXPECT_EQ(outcomeOf("\xEF\xBB\xBFincome\n100\n").out,
            "income" + results + "\n100,100,0,0,0,0,0,0,7.65,6.2,1.45,7.65,92.35," + noFrequency + "\n");
}

TEST(Batch, CarriesAnEmptyLineThrough) {
  EXPECT_EQ(outcomeOf("frequency,x\n\n1,2\n\n").out, "frequency,x" + results + "\n\n1,2,0,0,0,0,0,0,0,0,0,0,0,0,\n\n");
}

TEST(Batch, OmitsTheHeaderByOption) {
  EXPECT_EQ(outcomeOf("frequency\n1\n", {.writeHeader = false}).out, "1,0,0,0,0,0,0,0,0,0,0,0,0,\n");
}

TEST(Batch, WritesWhatIsWorkedBeforeItWaitsForMore) {
  std::vector<std::string> events;
  std::size_t call = 0;
  run({[&](char* place, std::size_t) {
         const std::string_view part = std::array<std::string_view, 3>{"frequency\n", "1\n", ""}.at(call++);
         events.emplace_back("read");
         std::memcpy(place, part.data(), part.size());
         return part.size();
       },
       [&](std::string_view text) { events.push_back(text.starts_with("1") ? "row" : "header"); },
       [&](std::uint64_t rows) { events.push_back("told " + std::to_string(rows)); }, [](const std::string&) {}},
      {});
  EXPECT_THAT(events, ElementsAre("read", "header", "told 0", "read", "row", "told 1", "read"));
}

TEST(Batch, GivesTheSameHoweverTheBytesArrive) {
  const std::string in = "id,income,state,frequency\n1,100,Utah,0\n2,\"1,000\",\"Ohio\",1\r\n3,x,Atlantis,9\n";
  const std::string out = outcomeOf(in).out;
  EXPECT_THAT(out, HasSubstr("state: no such entry"));
  for (const std::size_t atOnce : {1U, 2U, 5U}) EXPECT_EQ(outcomeOf(in, {}, atOnce).out, out);
}

}  // namespace
}  // namespace tallyfin::batch
