#include "states/states.h"

/// Flat rates of the pay period's wage, less allowances of the period: no annualising, no bands.

namespace tallyfin {

/// Arizona, 1999: `staExmp` percent of the federal withholding. StateBase isn't called.
///
/// Reads `fedTax`, `staExmp`, `staAdd`. Writes `stateTax`.
void Arizona() {
  double rate = 0;
  Money base;
  step(
      "Arizona tax, the chosen percentage of the federal tax",
      [&] {
        rate = toReal(payData.staExmp) / 100;
        base = payData.fedTax;
        payData.stateTax = fromReal(toReal(base) * rate);
      },
      rate, base, payData.stateTax);
  finish();
}

namespace indiana {
/// Dollars a pay period for each dependent.
constexpr PerFrequency<PerHead> perDependent{real(19.23), real(41.67), real(38.46), real(83.33)};
}  // namespace indiana

/// Indiana, 1999. `staDeps` is the only count. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `frequency`, `staDeps`, `staAdd`, `stateDepsDed`. Writes `state401k`,
/// `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void IndianaTax() {
  Worksheet& work = worksheet();
  step("Allowance for the dependents", payData.stateDepsDed,
       [] { return payData.staDeps * indiana::perDependent.now(); });
  StateBase();
  step("The pay period's wage that the state taxes", work.stateWage, stateGross);
  Money base;
  step(
      "Indiana tax, 3.4% of the wage less the allowance",
      [&] {
        base = work.stateWage - payData.stateDepsDed;
        payData.stateTax = fromReal(toReal(base) * 0.034);
      },
      base, payData.stateTax);
  finish();
}

namespace illinois {
/// Dollars a pay period for each count of `staDeps` and of `illDeps`.
constexpr PerFrequency<PerHead> first{real(31.73), real(68.75), real(63.46), real(137.5)};
constexpr PerFrequency<PerHead> second{real(19.23), real(41.67), real(38.46), real(83.33)};
}  // namespace illinois

/// Illinois, 1999. `stateDepsDed`: the first deduction alone, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `frequency`, `staDeps`, `staAdd`, `stateDepsDed`, `illDeps`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void Illinois() {
  Worksheet& work = worksheet();
  Money secondDeduction;
  step("Allowance for the first count", payData.stateDepsDed, [] { return payData.staDeps * illinois::first.now(); });
  step("Allowance for the second count", secondDeduction, [] { return payData.illDeps * illinois::second.now(); });
  StateBase();
  step("Gross pay less the untaxed amounts and both allowances", work.stateWage, [&] {
    return payData.grossPay - ((payData.statePreTax + payData.state401k) + (payData.stateDepsDed + secondDeduction));
  });
  step("Illinois tax, 3% of it", payData.stateTax, [&] { return fromReal(toReal(work.stateWage) * 0.03); });
  finish();
}

namespace michigan {
/// Dollars a pay period.
constexpr PerFrequency<PerHead> perExemption{real(53.85), real(116.67), real(107.69), real(233.33)};
constexpr PerFrequency<PerHead> perSpecialExemption{real(17.31), real(37.5), real(34.62), int16(75)};
constexpr PerFrequency<Dollars> claimedByAnother{19.23, 41.67, 38.46, 83.33};
}  // namespace michigan

/// Michigan, 1999. The exemptions are those that were parsed last: the worksheet's text is not looked at, deliberately.
/// Under `staMarried` 9, claimed as dependent by another, one fixed amount takes the place of all exemptions.
/// `stateDepsDed`: the exemption deduction, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `frequency`, `staMarried`, `staAdd`, `mMethod`, `stateDepsDed`,
/// `exemptions`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`.
void MichiganTax() {
  Money specialDeduction;
  Money dependentDeduction;
  Money wage;
  step("Allowance for the exemptions counted last", payData.stateDepsDed,
       [] { return worksheet().exemptions * michigan::perExemption.now(); });
  step("Allowance for the special exemptions", specialDeduction,
       [] { return payData.mMethod * michigan::perSpecialExemption.now(); });
  step("Allowance of one whom another claims as dependent", dependentDeduction,
       [] { return michigan::claimedByAnother.now().amount; });
  if (payData.staMarried != stateStatus::headOfFamily) {
    step("No such allowance without that claim", dependentDeduction, [] { return 0; });
  } else {
    step("The exemptions count nothing under that claim", payData.stateDepsDed, [] { return 0; });
  }
  StateBase();
  step(
      "Michigan tax, 4.4% of the wage less all allowances",
      [&] {
        const Money deductions =
            payData.statePreTax + payData.state401k + payData.stateDepsDed + dependentDeduction + specialDeduction;
        wage = payData.grossPay - deductions;
        payData.stateTax = fromReal(toReal(wage) * 0.044);
      },
      wage, payData.stateTax);
  finish();
}

namespace massachusetts {
/// Dollars a pay period.
constexpr PerFrequency<Dollars> headOfFamilyCredit{2.75, 5.95, 5.49, 11.9};
}  // namespace massachusetts

/// Massachusetts, 1999. FICA counts as a deduction, and the constant part of the exemption deduction stands without
/// exemptions too. `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `fica`, `frequency`, `staMarried`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Massachusetts() {
  Worksheet& work = worksheet();
  Money credit;
  parseExemptions();
  step("Allowance for the exemptions, and its constant part", payData.stateDepsDed, [&]() -> std::optional<Money> {
    switch (payData.frequency.value()) {
      case frequency::weekly: return fromReal(19.5 * toReal(work.exemptions) + 65);
      case frequency::twiceAMonth: return work.exemptions * 42 + 141;
      case frequency::everyTwoWeeks: return work.exemptions * 39 + 130;
      case frequency::monthly: return work.exemptions * 83 + 284;
      default: return std::nullopt;
    }
  });
  step("Credit of a Head of Family", credit, [] { return massachusetts::headOfFamilyCredit.now().amount; });
  StateBase();
  step("Gross pay less the untaxed amounts, FICA and the allowance", work.stateWage,
       [] { return stateGross() - payData.fica - payData.stateDepsDed; });
  if (payData.staMarried != stateStatus::headOfFamily)
    step("No credit for any but a Head of Family", credit, [] { return 0; });
  Money beforeCredit;
  step(
      "Massachusetts tax, 5.95% of it, less the credit",
      [&] {
        beforeCredit = fromReal(toReal(work.stateWage) * 0.0595);
        payData.stateTax = beforeCredit - credit;
      },
      beforeCredit, payData.stateTax);
  finish();
}

namespace louisiana {
/// Dollars a pay period for each count of `staExmp` and of `staDeps`.
constexpr PerFrequency<PerHead> perExemption{real(86.5375), int16(187), real(173.0769), int16(375)};
constexpr PerFrequency<PerHead> perDependent{real(19.2307), real(41.6666), real(38.4615), real(83.3333)};
}  // namespace louisiana

/// Louisiana, 1999: 2 percent of the wage and 1 percent of what lies above a bracket. Only the second part is clipped.
/// `stateDepsDed`: the bracket, dollars a pay period, and not the exemptions.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `frequency`, `staExmp`, `staDeps`, `staAdd`, `stateDepsDed`,
/// `stateStdDed`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`, `stateStdDed`.
void Louisiana() {
  Worksheet& work = worksheet();
  Money firstTax;
  Money secondTax;
  step("Allowance for the exemptions", payData.stateDepsDed,
       [] { return payData.staExmp * louisiana::perExemption.now(); });
  step("Allowance for the dependents", work.stateStdDed,
       [] { return payData.staDeps * louisiana::perDependent.now(); });
  StateBase();
  step("Gross pay less the untaxed amounts and both allowances", work.stateWage, [&] {
    return payData.grossPay - (payData.statePreTax + payData.state401k + payData.stateDepsDed + work.stateStdDed);
  });
  step("First tax, 2% of it", firstTax, [&] { return fromReal(toReal(work.stateWage) * 0.02); });
  step("The pay period's share of the bracket, 5,000 or 15,000 a year", payData.stateDepsDed,
       []() -> std::optional<Money> {
         if (payData.staExmp == 0 || payData.staExmp == 1) return perPeriod(5000);
         if (payData.staExmp == 2) return perPeriod(15000);
         return std::nullopt;
       });
  Money overBracket;
  step(
      "Second tax, 1% of the wage over the bracket",
      [&] {
        overBracket = work.stateWage - payData.stateDepsDed;
        secondTax = fromReal(toReal(overBracket) * 0.01);
      },
      overBracket, secondTax);
  step("The second tax is at least 0", secondTax, [&] { return atLeastZero(secondTax); });
  step("Louisiana tax, both together", payData.stateTax, [&] { return firstTax + secondTax; });
  finish();
}

}  // namespace tallyfin
