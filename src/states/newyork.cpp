#include "states/states.h"

/// New York: the only routine in which a failed statement skips all statements behind it.

namespace TALLYFIN_FIGURES {

using enum Test;

/// New York, 1999: dollars a pay period.
namespace newyork {
constexpr PerFrequency<PerHead> perExemption{real(19.25), real(41.65), real(38.5), real(83.3),
                                             "allowance for each exemption"};
constexpr PerFrequency<Dollars> marriedDeduction{143.75, 311.45, 287.5, 622.9, "standard deduction"};
constexpr PerFrequency<Dollars> singleDeduction{134.15, 290.6, 268.3, 581.25, "standard deduction"};

// clang-format off
// The top rate is below the one before it, in all four tables: required.
constexpr Band weekly[] = {
    {below, 154, 0, 0.04},
    {below, 212, 154, 0.045, 6.15},
    {below, 250, 212, 0.0525, 8.75},
    {below, 385, 250, 0.059, 10.77},
    {below, 1731, 385, 0.0685, 18.71},
    {below, 1923, 1731, 0.0764, 110.92},
    {below, 2885, 1923, 0.0814, 125.62},
    {atLeast, 2885, 2885, 0.0735, 203.92},
};
constexpr Band twiceAMonth[] = {
    {below, 333, 0, 0.04},
    {below, 458, 333, 0.045, 13.33},
    {below, 542, 458, 0.0525, 18.96},
    {below, 833, 542, 0.059, 23.33},
    {below, 3750, 833, 0.0685, 40.54},
    {below, 4167, 3750, 0.0764, 240.33},
    {below, 6250, 4167, 0.0814, 272.17},
    {atLeast, 6250, 6250, 0.0735, 441.83},
};
constexpr Band everyTwoWeeks[] = {
    {below, 308, 0, 0.04},
    {below, 423, 308, 0.045, 12.31},
    {below, 500, 423, 0.0525, 17.5},
    {below, 769, 500, 0.059, 21.54},
    {below, 3462, 769, 0.0685, 37.42},
    {below, 3846, 3462, 0.0764, 221.85},
    {below, 5769, 3846, 0.0814, 251.23},
    {atLeast, 5769, 5769, 0.0735, 407.85},
};
constexpr Band monthly[] = {
    {below, 667, 0, 0.04},
    {below, 917, 667, 0.045, 26.67},
    {below, 1083, 917, 0.0525, 37.92},
    {below, 1667, 1083, 0.059, 46.67},
    {below, 7500, 1667, 0.0685, 81.08},
    {below, 8333, 7500, 0.0764, 480.67},
    {below, 12500, 8333, 0.0814, 544.33},
    {atLeast, 12500, 12500, 0.0735, 883.67},
};
// clang-format on
constexpr PerFrequency<Bands> bands{weekly, twiceAMonth, everyTwoWeeks, monthly, "New York"};
}  // namespace newyork

/// New York, 1999. It overwrites `staDeps` with the worksheet's count; the field `exemptions` isn't changed. Married
/// Claiming Single keeps the `stateDepsDed` of the last routine. A failure ends the whole routine, finish() included;
/// a frequency that isn't chosen is no failure. `stateDepsDed`: the standard deduction, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `grossPay`, `stateTax`, `frequency`, `staAdd`, `stateDepsDed`,
/// `stateStdDed`, `exemptionsText`. Writes `state401k`, `stateTax`, `staDeps`, `stateDepsDed`, `statePreTax`,
/// `stateWage`, `stateStdDed`.
void NewYork() {
  using namespace newyork;
  Worksheet& work = worksheet();
  step(
      "New York tax",
      [&] {
        part("Exemptions", payData.staDeps, [&] { return toInt16(work.exemptionsText()); });
        if (frequencyKnown()) {
          part("Allowance for the exemptions", work.stateStdDed, [] { return payData.staDeps * perExemption.now(); });
          part("Standard deduction", payData.stateDepsDed, []() -> std::optional<Amount> {
            if (payData.maritalStat == status::married) return marriedDeduction.now();
            if (payData.maritalStat == status::single) return singleDeduction.now();
            return keep("the state has deductions for Married and for Single only");
          });
        }
        StateBase();
        part("Wage less the deductions", work.stateWage,
             [&] { return stateGross() - (work.stateStdDed + payData.stateDepsDed); });
        if (frequencyKnown()) part("Tax by the table", payData.stateTax, [] { return taxBy(bands.now()); });
        finish();
        if (!frequencyKnown()) note("No pay frequency is chosen, so the table is not applied.");
      },
      payData.stateTax);
}

}  // namespace TALLYFIN_FIGURES
