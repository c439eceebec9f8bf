#pragma once

#include "engine/bands.h"
#include "engine/failure.h"
#include "engine/frequency.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/worksheet.h"

/// What the state routines share. A routine works on the record and on the working fields of the worksheet, reads as
/// its numbered steps, and leaves withholding per pay period in `stateTax`. It clears nothing at its start, so that a
/// branch which assigns nothing leaves the last calculation's figure in place.

namespace tallyfin {

/// Sets `state401k` and `statePreTax`: the whole amount where the stored option is exactly "Y", else 0. By default a
/// state base therefore starts from the whole gross.
void StateBase();

/// `grossPay` less what StateBase left to deduct, dollars a pay period.
Money stateGross();

/// Parses the exemptions of the worksheet into its working field; a text that is no number leaves the field.
void parseExemptions();

/// A year's amount as a pay period's, in one real step. Fails while `payPeriods` is 0.
Money perPeriod(Money annual);

/// The end of a routine, one statement: `staAdd` comes on top, and what isn't above 0 becomes 0.
void finish();

}  // namespace tallyfin
