#include <gmock/gmock.h>

#include "support/program.h"

/// With any text in a box or in the store, the program starts, skips the statements that fail, and doesn't change
/// anything else.

namespace tallyfin {
namespace {

const std::vector<std::string>& garbage() {
  static const std::vector<std::string> texts{
      "",
      " ",
      "%",
      "abc",
      "1.2.3",
      "--5",
      "5-",
      "( 5 )",
      "nan",
      "-inf",
      "0x1F",
      "1E400",
      "-1E400",
      "1E99999999999999999999",
      std::string("5\0", 2),
      "\x01\x02\xFF\xFE\x80",
      "\r\n",
      "5\xC2\xA0",
      "$$$$$",
      ",,,,",
      std::string(1'000'000, '9'),
      std::string(1'000'000, '-'),
  };
  return texts;
}

class AnyText : public ProgramTest {
 protected:
  AnyText() {
    put("Frequency", "0");
    put("MaritalStat", "1");
    put("Deps", "1");
    put("State", "34");
    put("IncAmt", "1000");
    put("401k", "0.06");
    put("NotTax", "40");
    put("SSExmp", "30");
    put("Local", ".01");
    start();
    calculate();
    calculated = payData;
  }

  PayData calculated;
};

TEST_F(AnyText, InABoxOfTheMainScreenLeavesTheOthersAsTheyAre) {
  for (const std::string& text : garbage()) {
    SCOPED_TRACE(text.substr(0, 30));
    for (MaskedBox* box : main().boxes()) {
      const std::string before = box->text();
      EXPECT_EQ(box->userType(text), Refusal::none);
      EXPECT_NO_THROW(box->shown());
      calculate();
      const bool income = box == &main().txtIncome;
      const bool rate = box == &main().txt401k;
      const bool preTax = box == &main().txtPreTax;
      const bool preFica = box == &main().txtPreFICA;
      // An empty text counts as 0, anything else leaves the field.
      EXPECT_EQ(payData.grossPay, income && !text.empty() ? calculated.taxableWage : calculated.grossPay);
      EXPECT_EQ(payData.preTax, preTax && text.empty() ? Money{} : calculated.preTax);
      EXPECT_EQ(payData.preFica, preFica && text.empty() ? Money{} : calculated.preFica);
      EXPECT_EQ(payData.rate401k, rate && text.empty() ? 0 : calculated.rate401k);
      EXPECT_EQ(payData.depsDed, calculated.depsDed);

      EXPECT_EQ(box->userType(before), Refusal::none);
      calculate();
      EXPECT_EQ(payData, calculated);
    }
  }
}

TEST_F(AnyText, InAnyBoxOfAnyScreenIsTaken) {
  for (const std::string& text : garbage()) {
    SCOPED_TRACE(text.substr(0, 30));
    main().cmdAdditional[frmMain::localTax].userClick();
    desk.use<frmMisc>().txtTaxPerCnt.userType(text);
    desk.use<frmMisc>().cmdExit[0].userClick();
    main().cmdAdditional[frmMain::raise].userClick();
    for (TextBox& box : desk.use<frmMisc>().txtRaise) {
      box.userType(text);
      desk.use<frmMisc>().cmdExit[1].userClick();
    }
    desk.use<frmMisc>().imgSeal.userClick();

    choose("StateInfo");
    for (EditableDropDown& box : desk.use<frmState>().cboDeps) box.userType(text);
    desk.use<frmState>().mskAdditional.userType(text);
    desk.use<frmState>().cboState.userType(text);
    desk.use<frmState>().cmdAccept.userClick();

    choose("Multi");
    frmMultiCheck& checks = desk.use<frmMultiCheck>();
    checks.txtCheck1.userType(text);
    for (auto* options :
         {&checks.optSelectWeek, &checks.optSelectETW, &checks.optSelectTAW, &checks.optSelectMonthly}) {
      (*options)[0].userClick();
      EXPECT_EQ(checks.lblCheck1.caption(), "$0.00");
    }
    checks.cmdCalc.userClick();
    EXPECT_EQ(payData.multiCheckTotal, 0);

    choose("Ded");
    frmDednAdj& deductions = desk.use<frmDednAdj>();
    for (MaskedBox* box : {&deductions.txtGetItemized, &deductions.txtAdjustments, &deductions.txtNonWage}) {
      box->userType(text);
    }
    deductions.optDedCategory[0].userClick();
    deductions.cmdPersWrkCalc.userClick();
    EXPECT_EQ(deductions.lblDivide.caption(), "0");

    choose("Pers");
    desk.use<frmPersWkSht>().txtChild.userType(text);
    desk.use<frmPersWkSht>().txtPersWkEnterDeps.userType(text);
    desk.use<frmPersWkSht>().cmdPersWrkCalc[0].userClick();
    EXPECT_EQ(payData.w4Allowances, 0);

    choose("TwoWork");
    desk.use<frm2Workers>().lblTable2.userType(text);
    desk.use<frm2Workers>().txtNumPayDays.userType(text);
    desk.use<frm2Workers>().cmdPersWrkCalc[0].userClick();
    EXPECT_EQ(payData.w4TwoEarnerAmt, 0);

    choose("Personal");
    frmName& person = desk.use<frmName>();
    for (TextBox* box : {&person.txtName, &person.txtSSN, &person.txtAddress, &person.txtCity}) box->userType(text);
    person.cmdExit.userClick();
    EXPECT_EQ(storedUser("UName"), text.empty() ? "(none)" : text);
    choose("Calc");
    main().cmdToolBar[frmMain::print].userClick();
    EXPECT_EQ(desk.use<frmPrint>().vsPrinter1.pages(), 1);
    desk.use<frmPrint>().cmdPrintMenu[1].userClick();
  }
}

TEST_F(AnyText, InTheStoreLetsTheProgramStartWithTheOtherSettings) {
  const SettingsStore::Sections clean = [&] {
    MemoryStore& saved = store;
    putState("staDeps", "2");
    putState("staExmp", "3");
    putState("staAdd", "4");
    putState("staMarried", "5");
    putState("MMethod", "1");
    return saved.all();
  }();
  for (const auto& [sectionName, keys] : clean) {
    for (const auto& [key, good] : keys) {
      if (key == "DontShow") continue;
      SCOPED_TRACE(key);
      for (const std::string& text : garbage()) {
        for (const auto& [name, entries] : clean) {
          for (const auto& [entry, value] : entries) store.write(name, entry, value);
        }
        store.write(sectionName, key, text);
        program.start();
        ASSERT_EQ(activeDocument(), "frmMain");
        EXPECT_EQ(main().txtIncome.text(), key == "IncAmt" ? text : "1000");
        EXPECT_EQ(main().txt401k.text(), key == "401k" ? text : "0.06");
        EXPECT_EQ(main().txtPreTax.text(), key == "NotTax" ? text : "40");
        EXPECT_EQ(main().txtPreFICA.text(), key == "SSExmp" ? text : "30");
        EXPECT_EQ(main().cboState.index(), key == "State" ? -1 : 34);
        EXPECT_EQ(main().cboExemptions.index(), key == "Deps" ? -1 : 1);
        EXPECT_EQ(payData.maritalStat, key == "MaritalStat" ? 0 : 1);
        EXPECT_EQ(payData.frequency, 0);  // also where its own text fails: the record is fresh
        EXPECT_EQ(payData.localRate, key == "Local" ? 0 : 0.01);
        EXPECT_EQ(payData.mMethod, key == "MMethod" ? 0 : 1);
        EXPECT_EQ(payData.depsDed, key == "Deps" ? Money{} : dollars("52.88"));
        choose("StateInfo");
        desk.use<frmState>().cmdAccept.userClick();
        EXPECT_EQ(payData.staDeps, key == "staDeps" ? 0 : 2);
        EXPECT_EQ(payData.staExmp, key == "staExmp" ? 0 : 3);
        EXPECT_EQ(payData.staAdd, key == "staAdd" ? 0 : 4);
        EXPECT_EQ(payData.staMarried, key == "staMarried" ? 0 : 5);
        calculate();
        EXPECT_EQ(main().dbgDisplay.rows().size(), 12U);
      }
    }
  }
}

TEST_F(AnyText, UnderTheStartKeyOpensPersonalInformation) {
  for (const std::string& text : garbage()) {
    store.write(section::user, "DontShow", text);
    program.start();
    EXPECT_EQ(activeDocument(), "frmName") << text.substr(0, 30);
  }
}

}  // namespace
}  // namespace tallyfin
