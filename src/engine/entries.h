#pragma once

#include <array>
#include <string>

#include "engine/paydata.h"

/// From the entries of a paycheck to the record, and from the record to the rows of the results: shared by the screens
/// and the batch program.

namespace tallyfin {

/// Sets `maritalStat` from the status option chosen. The third option is Married Claiming Single only where its caption
/// says two incomes; else it is Single.
void takeStatus(int option, bool twoIncomes);

/// Sets `localRate` from the text of the Local Tax page when its OK is pressed.
void takeLocalRate(const std::string& text);

/// One row of the results.
template <class Record>
struct ResultRowOf {
  const char* title;
  decltype(Record::grossPay) Record::*amount;
};
using ResultRow = ResultRowOf<PayData>;

/// The results in the order in which they are shown.
template <class Record>
inline constexpr std::array<ResultRowOf<Record>, 12> resultRowsOf{{
    {"Gross Pay", &Record::grossPay},
    {"401k Deduction", &Record::amt401k},
    {"Non-Taxable", &Record::preTax},
    {"Pre-FICA", &Record::preFica},
    {"Federal Tax", &Record::fedTax},
    {"State Tax", &Record::stateTax},
    {"Local Tax", &Record::localTax},
    {"FICA", &Record::fica},
    {"Social Security", &Record::socSec},
    {"Medicare", &Record::medicare},
    {"Total Ded", &Record::totalDed},
    {"Check Amt", &Record::checkAmt},
}};
inline constexpr const auto& resultRows = resultRowsOf<PayData>;

}  // namespace tallyfin
