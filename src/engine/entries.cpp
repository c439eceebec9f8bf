#include "engine/entries.h"

#include "engine/calculate.h"
#include "engine/frequency.h"
#include "engine/numbertext.h"

namespace tallyfin {

namespace {

/// Federal withholding allowance, 1999: dollars a pay period for each exemption.
constexpr PerFrequency<double> allowance{52.88, 114.58, 105.77, 229.17};

Money deductions() { return payData.amt401k + payData.fica + payData.fedTax + payData.stateTax + payData.localTax; }

}  // namespace

void takeAllowance(Int16 exemptions) {
  step([&] { payData.depsDed = fromReal(toReal(exemptions) * allowance.now()); });
}

void takeStatus(int option, bool twoIncomes) { payData.maritalStat = option == 2 && !twoIncomes ? 1 : option; }

void takeLocalRate(const std::string& text) {
  step([&] { payData.localRate = text.empty() ? 0 : realOf(text); });
  payData.localRate = normalisedRate(payData.localRate);
}

void calculatePaycheck() {
  payData.incomeSource = 0;
  step([] { payData.payPeriods = periodsPerYear.now(); });
  Calculate();
}

void makeTotals() {
  step([] { payData.totalDed = deductions(); });
  step([] { payData.checkAmt = payData.grossPay - deductions(); });
}

}  // namespace tallyfin
