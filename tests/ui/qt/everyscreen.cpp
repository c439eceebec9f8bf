#include "everyscreen.h"

#include "controls/desk.h"

namespace tallyfin::qt {

void EveryScreen::onEveryScreen(const std::function<void(const Screen&)>& look) {
  stored(section::settings, "IncAmt", "1000");
  stored(section::settings, "Frequency", "0");
  startOnMain();
  const auto at = [&](const char* screen) {
    SCOPED_TRACE(screen);
    ASSERT_TRUE(shown(screen));
    look(*desk.find(screen));
  };
  at("MDIOpen");
  at("frmMain");
  clickItem("Analysis");
  at("MsgBox");
  click("MsgBox", "OK");
  clickItem("Calc");
  click("frmMain", "cmdToolBar(0)");
  at("frmMain");
  for (const char* page : {"cmdAdditional(0)", "cmdAdditional(1)"}) {
    click("frmMain", page);
    at("frmMisc");
    click("frmMisc", "imgSeal");
  }
  click("frmMain", "cmdToolBar(1)");
  at("frmPrint");
  click("frmPrint", "cmdPrintMenu(1)");
  clickItem("Analysis");
  at("frmAnalysis");
  clickItem("Multi");
  at("frmMultiCheck");
  clickItem("StateInfo");
  at("frmState");
  clickItem("Personal");
  at("frmName");
  for (const auto& [item, screen] :
       {std::pair{"Pers", "frmPersWkSht"}, {"Ded", "frmDednAdj"}, {"TwoWork", "frm2Workers"}}) {
    clickItem(item);
    at(screen);
    click(screen, "cmdW4Back(0)");
    at(screen);
  }
  click("frm2Workers", "cmdW4Back(2)");
  at("frmCalendar");
  clickItem("TwoWork");
  click("frm2Workers", "cmdTable1Show(0)");
  at("frmTableOne");
  clickItem("W4");
  at("frmW4");
  clickItem("About");
  at("frmAbt");
}

}  // namespace tallyfin::qt
