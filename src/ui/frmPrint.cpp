#include "ui/frmPrint.h"

#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "platform/dates.h"
#include "platform/platform.h"

namespace tallyfin {

namespace {

constexpr const char* totalOfDeductions = "Total of Deductions";
constexpr const char* checkAmount = "Check Amount";

/// The report as one text for the print engine. Uses `totalDed` and `checkAmt` of the last GridPrint.
std::string reportTable() {
  const auto amount = [](const char* title, Money figure) { return title + ("|" + currency(figure)) + ";"; };
  const std::string emptyRow = "|;";
  return "<3000|>1500;"
         "Category|Amount;" +
         amount("  Gross Pay", payData.grossPay) + amount("  401k Deduction", payData.amt401k) +
         amount("  Federal Tax", payData.fedTax) + amount("  State Tax", payData.stateTax) +
         amount("  Local Tax", payData.localTax) + amount("  FICA", payData.fica) + emptyRow +
         amount(totalOfDeductions, payData.totalDed) + amount(checkAmount, payData.checkAmt) + emptyRow +
         "Included in FICA|;" + amount("  Social Security", payData.socSec) + amount("  Medicare", payData.medicare) +
         emptyRow + "Protected Amounts|;" + amount("  Non-Taxable", payData.preTax) +
         amount("  Pre-FICA", payData.preFica);
}

}  // namespace

frmPrint::frmPrint() : Screen(screenName, "Print Preview") {
  vsPrinter1.setFooter("Calculations by Tallyfin 99 Norvane Works");
  cmdPrintMenu[0].onClick = [this] { buildReport(); };
  cmdPrintMenu[1].onClick = [this] { desk.close(*this); };
  udZoom.onChange = [this] { udZoom_Change(); };
}

void frmPrint::buildReport() {
  if (!platform.printer->startDocument()) return platform.beeper->beep();
  vsPrinter1.startDocument();
  platform.pointer->setBusy(true);
  vsPrinter1.setHeader(" Prepared for " + settings::uName.text() + " on " + longDate(platform.clock->now()));
  vsPrinter1.setFont(12, false, false);
  vsPrinter1.addTable(reportTable(), {totalOfDeductions, checkAmount});
  vsPrinter1.endDocument();
  platform.pointer->setBusy(false);
}

void frmPrint::udZoom_Change() {
  lblShowSize.setCaption(std::to_string(udZoom.value()));
  unlessItFails([&] { vsPrinter1.setZoom(toInt16(lblShowSize.caption()).value()); });
}

}  // namespace tallyfin
