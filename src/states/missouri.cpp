#include "states/states.h"

/// Missouri deducts on the year and taxes the pay period: the one routine that does both.

namespace tallyfin {

using enum Test;

/// Missouri, 1999: dollars a pay period.
namespace missouri {
// clang-format off
constexpr Band weekly[] = {
    {atMost, 20, 0, 0.015},
    {atMost, 40, 20, 0.02, 0.3},
    {atMost, 60, 40, 0.025, 0.7},
    {atMost, 80, 60, 0.03, 1.2},
    {atMost, 100, 80, 0.035, 1.8},
    {atMost, 120, 100, 0.04, 2.5},
    {atMost, 140, 120, 0.045, 3.3},
    {atMost, 160, 140, 0.05, 4.2},
    {atMost, 180, 160, 0.055, 5.2},
    {above, 180, 180, 0.06, 6.3},
};
constexpr Band twiceAMonth[] = {
    {atMost, 42, 0, 0.015},
    {atMost, 84, 42, 0.02, 0.63},
    {atMost, 126, 84, 0.025, 1.47},
    {atMost, 168, 126, 0.03, 2.52},
    {atMost, 210, 168, 0.035, 3.78},
    {atMost, 252, 210, 0.04, 5.25},
    {atMost, 294, 252, 0.045, 6.93},
    {atMost, 336, 294, 0.05, 8.82},
    {atMost, 378, 336, 0.055, 10.92},
    {above, 378, 378, 0.06, 13.23},
};
constexpr Band everyTwoWeeks[] = {
    {atMost, 38.5, 0, 0.015},
    {atMost, 77, 38.5, 0.02, 0.5775},
    {atMost, 115.5, 77, 0.025, 1.3475},
    {atMost, 154, 115.5, 0.03, 2.31},
    {atMost, 192.5, 154, 0.035, 3.465},
    {atMost, 231, 192.5, 0.04, 4.8125},
    {atMost, 269.5, 231, 0.045, 6.3525},
    {atMost, 308, 269.5, 0.05, 8.085},
    {atMost, 346.5, 308, 0.055, 10.01},
    {above, 346.5, 346.5, 0.06, 12.12},
};
constexpr Band monthly[] = {
    {atMost, 84, 0, 0.015},
    {atMost, 168, 84, 0.02, 1.26},
    {atMost, 252, 168, 0.025, 2.94},
    {atMost, 336, 252, 0.03, 5.04},
    {atMost, 420, 336, 0.035, 7.56},
    {atMost, 504, 420, 0.04, 10.5},
    {atMost, 588, 504, 0.045, 13.86},
    {atMost, 672, 588, 0.05, 17.64},
    {atMost, 756, 672, 0.055, 21.84},
    {above, 756, 756, 0.06, 26.46},
};
// clang-format on
constexpr PerFrequency<Bands> bands{weekly, twiceAMonth, everyTwoWeeks, monthly};
}  // namespace missouri

/// Missouri, 1999. Married Claiming Single keeps the deductions of the last routine, and its federal deduction has no
/// cap. `stateDepsDed`: dollars a year.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `payPeriods`, `grossPay`, `fedTax`, `stateTax`, `frequency`, `staAdd`,
/// `stateDepsDed`, `stateStdDed`, `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`,
/// `exemptions`, `stateWage`, `stateStdDed`.
void Missouri() {
  Worksheet& work = worksheet();
  Money federalDeduction;
  parseExemptions();
  StateBase();
  step("The year's wage", work.stateWage, [] { return stateGross() * payData.payPeriods; });
  step("The year's federal tax", federalDeduction, [] { return payData.fedTax * payData.payPeriods; });
  step(
      "Federal tax up to its cap, standard deduction and 1,200 for each exemption",
      [&] {
        if (payData.maritalStat != status::married && payData.maritalStat != status::single) return false;
        const bool married = payData.maritalStat == status::married;
        const Money cap = married ? 10000 : 5000;
        work.stateStdDed = married ? 4300 : 3600;
        if (federalDeduction > cap) federalDeduction = cap;
        if (work.exemptions >= 0 && work.exemptions <= 15) payData.stateDepsDed = work.exemptions * 1200;
        return true;
      },
      federalDeduction, work.stateStdDed, payData.stateDepsDed);
  step("Less all three", work.stateWage,
       [&] { return work.stateWage - (payData.stateDepsDed + work.stateStdDed + federalDeduction); });
  step("The pay period's share", work.stateWage, [&] { return perPeriod(work.stateWage); });
  step("Tax by the table of the pay period", payData.stateTax, [] { return taxBy(missouri::bands.now()); });
  step("To whole dollars", payData.stateTax, [] { return roundedToDollars(payData.stateTax); });
  finish();
}

}  // namespace tallyfin
