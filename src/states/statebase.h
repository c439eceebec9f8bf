#pragma once

#include "engine/figures.h"

/// Functions that the state routines share. A routine works on the record and on the working fields of the worksheet,
/// is a list of numbered steps, and assigns the withholding of the pay period to `stateTax`. It clears nothing at its
/// start: a branch that assigns nothing keeps the value of the last calculation.

namespace TALLYFIN_FIGURES {

/// Sets `state401k` and `statePreTax`: the whole amount where the stored option is exactly "Y", else 0. The default
/// is "N", so a state starts from the whole gross pay.
void StateBase();

/// `grossPay` less `state401k` and `statePreTax`, dollars a pay period.
Amount stateGross();

/// The same for a year.
Amount yearsWage();

/// Whether a frequency is chosen, for steps in which only a part depends on it.
bool frequencyKnown();

/// Parses the exemptions of the worksheet into its working field; a text that isn't a number leaves the field
/// unchanged.
void parseExemptions();

/// A dollar amount for each exemption or dependent, with the arithmetic in which it is multiplied by the count.
struct PerHead {
  double dollars;
  bool inInt16;
  const char* name = "";

  friend Amount operator*(Count count, PerHead amount) {
    if (amount.inInt16) return count * dollars16(amount.name, static_cast<int>(amount.dollars));
    return fromReal(toReal(count) * named(amount.name, amount.dollars));
  }
};
constexpr PerHead figureOf(const char* name, PerHead amount, const char* /*period*/) {
  amount.name = name;
  return amount;
}

/// Whole dollars in a 16-bit product, which fails past 32,767.
constexpr PerHead int16(int dollars) { return {static_cast<double>(dollars), true}; }
/// Dollars in one real step, rounded at the fourth decimal.
constexpr PerHead real(double dollars) { return {dollars, false}; }

/// The reason why a statement leaves the tax unchanged.
inline constexpr const char* noTable = "the state has no table for the filing status chosen";

/// A remark of the routines that use the exemptions without parsing them.
inline constexpr const char* exemptionsCountedBefore =
    "The exemptions are not counted anew here: they are those of the last state that counted them.";

/// The tax on `stateWage` by the table.
Amount taxBy(TaxTable table);

/// The tax on `stateWage` by the table of the status and frequency. Married Claiming Single has none: nothing is
/// assigned then.
std::optional<Amount> taxByStatus(const PerFrequency<Bands>& married, const PerFrequency<Bands>& single);

/// A year's amount divided by the pay periods, in one real step. Fails while `payPeriods` is 0.
Amount perPeriod(Amount annual);

/// The end of a routine, one statement: adds `staAdd`; a negative result becomes 0.
void finish();

/// The end of a routine that has added `staAdd` already: a negative result becomes 0.
void floorAtZero();

}  // namespace TALLYFIN_FIGURES
