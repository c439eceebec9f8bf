#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "engine/numbertext.h"
#include "library/paycheck.h"

namespace tallyfin::library {
namespace {

constexpr std::size_t grossPay = 0;
constexpr std::size_t checkAmount = 11;
constexpr std::int64_t unitsPerCent = Money::unitsPerDollar / 100;

/// A number from the environment, for a longer run.
int setting(const char* name, int otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::atoi(text);
}

/// Paychecks chosen at random: their columns but income and net.
class RandomChoices {
 public:
  explicit RandomChoices(unsigned seed) : random_(seed) {}

  int upTo(int most) { return std::uniform_int_distribution(0, most)(random_); }

  void fill(Paycheck& paycheck) {
    paycheck.clear();
    paycheck.setInteger(Column::frequency, upTo(3));
    paycheck.setInteger(Column::status, upTo(2));
    paycheck.setInteger(Column::exemptions, upTo(5));
    paycheck.setInteger(Column::state, upTo(41));
    if (upTo(1) == 0) return;
    paycheck.set(Column::rate401k, oneOf({"0", "6", ".1", "1", "50", "99.5", "100", "-2"}));
    paycheck.set(Column::preTax, oneOf({"0", "35.38", "250", "-10"}));
    paycheck.set(Column::preFica, oneOf({"0", "12.5", "300"}));
    paycheck.set(Column::selfEmployed, oneOf({"Y", "N"}));
    paycheck.set(Column::state401k, oneOf({"Y", "N"}));
    paycheck.set(Column::statePreTax, oneOf({"Y", "N"}));
    paycheck.set(Column::localRate, oneOf({"0", ".01", "2.5"}));
    paycheck.setInteger(Column::localBase, upTo(4) + 1);
    paycheck.setInteger(Column::stateDependents, upTo(4));
    paycheck.setInteger(Column::stateMarital, upTo(9));
    paycheck.setInteger(Column::stateExemptions, upTo(10));
    paycheck.set(Column::stateAdditional, oneOf({"0", "12.25"}));
  }

  /// One whose check falls by 24.23 at 1,935.51, a little above that with an exemption.
  void fillWithAJump(Paycheck& paycheck) {
    paycheck.clear();
    paycheck.set(Column::frequency, "Weekly");
    paycheck.set(Column::state, "Ohio");
    paycheck.setInteger(Column::status, upTo(2));
    paycheck.setInteger(Column::exemptions, upTo(1));
  }

 private:
  const char* oneOf(std::vector<const char*> texts) {
    return texts[static_cast<std::size_t>(upTo(static_cast<int>(texts.size()) - 1))];
  }

  std::mt19937 random_;
};

Money cents(std::int64_t count) { return Money::ofUnits(count * unitsPerCent); }

/// The checks of all incomes from 0.01 up to a number of cents.
std::vector<Money> checksUpTo(Paycheck& paycheck, int most) {
  paycheck.set(Column::net, "");
  std::vector<Money> checks;
  for (int cent = 1; cent <= most; ++cent) {
    paycheck.set(Column::income, toText(cents(cent)));
    EXPECT_TRUE(paycheck.work());
    checks.push_back(paycheck.result(checkAmount));
  }
  paycheck.set(Column::income, "");
  return checks;
}

/// The incomes at which the check rises or falls by more than ten cents for one cent of income.
std::vector<std::size_t> jumpsIn(const std::vector<Money>& checks) {
  std::vector<std::size_t> jumps;
  for (std::size_t i = 1; i < checks.size(); ++i) {
    const std::int64_t rise = checks[i].units() - checks[i - 1].units();
    if (std::abs(rise) > 1000) jumps.push_back(i);
  }
  return jumps;
}

/// The income, in cents, that a search of every cent finds; 0 for none.
std::int64_t firstReaching(const std::vector<Money>& checks, Money wanted) {
  const auto found = std::find_if(checks.begin(), checks.end(), [&](Money check) { return check >= wanted; });
  return found == checks.end() ? 0 : found - checks.begin() + 1;
}

/// TARGETS=20000 tries that many, up to larger incomes; SEED sets the seed.
TEST(IncomeSearch, FindsWhatTryingEveryCentFinds) {
  const int wanted = setting("TARGETS", 500);
  constexpr int targetsOfOne = 100;
  RandomChoices choices(static_cast<unsigned>(setting("SEED", 1999)));
  Paycheck paycheck;
  int paychecks = 0;
  int tried = 0;
  int triedAtJumps = 0;
  while (tried < wanted) {
    choices.fill(paycheck);
    const bool hasJump = paychecks++ % 3 == 0;
    if (hasJump) choices.fillWithAJump(paycheck);
    const int most = wanted > 500 ? 1'200'000 : hasJump ? 195'000 : 60'000;
    const std::vector<Money> checks = checksUpTo(paycheck, most);
    const std::vector<std::size_t> jumps = jumpsIn(checks);
    for (int target = 0; target < targetsOfOne && tried < wanted; ++target) {
      // More than a quarter, because some paychecks have no jump.
      const bool atJump = !jumps.empty() && 3 * triedAtJumps <= tried;
      const std::size_t place = atJump
                                    ? jumps[static_cast<std::size_t>(choices.upTo(static_cast<int>(jumps.size()) - 1))]
                                    : static_cast<std::size_t>(choices.upTo(most - 1));
      const std::int64_t around = checks[place - (atJump ? 1 : 0)].units() / unitsPerCent + choices.upTo(2) - 1;
      if (around <= 0) continue;
      const std::int64_t expected = firstReaching(checks, cents(around));
      if (expected == 0) continue;
      paycheck.set(Column::net, toText(cents(around)));
      ASSERT_TRUE(paycheck.work());
      ASSERT_EQ(paycheck.result(grossPay), cents(expected))
          << "net " << toText(cents(around)) << " after " << tried << " targets";
      ++tried;
      triedAtJumps += atJump ? 1 : 0;
    }
  }
  std::printf("%d targets, %d of them at jumps\n", tried, triedAtJumps);
  EXPECT_GE(4 * triedAtJumps, wanted);
}

/// The check of an income, in the same choices.
Money checkOf(Paycheck& paycheck, Money income) {
  paycheck.set(Column::net, "");
  paycheck.set(Column::income, toText(income));
  EXPECT_TRUE(paycheck.work());
  return paycheck.result(checkAmount);
}

TEST(IncomeSearch, ReachesTheNetInEveryStateAndPeriodAndNoCentSooner) {
  Paycheck paycheck;
  for (int state = 0; state <= 41; ++state) {
    for (int choice = 0; choice < 8; ++choice) {
      paycheck.clear();
      paycheck.setInteger(Column::state, state);
      paycheck.setInteger(Column::frequency, choice % 4);
      paycheck.setInteger(Column::status, choice / 4);
      paycheck.setInteger(Column::stateMarital, choice);
      paycheck.set(Column::net, "731.20");
      ASSERT_TRUE(paycheck.work());
      const Money income = paycheck.result(grossPay);
      EXPECT_GE(checkOf(paycheck, income), cents(73120)) << "state " << state << ", choice " << choice;
      EXPECT_LT(checkOf(paycheck, income - cents(1)), cents(73120)) << "state " << state << ", choice " << choice;
    }
  }
}

TEST(IncomeSearch, FindsNothingWhereTheCheckFallsAllTheWay) {
  Paycheck paycheck;
  paycheck.set(Column::frequency, "Weekly");
  paycheck.set(Column::rate401k, "100");
  paycheck.set(Column::net, "0.01");
  EXPECT_TRUE(paycheck.work());
  EXPECT_EQ(paycheck.result(grossPay), 0);
  EXPECT_EQ(paycheck.problem(), "net: no income up to 1000000.00 gives that check");
}

}  // namespace
}  // namespace tallyfin::library
