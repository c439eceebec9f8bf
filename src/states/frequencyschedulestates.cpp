#include "states/states.h"

/// One band table for each pay frequency, for all statuses.

namespace TALLYFIN_FIGURES {

using enum Test;

/// West Virginia, 1999: dollars a pay period.
namespace westvirginia {
constexpr PerFrequency<PerHead> perExemption{real(38.46), real(83.33), real(76.92), real(166.67),
                                             "allowance for each exemption"};

// clang-format off
constexpr Band weekly[] = {
    {atMost, 192, 0, 0.03},
    {atMost, 481, 192, 0.04, 5.76},
    {atMost, 769, 481, 0.045, 17.32},
    {atMost, 1154, 769, 0.06, 30.28},
    {above, 1154, 1154, 0.065, 53.38},
};
constexpr Band twiceAMonth[] = {
    {atMost, 417, 0, 0.03},
    {atMost, 1042, 417, 0.04, 12.51},
    {atMost, 1667, 1042, 0.045, 37.51},
    {atMost, 2500, 1667, 0.06, 65.64},
    {above, 2500, 2500, 0.065, 115.62},
};
constexpr Band everyTwoWeeks[] = {
    {atMost, 385, 0, 0.03},
    {atMost, 962, 385, 0.04, 11.55},
    {atMost, 1538, 962, 0.045, 34.63},
    {atMost, 2308, 1538, 0.06, 60.55},
    {above, 2308, 2308, 0.065, 106.75},
};
// The same rows as Twice A Month: required.
constexpr Band monthly[] = {
    {atMost, 417, 0, 0.03},
    {atMost, 1042, 417, 0.04, 12.51},
    {atMost, 1667, 1042, 0.045, 37.51},
    {atMost, 2500, 1667, 0.06, 65.64},
    {above, 2500, 2500, 0.065, 115.62},
};
// clang-format on
constexpr PerFrequency<Bands> bands{weekly, twiceAMonth, everyTwoWeeks, monthly, "West Virginia"};
}  // namespace westvirginia

/// West Virginia, 1999. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void WestVirginia() {
  Worksheet& work = worksheet();
  parseExemptions();
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * westvirginia::perExemption.now(); });
  StateBase();
  step("Wage less the allowance", work.stateWage, [] { return stateGross() - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [] { return taxBy(westvirginia::bands.now()); });
  finish();
}

/// Ohio, 1999: dollars a pay period.
namespace ohio {
constexpr PerFrequency<PerHead> perExemption{real(12.5), real(27.08), int16(25), real(54.17),
                                             "allowance for each exemption"};

// clang-format off
// The last Lower is 1,623, not its bound: the tax jumps by 24.225 there.
constexpr Band weekly[] = {
    {atMost, 96.15, 0, 0.00808},
    {atMost, 192.3, 96.15, 0.01615, 0.78},
    {atMost, 288.45, 192.3, 0.0323, 2.33},
    {atMost, 384.6, 288.45, 0.04038, 5.44},
    {atMost, 769.2, 384.6, 0.04845, 9.32},
    {atMost, 1538.4, 769.2, 0.05653, 27.95},
    {atMost, 1923, 1538.4, 0.0646, 71.43},
    {above, 1923, 1623, 0.08075, 96.28},
};
constexpr Band twiceAMonth[] = {
    {atMost, 208.33, 0, 0.00808},
    {atMost, 416.66, 208.33, 0.01615, 1.68},
    {atMost, 624.99, 416.66, 0.0323, 5.05},
    {atMost, 833.32, 624.99, 0.04038, 11.78},
    {atMost, 1666.64, 833.32, 0.04845, 20.19},
    {atMost, 3333.28, 1666.64, 0.05653, 60.56},
    {atMost, 4166.6, 3333.28, 0.0646, 154.78},
    {above, 4166.6, 4166.6, 0.08075, 208.61},
};
constexpr Band everyTwoWeeks[] = {
    {atMost, 192.3, 0, 0.00808},
    {atMost, 384.6, 192.3, 0.01615, 1.55},
    {atMost, 576.9, 384.6, 0.0323, 4.66},
    {atMost, 769.2, 576.9, 0.04038, 10.87},
    {atMost, 1538.4, 769.2, 0.04845, 18.64},
    {atMost, 3076.8, 1538.4, 0.05653, 55.9},
    {atMost, 3846, 3076.8, 0.0646, 142.87},
    {above, 3846, 3846, 0.08075, 192.56},
};
constexpr Band monthly[] = {
    {atMost, 416.66, 0, 0.00808},
    {atMost, 833.32, 416.66, 0.01615, 3.37},
    {atMost, 1249.98, 833.32, 0.0323, 10.1},
    {atMost, 1666.64, 1249.98, 0.04038, 23.55},
    {atMost, 3333.28, 1666.64, 0.04845, 40.38},
    {atMost, 6666.56, 3333.28, 0.05653, 121.13},
    {atMost, 8333.2, 6666.56, 0.0646, 309.53},
    {above, 8333.2, 8333.2, 0.08075, 417.22},
};
// clang-format on
constexpr PerFrequency<Bands> bands{weekly, twiceAMonth, everyTwoWeeks, monthly, "Ohio"};
}  // namespace ohio

/// Ohio, 1999. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Ohio() {
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("Wage that the state taxes", work.stateWage, stateGross);
  step("Allowance for the exemptions", payData.stateDepsDed,
       [&] { return work.exemptions * ohio::perExemption.now(); });
  step("Wage less the allowance", work.stateWage, [&] { return work.stateWage - payData.stateDepsDed; });
  step("Tax by the table", payData.stateTax, [] { return taxBy(ohio::bands.now()); });
  finish();
}

}  // namespace TALLYFIN_FIGURES
