#include "engine/incomesearch.h"

#include "engine/calculate.h"

namespace TALLYFIN_FIGURES {

namespace {

/// The record and the working fields with which each trial begins.
struct Start {
  PayData record;
  WorksheetFieldsOf<Amount, Count> work;

  Start() {
    const auto copy = [](const char* /*name*/, auto& figure, const auto& number) { figure = number; };
    forFieldsOf(copy, record, tallyfin::payData);
    forFieldsOf(copy, work, static_cast<const WorksheetFields&>(tallyfin::worksheet()));
  }
};

/// Calculates the check of an income, and sets `range`.
Amount checkOf(Money income, const Start& start) {
  payData = start.record;
  static_cast<WorksheetFieldsOf<Amount, Count>&>(worksheet()) = start.work;
  worksheet().income = income;
  range = unlimited;
  calculatePaycheck();
  makeTotals();
  return payData.checkAmt;
}

/// The distance in cents to the next income whose check may reach `wanted`.
double centsToGo(const Amount& check, Money wanted) {
  const double missing = toReal(wanted - check.plain()) - check.line().slack;
  const double beyond = range + 1;
  if (missing <= 0) return 1;
  if (check.line().slope <= 0) return beyond;
  constexpr double margin = 1e-3;  // cents; far more than the doubles' own errors
  return std::max(1.0, std::min(beyond, std::ceil(missing / check.line().slope - margin)));
}

}  // namespace

}  // namespace TALLYFIN_FIGURES

namespace tallyfin {

std::optional<Money> smallestIncomeFor(Money wanted, Money largest) {
  constexpr std::int64_t cent = Money::unitsPerDollar / 100;
  const along::Start start;
  for (std::int64_t units = cent; units <= largest.units();) {
    const along::Amount check = along::checkOf(Money::ofUnits(units), start);
    if (check.plain() >= wanted) return Money::ofUnits(units);
    units += cent * static_cast<std::int64_t>(along::centsToGo(check, wanted));
  }
  return std::nullopt;
}

}  // namespace tallyfin
