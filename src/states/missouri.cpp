#include "states/states.h"

/// Missouri: deductions are those of a year, the band tables those of a pay period.

namespace TALLYFIN_FIGURES {

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
constexpr PerFrequency<Bands> bands{weekly, twiceAMonth, everyTwoWeeks, monthly, "Missouri"};

/// Dollars a year.
struct Limits {
  FixedAmount standardDeduction;
  FixedAmount federalCap;
};
constexpr Limits marriedLimits{{"standard deduction", 4300}, {"most federal tax", 10000}};
constexpr Limits singleLimits{{"standard deduction", 3600}, {"most federal tax", 5000}};
constexpr FixedCount perExemption{"personal exemption", 1200};
}  // namespace missouri

/// Missouri, 1999. Married Claiming Single keeps the deductions of the last routine, and its federal deduction has no
/// cap. `stateDepsDed`: dollars a year.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `payPeriods`, `grossPay`, `fedTax`, `stateTax`, `frequency`, `staAdd`,
/// `stateDepsDed`, `stateStdDed`, `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`,
/// `exemptions`, `stateWage`, `stateStdDed`.
void Missouri() {
  using namespace missouri;
  Worksheet& work = worksheet();
  Amount federalDeduction;
  parseExemptions();
  StateBase();
  step("Year's wage", work.stateWage, yearsWage);
  step("Year's federal tax", federalDeduction, [] { return payData.fedTax * payData.payPeriods; });
  step(
      "Federal tax, standard deduction and personal exemptions to be taken off",
      [&] {
        if (payData.maritalStat != status::married && payData.maritalStat != status::single) {
          return keepAll("the state has deductions for Married and for Single only");
        }
        const Limits* limits = &singleLimits;
        if (payData.maritalStat == status::married) limits = &marriedLimits;
        work.stateStdDed = line("Standard deduction", Amount(limits->standardDeduction));
        federalDeduction = line("Federal tax that is deducted", least(federalDeduction, limits->federalCap));
        if (isFrom(0, work.exemptions, 15)) {
          payData.stateDepsDed = line("Personal exemptions", work.exemptions * perExemption);
        }
        return true;
      },
      federalDeduction, work.stateStdDed, payData.stateDepsDed);
  step("Year's wage less the deductions", work.stateWage,
       [&] { return work.stateWage - (payData.stateDepsDed + work.stateStdDed + federalDeduction); });
  step("Pay period's wage", work.stateWage, [&] { return perPeriod(work.stateWage); });
  step("Tax by the table", payData.stateTax, [] { return taxBy(bands.now()); });
  step("Tax in whole dollars", payData.stateTax, [] { return roundedToDollars(payData.stateTax); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
