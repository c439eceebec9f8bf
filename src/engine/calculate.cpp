#include "engine/calculate.h"

#include "engine/fedtax.h"
#include "engine/localtax.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/step.h"
#include "engine/worksheet.h"

namespace tallyfin {

namespace {

/// The amount in a box, 0 if the box is empty.
Money amountIn(const std::string& text) { return text.empty() ? Money{} : toMoney(text); }

void takeIncome() {
  const auto wage = [] { return payData.taxableWage; };
  if (payData.incomeSource == 0) {
    const std::string& income = worksheet().incomeText();
    if (income.empty()) {
      // grossPay stays: FICA is still worked out on the income of the last calculation.
      step("No income is entered, so that the wage is nothing and the gross pay stays", payData.taxableWage,
           [] { return 0; });
      return;
    }
    // Where the text is no number, grossPay takes the reduced wage that the last calculation left.
    step("The income entered", payData.taxableWage, [&] { return toMoney(income); });
    step("Gross pay", payData.grossPay, wage);
  } else if (payData.incomeSource == 1) {
    step("Gross pay, as raised", payData.grossPay, wage);
  }
}

}  // namespace

double normalisedRate(double typed) { return typed < 1 ? typed : typed / 100; }

void GetPreTax() {
  const Worksheet& boxes = worksheet();
  step("Pre-FICA amount entered", payData.preFica, [&] { return amountIn(boxes.preFicaText()); });
  step("Pre-tax amount entered", payData.preTax, [&] { return amountIn(boxes.preTaxText()); });
  double rate = 0;
  Money income;
  step(
      "401(k) contribution of the whole income",
      [&] {
        rate = payData.rate401k;
        income = payData.taxableWage;
        payData.amt401k = fromReal(toReal(income) * rate);
      },
      rate, income, payData.amt401k);
}

void Calculate() {
  takeIncome();

  const std::string& rate = worksheet().rate401kText();
  step("401(k) rate entered", payData.rate401k, [&] { return rate.empty() ? 0 : realOf(rate); });
  step("A rate of 1 or more is a percentage", payData.rate401k, [] { return normalisedRate(payData.rate401k); });

  GetPreTax();

  // A pre-FICA amount that includes the pre-tax amount takes that amount off twice.
  step("Less the 401(k), pre-FICA and pre-tax amounts", payData.taxableWage,
       [] { return payData.taxableWage - (payData.amt401k + payData.preFica + payData.preTax); });
  step("The taxable wage is at least 0", payData.taxableWage, [] { return atLeastZero(payData.taxableWage); });

  // No floor here: a negative base is taxed as the lowest bracket.
  step("Less the federal allowance for exemptions", payData.fedBase,
       [] { return payData.taxableWage - payData.depsDed; });

  FedTax();
  LocalTaxCalc();
}

}  // namespace tallyfin
