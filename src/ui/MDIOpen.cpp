#include "ui/MDIOpen.h"

#include "controls/desk.h"
#include "controls/surroundings.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "stateoptions/frmState.h"
#include "ui/MsgBox.h"
#include "ui/frmAbt.h"
#include "ui/frmMain.h"
#include "ui/frmName.h"
#include "w4/frm2Workers.h"
#include "w4/frmDednAdj.h"
#include "w4/frmPersWkSht.h"
#include "w4/frmW4.h"
#include "whatif/frmAnalysis.h"
#include "whatif/frmMultiCheck.h"

namespace tallyfin {

namespace {

constexpr std::array<MDIOpen::Item, 14> items{{
    {"File", "New", "NewFile"},
    {"File", "Set State Options", "StateInfo"},
    {"File", "Personal Information", "Personal"},
    {"File", "Exit", "ExitProgram"},
    {"Calculations", "Calculations", "Calc"},
    {"Calculations", "Multiple Paychecks", "Multi"},
    {"Calculations", "Analysis", "Analysis"},
    {"Form W4", "Personal Allowances Worksheet", "Pers"},
    {"Form W4", "Deductions and Adjustments", "Ded"},
    {"Form W4", "Two Workers", "TwoWork"},
    {"Form W4", "Form W4", "W4"},
    {"Form W4", "Form W4 Help", "W4Help"},
    {"Help", "Help", "Help"},
    {"Help", "About", "About"},
}};

template <std::size_t... i>
std::array<ListBarItem, items.size()> listBar(Screen& screen, std::index_sequence<i...>) {
  return {ListBarItem(screen, "SSListBar1", items[i].group, items[i].caption, items[i].key)...};
}

}  // namespace

MDIOpen::MDIOpen()
    : Screen(screenName, "", Place::frame), SSListBar1(listBar(*this, std::make_index_sequence<items.size()>{})) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    SSListBar1[i].onClick = [this, i] { listItem_Click(items[i].key); };
  }
}

void MDIOpen::start() {
  provideWorksheet([]() -> Worksheet& { return desk.use<frmMain>(); });
  desk.start<MDIOpen>();
}

void MDIOpen::Load() {
  step([] { payData.dontShow = settings::dontShow.number(); });
  title = "Tallyfin 99";
  if (payData.dontShow == 0) desk.openInstead<frmName>();
  if (payData.dontShow == 1) desk.openInstead<frmMain>();
}

Refusal MDIOpen::userResize(WindowState state) {
  return desk.act(*this, [this, state] {
    maximized = state == WindowState::maximized;
    maximized = false;
  });
}

void MDIOpen::listItem_Click(const std::string& key) {
  if (key == "NewFile") newFile();
  if (key == "StateInfo") desk.openInstead<frmState>();
  if (key == "Personal") desk.openInstead<frmName>();
  if (key == "ExitProgram") desk.end();
  if (key == "Calc") desk.openInstead<frmMain>();
  if (key == "Multi") desk.openInstead<frmMultiCheck>();
  if (key == "Analysis") analysis();
  if (key == "Pers") desk.openInstead<frmPersWkSht>();
  if (key == "Ded") desk.openInstead<frmDednAdj>();
  if (key == "TwoWork") desk.openInstead<frm2Workers>();
  if (key == "W4") desk.show<frmW4>();
  if (key == "W4Help") surroundings.help->open("W4.hlp", 10);
  if (key == "Help") surroundings.help->open("Tallyfin.hlp", 0);
  if (key == "About") desk.show<frmAbt>();
}

void MDIOpen::newFile() {
  desk.closeActiveDocument();
  frmMain& main = desk.use<frmMain>();
  for (MaskedBox* box : main.boxes()) box->setText("");
  desk.show(main);
  main.cboState.setIndex(0);
  main.cboExemptions.setIndex(0);
}

void MDIOpen::analysis() {
  if (payData.grossPay != 0) {
    desk.openInstead<frmAnalysis>();
  } else {
    desk.show<MsgBox>();
  }
}

}  // namespace tallyfin
