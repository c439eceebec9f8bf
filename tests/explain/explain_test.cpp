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
using testing::Not;

using Lines = std::vector<std::string>;

/// The changes of the statements, made one after the other to the record as it was; none where one starts from a figure
/// that isn't there.
std::optional<Fields> replayed(const Trace& trace) {
  Fields fields = trace.before;
  bool fits = true;
  for (const TracedStatement& statement : trace.statements) {
    if (statement.part) continue;
    for (std::size_t i = 0; i < statement.changes; ++i) {
      const Change& change = trace.changes[statement.firstChange + i];
      std::size_t number = 0;
      Fields::each(fields, [&](const char* /*name*/, auto& field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        if (number++ != change.field) return;
        fits = fits && field == std::get<Field>(change.from);
        field = std::get<Field>(change.to);
      });
    }
  }
  return fits ? std::optional(fields) : std::nullopt;
}

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
  /// Every paycheck of these tests is one whose changes make the record.
  void calculate() {
    const PayData before = payData;
    ProgramTest::calculate();
    EXPECT_EQ(lastTrace()->before.record, before);
    EXPECT_EQ(lastTrace()->after.record, payData);
    EXPECT_EQ(replayed(*lastTrace()), lastTrace()->after);
  }
  static Explanation row(const std::string& title) {
    for (Explanation& explanation : explain(*lastTrace())) {
      if (explanation.title == title) return explanation;
    }
    ADD_FAILURE() << "no row " << title;
    return {};
  }
  static Lines linesOf(const std::string& title) { return row(title).sentences(); }
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
                          "401(k) contribution of the whole income: 6% of $1,000.00 is $60.00."));
  EXPECT_THAT(linesOf("Non-Taxable"), ElementsAre("Pre-tax amount entered: $0.00."));
  EXPECT_THAT(linesOf("Pre-FICA"), ElementsAre("Pre-FICA amount entered: $0.00."));
  EXPECT_THAT(
      linesOf("Federal Tax"),
      ElementsAre(
          "The income entered: $1,000.00.", "401(k) contribution of the whole income: 6% of $1,000.00 is $60.00.",
          "Less the 401(k), pre-FICA and pre-tax amounts: $1,000.00 less $60.00 leaves $940.00.",
          "Less the federal allowance for exemptions: $940.00 less $52.88 leaves $887.12.",
          "Federal tax by the table: $887.12 is over $525.00 and up to $1,125.00: 28% of $362.12, plus $71.10, is "
          "$172.4936.",
          "To whole cents: $172.49.", "The federal allowance of $52.88 is for 1 exemption."));
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("Pennsylvania.", "Pennsylvania tax, 2.8% of the wage: of $1,000.00 it is $28.00."));
  EXPECT_THAT(linesOf("Local Tax"),
              ElementsAre("Local tax on the base chosen on the Local Tax page: 0% of $1,000.00 is $0.00."));
  EXPECT_THAT(linesOf("FICA"),
              ElementsAre("FICA, 7.65% of the gross pay less the pre-FICA amount: of $1,000.00 it is $76.50."));
  EXPECT_THAT(
      linesOf("Social Security"),
      ElementsAre("Social Security, 6.2% of the gross pay less the pre-FICA amount: of $1,000.00 it is $62.00."));
  EXPECT_THAT(linesOf("Medicare"),
              ElementsAre("Medicare, 1.45% of the gross pay less the pre-FICA amount: of $1,000.00 it is $14.50."));
  EXPECT_THAT(linesOf("Total Ded"),
              ElementsAre("401(k) $60.00, FICA $76.50, federal tax $172.49, state tax $28.00, local tax $0.00.",
                          "Total of 401(k), FICA, federal, state and local tax: $336.99."));
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
  EXPECT_THAT(
      linesOf("Gross Pay"),
      ElementsAre(
          "The income entered: left out, because \"abc\" isn't a number; $940.00 from the calculation before stays.",
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
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              Contains("Not touched by this calculation: $0.00 as it was set before the last calculation."));
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              Contains("Not touched by this calculation: $0.00 as it was set before the last 2 calculations."));
}

TEST_F(ExplainTest, SaysThatAFigureWasSetSinceTheFirstCalculation) {
  startSample();
  calculate();
  main().cboState.setIndex(0);
  EXPECT_EQ(main().cmdToolBar[frmMain::clear].userClick(), Refusal::none);
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              Contains("Not touched by this calculation: $0.00 as it was set since the last calculation."));
}

/// A row of amounts has no lower bound of its own.
TEST_F(ExplainTest, SaysWhatARowOfAmountsReaches) {
  startSample(6);  // Connecticut
  main().txtIncome.setText("400");
  calculate();
  EXPECT_THAT(linesOf("State Tax"), Contains("Exemption by its table: $20,800.00 is at most $24,000.00: $12,000.00."));
}

TEST_F(ExplainTest, SaysThatAnAllowanceWaitsForTheNextLoad) {
  startSample();
  main().cboExemptions.setIndex(2);
  calculate();
  EXPECT_THAT(
      linesOf("Federal Tax"),
      Contains("What is chosen now, 2 exemptions at $52.88 each, makes an allowance of $105.76. It counts once the "
               "main screen is loaded again; until then the allowance stays $52.88."));
  main().cboExemptions.setIndex(1);
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), Not(Contains(HasSubstr("chosen now"))));
  main().cboExemptions.setIndex(0);
  calculate();
  EXPECT_THAT(
      linesOf("Federal Tax"),
      Contains("What is chosen now, 0 exemptions at $52.88 each, makes an allowance of $0.00. It counts once the main "
               "screen is loaded again; until then the allowance stays $52.88."));
  main().cboExemptions.setIndex(2);
  calculate();
  program.start();
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), Contains("The federal allowance of $105.76 is for 2 exemptions."));
  EXPECT_THAT(linesOf("Federal Tax"), Not(Contains(HasSubstr("chosen now"))));
  main().lstFrequency.setIndex(3);
  main().cboExemptions.setIndex(1);
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), Not(Contains(HasSubstr("The federal allowance"))));
  EXPECT_THAT(linesOf("Federal Tax"),
              Contains("What is chosen now, 1 exemption at $229.17 each, makes an allowance of $229.17. It counts "
                       "once the main screen is loaded again; until then the allowance stays $105.76."));
  main().cboExemptions.setIndex(-1);  // no number of exemptions: nothing to compare with
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), Not(Contains(HasSubstr("llowance of"))));
}

TEST_F(ExplainTest, TellsAPercentageAsItWasTyped) {
  startSample();
  main().txt401k.setText("1");
  calculate();
  EXPECT_THAT(linesOf("401k Deduction"),
              ElementsAre("401(k) rate entered: 1.", "A rate of 1 or more is a percentage: 1%.",
                          "401(k) contribution of the whole income: 1% of $1,000.00 is $10.00."));
  main().txt401k.setText(".99");
  calculate();
  EXPECT_THAT(linesOf("401k Deduction"),
              ElementsAre("401(k) rate entered: 99%.",
                          "401(k) contribution of the whole income: 99% of $1,000.00 is $990.00."));
}

TEST_F(ExplainTest, LeavesOutADeductionOfNothing) {
  startSample(3);  // Arkansas
  main().cboExemptions.setIndex(0);
  calculate();
  EXPECT_THAT(linesOf("State Tax"), Not(Contains(HasSubstr("Credit of 20"))));
  EXPECT_THAT(linesOf("State Tax"), Contains("The year's wage: $1,000.00 times 52 is $52,000.00."));
  main().cboState.setIndex(1);  // Alabama
  main().txtIncome.setText("0");
  calculate();
  EXPECT_THAT(linesOf("State Tax"), Not(Contains(HasSubstr("Standard deduction, 20%"))));
}

TEST_F(ExplainTest, SaysThatAFigureStandsFromTheStart) {
  startSample(0);
  payData.stateTax = dollars("12.5");
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("No state is chosen.", "Not touched by this calculation: $12.50 from the start."));
}

TEST_F(ExplainTest, SharesAWholeDollarOutAndNothingOfNothing) {
  startSample();
  main().txt401k.setText("");
  main().txtIncome.setText("1");
  calculate();
  EXPECT_EQ(sharesOf(*lastTrace()).size(), 6U);
  EXPECT_EQ(sharesText(*lastTrace()), "Of the gross pay of $1.00: state tax 2.8%, FICA 7.7%, check 89.6%.");
  main().txtIncome.setText("0");
  calculate();
  EXPECT_TRUE(sharesOf(*lastTrace()).empty());
}

/// The explanation of statements that are written here, in the state's part of a calculation.
TEST_F(ExplainTest, NeedsNothingAroundAStatement) {
  static const Band bands[] = {{tallyfin::Test::above, 0, 0, 0.5}};
  startSample();
  {
    Recorder recording;
    step("Gross pay", payData.grossPay, [] { return 100; });
  }
  EXPECT_THAT(linesOf("Gross Pay"), ElementsAre("Gross pay: $100.00."));
  {
    Recorder recording;
    step("The income entered", payData.taxableWage, [] { return 100; });
  }
  EXPECT_THAT(linesOf("Gross Pay"),
              ElementsAre("No income is entered.", "Not touched by this calculation: $100.00 from the one before."));
  {
    Recorder recording;
    recording.stateBegins("Here");
    step("By another table", payData.stateTax, []() -> std::optional<Money> { return std::nullopt; });
    step("By the table", payData.stateTax, [] { return taxOf(bands, 100); });
    recording.stateEnds();
    step("Pre-tax amount", payData.preTax, [] { return 7; });
    step("Federal tax", payData.fedTax, [] { return 8; });
  }
  EXPECT_THAT(linesOf("State Tax"), ElementsAre("Here.", "By another table: doesn't apply.",
                                                "By the table: $100.00 is over $0.00: 50% of $100.00 is $50.00."));
  EXPECT_THAT(linesOf("Federal Tax"), ElementsAre("Pre-tax amount: $7.00.", "Federal tax: $8.00."));
  {
    Recorder recording;
    recording.stateBegins("There");
    step("As a whole",
         [] { part("A part", payData.stateTax, []() -> Money { throw FailedStatement{"it can't be"}; }); });
    recording.stateEnds();
  }
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("There.", "A part: left out, because it can't be; $50.00 from the calculation before stays.",
                          "The rest is given up.", "Not touched by this calculation: $50.00 from the one before."));
}

TEST_F(ExplainTest, TellsARowFromItsVeryBound) {
  startSample(7);  // Delaware, Single: 687.50 a month is 5,000 a year above the standard deduction
  main().lstFrequency.setIndex(3);
  main().txtIncome.setText("687.5");
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("Delaware.", "The year's wage: $687.50 times 12 is $8,250.00.",
                          "Standard deduction of the filing status: $3,250.00.",
                          "Less the standard deduction: $8,250.00 less $3,250.00 leaves $5,000.00.",
                          "The year's tax by the table: $5,000.00 is $5,000.00 or more and below $10,000.00: 4.2% of "
                          "$0.00, plus $78.00, is $78.00.",
                          "The pay period's share, plus the additional amount asked for: $78.00 divided by 12 is "
                          "$6.50."));
}

TEST_F(ExplainTest, SaysThatAGapOfATableMeetsNoRow) {
  startSample(18);  // Maine, Single: exactly 18,000 a year meets no row
  main().lstFrequency.setIndex(3);
  main().cboExemptions.setIndex(0);
  main().txtIncome.setText("1500");
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("Maine.", "Number of exemptions: 0.", "The year's wage: $1,500.00 times 12 is $18,000.00.",
                          "The year's tax by the table of the status: left out, because no row of the table holds for "
                          "that amount; $0.00 from the start stays."));
}

TEST_F(ExplainTest, TellsARowThatTakesOffMoreThanTheAmount) {
  startSample(38);  // Vermont, Single: the row up to 1,105 begins at 899
  main().cboExemptions.setIndex(0);
  main().txt401k.setText("0");
  main().txtIncome.setText("600");
  calculate();
  EXPECT_THAT(linesOf("State Tax"), Contains(HasSubstr("$600.00 is at most $1,105.00: 7% of ($299.00), plus $17.41")));
}

TEST_F(ExplainTest, TellsTheRowAtTheBoundOfWisconsinsLowest) {
  startSample(41);
  main().lstFrequency.setIndex(3);
  main().txt401k.setText("0");
  main().txtIncome.setText("325");
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              Contains(HasSubstr("$3,900.00 is $3,900.00 or more and below $7,500.00: 4.9% of $0.00 is $0.00.")));
}

/// Iowa's credit for none is 0; it isn't one that doesn't apply.
TEST_F(ExplainTest, LeavesOutACreditOfNothing) {
  startSample(14);
  main().cboExemptions.setIndex(0);
  calculate();
  EXPECT_THAT(linesOf("State Tax"), AllOf(Contains("Iowa."), Not(Contains(HasSubstr("Credit")))));
}

TEST_F(ExplainTest, GivesNewYorkUpWhereItsCountIsNoNumber) {
  startSample(28);
  main().cboExemptions.setIndex(-1);
  calculate();
  EXPECT_THAT(
      linesOf("State Tax"),
      ElementsAre("New York.", "Number of exemptions: left out, because no number is entered; 0 from the start stays.",
                  "The rest is given up.", "Not touched by this calculation: $0.00 from the start."));
  EXPECT_FALSE(lastTrace()->statements.at(lastTrace()->firstOfState).done);
}

TEST_F(ExplainTest, KeepsWhatNewYorkHadAssignedBeforeItFailed) {
  startSample(28);
  main().txtIncome.setText("-922337203685477");
  calculate();
  EXPECT_THAT(linesOf("State Tax"),
              ElementsAre("New York.", "Number of exemptions: 1.", "Allowance for the exemptions: $19.25.",
                          "Standard deduction of the status: $134.15.",
                          "Gross pay less the untaxed amounts, the allowance and the standard deduction: left out, "
                          "because the amount is too large; $0.00 from the start stays.",
                          "The rest is given up.", "Not touched by this calculation: $0.00 from the start."));
  EXPECT_EQ(payData.staDeps, 1);
  EXPECT_EQ(payData.stateDepsDed, dollars("134.15"));
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
  EXPECT_THAT(linesOf("Local Tax"), Contains(HasSubstr("left out, because no base is chosen for the local tax")));
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

TEST(FieldsOfATrace, AreAsManyAsTheRecordAndTheWorkingFieldsHave) {
  std::size_t count = 0;
  Fields::each(Fields{}, [&](const char* /*name*/, const auto& /*field*/) { ++count; });
  EXPECT_EQ(count, fieldCount);
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
  EXPECT_EQ(rateText(1.78e306), "1.78E+308%");
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
    const bool gap = *rc::gen::inRange(0, 8) == 0;  // Maine, Single, 18,000 a year
    main().cboState.setIndex(*rc::gen::weightedOneOf<int>({{1, rc::gen::just(28)}, {7, rc::gen::inRange(-1, 42)}}));
    payData.frequency = *rc::gen::inRange(-1, 5);
    payData.maritalStat = *rc::gen::inRange(0, 4);
    if (gap) {
      main().cboState.setIndex(18);
      main().txtIncome.setText("1500");
      main().cboExemptions.setIndex(0);
      payData.frequency = 3;
      payData.maritalStat = 1;
    }
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
    RC_ASSERT((replayed(trace) == std::optional(trace.after)));
    const auto rows = explain(trace);
    RC_ASSERT(rows.size() == 12U);
    for (const Explanation& row : rows) RC_ASSERT(!row.lines.empty());
  }
}

}  // namespace
}  // namespace tallyfin
