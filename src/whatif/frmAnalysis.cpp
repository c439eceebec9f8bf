#include "whatif/frmAnalysis.h"

#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "ui/frmMain.h"

namespace tallyfin {

namespace {

/// Taxes of the check, without FICA.
Money taxes() { return payData.fedTax + payData.stateTax + payData.localTax; }

/// Taxes and deductions of the check, with Social Security but without Medicare.
Money withheld() { return taxes() + payData.socSec + payData.amt401k + payData.preTax; }

double hours() { return realOf(desk.use<frmMain>().txtHours.text()); }

/// The working hours of a year, for every frequency and any hours.
constexpr double yearlyHours = 2080;

}  // namespace

frmAnalysis::frmAnalysis() : Screen(screenName, "Analysis") {}

void frmAnalysis::Load() {
  maximized = true;
  const Money gross = payData.grossPay;
  const auto show = [this](int row, const std::string& figure) { lblOne[row].setCaption(figure); };
  // Where the figure can't be calculated, its label stays empty.
  unlessItFails([&] { show(0, currency(toReal(gross) / hours())); });
  unlessItFails([&] { show(1, currency(toReal(gross - taxes()) / hours())); });
  unlessItFails([&] { show(2, currency(toReal(gross - withheld()) / hours())); });
  unlessItFails([&] { show(3, percentage(toReal(taxes()) / toReal(gross))); });
  unlessItFails([&] { show(4, percentage(toReal(withheld()) / toReal(gross))); });
  // Required: the pre-tax amount is added to the divisor, although the caption says "after".
  unlessItFails(
      [&] { show(5, percentage(toReal(payData.fedTax) / toReal(gross - payData.amt401k + payData.preTax))); });
  unlessItFails([&] { show(6, percentage(toReal(payData.fedTax) / toReal(gross))); });
  unlessItFails([&] { show(7, percentage(toReal(payData.stateTax) / toReal(gross))); });
  // The year is calculated from the rounded figures of the first two rows.
  unlessItFails([&] { show(8, currency(realOf(lblOne[0].caption()) * yearlyHours)); });
  unlessItFails([&] { show(9, currency(realOf(lblOne[1].caption()) * yearlyHours)); });
}

}  // namespace tallyfin
