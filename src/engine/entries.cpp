#include "engine/entries.h"

#include "engine/calculate.h"
#include "engine/frequency.h"
#include "engine/numbertext.h"
#include "engine/step.h"

namespace tallyfin {

namespace {

/// Federal withholding allowance, 1999: dollars a pay period for each exemption.
constexpr PerFrequency<double> allowance{52.88, 114.58, 105.77, 229.17};

Money deductions() { return payData.amt401k + payData.fica + payData.fedTax + payData.stateTax + payData.localTax; }

}  // namespace

double allowancePerExemption() { return allowance.now(); }

void takeAllowance(Int16 exemptions) {
  step("Federal allowance for the exemptions", payData.depsDed,
       [&] { return fromReal(toReal(exemptions) * allowance.now()); });
}

void takeStatus(int option, bool twoIncomes) {
  payData.maritalStat = option == status::marriedClaimingSingle && !twoIncomes ? status::single : option;
}

void takeLocalRate(const std::string& text) {
  step("Local rate as typed", payData.localRate, [&] { return text.empty() ? 0 : realOf(text); });
  payData.localRate = normalisedRate(payData.localRate);
}

void calculatePaycheck() {
  step("The income is the one entered", payData.incomeSource, [] { return 0; });
  step("Pay periods a year", payData.payPeriods, [] { return periodsPerYear.now(); });
  Calculate();
}

void makeTotals() {
  step("Total of 401(k), FICA, federal, state and local tax", payData.totalDed, deductions);
  step("Gross pay less that total", payData.checkAmt, [] { return payData.grossPay - deductions(); });
}

}  // namespace tallyfin
