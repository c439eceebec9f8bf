#include "states/states.h"

/// Flat rates of the pay period's wage, less allowances of the period: no annualising, no bands.

namespace TALLYFIN_FIGURES {

/// Arizona, 1999: `staExmp` percent of the federal withholding. StateBase isn't called.
///
/// Reads `fedTax`, `staExmp`, `staAdd`. Writes `stateTax`.
void Arizona() {
  step("Arizona tax", payData.stateTax, [] {
    const Rate rate = line("Chosen rate of the federal tax",
                           toReal(called("Percentage of the federal tax", payData.staExmp)) / named("percent", 100.0));
    return fromReal(toReal(payData.fedTax) * rate);
  });
  finish();
}

namespace indiana {
/// Dollars a pay period for each dependent.
constexpr PerFrequency<PerHead> perDependent{real(19.23), real(41.67), real(38.46), real(83.33),
                                             "allowance for each dependent"};
constexpr FixedRate rate{"tax rate", 0.034};
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
  step("Wage that the state taxes", work.stateWage, stateGross);
  step("Indiana tax", payData.stateTax, [&] {
    return fromReal(toReal(line("Wage less the allowance", work.stateWage - payData.stateDepsDed)) * indiana::rate);
  });
  finish();
}

namespace illinois {
/// Dollars a pay period for each count of `staDeps` and of `illDeps`.
constexpr PerFrequency<PerHead> first{real(31.73), real(68.75), real(63.46), real(137.5),
                                      "allowance for each dependent"};
constexpr PerFrequency<PerHead> second{real(19.23), real(41.67), real(38.46), real(83.33),
                                       "second allowance for each dependent"};
constexpr FixedRate rate{"tax rate", 0.03};
}  // namespace illinois

/// Illinois, 1999. `stateDepsDed`: the first deduction alone, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `frequency`, `staDeps`, `staAdd`, `stateDepsDed`, `illDeps`. Writes
/// `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`.
void Illinois() {
  Worksheet& work = worksheet();
  Amount secondDeduction;
  step("Allowance for the first count of dependents", payData.stateDepsDed,
       [] { return payData.staDeps * illinois::first.now(); });
  step("Allowance for the second count of dependents", secondDeduction,
       [] { return payData.illDeps * illinois::second.now(); });
  StateBase();
  step("Wage that the state taxes", work.stateWage, [&] {
    return payData.grossPay - ((payData.statePreTax + payData.state401k) + (payData.stateDepsDed + secondDeduction));
  });
  step("Illinois tax", payData.stateTax, [&] { return fromReal(toReal(work.stateWage) * illinois::rate); });
  finish();
}

namespace michigan {
/// Dollars a pay period.
constexpr PerFrequency<PerHead> perExemption{real(53.85), real(116.67), real(107.69), real(233.33),
                                             "allowance for each exemption"};
constexpr PerFrequency<PerHead> perSpecialExemption{real(17.31), real(37.5), real(34.62), int16(75),
                                                    "allowance for each special exemption"};
constexpr PerFrequency<Dollars> claimedByAnother{19.23, 41.67, 38.46, 83.33,
                                                 "allowance of an employee claimed as a dependent"};
constexpr FixedRate rate{"tax rate", 0.044};
}  // namespace michigan

/// Michigan, 1999. Uses the exemptions that were parsed last and doesn't parse the worksheet's text: required.
/// With `staMarried` 9, claimed as dependent by another, one fixed amount replaces all exemptions.
/// `stateDepsDed`: the exemption deduction, dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `frequency`, `staMarried`, `staAdd`, `mMethod`, `stateDepsDed`,
/// `exemptions`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`.
void MichiganTax() {
  using namespace michigan;
  Amount specialDeduction;
  Amount dependentDeduction;
  step("Allowance for the exemptions counted last", payData.stateDepsDed, [] {
    note(exemptionsCountedBefore);
    return worksheet().exemptions * perExemption.now();
  });
  step("Allowance for the special exemptions", specialDeduction,
       [] { return called("Special exemptions", payData.mMethod) * perSpecialExemption.now(); });
  step("Allowance of an employee claimed as a dependent", dependentDeduction, [] { return claimedByAnother.now(); });
  if (payData.staMarried != stateStatus::headOfFamily) {
    step("No such allowance without that claim", dependentDeduction, [] { return 0; });
  } else {
    step("No exemptions of an employee claimed as a dependent", payData.stateDepsDed, [] { return 0; });
  }
  StateBase();
  step("Michigan tax", payData.stateTax, [&] {
    if (called("Claimed as a dependent by somebody else", payData.staMarried) == stateStatus::headOfFamily) {
      note("An employee whom somebody else claims as a dependent has no other exemptions.");
    }
    const Amount deductions =
        payData.statePreTax + payData.state401k + payData.stateDepsDed + dependentDeduction + specialDeduction;
    return fromReal(toReal(line("Wage that the state taxes", payData.grossPay - deductions)) * rate);
  });
  finish();
}

namespace massachusetts {
/// Dollars a pay period.
constexpr PerFrequency<Dollars> headOfFamilyCredit{2.75, 5.95, 5.49, 11.9, "credit of a Head of Family"};
constexpr FixedRate rate{"tax rate", 0.0595};

/// The allowance for the exemptions and its constant part, dollars a pay period. All but Weekly in 16-bit arithmetic.
constexpr const char* perExemption = "allowance for each exemption";
constexpr const char* constantPart = "constant part of the allowance";
constexpr FixedRate perExemptionWeekly{perExemption, 19.5};
constexpr FixedRate constantWeekly{constantPart, 65};
constexpr FixedCount perExemptionTwiceAMonth{perExemption, 42};
constexpr FixedCount constantTwiceAMonth{constantPart, 141};
constexpr FixedCount perExemptionEveryTwoWeeks{perExemption, 39};
constexpr FixedCount constantEveryTwoWeeks{constantPart, 130};
constexpr FixedCount perExemptionMonthly{perExemption, 83};
constexpr FixedCount constantMonthly{constantPart, 284};

static std::optional<Amount> allowance(Count exemptions) {
  switch (payData.frequency.value()) {
    case frequency::weekly: return fromReal(perExemptionWeekly * toReal(exemptions) + constantWeekly);
    case frequency::twiceAMonth: return exemptions * perExemptionTwiceAMonth + constantTwiceAMonth;
    case frequency::everyTwoWeeks: return exemptions * perExemptionEveryTwoWeeks + constantEveryTwoWeeks;
    case frequency::monthly: return exemptions * perExemptionMonthly + constantMonthly;
    default: return keep("no pay frequency is chosen");
  }
}
}  // namespace massachusetts

/// Massachusetts, 1999. FICA is deducted. The constant part of the exemption deduction applies without exemptions too.
/// `stateDepsDed`: dollars a pay period.
///
/// Reads `preTax`, `amt401k`, `grossPay`, `fica`, `frequency`, `staMarried`, `staAdd`, `stateDepsDed`,
/// `exemptionsText`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `exemptions`, `stateWage`.
void Massachusetts() {
  using namespace massachusetts;
  Worksheet& work = worksheet();
  Amount credit;
  parseExemptions();
  step("Allowance, a constant part and an amount for each exemption", payData.stateDepsDed,
       [&] { return allowance(work.exemptions); });
  step("Credit of a Head of Family", credit, [] { return headOfFamilyCredit.now(); });
  StateBase();
  step("Wage less FICA and the allowance", work.stateWage,
       [] { return stateGross() - payData.fica - payData.stateDepsDed; });
  if (payData.staMarried != stateStatus::headOfFamily) {
    step("No credit for any but a Head of Family", credit, [] { return 0; });
  }
  step("Massachusetts tax less the credit", payData.stateTax, [&] {
    goesBy(payData.staMarried);
    return line("Massachusetts tax", fromReal(toReal(work.stateWage) * rate)) - credit;
  });
  finish();
}

namespace louisiana {
/// Dollars a pay period for each count of `staExmp` and of `staDeps`.
constexpr PerFrequency<PerHead> perExemption{real(86.5375), int16(187), real(173.0769), int16(375),
                                             "allowance for each exemption"};
constexpr PerFrequency<PerHead> perDependent{real(19.2307), real(41.6666), real(38.4615), real(83.3333),
                                             "allowance for each dependent"};
constexpr FixedRate firstRate{"first tax rate", 0.02};
constexpr FixedRate secondRate{"second tax rate", 0.01};
/// Dollars a year, up to one exemption and for two.
constexpr FixedAmount firstBracket{"bracket up to one exemption", 5000};
constexpr FixedAmount secondBracket{"bracket for two exemptions", 15000};
}  // namespace louisiana

/// Louisiana, 1999: 2 percent of the wage and 1 percent of the wage above a bracket. Only the second part is at least
/// 0. `stateDepsDed`: the bracket, dollars a pay period, not the exemptions.
///
/// Reads `preTax`, `amt401k`, `payPeriods`, `grossPay`, `frequency`, `staExmp`, `staDeps`, `staAdd`, `stateDepsDed`,
/// `stateStdDed`. Writes `state401k`, `stateTax`, `stateDepsDed`, `statePreTax`, `stateWage`, `stateStdDed`.
void Louisiana() {
  using namespace louisiana;
  Worksheet& work = worksheet();
  Amount firstTax;
  Amount secondTax;
  step("Allowance for the exemptions", payData.stateDepsDed,
       [] { return called("Exemptions for the state", payData.staExmp) * perExemption.now(); });
  step("Allowance for the dependents", work.stateStdDed, [] { return payData.staDeps * perDependent.now(); });
  StateBase();
  step("Wage that the state taxes", work.stateWage, [&] {
    return payData.grossPay - (payData.statePreTax + payData.state401k + payData.stateDepsDed + work.stateStdDed);
  });
  step("First tax", firstTax, [&] { return fromReal(toReal(work.stateWage) * firstRate); });
  step("Pay period's share of the bracket", payData.stateDepsDed, []() -> std::optional<Amount> {
    const Count exemptions = called("Exemptions for the state", payData.staExmp);
    if (isFrom(0, exemptions, 1)) return perPeriod(firstBracket);
    if (exemptions == 2) return perPeriod(secondBracket);
    return keep("the state has brackets for up to two exemptions only");
  });
  step("Second tax", secondTax, [&] {
    return fromReal(toReal(line("Wage over the bracket", work.stateWage - payData.stateDepsDed)) * secondRate);
  });
  step("Second tax, not below zero", secondTax, [&] { return atLeastZero(secondTax); });
  step("Louisiana tax, first and second together", payData.stateTax, [&] { return firstTax + secondTax; });
  finish();
}

}  // namespace TALLYFIN_FIGURES
