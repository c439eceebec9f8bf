#include "engine/calculate.h"

#include "engine/fedtax.h"
#include "engine/localtax.h"

namespace TALLYFIN_FIGURES {

namespace {

/// Federal withholding allowance, 1999: dollars a pay period for each exemption.
constexpr PerFrequency<double> allowance{52.88, 114.58, 105.77, 229.17, "federal allowance for each exemption"};

/// A typed rate of this or more is a percentage.
constexpr FixedRate leastPercentage{"lowest rate that is a percentage", 1};

/// The amount in a box, 0 if the box is empty.
Amount amountIn(const auto& text) {
  if (text.empty()) return 0;
  return toMoney(text);
}

void takeIncome() {
  const auto wage = [] { return payData.taxableWage; };
  if (payData.incomeSource == 0) {
    const auto& income = worksheet().incomeText();
    if (income.empty()) {
      // `grossPay` isn't changed, so FICA is that of the last income.
      step("Wage without an income", payData.taxableWage, [] { return 0; });
      noteOn(payData.taxableWage, "No income is entered, so the wage counts as nothing.");
      noteOn(payData.grossPay, "No income is entered, so the gross pay stays as it was.");
      return;
    }
    // If the text isn't a number, `grossPay` is set to the reduced wage of the last calculation.
    step("Income", payData.taxableWage, [&] { return toMoney(income); });
    step("Gross pay", payData.grossPay, wage);
  } else if (payData.incomeSource == 1) {
    step("Gross pay, as raised", payData.grossPay, wage);
  }
}

Amount deductions() { return payData.amt401k + payData.fica + payData.fedTax + payData.stateTax + payData.localTax; }

}  // namespace

Rate normalisedRate(Rate typed) {
  if (typed < leastPercentage) return typed;
  return typed / named("percent", 100.0);
}

void GetPreTax() {
  const Worksheet& boxes = worksheet();
  step("Pre-FICA amount", payData.preFica, [&] { return amountIn(boxes.preFicaText()); });
  step("Pre-tax amount", payData.preTax, [&] { return amountIn(boxes.preTaxText()); });
  step("401(k) contribution, of the whole income", payData.amt401k,
       [] { return fromReal(toReal(payData.taxableWage) * payData.rate401k); });
}

void Calculate() {
  takeIncome();

  const auto& rate = worksheet().rate401kText();
  step("401(k) rate as entered", payData.rate401k, [&]() -> Rate {
    if (rate.empty()) return 0;
    return realOf(rate);
  });
  step("401(k) rate as a percentage", payData.rate401k, [] { return normalisedRate(payData.rate401k); });

  GetPreTax();

  // A pre-tax amount that the pre-FICA amount includes is subtracted twice: required.
  step("Wage less the amounts that are not taxed", payData.taxableWage,
       [] { return payData.taxableWage - (payData.amt401k + payData.preFica + payData.preTax); });
  step("Taxable wage", payData.taxableWage, [] { return atLeastZero(payData.taxableWage); });

  // Not limited to 0: a negative base falls into the lowest bracket.
  step("Taxable wage less the federal allowance", payData.fedBase,
       [] { return payData.taxableWage - payData.depsDed; });

  FedTax();
  LocalTaxCalc();
}

void takeAllowance(Count exemptions) {
  step("Federal allowance for the exemptions", payData.depsDed,
       [&] { return fromReal(toReal(exemptions) * allowance.now()); });
}

void calculatePaycheck() {
  step("The income is the one entered", payData.incomeSource, [] { return 0; });
  step("Pay periods a year", payData.payPeriods, [] { return periodsPerYear.now(); });
  Calculate();
}

void makeTotals() {
  step("Total of the deductions", payData.totalDed, deductions);
  step("Gross pay less the deductions", payData.checkAmt, [] { return payData.grossPay - deductions(); });
}

}  // namespace TALLYFIN_FIGURES
