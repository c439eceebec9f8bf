#pragma once

#include <array>
#include <string>

#include "engine/paydata.h"

/// From the entries of a paycheck to the record, and from the record to the rows of the results: what the screens and
/// the batch program do alike.

namespace tallyfin {

/// Federal withholding allowance, 1999: dollars a pay period for each exemption. Fails without a frequency.
double allowancePerExemption();

/// Sets `depsDed`, dollars a pay period, from a number of exemptions. Without a frequency it keeps its value.
void takeAllowance(Int16 exemptions);

/// Sets `maritalStat` from the status option chosen. The third option is Married Claiming Single only where its caption
/// says two incomes; else it is Single.
void takeStatus(int option, bool twoIncomes);

/// Sets `localRate` from the text of the Local Tax page when its OK is pressed.
void takeLocalRate(const std::string& text);

/// The Calculate command: `payPeriods`, where a frequency is known, and the calculation on the income of the worksheet.
void calculatePaycheck();

/// Sets `totalDed` and `checkAmt`.
void makeTotals();

/// One row of the results.
struct ResultRow {
  const char* title;
  Money PayData::*amount;
};

/// The results in the order in which they are shown.
inline constexpr std::array<ResultRow, 12> resultRows{{
    {"Gross Pay", &PayData::grossPay},
    {"401k Deduction", &PayData::amt401k},
    {"Non-Taxable", &PayData::preTax},
    {"Pre-FICA", &PayData::preFica},
    {"Federal Tax", &PayData::fedTax},
    {"State Tax", &PayData::stateTax},
    {"Local Tax", &PayData::localTax},
    {"FICA", &PayData::fica},
    {"Social Security", &PayData::socSec},
    {"Medicare", &PayData::medicare},
    {"Total Ded", &PayData::totalDed},
    {"Check Amt", &PayData::checkAmt},
}};

}  // namespace tallyfin
