#pragma once

#include "engine/figures.h"

/// What the state routines share. A routine works on the record and on the working fields of the worksheet, reads as
/// its numbered steps, and leaves withholding per pay period in `stateTax`. It clears nothing at its start, so that a
/// branch which assigns nothing leaves the last calculation's figure in place.

namespace TALLYFIN_FIGURES {

/// Sets `state401k` and `statePreTax`: the whole amount where the stored option is exactly "Y", else 0. By default a
/// state base therefore starts from the whole gross.
void StateBase();

/// `grossPay` less what StateBase left to deduct, dollars a pay period.
Amount stateGross();

/// The same for a year.
Amount yearsWage();

/// True where `frequency` has an entry, for the few steps of which only a part goes by it.
bool frequencyKnown();

/// Parses the exemptions of the worksheet into its working field; a text that is no number leaves the field.
void parseExemptions();

/// A dollar amount for each exemption or dependent, and the arithmetic in which the rule multiplies it by the count.
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

/// Why a statement keeps the tax.
inline constexpr const char* noTable = "the state has no table for the filing status chosen";

/// The tax on `stateWage` by the table.
Amount taxBy(TaxTable table);

/// The tax on `stateWage` by the table of the status and frequency. Married Claiming Single has none: nothing is
/// assigned then.
std::optional<Amount> taxByStatus(const PerFrequency<Bands>& married, const PerFrequency<Bands>& single);

/// A year's amount as a pay period's, in one real step. Fails while `payPeriods` is 0.
Amount perPeriod(Amount annual);

/// The end of a routine, one statement: `staAdd` comes on top, and what isn't above 0 becomes 0.
void finish();

/// The end of a routine that has added `staAdd` already: what isn't above 0 becomes 0.
void floorAtZero();

}  // namespace TALLYFIN_FIGURES
