#pragma once

#include <type_traits>

#include "engine/int16.h"
#include "engine/money.h"

namespace tallyfin {

/// The record of the current paycheck, inputs and results. Routines work on it without parameters, screens come and go,
/// and nothing resets it as a whole, so that a field which a calculation doesn't write keeps the value of the last one.
///
/// Every Money field is dollars a pay period, but for `stateDepsDed`, whose unit is that of the state routine that
/// wrote it last. Rates are fractions.
template <class Amount, class Count, class Rate>
struct PayDataOf {
  Amount depsDed;          ///< Federal allowance deduction; set by Load of the main screen and nowhere else.
  Amount totalDed;         ///< Total of deductions; set by GridPrint.
  Rate rate401k = 0;       ///< 401(k) rate.
  Amount preFica;          ///< Amount exempt from FICA.
  Amount preTax;           ///< Amount not taxed.
  Amount amt401k;          ///< 401(k) contribution.
  Amount state401k;        ///< What the state leaves untaxed of `amt401k`: all of it or 0.
  Amount taxableWage;      ///< Income on entry to Calculate, then income less 401(k), pre-FICA and pre-tax.
  Amount fedBase;          ///< `taxableWage` less `depsDed`; may be negative.
  Count incomeSource;      ///< 0: Calculate reads the income box; 1: it takes `taxableWage`.
  Count maritalStat;       ///< 0 Married, 1 Single, 2 Married Claiming Single.
  Count payPeriods;        ///< Pay periods a year: 52, 24, 26 or 12; 0 until the first Calculate of the toolbar.
  Amount grossPay;         ///< The income as calculated last.
  Amount fedTax;           ///< Federal withholding, whole cents.
  Amount stateTax;         ///< State withholding.
  Amount fica;             ///< FICA total.
  Amount socSec;           ///< Social Security part, worked out from the base, not from `fica`.
  Amount medicare;         ///< Medicare part, likewise.
  Count frequency;         ///< 0 Weekly, 1 Twice A Month, 2 Every Two Weeks, 3 Monthly; -1 before the first choice.
  Amount multiCheckTotal;  ///< Monthly total of the several-checks worksheet, dollars a month.
  Count w4Allowances;      ///< Allowances carried between the W-4 worksheets.
  Count w4TableMode;       ///< 1 or 2: the table that the Two-Earner worksheet asked for.
  Count w4TableValue;      ///< Line 1 less line 2 of that worksheet, from the choice in Table 1.
  Amount w4TwoEarnerAmt;   ///< Line 9 of that worksheet, dollars a paycheck.
  Rate localRate = 0;      ///< Local tax rate.
  Amount localTax;         ///< Local tax.
  Count applyTo;           ///< Base of the local tax, 1 to 5.
  Count staExmp;           ///< State exemption selection: a percentage or a count, by state.
  Count staDeps;           ///< State dependents.
  Count staMarried;        ///< State marital or filing selection, 0 to 9.
  Amount staAdd;           ///< Additional state withholding.
  Count mMethod;           ///< Michigan special exemptions or Maryland local rate number.
  Amount stateDepsDed;     ///< The state's own allowance deduction as the last state routine left it.
  Amount statePreTax;      ///< What the state leaves untaxed of `preTax`: all of it or 0.
  Amount checkAmt;         ///< Net check; set by GridPrint.
  Count illDeps;           ///< Illinois second allowance count.
  Count dontShow;          ///< 0: the program starts with Personal Information; 1: with the main screen.

  bool operator==(const PayDataOf&) const = default;
};
using PayData = PayDataOf<Money, Int16, double>;

/// The one record of each thread. The program's screens all live on one thread; other programs may work paychecks on
/// several.
extern constinit thread_local PayData payData;

/// Calls visit(name, field) for each field of a record, in declaration order.
template <class Record, class Visit>
requires requires(Record& r) { r.multiCheckTotal; }
void forEachField(Record& record, Visit&& visit) {
  visit("depsDed", record.depsDed);
  visit("totalDed", record.totalDed);
  visit("rate401k", record.rate401k);
  visit("preFica", record.preFica);
  visit("preTax", record.preTax);
  visit("amt401k", record.amt401k);
  visit("state401k", record.state401k);
  visit("taxableWage", record.taxableWage);
  visit("fedBase", record.fedBase);
  visit("incomeSource", record.incomeSource);
  visit("maritalStat", record.maritalStat);
  visit("payPeriods", record.payPeriods);
  visit("grossPay", record.grossPay);
  visit("fedTax", record.fedTax);
  visit("stateTax", record.stateTax);
  visit("fica", record.fica);
  visit("socSec", record.socSec);
  visit("medicare", record.medicare);
  visit("frequency", record.frequency);
  visit("multiCheckTotal", record.multiCheckTotal);
  visit("w4Allowances", record.w4Allowances);
  visit("w4TableMode", record.w4TableMode);
  visit("w4TableValue", record.w4TableValue);
  visit("w4TwoEarnerAmt", record.w4TwoEarnerAmt);
  visit("localRate", record.localRate);
  visit("localTax", record.localTax);
  visit("applyTo", record.applyTo);
  visit("staExmp", record.staExmp);
  visit("staDeps", record.staDeps);
  visit("staMarried", record.staMarried);
  visit("staAdd", record.staAdd);
  visit("mMethod", record.mMethod);
  visit("stateDepsDed", record.stateDepsDed);
  visit("statePreTax", record.statePreTax);
  visit("checkAmt", record.checkAmt);
  visit("illDeps", record.illDeps);
  visit("dontShow", record.dontShow);
}

}  // namespace tallyfin
