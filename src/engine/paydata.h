#pragma once

#include <type_traits>

#include "engine/int16.h"
#include "engine/money.h"

namespace tallyfin {

/// The record of the current paycheck, inputs and results. Routines use it without parameters. It outlives the
/// screens, and nothing resets it as a whole: a field that a calculation doesn't write keeps its old value.
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
  Amount state401k;        ///< The part of `amt401k` that the state doesn't tax: all of it or 0.
  Amount taxableWage;      ///< Income on entry to Calculate, then income less 401(k), pre-FICA and pre-tax.
  Amount fedBase;          ///< `taxableWage` less `depsDed`; may be negative.
  Count incomeSource;      ///< 0: Calculate reads the income box; 1: it takes `taxableWage`.
  Count maritalStat;       ///< 0 Married, 1 Single, 2 Married Claiming Single.
  Count payPeriods;        ///< Pay periods a year: 52, 24, 26 or 12; 0 until the first Calculate of the toolbar.
  Amount grossPay;         ///< The income as calculated last.
  Amount fedTax;           ///< Federal withholding, whole cents.
  Amount stateTax;         ///< State withholding.
  Amount fica;             ///< FICA total.
  Amount socSec;           ///< Social Security part, calculated from the base, not from `fica`.
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
  Amount statePreTax;      ///< The part of `preTax` that the state doesn't tax: all of it or 0.
  Amount checkAmt;         ///< Net check; set by GridPrint.
  Count illDeps;           ///< Illinois second allowance count.
  Count dontShow;          ///< 0: the program starts with Personal Information; 1: with the main screen.

  bool operator==(const PayDataOf&) const = default;
};
using PayData = PayDataOf<Money, Int16, double>;

/// The one record of each thread. The program's screens all live on one thread; other programs may work paychecks on
/// several.
extern constinit thread_local PayData payData;

/// A record, in figures of any kind.
template <class T>
concept IsPayData = requires(T& one) {
  one.multiCheckTotal;
};

/// Calls visit(name, field...) for each field in declaration order, with the fields of that name of all records.
template <class Visit, IsPayData... All>
void forFieldsOf(Visit&& visit, All&... all) {
  visit("depsDed", all.depsDed...);
  visit("totalDed", all.totalDed...);
  visit("rate401k", all.rate401k...);
  visit("preFica", all.preFica...);
  visit("preTax", all.preTax...);
  visit("amt401k", all.amt401k...);
  visit("state401k", all.state401k...);
  visit("taxableWage", all.taxableWage...);
  visit("fedBase", all.fedBase...);
  visit("incomeSource", all.incomeSource...);
  visit("maritalStat", all.maritalStat...);
  visit("payPeriods", all.payPeriods...);
  visit("grossPay", all.grossPay...);
  visit("fedTax", all.fedTax...);
  visit("stateTax", all.stateTax...);
  visit("fica", all.fica...);
  visit("socSec", all.socSec...);
  visit("medicare", all.medicare...);
  visit("frequency", all.frequency...);
  visit("multiCheckTotal", all.multiCheckTotal...);
  visit("w4Allowances", all.w4Allowances...);
  visit("w4TableMode", all.w4TableMode...);
  visit("w4TableValue", all.w4TableValue...);
  visit("w4TwoEarnerAmt", all.w4TwoEarnerAmt...);
  visit("localRate", all.localRate...);
  visit("localTax", all.localTax...);
  visit("applyTo", all.applyTo...);
  visit("staExmp", all.staExmp...);
  visit("staDeps", all.staDeps...);
  visit("staMarried", all.staMarried...);
  visit("staAdd", all.staAdd...);
  visit("mMethod", all.mMethod...);
  visit("stateDepsDed", all.stateDepsDed...);
  visit("statePreTax", all.statePreTax...);
  visit("checkAmt", all.checkAmt...);
  visit("illDeps", all.illDeps...);
  visit("dontShow", all.dontShow...);
}

/// The same for one record.
template <IsPayData One, class Visit>
void forEachField(One& one, Visit&& visit) {
  forFieldsOf(visit, one);
}

}  // namespace tallyfin
