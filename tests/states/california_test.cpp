#include <algorithm>
#include <array>

#include "engine/recorder.h"
#include "states/states.h"
#include "support/paycheck.h"

/// California's low-income tests, deductions and credits.

namespace tallyfin {
namespace {

class California : public PaycheckTest {};

TEST_F(California, GoesOnAfterTheLowIncomeTest) {
  payData.grossPay = 100;
  payData.staAdd = 2;
  payData.staDeps = 1;
  CalifTax();
  EXPECT_EQ(payData.stateTax, dollars("1.14"));  // 49 at 1 percent, less 1.35, and 2
}

TEST_F(California, EndsAtALowIncomeForAWeeklyHeadOfFamily) {
  payData.staMarried = 9;
  payData.grossPay = 353;
  payData.staExmp = 2;
  payData.staDeps = 3;
  payData.staAdd = 50;
  payData.stateTax = 99;
  CalifTax();
  EXPECT_EQ(sheet.stateWage, 315);
  EXPECT_EQ(payData.stateTax, 0);
  EXPECT_EQ(payData.stateDepsDed, 38);  // still the estimated deduction

  payData.grossPay = dollars("353.01");
  payData.staDeps = 0;
  CalifTax();
  EXPECT_EQ(payData.stateTax, dollars("52.2902"));  // 1.97 + 16.01 at 2 percent, and 50
}

/// The table assigns the tax in any case, so that only the statement itself shows the result of the test.
TEST_F(California, HasALowIncomeAmountForEachGroupAndFrequency) {
  struct Group {
    int staMarried;
    int exemptions;
    std::array<int, 4> lowIncome;
  };
  const auto becomesZero = [this](Money wage) {
    sheet.income = toText(wage);
    payData.stateTax = 99;
    {
      const Recorder recorder;
      Recorder::calculatePaycheck();
    }
    const auto& all = lastTrace()->statements;
    const auto test = std::find_if(all.begin(), all.end(), [](const TracedStatement& one) {
      return std::string(one.title).starts_with("No tax up to the low-income amount");
    });
    return test != all.end() && !test->changes.empty();
  };
  sheet.state = 4;
  for (const Group& group : {Group{0, 2, {158, 341, 315, 683}},
                             {3, 1, {158, 341, 315, 683}},
                             {3, 2, {315, 683, 630, 1365}},
                             {8, 2, {158, 341, 315, 683}},
                             {9, 2, {315, 670, 618, 1340}}}) {
    for (int frequency = group.staMarried == 9 ? 1 : 0; frequency < 4; ++frequency) {
      payData.staMarried = group.staMarried;
      sheet.exemptions = group.exemptions;
      payData.frequency = frequency;
      const Money lowIncome = group.lowIncome.at(static_cast<std::size_t>(frequency));
      EXPECT_TRUE(becomesZero(lowIncome)) << group.staMarried << " " << frequency;
      EXPECT_FALSE(becomesZero(lowIncome + Money::ofUnits(1))) << group.staMarried << " " << frequency;
    }
  }
}

TEST_F(California, GoesOnAfterTheLowIncomeTestForAMonthlyHeadOfFamily) {
  payData.staMarried = 9;
  payData.frequency = 3;
  payData.grossPay = 1340;
  payData.staAdd = 50;
  CalifTax();
  EXPECT_EQ(payData.stateTax, dollars("59.45"));  // 8.55 + 45 at 2 percent, and 50
}

TEST_F(California, TakesTheCreditFromTheLastTaxOfAStatusThatIsNotOffered) {
  payData.staMarried = 1;
  payData.stateTax = 100;
  payData.staDeps = 2;
  CalifTax();
  EXPECT_EQ(payData.stateTax, dollars("97.31"));
}

TEST_F(California, ChoosesTheDeductionOfAMarriedPersonByTheExemptionsParsedLast) {
  payData.staMarried = 3;
  payData.frequency = 1;
  payData.grossPay = 1000;
  sheet.exemptions = 2;
  sheet.exemptionsEntry = "0";  // not read
  CalifTax();
  EXPECT_EQ(sheet.stateWage, 780);
  EXPECT_EQ(payData.stateTax, dollars("11.32"));  // 4.28 + 352 at 2 percent
  sheet.exemptions = 1;
  CalifTax();
  EXPECT_EQ(sheet.stateWage, 890);
}

TEST_F(California, LosesAnEstimatedDeductionBeyondSixteenBits) {
  payData.staMarried = 1;
  payData.stateDepsDed = 7;
  payData.grossPay = 1000;
  payData.staExmp = 1725;  // times 19 is 32,775
  payData.staDeps = -1;
  CalifTax();
  EXPECT_EQ(sheet.stateWage, 993);
}

TEST_F(California, LeavesTheDeductionForNegativeCounts) {
  payData.stateDepsDed = 7;
  payData.grossPay = 1000;
  payData.staExmp = -1;
  payData.staDeps = -1;
  payData.staMarried = 1;
  payData.stateTax = 10;
  CalifTax();
  EXPECT_EQ(sheet.stateWage, 993);
  EXPECT_EQ(payData.stateDepsDed, 7);
  EXPECT_EQ(payData.stateTax, 3);
}

TEST_F(California, WithoutAFrequencyTakesTheLastDeductionFromTheLastTax) {
  payData.frequency = -1;
  payData.stateTax = 100;
  payData.stateDepsDed = 10;
  payData.grossPay = 5000;
  payData.staAdd = 3;
  CalifTax();
  EXPECT_EQ(sheet.stateWage, 4990);
  EXPECT_EQ(payData.stateTax, 93);
}

}  // namespace
}  // namespace tallyfin
