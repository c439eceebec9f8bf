#include "ui/MDIOpen.h"

#include <algorithm>
#include <iterator>

#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "engine/settings.h"
#include "platform/platform.h"
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

void newFile() {
  desk.closeActiveDocument();
  frmMain& main = desk.use<frmMain>();
  for (MaskedBox* box : main.boxes()) box->setText("");
  desk.show(main);
  main.cboState.setIndex(0);
  main.cboExemptions.setIndex(0);
}

void analysis() {
  if (payData.grossPay != 0) {
    desk.openInstead<frmAnalysis>();
  } else {
    desk.show<MsgBox>();
  }
}

/// The items of the list bar, and the effects of clicks.
struct Item {
  const char* group;
  const char* caption;
  const char* key;
  const char* picture;
  const char* shortcut;
  void (*action)();
};
constexpr std::array<Item, 14> items{{
    {"File", "New", "NewFile", "new", "Ctrl+N", newFile},
    {"File", "Set State Options", "StateInfo", "stateoptions", "Ctrl+4", [] { desk.openInstead<frmState>(); }},
    {"File", "Personal Information", "Personal", "personal", "Ctrl+5", [] { desk.openInstead<frmName>(); }},
    {"File", "Exit", "ExitProgram", "exit", "Ctrl+Q", [] { desk.end(); }},
    {"Calculations", "Calculations", "Calc", "calculations", "Ctrl+1", [] { desk.openInstead<frmMain>(); }},
    {"Calculations", "Multiple Paychecks", "Multi", "multichecks", "Ctrl+2", [] { desk.openInstead<frmMultiCheck>(); }},
    {"Calculations", "Analysis", "Analysis", "analysis", "Ctrl+3", analysis},
    {"Form W4", "Personal Allowances Worksheet", "Pers", "allowances", "Ctrl+6",
     [] { desk.openInstead<frmPersWkSht>(); }},
    {"Form W4", "Deductions and Adjustments", "Ded", "deductions", "Ctrl+7", [] { desk.openInstead<frmDednAdj>(); }},
    {"Form W4", "Two Workers", "TwoWork", "twoworkers", "Ctrl+8", [] { desk.openInstead<frm2Workers>(); }},
    {"Form W4", "Form W4", "W4", "formw4", "Ctrl+9", [] { desk.show<frmW4>(); }},
    {"Form W4", "Form W4 Help", "W4Help", "formw4help", "Shift+F1", [] { platform.help->open("W4.hlp", 10); }},
    {"Help", "Help", "Help", "help", "Ctrl+F1", [] { platform.help->open("Tallyfin.hlp", 0); }},
    {"Help", "About", "About", "about", "Ctrl+0", [] { desk.show<frmAbt>(); }},
}};

/// The item that opens a screen, or the screen from which it opens.
constexpr std::pair<std::string_view, std::string_view> itemOfScreen[] = {{"frmMain", "Calc"},
                                                                          {"frmMisc", "Calc"},
                                                                          {"frmPrint", "Calc"},
                                                                          {"frmMultiCheck", "Multi"},
                                                                          {"frmAnalysis", "Analysis"},
                                                                          {"frmState", "StateInfo"},
                                                                          {"frmName", "Personal"},
                                                                          {"frmPersWkSht", "Pers"},
                                                                          {"frmDednAdj", "Ded"},
                                                                          {"frm2Workers", "TwoWork"},
                                                                          {"frmTableOne", "TwoWork"},
                                                                          {"frmCalendar", "TwoWork"},
                                                                          {"frmW4", "W4"}};

template <std::size_t... i>
std::array<ListBarItem, items.size()> listBar(Screen& screen, std::index_sequence<i...>) {
  return {ListBarItem(screen, "SSListBar1", items[i].key, items[i].group, items[i].caption, items[i].picture,
                      items[i].shortcut)...};
}

}  // namespace

MDIOpen::MDIOpen()
    : Screen(screenName, "", Place::frame), SSListBar1(listBar(*this, std::make_index_sequence<items.size()>{})) {
  for (std::size_t i = 0; i < items.size(); ++i) SSListBar1[i].onClick = items[i].action;
}

void MDIOpen::Load() {
  unlessItFails([] { payData.dontShow = settings::dontShow.number(); });
  title = "Tallyfin 99";
  if (payData.dontShow == 0) desk.openInstead<frmName>();
  if (payData.dontShow == 1) desk.openInstead<frmMain>();
}

const ListBarItem* MDIOpen::itemOf(std::string_view page) const {
  const auto* const way = std::find_if(std::begin(itemOfScreen), std::end(itemOfScreen),
                                       [&](const auto& each) { return each.first == page; });
  if (way == std::end(itemOfScreen)) return nullptr;
  return &*std::find_if(SSListBar1.begin(), SSListBar1.end(),
                        [&](const ListBarItem& item) { return item.key() == way->second; });
}

Refusal MDIOpen::userResize(WindowState state) {
  return desk.act(*this, [this, state] {
    maximized = state == WindowState::maximized;
    maximized = false;
  });
}

}  // namespace tallyfin
