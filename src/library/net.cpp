#include "engine/calculate.h"
#include "engine/entries.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "library/paycheck.h"

/// From the check that is wanted to the income.

namespace tallyfin::library {

std::optional<Money> Paycheck::smallestIncomeFor(Money wanted) {
  constexpr std::int64_t unitsPerCent = Money::unitsPerDollar / 100;
  for (Money income = Money::ofUnits(unitsPerCent); income <= largestIncome;
       income = income + Money::ofUnits(unitsPerCent)) {
    if (checkOf(income) >= wanted) return income;
  }
  return std::nullopt;
}

Money Paycheck::checkOf(Money income) {
  found_ = toText(income);
  income_ = &found_;
  takeChoices();
  calculatePaycheck();
  makeTotals();
  return payData.checkAmt;
}

}  // namespace tallyfin::library
