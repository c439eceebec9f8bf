#include "engine/calculate.h"

#include "engine/fedtax.h"
#include "engine/localtax.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/worksheet.h"

namespace tallyfin {

namespace {

/// The amount in a box, 0 if the box is empty.
Money amountIn(const std::string& text) { return text.empty() ? Money{} : toMoney(text); }

void takeIncome() {
  if (payData.incomeSource == 0) {
    const std::string& income = worksheet().incomeText();
    if (income.empty()) {
      // grossPay stays: FICA is still worked out on the income of the last calculation.
      payData.taxableWage = 0;
      return;
    }
    // Where the text is no number, grossPay takes the reduced wage that the last calculation left.
    step([&] { payData.taxableWage = toMoney(income); });
    payData.grossPay = payData.taxableWage;
  } else if (payData.incomeSource == 1) {
    payData.grossPay = payData.taxableWage;
  }
}

}  // namespace

double normalisedRate(double typed) { return typed < 1 ? typed : typed / 100; }

void GetPreTax() {
  const Worksheet& boxes = worksheet();
  step([&] { payData.preFica = amountIn(boxes.preFicaText()); });
  step([&] { payData.preTax = amountIn(boxes.preTaxText()); });
  step([] { payData.amt401k = fromReal(toReal(payData.taxableWage) * payData.rate401k); });
}

void Calculate() {
  takeIncome();

  const std::string& rate = worksheet().rate401kText();
  step([&] { payData.rate401k = rate.empty() ? 0 : realOf(rate); });
  payData.rate401k = normalisedRate(payData.rate401k);

  GetPreTax();

  // A pre-FICA amount that includes the pre-tax amount takes that amount off twice.
  step([] { payData.taxableWage = payData.taxableWage - (payData.amt401k + payData.preFica + payData.preTax); });
  if (payData.taxableWage < 0) payData.taxableWage = 0;

  // No floor here: a negative base is taxed as the lowest bracket.
  step([] { payData.fedBase = payData.taxableWage - payData.depsDed; });

  FedTax();
  LocalTaxCalc();
}

}  // namespace tallyfin
