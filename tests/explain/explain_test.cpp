#include <gmock/gmock.h>
#include <malloc.h>

#include <clocale>
#include <cstddef>

#include "explain/figuretexts.h"
#include "explain/form.h"
#include "explain/sample.h"
#include "explain/shares.h"

/// The text of the explanation of each figure.

/// Of the address sanitizer, where it is there; it replaces what mallinfo2 looks at.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes()
    __attribute__((weak));  // NOLINT(bugprone-reserved-identifier)

namespace tallyfin {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Not;

/// The user's locale, as on the desktop. In some locales numbers have a comma, or digits of several bytes.
[[maybe_unused]] const char* const usersLocale = std::setlocale(LC_ALL, "");

/// The bytes that are allocated at the time.
std::size_t memoryInUse() {
  if (__sanitizer_get_current_allocated_bytes != nullptr) return __sanitizer_get_current_allocated_bytes();
  return mallinfo2().uordblks;
}

TEST_F(ExplainTest, ThereIsNoneBeforeTheFirstCalculateOfARun) {
  startSample();
  EXPECT_EQ(lastTrace(), nullptr);
  calculate();
  EXPECT_NE(lastTrace(), nullptr);
  program.start();
  EXPECT_EQ(lastTrace(), nullptr);
}

constexpr const char* takenBefore =
    "The federal allowance goes by the pay frequency and the exemptions that stood when the main screen was loaded.";

TEST_F(ExplainTest, RemarksThatTheFederalAllowanceIsThatOfTheExemptionsBefore) {
  startSample();
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), Not(Contains(takenBefore)));
  main().cboExemptions.userPick(3);
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), AllOf(Contains(takenBefore), Contains("3. Exemptions: 1, as chosen = 1")));
  payData.depsDed = 5;
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), Contains(takenBefore));
}

TEST_F(ExplainTest, RemarksThatThereWasNoFrequencyForTheFederalAllowance) {
  start();
  main().lstFrequency.userPick(0);
  main().cboExemptions.userPick(3);
  main().optStatus[1].userClick();
  main().txtIncome.setText("1000");
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), Contains(takenBefore));
  main().cboExemptions.userPick(0);
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), Not(Contains(takenBefore)));
  payData.depsDed = 5;
  calculate();
  EXPECT_THAT(linesOf("Federal Tax"), Contains(takenBefore));
}

TEST_F(ExplainTest, AChoiceThatIsNotOfferedIsNone) {
  startSample(20);
  payData.staMarried = 10;
  payData.maritalStat = 3;
  calculate();
  EXPECT_THAT(linesOf("State Tax"), Contains("Filing status for the state: none"));
  EXPECT_EQ(headingOf(*lastTrace(), {}).at(3), std::pair(std::string("Marital status"), std::string("none")));
}

TEST_F(ExplainTest, SharesAWholeDollarOutAndNothingOfNothing) {
  startSample();
  main().txt401k.setText("");
  main().txtIncome.setText("1");
  calculate();
  EXPECT_EQ(sharesOf(*lastTrace()).size(), 6U);
  EXPECT_EQ(sharesText(*lastTrace()), "Of the gross pay of $1.00: state tax 2.8%, FICA 7.7%, check 89.5%.");
  main().txtIncome.setText("0");
  calculate();
  EXPECT_TRUE(sharesOf(*lastTrace()).empty());
}

TEST_F(ExplainTest, KeepsNoMemoryFromCalculationToCalculation) {
  startSample();
  const auto work = [](int calculations) {
    for (int i = 0; i < calculations; ++i) calculate();
    return memoryInUse();
  };
  const std::size_t before = work(100);
  EXPECT_LE(work(10'000), before + 1024);
}

TEST_F(ExplainTest, SharesNameAPartBelowATwentiethOfAPercent) {
  startSample();
  main().txt401k.setText(".0001");
  calculate();
  const auto shares = sharesOf(*lastTrace());
  ASSERT_EQ(shares.size(), 6U);
  EXPECT_EQ(shares[0].amount, dollars("0.1"));
  EXPECT_EQ(shares[0].fraction, 0.0001);
  EXPECT_EQ(shares[0].tenths, 0);
  EXPECT_EQ(sharesText(*lastTrace()),
            "Of the gross pay of $1,000.00: 401(k) 0%, federal tax 18.9%, state tax 2.8%, FICA 7.7%, check 70.6%.");
}

TEST_F(ExplainTest, SharesAddUpToAHundredPercent) {
  startSample();
  for (int cents = 100; cents < 3000; cents += 7) {
    main().txtIncome.setText(toText(cents / 100.0));
    calculate();
    int tenths = 0;
    for (const Share& share : sharesOf(*lastTrace())) {
      tenths += share.tenths;
      EXPECT_NEAR(share.tenths, share.fraction * 1000, 1) << share.name;
    }
    EXPECT_EQ(tenths, 1000) << cents;
  }
}

TEST_F(ExplainTest, SharesNothingOutWhereThePartsAreNotTheWhole) {
  startSample();
  calculate();
  Trace trace;
  trace.after = lastTrace()->after;
  EXPECT_FALSE(sharesOf(trace).empty());
  trace.after.checkAmt = dollars("1000");
  EXPECT_TRUE(sharesOf(trace).empty());
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
            "The gross pay is $1,000.00; a part of it is negative or out of range, so the parts make no bar.");
  main().txtIncome.setText("0");
  calculate();
  EXPECT_TRUE(sharesOf(*lastTrace()).empty());
  EXPECT_EQ(sharesText(*lastTrace()), "The gross pay is $0.00: there is nothing to share out.");
}

TEST(FigureTexts, AnAmountHasTwoDecimalsOrAsManyAsThereAre) {
  EXPECT_EQ(amountText(1000), "$1,000.00");
  EXPECT_EQ(amountText(toMoney("172.4936")), "$172.4936");
  EXPECT_EQ(amountText(toMoney("0.125")), "$0.125");
  EXPECT_EQ(amountText(toMoney("-5")), "($5.00)");
  EXPECT_EQ(amountText(toMoney("-0.0001")), "($0.0001)");
}

TEST(FigureTexts, ARealNumberHasTheFewestDigitsAndNoExponent) {
  EXPECT_EQ(plainText(0.0), "0");
  EXPECT_EQ(plainText(-0.0), "0");
  EXPECT_EQ(plainText(0.1), "0.1");
  EXPECT_EQ(plainText(150.0), "150");
  EXPECT_EQ(plainText(-1.5), "-1.5");
  EXPECT_EQ(plainText(1 - static_cast<double>(0.35F)), "0.6500000059604645");
  EXPECT_EQ(plainText(5e-7), "0.0000005");
  EXPECT_EQ(plainText(-1e21), "-1000000000000000000000");
  EXPECT_EQ(plainText(0.35F), "0.35");
}

TEST(FigureTexts, ARateIsAPercentage) {
  EXPECT_EQ(textOf(0.0765, As::percent), "7.65%");
  EXPECT_EQ(textOf(0.28, As::percent), "28%");
  EXPECT_EQ(textOf(1.5, As::percent), "150%");
  EXPECT_EQ(textOf(10.0, As::percent), "1000%");
  EXPECT_EQ(textOf(0.005, As::percent), "0.5%");
  EXPECT_EQ(textOf(-0.0012, As::percent), "-0.12%");
  EXPECT_EQ(textOf(0.0, As::percent), "0%");
  EXPECT_EQ(textOf(0.35F, As::percent), "35%");
}

TEST(FigureTexts, ARateIsDollarsWhereItIsAnAmount) {
  EXPECT_EQ(textOf(86.5375, As::dollars), "$86.5375");
  EXPECT_EQ(textOf(0.00005, As::dollars), "0.00005");
  EXPECT_EQ(textOf(86.5375, As::number), "86.5375");
}

}  // namespace
}  // namespace tallyfin
