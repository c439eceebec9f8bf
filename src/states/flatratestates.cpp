#include "states/states.h"

/// Flat rates of the pay period's wage, less allowances of the period: no annualising, no bands.

namespace tallyfin {

/// Arizona, 1999: `staExmp` percent of the federal withholding. StateBase isn't called.
void Arizona() {
  step([] { payData.stateTax = fromReal(toReal(payData.fedTax) * (toReal(payData.staExmp) / 100)); });
  finish();
}

namespace indiana {
/// Dollars a pay period for each dependent.
constexpr PerFrequency<PerHead> perDependent{19.23, 41.67, 38.46, 83.33};
}  // namespace indiana

/// Indiana, 1999. `staDeps` is the only count. `stateDepsDed`: dollars a pay period.
void IndianaTax() {
  Worksheet& work = worksheet();
  step([] { payData.stateDepsDed = payData.staDeps * indiana::perDependent.now(); });
  StateBase();
  step([&] { work.stateWage = stateGross(); });
  step([&] { payData.stateTax = fromReal(toReal(work.stateWage - payData.stateDepsDed) * 0.034); });
  finish();
}

namespace illinois {
/// Dollars a pay period for each count of `staDeps` and of `illDeps`.
constexpr PerFrequency<PerHead> first{31.73, 68.75, 63.46, 137.5};
constexpr PerFrequency<PerHead> second{19.23, 41.67, 38.46, 83.33};
}  // namespace illinois

/// Illinois, 1999. `stateDepsDed`: the first deduction alone, dollars a pay period.
void Illinois() {
  Worksheet& work = worksheet();
  Money secondDeduction;
  step([] { payData.stateDepsDed = payData.staDeps * illinois::first.now(); });
  step([&] { secondDeduction = payData.illDeps * illinois::second.now(); });
  StateBase();
  step([&] {
    work.stateWage =
        payData.grossPay - ((payData.statePreTax + payData.state401k) + (payData.stateDepsDed + secondDeduction));
  });
  step([&] { payData.stateTax = fromReal(toReal(work.stateWage) * 0.03); });
  finish();
}

namespace michigan {
/// Dollars a pay period.
constexpr PerFrequency<PerHead> perExemption{53.85, 116.67, 107.69, 233.33};
constexpr PerFrequency<PerHead> perSpecialExemption{17.31, 37.5, 34.62, 75};
constexpr PerFrequency<Dollars> claimedByAnother{19.23, 41.67, 38.46, 83.33};
}  // namespace michigan

/// Michigan, 1999. The exemptions are those that were parsed last: the worksheet's text is not looked at, deliberately.
/// Under `staMarried` 9, claimed as dependent by another, one fixed amount takes the place of all exemptions.
/// `stateDepsDed`: the exemption deduction, dollars a pay period.
void MichiganTax() {
  Money specialDeduction;
  Money dependentDeduction;
  step([] { payData.stateDepsDed = worksheet().exemptions * michigan::perExemption.now(); });
  step([&] { specialDeduction = payData.mMethod * michigan::perSpecialExemption.now(); });
  step([&] { dependentDeduction = michigan::claimedByAnother.now().amount; });
  if (payData.staMarried != 9) dependentDeduction = 0;
  if (payData.staMarried == 9) payData.stateDepsDed = 0;
  StateBase();
  step([&] {
    const Money deductions =
        payData.statePreTax + payData.state401k + payData.stateDepsDed + dependentDeduction + specialDeduction;
    payData.stateTax = fromReal(toReal(payData.grossPay - deductions) * 0.044);
  });
  finish();
}

namespace massachusetts {
/// Dollars a pay period.
constexpr PerFrequency<Dollars> headOfFamilyCredit{2.75, 5.95, 5.49, 11.9};
}  // namespace massachusetts

/// Massachusetts, 1999. FICA counts as a deduction, and the constant part of the exemption deduction stands without
/// exemptions too. `stateDepsDed`: dollars a pay period.
void Massachusetts() {
  Worksheet& work = worksheet();
  Money credit;
  parseExemptions();
  step([&] {
    switch (payData.frequency.value()) {
      case 0: payData.stateDepsDed = fromReal(19.5 * toReal(work.exemptions) + 65); break;
      case 1: payData.stateDepsDed = work.exemptions * 42 + 141; break;
      case 2: payData.stateDepsDed = work.exemptions * 39 + 130; break;
      case 3: payData.stateDepsDed = work.exemptions * 83 + 284; break;
      default: break;
    }
  });
  step([&] { credit = massachusetts::headOfFamilyCredit.now().amount; });
  StateBase();
  step([&] { work.stateWage = stateGross() - payData.fica - payData.stateDepsDed; });
  if (payData.staMarried != 9) credit = 0;
  step([&] { payData.stateTax = fromReal(toReal(work.stateWage) * 0.0595) - credit; });
  finish();
}

namespace louisiana {
/// Dollars a pay period for each count of `staExmp` and of `staDeps`.
constexpr PerFrequency<PerHead> perExemption{86.5375, 187, 173.0769, 375};
constexpr PerFrequency<PerHead> perDependent{19.2307, 41.6666, 38.4615, 83.3333};
}  // namespace louisiana

/// Louisiana, 1999: 2 percent of the wage and 1 percent of what lies above a bracket. Only the second part is clipped.
/// `stateDepsDed`: the bracket, dollars a pay period, and not the exemptions.
void Louisiana() {
  Worksheet& work = worksheet();
  Money firstTax;
  Money secondTax;
  step([] { payData.stateDepsDed = payData.staExmp * louisiana::perExemption.now(); });
  step([&] { work.stateStdDed = payData.staDeps * louisiana::perDependent.now(); });
  StateBase();
  step([&] {
    work.stateWage =
        payData.grossPay - (payData.statePreTax + payData.state401k + payData.stateDepsDed + work.stateStdDed);
  });
  step([&] { firstTax = fromReal(toReal(work.stateWage) * 0.02); });
  step([] {
    if (payData.staExmp == 0 || payData.staExmp == 1) payData.stateDepsDed = perPeriod(5000);
    if (payData.staExmp == 2) payData.stateDepsDed = perPeriod(15000);
  });
  step([&] { secondTax = fromReal(toReal(work.stateWage - payData.stateDepsDed) * 0.01); });
  if (secondTax < 0) secondTax = 0;
  step([&] { payData.stateTax = firstTax + secondTax; });
  finish();
}

}  // namespace tallyfin
