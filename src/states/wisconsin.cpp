#include "states/states.h"

/// Wisconsin: bands for the year's wage; a credit for each exemption is subtracted from the annual tax.

namespace TALLYFIN_FIGURES {

using enum Test;

/// Wisconsin, 1999: dollars a year.
namespace wisconsin {
// clang-format off
// The first rate holds without exemptions only. The bands do not join, and the tax falls at 14,000.
constexpr Band marriedRows[] = {
    {below, 5100, 0, 0.0255},
    {below, 10000, 5100, 0.049},
    {below, 12000, 10000, 0.049, 250},
    {below, 14000, 12000, 0.0655, 638},
    {below, 16000, 14000, 0.0655, 525},
    {below, 18500, 16000, 0.0655, 685},
    {below, 21000, 18500, 0.0693, 883},
    {below, 24000, 21000, 0.0693, 1094},
    {below, 27000, 24000, 0.0693, 1344},
    {below, 30000, 27000, 0.0693, 1593},
    {below, 33000, 30000, 0.0693, 1843},
    {below, 35500, 33000, 0.0693, 2089},
    {atLeast, 35500, 35500, 0.0693, 2279},
};
// The first rate holds without exemptions only. The bands do not join.
constexpr Band singleRows[] = {
    {below, 3900, 0, 0.0255},
    {below, 7500, 3900, 0.049},
    {below, 11000, 7500, 0.049, 187},
    {below, 13200, 11000, 0.0655, 377},
    {below, 15400, 13200, 0.0655, 539},
    {below, 17700, 15400, 0.0655, 701},
    {below, 20000, 17700, 0.0693, 870},
    {below, 22500, 20000, 0.0693, 1049},
    {below, 25000, 22500, 0.0693, 1243},
    {below, 27500, 25000, 0.0693, 1437},
    {below, 30000, 27500, 0.0693, 1631},
    {below, 32500, 30000, 0.0693, 1825},
    {below, 35000, 32500, 0.0693, 2020},
    {below, 37500, 35000, 0.0693, 2214},
    {below, 40000, 37500, 0.0693, 2408},
    {atLeast, 40000, 40000, 0.0693, 2591},
};
// clang-format on

constexpr Table married{"Wisconsin, Married", marriedRows};
constexpr Table single{"Wisconsin, Single", singleRows};
constexpr FixedCount perExemption{"credit for each exemption", 20};

/// The tax of the lowest band is charged only without exemptions.
static Amount taxBy(TaxTable table) {
  const Worksheet& work = worksheet();
  const Amount lowest = named("upper bound of the lowest row", Rows<Band>(table).front().bound.amount);
  if (work.stateWage < lowest && work.exemptions != 0) {
    note("The tax of the lowest row of the table is charged only without exemptions.");
    return 0;
  }
  return taxOf(table, work.stateWage);
}
}  // namespace wisconsin

/// Wisconsin, 1999. Married Claiming Single has no table.
///
/// Reads `preTax`, `amt401k`, `maritalStat`, `payPeriods`, `grossPay`, `stateTax`, `staAdd`, `exemptionsText`. Writes
/// `state401k`, `stateTax`, `statePreTax`, `exemptions`, `stateWage`.
void Wisconsin() {
  using namespace wisconsin;
  Worksheet& work = worksheet();
  parseExemptions();
  StateBase();
  step("Year's wage", work.stateWage, yearsWage);
  step("Year's tax", payData.stateTax, []() -> std::optional<Amount> {
    if (payData.maritalStat == status::married) return wisconsin::taxBy(married);
    if (payData.maritalStat == status::single) return wisconsin::taxBy(single);
    return keep("the state has tables for Married and for Single only");
  });
  step("Pay period's tax", payData.stateTax, [&] {
    const Amount credit = line("Credit for the exemptions", work.exemptions * perExemption);
    return perPeriod(line("Year's tax less the credit", payData.stateTax - credit));
  });
  finish();
}

}  // namespace TALLYFIN_FIGURES
