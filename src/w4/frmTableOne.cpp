#include "w4/frmTableOne.h"

#include <span>

#include "controls/colours.h"
#include "controls/desk.h"
#include "engine/numbertext.h"
#include "engine/paydata.h"
#include "w4/frm2Workers.h"

namespace tallyfin {

namespace {

/// Table 1, Married Filing Jointly, 1999: yearly wages of the lowest paying job. The value of a row is its position,
/// from 1.
constexpr const char* MarriedNumbers[] = {
    "0 - $4,000",        "$4,001 - $7,000",    "$7,001 - $12,000",    "$12,001 - $18,000",
    "$18,001 - $24,000", "$24,001 - $28,000",  "$28,001 - $35,000",   "$35,001 - $40,000",
    "$40,001 - $45,000", "$45,001 - $54,000",  "$54,001 - $62,000",   "$62,001 - $70,000",
    "$70,001 - $85,000", "$85,001 - $100,000", "$100,001 - $110,000", "$110,001 and over"};

/// Table 1, all others. There is no row from $80,001 to $85,000: required.
constexpr const char* AllOthers[] = {"0 - $5,000",         "$5,001 - $11,000",  "$11,001 - $16,000",
                                     "$16,001 - $21,000",  "$21,001 - $25,000", "$25,001 - $40,000",
                                     "$40,001 - $50,000",  "$50,001 - $65,000", "$65,001 - $80,000",
                                     "$85,001 - $100,000", "$100,001 and over"};

struct AmountBand {
  int amount;  ///< Dollars a year.
  const char* wages;
};

/// Table 2, Married Filing Jointly, 1999: yearly wages of the highest paying job.
constexpr AmountBand MarriedNumbersOne[] = {{400, "0 - $50,000"},
                                            {770, "$50,001 - $100,000"},
                                            {850, "$100,001 - $130,000"},
                                            {1000, "$130,001 - $240,000"},
                                            {1100, "$240,001 and over"}};

/// Table 2, all others.
constexpr AmountBand AllOthersOne[] = {{400, "0 - $30,000"},
                                       {770, "$30,001 - $60,000"},
                                       {850, "$60,001 - $120,000"},
                                       {1000, "$120,001 - $250,000"},
                                       {1100, "$250,001 and over"}};

void build(ListBox& list, std::span<const char* const> bands) {
  list.clear();
  for (const char* wages : bands) list.add(wages);
}

void build(ListBox& list, std::span<const AmountBand> bands) {
  list.clear();
  for (const AmountBand& band : bands) list.add(band.wages, band.amount);
}

}  // namespace

frmTableOne::frmTableOne() : Screen(screenName, "") {
  setTextColour(colours::greyText);
  optTableOne.on(&OptionButton::onClick, [this](int i) { optTableOne_Click(i); });
  optTableOne.highlight(&OptionButton::onMouseEnter, &OptionButton::onMouseLeave, colours::highlight,
                        colours::greyText);
  lstTableOne.onClick = [this] { lstTableOne_Click(); };
}

void frmTableOne::Load() {
  backColour = colours::paper;
  build(lstTableOne, MarriedNumbers);
  optTableOne[0].select();
  if (payData.w4TableMode == 1) {
    lblCboTable.setCaption("Table 1");
    title = "If wages from LOWEST paying job are -";
  } else if (payData.w4TableMode == 2) {
    lblCboTable.setCaption("Table 2");
    title = "If wages from HIGHEST paying job are -";
  }
}

void frmTableOne::optTableOne_Click(int index) {
  if (payData.w4TableMode == 1) {
    index == 0 ? build(lstTableOne, MarriedNumbers) : build(lstTableOne, AllOthers);
  } else if (payData.w4TableMode == 2) {
    index == 0 ? build(lstTableOne, MarriedNumbersOne) : build(lstTableOne, AllOthersOne);
  }
}

void frmTableOne::lstTableOne_Click() {
  if (payData.w4TableMode == 1) takeFromTable1();
  if (payData.w4TableMode == 2) desk.use<frm2Workers>().lblTable2.setText(std::to_string(lstTableOne.itemData()));
  payData.w4Allowances = payData.w4TableValue;  // after Table 2 too: required
  desk.close(*this);
}

void frmTableOne::takeFromTable1() {
  frm2Workers& worksheet = desk.use<frm2Workers>();
  const std::string number = std::to_string(lstTableOne.index() + 1);
  worksheet.lbl2WkerT1.setCaption(number);
  worksheet.lbl2WkerResult4.setCaption(number);
  // Compared as texts, character by character: "9" is greater than "10".
  if (worksheet.lblDedFromG.caption() >= worksheet.lbl2WkerT1.caption()) {
    unlessItFails([&] {
      payData.w4TableValue = toInt16(worksheet.lblDedFromG.caption()) - toInt16(worksheet.lbl2WkerT1.caption());
    });
    worksheet.lbl2Wker3.setCaption(toText(payData.w4TableValue));
    worksheet.cmdW4Back[0].enabled = false;
    worksheet.cmdPersWrkCalc[2].visible = true;
  } else {
    worksheet.lbl2Wker3.setCaption("0");
    worksheet.cmdW4Back[0].enabled = true;
  }
}

}  // namespace tallyfin
