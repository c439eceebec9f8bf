#include "engine/fedtax.h"

#include <array>

#include "engine/statelist.h"

namespace TALLYFIN_FIGURES {

namespace {

using enum Test;

/// United States, percentage method, tax year 1999: dollars a pay period.
constexpr Band singleWeekly[] = {
    {atMost, 51, 0, 0},
    {atMost, 525, 51, 0.15},
    {atMost, 1125, 525, 0.28, 71.1},
    {atMost, 2535, 1125, 0.31, 239.1},
    {atMost, 5475, 2535, 0.36, 676.2},
    {above, 5475, 5475, 0.396, 1734.6},
};
constexpr Band marriedWeekly[] = {
    {atMost, 124, 0, 0},
    {atMost, 913, 124, 0.15},
    {atMost, 1894, 913, 0.28, 118.35},
    {atMost, 3135, 1894, 0.31, 393.03},
    {atMost, 5531, 3135, 0.36, 777.74},
    {above, 5531, 5531, 0.396, 1640.3},
};
constexpr Band singleTwiceAMonth[] = {
    {atMost, 110, 0, 0},
    {atMost, 1138, 110, 0.15},
    {atMost, 2438, 1138, 0.28, 154.2},
    {atMost, 5492, 2438, 0.31, 518.2},
    {atMost, 11863, 5492, 0.36, 1464.94},
    {above, 11863, 11863, 0.396, 3758.5},
};
constexpr Band marriedTwiceAMonth[] = {
    {atMost, 269, 0, 0},
    {atMost, 1979, 269, 0.15},
    {atMost, 4104, 1979, 0.28, 256.5},
    {atMost, 6792, 4104, 0.31, 851.5},
    {atMost, 11983, 6792, 0.36, 1684.78},
    {above, 11983, 11983, 0.396, 3553.54},
};
constexpr Band singleEveryTwoWeeks[] = {
    {atMost, 102, 0, 0},
    {atMost, 1050, 102, 0.15},
    {atMost, 2250, 1050, 0.28, 142.2},
    {atMost, 5069, 2250, 0.31, 478.2},
    {atMost, 10950, 5069, 0.36, 1352.09},
    {above, 10950, 10950, 0.396, 3469.25},
};
constexpr Band marriedEveryTwoWeeks[] = {
    {atMost, 248, 0, 0},
    {atMost, 1827, 248, 0.15},
    {atMost, 3788, 1827, 0.28, 236.85},
    {atMost, 6296, 3788, 0.31, 785.93},
    {atMost, 11062, 6296, 0.36, 1555.04},
    {above, 11062, 11062, 0.396, 3280.52},
};
constexpr Band singleMonthly[] = {
    {atMost, 221, 0, 0},
    {atMost, 2275, 221, 0.15},
    {atMost, 4875, 2275, 0.28, 308.1},
    {atMost, 10983, 4875, 0.31, 1036.1},
    {atMost, 23725, 10983, 0.36, 2929.58},
    {above, 23725, 23725, 0.396, 7516.7},
};
constexpr Band marriedMonthly[] = {
    {atMost, 538, 0, 0},
    {atMost, 3958, 538, 0.15},
    {atMost, 8208, 3958, 0.28, 513},
    {atMost, 13583, 8208, 0.31, 1703},
    {atMost, 23967, 13583, 0.36, 3369.25},
    {above, 23967, 23967, 0.396, 7107.49},
};

constexpr PerFrequency<Bands> single{singleWeekly, singleTwiceAMonth, singleEveryTwoWeeks, singleMonthly,
                                     "Federal, Single"};
constexpr PerFrequency<Bands> married{marriedWeekly, marriedTwiceAMonth, marriedEveryTwoWeeks, marriedMonthly,
                                      "Federal, Married"};

/// The table of the status and frequency. Status 2 has none: required.
TaxTable federalTable() {
  if (payData.maritalStat == status::married) return married.now();
  if (payData.maritalStat == status::single) return single.now();
  throw FailedStatement{"there are federal tables for Married and for Single only"};
}

constexpr FixedRate ficaRate{"FICA rate", 0.0765};
constexpr FixedRate socialSecurityRate{"Social Security rate", 0.062};
constexpr FixedRate medicareRate{"Medicare rate", 0.0145};
constexpr FixedRate selfEmployedFicaRate{"FICA rate of the self-employed", 0.153};
constexpr FixedRate selfEmployedSocialSecurityRate{"Social Security rate of the self-employed", 0.124};
constexpr FixedRate selfEmployedMedicareRate{"Medicare rate of the self-employed", 0.029};

/// FICA, or one of its two parts, at a rate. Each is calculated from the same base, so the total can differ from the
/// sum of the parts in the last decimal. No wage limit; may be negative.
[[gnu::always_inline]] inline void share(Title title, Amount& part, Rate rate) {
  step(title, part,
       [rate] { return fromReal(toReal(line("Pay subject to FICA", payData.grossPay - payData.preFica)) * rate); });
}

void fica() {
  share("FICA", payData.fica, ficaRate);
  share("Social Security", payData.socSec, socialSecurityRate);
  share("Medicare", payData.medicare, medicareRate);
}

void ficaOfTheSelfEmployed() {
  share("FICA of the self-employed", payData.fica, selfEmployedFicaRate);
  share("Social Security of the self-employed", payData.socSec, selfEmployedSocialSecurityRate);
  share("Medicare of the self-employed", payData.medicare, selfEmployedMedicareRate);
}

void showFigures() {
  // lbl8 shows the local tax of the previous calculation: LocalTaxCalc runs after this.
  struct Shown {
    Title title;
    Amount PayData::*figure;
  };
  static constexpr Shown shown[] = {
      {"Show the federal tax", &PayData::fedTax},
      {"Show the state tax", &PayData::stateTax},
      {"Show the 401(k) contribution", &PayData::amt401k},
      {"Show FICA", &PayData::fica},
      {"Show the pre-FICA amount", &PayData::preFica},
      {"Show Social Security", &PayData::socSec},
      {"Show Medicare", &PayData::medicare},
      {"Show the local tax", &PayData::localTax},
  };
  Worksheet& labels = worksheet();
  int label = 0;
  for (const Shown& entry : shown) {
    ++label;
    step(entry.title, [&] { labels.showFigure(label, roundedForDisplay(payData.*entry.figure)); });
  }
}

}  // namespace

void FedTax() {
  step("Federal tax by the table", payData.fedTax, [] { return taxOf(federalTable(), payData.fedBase); });
  step("Federal tax in whole cents", payData.fedTax, [] { return roundCents(payData.fedTax); });
  step("Federal tax", payData.fedTax, [] { return atLeastZero(payData.fedTax); });

  fica();
  if (worksheet().selfEmployed()) ficaOfTheSelfEmployed();

  callStateRoutine();
  showFigures();
}

}  // namespace TALLYFIN_FIGURES
