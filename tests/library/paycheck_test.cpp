#include "library/paycheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/services.h"

namespace tallyfin::library {
namespace {

using testing::ElementsAre;

constexpr std::size_t grossPay = 0;
constexpr std::size_t federalTax = 4;
constexpr std::size_t stateTax = 5;
constexpr std::size_t checkAmount = 11;

/// A married person's 1000 a week with 6 % for the 401(k) and two exemptions.
void setSample(Paycheck& paycheck) {
  paycheck.set(Column::income, "1000");
  paycheck.set(Column::rate401k, "6");
  paycheck.set(Column::frequency, "Weekly");
  paycheck.set(Column::exemptions, "2");
}

std::string figure(const Paycheck& paycheck, std::size_t row) { return toText(paycheck.result(row)); }

TEST(Paycheck, IsWorked) {
  Paycheck paycheck;
  setSample(paycheck);
  ASSERT_TRUE(paycheck.work());
  EXPECT_EQ(paycheck.problem(), "");
  // (1000 - 60 - 2 * 52.88 - 124) * 0.15 is 106.536.
  EXPECT_EQ(figure(paycheck, federalTax), "106.54");
  EXPECT_EQ(figure(paycheck, checkAmount), "756.96");
}

TEST(Paycheck, KeepsItsColumnsWhenItIsWorked) {
  Paycheck paycheck;
  setSample(paycheck);
  ASSERT_TRUE(paycheck.work());
  paycheck.set(Column::exemptions, "1");
  ASSERT_TRUE(paycheck.work());
  EXPECT_EQ(figure(paycheck, federalTax), "114.47");  // (1000 - 60 - 52.88 - 124) * 0.15
}

TEST(Paycheck, IsEmptyAgainAfterClear) {
  Paycheck paycheck;
  setSample(paycheck);
  paycheck.set(Column::state, "Atlantis");
  EXPECT_FALSE(paycheck.work());
  paycheck.clear();
  ASSERT_TRUE(paycheck.work());
  EXPECT_EQ(figure(paycheck, grossPay), "0");
  EXPECT_EQ(paycheck.problem(), "frequency: none is chosen and so there is no federal tax");
}

TEST(Paycheck, HasNoResultsWhereAColumnIsNotUnderstood) {
  Paycheck paycheck;
  setSample(paycheck);
  ASSERT_TRUE(paycheck.work());
  paycheck.set(Column::stateMethod, "40000");
  paycheck.set(Column::selfEmployed, "Maybe");
  paycheck.set(Column::frequency, "4");
  EXPECT_FALSE(paycheck.work());
  EXPECT_EQ(figure(paycheck, grossPay), "0");
  EXPECT_EQ(paycheck.problem(),
            "frequency: no such entry; self_employed: neither Y nor N; state_method: no 16-bit number");
  EXPECT_TRUE(paycheck.explain().empty());
}

TEST(Paycheck, TakesNumbers) {
  Paycheck paycheck;
  paycheck.setReal(Column::income, 1000.5);
  paycheck.setReal(Column::rate401k, 0.06);
  paycheck.setInteger(Column::frequency, 0);
  paycheck.setReal(Column::exemptions, 2.0);
  paycheck.setInteger(Column::preTax, -5);
  paycheck.setInteger(Column::stateDependents, 3);
  paycheck.setInteger(Column::selfEmployed, 1);
  paycheck.setReal(Column::statePreTax, 1.0);
  ASSERT_TRUE(paycheck.work());
  EXPECT_EQ(paycheck.problem(), "");
  EXPECT_EQ(figure(paycheck, grossPay), "1000.5");
  EXPECT_EQ(figure(paycheck, 1), "60.03");
  EXPECT_EQ(figure(paycheck, 2), "-5");
  EXPECT_EQ(figure(paycheck, 7), "153.0765");  // the self-employed's 15.3 %
}

TEST(Paycheck, IsEmptiedOfANumberByTheEmptyText) {
  Paycheck paycheck;
  paycheck.setInteger(Column::frequency, 4);
  EXPECT_FALSE(paycheck.work());
  paycheck.set(Column::frequency, "");
  EXPECT_TRUE(paycheck.work());
  paycheck.set(Column::frequency, "9");
  paycheck.setInteger(Column::frequency, 0);
  EXPECT_TRUE(paycheck.work());
  paycheck.set(Column::frequency, "9");
  EXPECT_FALSE(paycheck.work());
  paycheck.set(Column::frequency, "9");
  EXPECT_FALSE(paycheck.work());
}

TEST(Paycheck, TakesNoNumberBeyondAList) {
  Paycheck paycheck;
  paycheck.setInteger(Column::frequency, 4);
  paycheck.setInteger(Column::state, std::int64_t{1} << 40);
  paycheck.setInteger(Column::state401k, 2);
  paycheck.setInteger(Column::stateMarital, 32768);
  paycheck.setReal(Column::exemptions, 2.5);
  paycheck.setReal(Column::localBase, std::numeric_limits<double>::infinity());
  EXPECT_FALSE(paycheck.work());
  EXPECT_EQ(paycheck.problem(),
            "frequency: no such entry; exemptions: no such entry; state: no such entry; state_401k: neither Y nor N; "
            "local_base: no such entry; state_marital: no 16-bit number");
}

TEST(Paycheck, EmptiesAColumnForWhatIsNoNumber) {
  Paycheck paycheck;
  setSample(paycheck);
  paycheck.setReal(Column::income, std::nan(""));
  ASSERT_TRUE(paycheck.work());
  EXPECT_EQ(figure(paycheck, grossPay), "0");
  EXPECT_EQ(paycheck.problem(), "");
}

TEST(Paycheck, TakesARealAsItsShortestText) {
  Paycheck paycheck;
  paycheck.setInteger(Column::frequency, 0);
  paycheck.setReal(Column::income, 0.1 + 0.2);  // 0.30000000000000004
  ASSERT_TRUE(paycheck.work());
  EXPECT_EQ(figure(paycheck, grossPay), "0.3");
  paycheck.setReal(Column::income, 1e7);
  ASSERT_TRUE(paycheck.work());
  EXPECT_EQ(figure(paycheck, grossPay), "10000000");
}

TEST(Paycheck, ExplainsEachResult) {
  Paycheck paycheck;
  setSample(paycheck);
  paycheck.set(Column::state, "PA");
  const std::vector<Explanation> all = paycheck.explain();
  ASSERT_EQ(all.size(), resultCount);
  EXPECT_STREQ(all[federalTax].title, "Federal Tax");
  EXPECT_EQ(toText(all[federalTax].amount), "106.54");
  EXPECT_FALSE(all[federalTax].lines.empty());
  EXPECT_EQ(toText(all[stateTax].amount), "28");
  ASSERT_TRUE(paycheck.work());
  EXPECT_EQ(figure(paycheck, federalTax), "106.54");
}

TEST(Paycheck, ExplainsWithoutAFrequency) {
  Paycheck paycheck;
  paycheck.set(Column::income, "100");
  const std::vector<Explanation> all = paycheck.explain();
  ASSERT_EQ(all.size(), resultCount);
  EXPECT_EQ(toText(all[checkAmount].amount), "92.35");
}

TEST(Paycheck, LeavesTheServicesOfItsThread) {
  Paycheck paycheck;
  ASSERT_TRUE(paycheck.work());
  EXPECT_EQ(settingsStore, nullptr);
  EXPECT_EQ(worksheetProvider, nullptr);
}

TEST(Paycheck, IsWorkedInARecordOfItsThread) {
  payData = PayData{};
  payData.grossPay = 7;
  std::thread([] {
    Paycheck paycheck;
    setSample(paycheck);
    EXPECT_TRUE(paycheck.work());
    EXPECT_EQ(toText(payData.grossPay), "1000");
  }).join();
  EXPECT_EQ(toText(payData.grossPay), "7");
}

// --- The check that is wanted ----------------------------------------------------------------------------------------

/// The gross pay for a wanted check, and the problem.
std::string grossFor(const std::string& net, const std::string& income = "") {
  Paycheck paycheck;
  paycheck.set(Column::frequency, "Weekly");
  paycheck.set(Column::income, income);
  paycheck.set(Column::net, net);
  EXPECT_TRUE(paycheck.work());
  return figure(paycheck, grossPay) + "; " + paycheck.problem();
}

TEST(Net, FindsTheSmallestIncome) {
  // Below 124 a week there is FICA alone: 0.9235 of the income. 0.01 leaves 0.0092, 0.02 leaves 0.0185.
  EXPECT_EQ(grossFor("0.01"), "0.02; ");
  EXPECT_EQ(grossFor("$92.35"), "100; ");
  EXPECT_EQ(grossFor("92.36"), "100.02; ");  // 100.01 leaves 92.3592
}

TEST(Net, IsReportedWhereItCannotBeMeant) {
  EXPECT_EQ(grossFor("x"), "0; net: not a number");
  EXPECT_EQ(grossFor("0"), "0; net: not above 0");
  EXPECT_EQ(grossFor("-5"), "0; net: not above 0");
  EXPECT_EQ(grossFor("5.001"), "0; net: not of whole cents");
  EXPECT_EQ(grossFor("50", "100"), "100; net: the income is given too and counts");
  EXPECT_EQ(grossFor("x", "100"), "100; net: the income is given too and counts");
  EXPECT_EQ(grossFor("1000000"), "0; net: no income up to 1000000.00 gives that check");
}

TEST(Net, IsExplainedWithTheIncomeFound) {
  Paycheck paycheck;
  paycheck.set(Column::frequency, "Weekly");
  paycheck.set(Column::net, "92.35");
  const std::vector<Explanation> all = paycheck.explain();
  ASSERT_EQ(all.size(), resultCount);
  EXPECT_EQ(toText(all[grossPay].amount), "100");
}

}  // namespace
}  // namespace tallyfin::library
