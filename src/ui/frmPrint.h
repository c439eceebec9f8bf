#pragma once

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/output.h"
#include "controls/screen.h"
#include "controls/texts.h"

namespace tallyfin {

/// The report: a table of the last calculation, with a header that names the user and the date.
class frmPrint final : public Screen {
 public:
  static constexpr const char* screenName = "frmPrint";
  frmPrint();

  PrintEngine vsPrinter1{*this, "vsPrinter1"};
  /// 0 builds the report, 1 closes the screen.
  ControlArray<CommandButton, 2> cmdPrintMenu{*this, "cmdPrintMenu"};
  UpDown udZoom{*this, "udZoom", 10, 400, 100};
  Label lblShowSize{*this, "lblShowSize", "100"};
  Label lblPercent{*this, "lblPercent", "%"};

 private:
  void buildReport();
  void udZoom_Change();
};

}  // namespace tallyfin
