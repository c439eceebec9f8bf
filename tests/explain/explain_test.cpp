#include "explain/explain.h"

#include <gmock/gmock.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "engine/calculate.h"
#include "support/program.h"

/// The explanation of each figure, read as people read it, and the trace that it is written from.

namespace tallyfin {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StrEq;

using Lines = std::vector<std::string>;

class ExplainTest : public ProgramTest {
 protected:
  /// The sample: a week, single, one exemption, $1,000.00, 401(k) 6, Pennsylvania.
  void startSample(int state = 34) {
    put("Frequency", "0");
    put("Deps", "1");
    put("MaritalStat", "1");
    put("State", std::to_string(state).c_str());
    put("IncAmt", "1000");
    put("401k", "6");
    start();
  }
  static Explanation row(const std::string& title) {
    for (Explanation& explanation : explain(*lastTrace())) {
      if (explanation.title == title) return explanation;
    }
    ADD_FAILURE() << "no row " << title;
    return {};
  }
  static Lines linesOf(const std::string& title) { return row(title).lines; }
};

TEST_F(ExplainTest, ThereIsNoneBeforeTheFirstCalculateOfARun) {
  startSample();
  EXPECT_EQ(lastTrace(), nullptr);
  calculate();
  EXPECT_NE(lastTrace(), nullptr);
  program.start();
  EXPECT_EQ(lastTrace(), nullptr);
}

TEST_F(ExplainTest, EveryFigureOfTheSample) {
  startSample();
  calculate();
  EXPECT_THAT(linesOf("Gross Pay"), ElementsAre("The income entered: $1,000.00.", "Gross pay: $1,000.00."));
  EXPECT_THAT(linesOf("401k Deduction"),
              ElementsAre("401(k) rate entered: 6.", "A rate of 1 or more is a percentage: 6%.",
                          "401(k) contribution, at that rate of the whole income: of $1,000.00 it is $60.00."));
  EXPECT_THAT(linesOf("Non-Taxable"), ElementsAre("Pre-tax amount entered: $0.00."));
  EXPECT_THAT(linesOf("Pre-FICA"), ElementsAre("Pre-FICA amount entered: $0.00."));
  EXPECT_THAT(
      linesOf("Federal Tax"),
      ElementsAre("The income entered: $1,000.00.",
                  "401(k) contribution, at that rate of the whole income: of $1,000.00 it is $60.00.",
                  "Less the 401(k), pre-FICA and pre-tax amounts: $1,000.00 less $60.00 leaves $940.00.",
                  "Less the federal allowance for exemptions: $940.00 less $52.88 leaves $887.12.",
                  "Federal tax by the table: $887.12 is over $525.00 up to $1,125.00: 28% of $362.12, plus $71.10, is "
                  "$172.4936.",
                  "To whole cents: $172.49.", "The federal allowance of $52.88 is for 1 exemption."));
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("Pennsylvania.", "Pennsylvania tax, 2.8% of the wage: of $1,000.00 it is $28.00."));
  EXPECT_THAT(linesOf("Local Tax"),
              ElementsAre("The local rate is 0%.",
                          "The local rate of the base chosen on the Local Tax page: of $1,000.00 it is $0.00."));
  EXPECT_THAT(linesOf("FICA"),
              ElementsAre("FICA, 7.65% of the gross pay less the pre-FICA amount: of $1,000.00 it is $76.50."));
  EXPECT_THAT(linesOf("Social Security"),
              ElementsAre("Social Security, 6.2% of the gross pay less the pre-FICA amount: of $1,000.00 it is "
                          "$62.00."));
  EXPECT_THAT(linesOf("Medicare"),
              ElementsAre("Medicare, 1.45% of the gross pay less the pre-FICA amount: of $1,000.00 it is $14.50."));
  EXPECT_THAT(linesOf("Total Ded"), ElementsAre("Total of 401(k), FICA, federal, state and local tax: $336.99.",
                                                "$60.00 + $76.50 + $172.49 + $28.00 + $0.00."));
  EXPECT_THAT(linesOf("Check Amt"), ElementsAre("Gross pay less that total: $1,000.00 less $336.99 leaves $663.01."));
  EXPECT_EQ(row("Check Amt").amount, dollars("663.01"));
}

TEST_F(ExplainTest, SaysTheSameWhereTheSameIsCalculatedAgain) {
  startSample();
  calculate();
  const auto lines = linesOf("Federal Tax");
  calculate();
  EXPECT_EQ(linesOf("Federal Tax"), lines);
}

TEST_F(ExplainTest, SaysWhichTextIsNoNumberAndWhatStays) {
  startSample();
  calculate();
  main().txtIncome.setText("abc");
  calculate();
  EXPECT_THAT(linesOf("Gross Pay"),
              ElementsAre("The income entered left out: \"abc\" isn't a number; $940.00 from the one before stays.",
                          "Gross pay: $940.00."));
  main().txtIncome.setText("");
  calculate();
  EXPECT_THAT(linesOf("Gross Pay"),
              ElementsAre("No income is entered.", "Not touched by this calculation: $940.00 from the one before."));
}

TEST_F(ExplainTest, SaysSinceWhenAFigureStands) {
  startSample();
  calculate();
  main().cboState.setIndex(0);
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("No state is chosen.", "Not touched by this calculation: $28.00 from the one before."));
  calculate();
  EXPECT_THAT(linesOf("State Tax"), Contains("Not touched by this calculation: $28.00 from 2 calculations ago."));
  EXPECT_EQ(main().cmdToolBar[frmMain::clear].userClick(), Refusal::none);  // Clear
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              Contains("Not touched by this calculation: $0.00 as it was set since the last calculation."));
}

TEST_F(ExplainTest, SaysThatAnAllowanceWaitsForTheNextLoad) {
  startSample();
  main().cboExemptions.setIndex(2);
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"),
              Contains("The number of exemptions chosen now, 2, makes an allowance of $105.76; it waits until it is "
                       "saved and the screen is loaded again."));
}

TEST_F(ExplainTest, SaysThatAGapOfATableMeetsNoRow) {
  startSample(18);  // Maine, Single: exactly 18,000 a year meets no row
  main().lstFrequency.setIndex(3);
  main().cboExemptions.setIndex(0);
  main().txtIncome.setText("1500");
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("Maine.", "Number of exemptions: 0.", "The year's wage: 12 times $1,500.00 is $18,000.00.",
                          "The year's tax by the table of the status left out: no row of the table holds for that "
                          "amount; $0.00 from the start stays.",
                          "A year's tax of 40 or less is forgiven: $0.00."));
}

TEST_F(ExplainTest, GivesNewYorkUpWhereItsCountIsNoNumber) {
  startSample(28);
  main().cboExemptions.setIndex(-1);
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("New York.", "Number of exemptions left out: \"\" isn't a number; 0 from the start stays.",
                          "The rest is given up.", "Not touched by this calculation: $0.00 from the start."));
  EXPECT_FALSE(lastTrace()->statements.at(lastTrace()->firstOfState).done);
}

TEST_F(ExplainTest, TellsTheCountyOfMarylandTwice) {
  startSample(19);
  putState("MMethod", "50");
  program.start();
  payData.mMethod = 50;
  payData.applyTo = 0;
  calculate();
  EXPECT_THAT(linesOf("State Tax"), Contains(HasSubstr("The county's tax by the table of its rate: ")));
  EXPECT_THAT(linesOf("State Tax"), Contains(HasSubstr("Plus the county's tax: ")));
  EXPECT_THAT(linesOf("Local Tax"), Contains(HasSubstr("The county's tax as local tax: ")));
  EXPECT_THAT(linesOf("Local Tax"), Contains(HasSubstr("left out: no base is chosen for the local tax")));
}

TEST_F(ExplainTest, SharesTheGrossPayOut) {
  startSample();
  calculate();
  EXPECT_EQ(sharesText(*lastTrace()),
            "Of the gross pay of $1,000.00: 401(k) 6%, federal tax 17.2%, state tax 2.8%, FICA 7.7%, check 66.3%.");
  const auto shares = sharesOf(*lastTrace());
  ASSERT_EQ(shares.size(), 6U);
  EXPECT_EQ(shares[1].fraction, 0.17249);
  EXPECT_EQ(shares[3].amount, 0);
  main().txtPreFICA.setText("2000");  // FICA becomes negative
  calculate();
  EXPECT_TRUE(sharesOf(*lastTrace()).empty());
  EXPECT_EQ(sharesText(*lastTrace()),
            "The gross pay is $1,000.00; a part of it is negative, so the parts make no bar.");
  main().txtIncome.setText("0");
  calculate();
  EXPECT_TRUE(sharesOf(*lastTrace()).empty());
  EXPECT_EQ(sharesText(*lastTrace()), "The gross pay is $0.00: there is nothing to share out.");
}

TEST(AmountText, HasTwoDecimalsOrAsManyAsThereAre) {
  EXPECT_EQ(amountText(1000), "$1,000.00");
  EXPECT_EQ(amountText(toMoney("172.4936")), "$172.4936");
  EXPECT_EQ(amountText(toMoney("0.125")), "$0.125");
  EXPECT_EQ(amountText(toMoney("-5")), "($5.00)");
  EXPECT_EQ(amountText(toMoney("-0.0001")), "($0.0001)");
  EXPECT_EQ(rateText(0.0765), "7.65%");
  EXPECT_EQ(rateText(0.1F), "10%");
  EXPECT_EQ(rateText(1e308), "1E+308");
}

/// The changes of the statements, made one after the other to the record as it was.
Fields replayed(const Trace& trace) {
  Fields fields = trace.before;
  for (const TracedStatement& statement : trace.statements) {
    if (statement.part) continue;
    for (std::size_t i = 0; i < statement.changes; ++i) {
      const Change& change = trace.changes[statement.firstChange + i];
      std::size_t number = 0;
      Fields::each(fields, [&](const char* /*name*/, auto& field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        if (number++ == change.field) {
          RC_ASSERT(field == std::get<Field>(change.from));
          field = std::get<Field>(change.to);
        }
      });
    }
  }
  return fields;
}

using TraceLaws = ExplainTest;

RC_GTEST_FIXTURE_PROP(TraceLaws, ItsChangesMakeTheRecord, ()) {
  desk.end();
  startSample();
  const auto text = rc::gen::element<std::string>("", "abc", "0", "1", "6", ".5", "1000", "1500", "18000", "$2,345.67",
                                                  "-40", "1E300", "922337203685477");
  for (int round = 0; round < 4; ++round) {
    main().txtIncome.setText(*text);
    main().txt401k.setText(*text);
    main().txtPreTax.setText(*text);
    main().txtPreFICA.setText(*text);
    main().cboExemptions.setIndex(*rc::gen::inRange(-1, 16));
    main().cboState.setIndex(*rc::gen::inRange(-1, 42));
    payData.frequency = *rc::gen::inRange(-1, 5);
    payData.maritalStat = *rc::gen::inRange(0, 4);
    payData.staMarried = *rc::gen::inRange(-1, 11);
    payData.staExmp = *rc::gen::element(-1, 0, 1, 2, 10, 11, 32767);
    payData.staDeps = *rc::gen::element(-1, 0, 1, 3, 12, 32767);
    payData.mMethod = *rc::gen::element(0, 48, 50, 60);
    payData.applyTo = *rc::gen::inRange(0, 7);
    payData.localRate = *rc::gen::element(0.0, 0.01, 2.0, 1e300);
    payData.staAdd = toMoney(*rc::gen::element<std::string>("0", "5", "-10.25", "922337203685477"));
    const PayData before = payData;
    calculate();
    const Trace& trace = *lastTrace();
    RC_ASSERT(trace.before.record == before);
    RC_ASSERT(trace.after.record == payData);
    RC_ASSERT((replayed(trace) == trace.after));
    for (const TracedStatement& statement : trace.statements) RC_ASSERT(*statement.title != '\0');
    const auto rows = explain(trace);
    RC_ASSERT(rows.size() == 12U);
    for (const Explanation& row : rows) RC_ASSERT(!row.lines.empty());
  }
}

}  // namespace
}  // namespace tallyfin
