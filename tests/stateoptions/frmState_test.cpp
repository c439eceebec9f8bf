#include "stateoptions/frmState.h"

#include <gmock/gmock.h>

#include "support/program.h"
#include "support/table.h"

namespace tallyfin {
namespace {

using testing::ElementsAreArray;

class StateOptions : public ProgramTest {
 protected:
  static constexpr int arizona = 2;
  static constexpr int california = 4;
  static constexpr int connecticut = 6;
  static constexpr int hawaii = 10;
  static constexpr int illinois = 12;
  static constexpr int maryland = 19;
  static constexpr int michigan = 21;
  static constexpr int mississippi = 23;
  static constexpr int newJersey = 26;
  static constexpr int pennsylvania = 34;

  static frmState& screen() { return desk.use<frmState>(); }
  /// Opens the screen from the list bar, for the state that the main screen has.
  void open() {
    if (!desk.running()) start();
    choose("StateInfo");
  }
  /// Opens the screen and chooses a state on it.
  void open(int state) {
    open();
    EXPECT_EQ(screen().cboState.userPick(state), Refusal::none);
  }
  static void accept() {
    EXPECT_EQ(screen().cmdAccept.userClick(), Refusal::none);
    EXPECT_EQ(desk.find<frmState>(), nullptr);
    EXPECT_EQ(activeDocument(), "frmMain");
  }
  /// The index of the option that is set, -1 for none.
  template <int count>
  static int setOption(const ControlArray<OptionButton, count>& options) {
    for (int i = 0; i < count; ++i) {
      if (options[i].value()) return i;
    }
    return -1;
  }
};

TEST_F(StateOptions, AreNothingOnAFirstRun) {
  open(0);
  open();
  EXPECT_EQ(screen().cboDeps[0].text(), "0");
  EXPECT_EQ(screen().cboDeps[1].text(), "0");
  EXPECT_EQ(screen().cboSpecialDeps.text(), "0");
  EXPECT_EQ(screen().mskAdditional.shown(), "$0.00");
  EXPECT_FALSE(screen().chkExemp[0].value());
  EXPECT_FALSE(screen().chkExemp[1].value());
  EXPECT_EQ(setOption(screen().op3Marital), 0);
  EXPECT_FALSE(screen().op3Marital[0].enabled());
  EXPECT_TRUE(screen().maximized());
}

TEST_F(StateOptions, TakeTheShapeOfEachState) {
  start();
  open();
  const std::vector<Row> rows = tableOf("stateoptions/data/shapes.tsv");
  ASSERT_EQ(rows.size(), 42U);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.at("entry"));
    screen().cboState.userPick(std::stoi(row.at("index")));
    EXPECT_EQ(screen().cboState.text(), row.at("entry"));
    const auto expectEnabled = [](auto& options, const std::string& indexes) {
      const std::vector<std::string> wanted = splitAt(indexes == "-" ? "" : indexes, ',');
      std::vector<std::string> enabled;
      for (OptionButton& option : options) {
        EXPECT_TRUE(option.visible());
        EXPECT_FALSE(option.value());
        if (!option.enabled()) continue;
        enabled.push_back(splitAt(splitAt(option.address(), '(').back(), ')').front());
        EXPECT_EQ(option.foreColour(), (Colour{255, 128, 128}));
      }
      EXPECT_THAT(enabled, ElementsAreArray(wanted));
    };
    expectEnabled(screen().op3Marital, row.at("marital"));
    expectEnabled(screen().optRateSelect, row.at("rates"));
    EXPECT_EQ(screen().cboDeps[0].enabled(), row.at("dependents") == "enabled");
    EXPECT_EQ(screen().cboSpecialDeps.enabled(), row.at("special") == "enabled");
    EXPECT_EQ(screen().lblSpecialDeps.caption(), row.at("caption"));
    EXPECT_THAT(screen().cboSpecialDeps.entries(), ElementsAreArray(splitAt(row.at("entries"), ',')));
    EXPECT_EQ(screen().cboSpecialDeps.text(), row.at("text"));
    EXPECT_FALSE(screen().cboDeps[1].enabled());
  }
}

TEST_F(StateOptions, OpenByThemselvesForSomeStates) {
  start();
  for (const Row& row : tableOf("stateoptions/data/shapes.tsv")) {
    main().cboState.userPick(std::stoi(row.at("index")));
    EXPECT_EQ(activeDocument(), row.at("opens") == "yes" ? "frmState" : "frmMain") << row.at("entry");
    if (desk.find<frmState>() == nullptr) continue;
    EXPECT_TRUE(screen().maximized());
    EXPECT_EQ(screen().cboState.text(), row.at("entry"));
    accept();
    EXPECT_TRUE(main().maximized());
  }
}

TEST_F(StateOptions, NameTheMaritalCategories) {
  open();
  const char* const captions[] = {"Single",
                                  "Single, claiming full personal exemption(S)",
                                  "Single, claiming none (O)",
                                  "Married, claiming for both spouses (M)",
                                  "Married, claiming for yourself only (S)",
                                  "Married, claiming none (O)",
                                  "Married Filing Separately",
                                  "Married. Spouse NOT employed",
                                  "Married. Spouse IS employed.",
                                  "Head of Family (Household)"};
  for (int i = 0; i < 10; ++i) EXPECT_EQ(screen().op3Marital[i].caption(), captions[i]);
}

TEST_F(StateOptions, ReachTheRecordAndTheStoreAtClosing) {
  open(california);
  screen().cboDeps[0].userPick(2);
  screen().cboSpecialDeps.userPick(7);
  screen().op3Marital[3].userClick();
  screen().mskAdditional.userType("$1,012.50");
  EXPECT_EQ(payData.staMarried, 3);  // this one at once
  EXPECT_EQ(payData.staDeps, 0);
  accept();
  EXPECT_EQ(payData.staDeps, 2);
  EXPECT_EQ(payData.staExmp, 7);
  EXPECT_EQ(payData.mMethod, 7);
  EXPECT_EQ(payData.staAdd, dollars("1012.5"));
  EXPECT_EQ(payData.illDeps, 0);
  EXPECT_EQ(storedState("staDeps"), "2");
  EXPECT_EQ(storedState("IllDeps"), "0");
  EXPECT_EQ(storedState("staExmp"), "7");
  EXPECT_EQ(storedState("staAdd"), "1012.5");
  EXPECT_EQ(storedState("staMarried"), "3");
  EXPECT_EQ(storedState("staRate"), "0");
  EXPECT_EQ(storedState("staMethod"), "7");
  EXPECT_EQ(storedState("sta401"), "N");
  EXPECT_EQ(storedState("staPreTax"), "N");
  EXPECT_EQ(storedState("MMethod"), "(none)");
}

TEST_F(StateOptions, SetNoOptionForAStoredNumberThatHasNone) {
  for (const char* number : {"-1", "10"}) {
    putState("staMarried", number);
    putState("staRate", number);
    open();
    EXPECT_EQ(setOption(screen().op3Marital), -1) << number;
    EXPECT_EQ(setOption(screen().optRateSelect), -1) << number;
    EXPECT_EQ(toText(payData.staMarried), number);
    desk.end();
  }
}

TEST_F(StateOptions, ReplaceTheStateOfTheMainScreen) {
  start();
  open(hawaii);
  accept();
  EXPECT_EQ(main().cboState.index(), hawaii);
}

TEST_F(StateOptions, ComeBackAtTheNextOpening) {
  open(california);
  screen().cboDeps[0].userPick(2);
  screen().cboSpecialDeps.userPick(7);
  screen().op3Marital[3].userClick();
  screen().mskAdditional.userType("5");
  accept();
  main().cboState.userPick(california);
  EXPECT_EQ(screen().cboDeps[0].text(), "2");
  EXPECT_EQ(screen().cboSpecialDeps.text(), "7");
  EXPECT_EQ(screen().mskAdditional.text(), "5");
  EXPECT_EQ(setOption(screen().op3Marital), 3);
}

TEST_F(StateOptions, CountForTheNextState) {
  open(california);
  screen().op3Marital[3].userClick();
  screen().cboDeps[0].userPick(4);
  screen().mskAdditional.userType("5");
  screen().cboSpecialDeps.userPick(7);
  screen().cboState.userPick(hawaii);
  EXPECT_EQ(setOption(screen().op3Marital), -1);
  EXPECT_EQ(payData.staMarried, 3);
  EXPECT_EQ(screen().cboDeps[0].text(), "4");
  EXPECT_EQ(screen().mskAdditional.text(), "5");
  EXPECT_EQ(screen().cboSpecialDeps.text(), "0");
}

TEST_F(StateOptions, KeepTheRecordWhereATextIsNoNumber) {
  open(california);
  screen().cboDeps[0].userType("2");
  screen().cboSpecialDeps.userType("3");
  screen().mskAdditional.userType("4");
  accept();
  main().cboState.userPick(california);
  screen().cboDeps[0].userType("two");
  screen().cboSpecialDeps.userType("32768");
  screen().mskAdditional.userType("four");
  accept();
  EXPECT_EQ(payData.staDeps, 2);
  EXPECT_EQ(payData.staExmp, 3);
  EXPECT_EQ(payData.mMethod, 3);
  EXPECT_EQ(payData.staAdd, 4);
  EXPECT_EQ(storedState("staDeps"), "2");
  EXPECT_EQ(storedState("staExmp"), "3");
  EXPECT_EQ(storedState("staAdd"), "4");
  EXPECT_EQ(storedState("staMethod"), "-1");
}

TEST_F(StateOptions, CountAnEmptyAmountAsZero) {
  putState("staAdd", "12");
  open(california);
  screen().mskAdditional.userType("");
  accept();
  EXPECT_EQ(payData.staAdd, 0);
  EXPECT_EQ(storedState("staAdd"), "0");
}

TEST_F(StateOptions, TakeANegativeAmountInParentheses) {
  open(california);
  screen().mskAdditional.userType("($3,300.00)");
  accept();
  EXPECT_EQ(payData.staAdd, -3300);
}

TEST_F(StateOptions, TickABoxForAnythingButN) {
  for (const auto& [text, ticked] : {std::pair{"Y", true}, {"N", false}, {"n", true}, {"", true}, {"maybe", true}}) {
    putState("sta401", text);
    open();
    EXPECT_EQ(screen().chkExemp[0].value(), ticked) << text;
    EXPECT_FALSE(screen().chkExemp[1].value());
    accept();
    EXPECT_EQ(storedState("sta401"), text);  // only a click changes it
  }
  open();
  screen().chkExemp[0].userClick();
  screen().chkExemp[0].userClick();
  screen().chkExemp[1].userClick();
  accept();
  EXPECT_EQ(storedState("sta401"), "Y");
  EXPECT_EQ(storedState("staPreTax"), "Y");
}

TEST_F(StateOptions, TakeTheAmountsOffTheStateBaseOnlyWhenClosed) {
  put("Frequency", "0");
  start();
  main().txtIncome.userType("1000");
  main().txt401k.userType("6");
  open(pennsylvania);
  screen().chkExemp[0].userClick();
  accept();
  main().txtIncome.userType("1000");
  main().txt401k.userType("6");
  calculate();
  EXPECT_EQ(payData.stateTax, dollars("26.32"));  // 940
}

TEST_F(StateOptions, EnableTheSecondIllinoisCountOnceTheFirstIsUsed) {
  open(illinois);
  EXPECT_FALSE(screen().cboDeps[1].enabled());
  screen().cboDeps[0].userType("1");  // no click
  EXPECT_FALSE(screen().cboDeps[1].enabled());
  screen().cboDeps[0].userPick(0);
  EXPECT_TRUE(screen().cboDeps[1].enabled());
  screen().cboDeps[1].userPick(3);
  screen().cboState.userPick(hawaii);
  EXPECT_FALSE(screen().cboDeps[1].enabled());
  EXPECT_EQ(screen().cboDeps[1].text(), "0");
}

TEST_F(StateOptions, EnableTheSecondIllinoisCountWhereItHoldsANumber) {
  open(illinois);
  screen().cboDeps[0].userPick(1);
  screen().cboDeps[1].userPick(3);
  accept();
  EXPECT_EQ(payData.illDeps, 3);
  main().cboState.userPick(illinois);
  EXPECT_EQ(screen().cboDeps[1].text(), "3");
  EXPECT_TRUE(screen().cboDeps[1].enabled());
}

TEST_F(StateOptions, LeaveTheSecondIllinoisCountAloneWhereOnlyTheFirstHoldsANumber) {
  open(illinois);
  screen().cboDeps[0].userPick(1);
  accept();
  main().cboState.userPick(illinois);
  EXPECT_EQ(screen().cboDeps[0].text(), "1");
  EXPECT_EQ(screen().cboDeps[1].text(), "0");
  EXPECT_FALSE(screen().cboDeps[1].enabled());
}

TEST_F(StateOptions, ShowTheSavedPercentageOfArizonaNotItsDefault) {
  start();
  main().cboState.userPick(arizona);
  EXPECT_EQ(screen().cboSpecialDeps.text(), "0");
  EXPECT_EQ(screen().cboSpecialDeps.index(), -1);
  screen().cboState.userPick(arizona);
  EXPECT_EQ(screen().cboSpecialDeps.text(), "20");
  accept();
  EXPECT_EQ(payData.staExmp, 20);
  EXPECT_EQ(storedState("staExmp"), "20");
  main().cboState.userPick(arizona);
  EXPECT_EQ(screen().cboSpecialDeps.text(), "20");
  EXPECT_EQ(screen().cboSpecialDeps.index(), 1);
  screen().cboSpecialDeps.userType("33");
  accept();
  EXPECT_EQ(payData.staExmp, 33);
  EXPECT_EQ(payData.mMethod, 33);
}

TEST_F(StateOptions, LeaveMarylandsBoxEmptyUntilAChoice) {
  putState("staExmp", "7");
  open(maryland);
  EXPECT_EQ(screen().cboSpecialDeps.text(), "");
  payData.mMethod = 5;
  payData.staExmp = 6;
  accept();
  EXPECT_EQ(payData.mMethod, 5);
  EXPECT_EQ(payData.staExmp, 6);
  const int rates[] = {48, 50, 55, 56, 58, 60};
  open(maryland);
  for (int i = 0; i < 6; ++i) {
    screen().cboSpecialDeps.userPick(i);
    EXPECT_EQ(payData.mMethod, rates[i]);
  }
  EXPECT_EQ(storedState("MMethod"), "(none)");
}

TEST_F(StateOptions, SaveMichigansSpecialExemptionsAtTheClick) {
  open(michigan);
  screen().cboSpecialDeps.userPick(4);
  EXPECT_EQ(payData.mMethod, 4);
  EXPECT_EQ(storedState("MMethod"), "4");
  screen().cboState.userPick(california);
  screen().cboSpecialDeps.userPick(9);
  EXPECT_EQ(payData.mMethod, 4);
  EXPECT_EQ(storedState("MMethod"), "4");
}

TEST_F(StateOptions, KeepMichigansCaptionUntilTheNextLoad) {
  open(michigan);
  EXPECT_EQ(screen().op3Marital[9].caption(), "Claimed as Dependent by Another");
  screen().cboState.userPick(hawaii);
  EXPECT_EQ(screen().op3Marital[9].caption(), "Claimed as Dependent by Another");
  accept();
  open();
  EXPECT_EQ(screen().op3Marital[9].caption(), "Head of Family (Household)");
}

TEST_F(StateOptions, CarryThePersonalExemptionUnderMississippi) {
  open(mississippi);
  const Label& heading = screen().lblStateVariables[2];
  for (const auto& [button, amount] : {std::pair{0, "6000"}, {7, "10000"}, {9, "9500"}}) {
    screen().op3Marital[button].userClick();
    EXPECT_EQ(screen().mskAdditional.text(), amount);
    EXPECT_EQ(heading.caption(), "Your Personal Exemption");
  }
  screen().op3Marital[8].userClick();
  EXPECT_EQ(screen().mskAdditional.text(), "");
  EXPECT_EQ(heading.caption(), "Enter that part of $10,000 claimed by you, in multiples of $500.");
  EXPECT_TRUE(screen().mskAdditional.focused());
  screen().cboState.userPick(hawaii);
  screen().op3Marital[9].userClick();
  EXPECT_EQ(heading.caption(), "Additional Withholding Amount (State)");
}

TEST_F(StateOptions, LoseMississippisEnteredPartAtTheNextOpening) {
  open(mississippi);
  screen().op3Marital[8].userClick();
  screen().mskAdditional.userType("5000");
  accept();
  EXPECT_EQ(payData.staAdd, 5000);
  EXPECT_EQ(storedState("staAdd"), "5000");
  main().cboState.userPick(mississippi);
  EXPECT_EQ(screen().mskAdditional.text(), "");
  EXPECT_EQ(screen().lblStateVariables[2].caption(),
            "Enter that part of $10,000 claimed by you, in multiples of $500.");
  EXPECT_TRUE(screen().mskAdditional.focused());
  accept();
  EXPECT_EQ(payData.staAdd, 0);
}

TEST_F(StateOptions, KeepTheSavedAmountOfAnyOtherCategoryUnderMississippi) {
  put("State", "23");
  putState("staMarried", "3");
  putState("staAdd", "500");
  start();
  main().cboState.userPick(mississippi);
  EXPECT_EQ(screen().mskAdditional.text(), "500");
  EXPECT_EQ(screen().lblStateVariables[2].caption(), "Additional Withholding Amount (State)");
}

TEST_F(StateOptions, CopyTheStatusUnderConnecticut) {
  put("MaritalStat", "1");
  open(connecticut);
  EXPECT_EQ(payData.staMarried, 1);
}

TEST_F(StateOptions, EmptyTheExplanationWhateverStateWasChosenMeanwhile) {
  open(connecticut);
  screen().optRateSelect[2].userEnter();
  screen().cboState.userPick(0);
  EXPECT_FALSE(screen().optRateSelect[2].enabled());
  EXPECT_EQ(screen().optRateSelect[2].userEnter(), Refusal::disabled);
  screen().optRateSelect[2].userLeave();
  EXPECT_EQ(screen().lblExplain.caption(), "");
}

TEST_F(StateOptions, ExplainConnecticutsRatesUnderThePointer) {
  open(connecticut);
  const std::string& explanation = screen().lblExplain.caption();
  screen().optRateSelect[0].userEnter();
  EXPECT_EQ(explanation,
            "You are Single; or You are Married and you are filing separately; or You are married filing jointly, both "
            "you and your spouse work, and your combined income is $100,00 or less.");
  screen().optRateSelect[0].userLeave();
  EXPECT_EQ(explanation, "");
  screen().optRateSelect[1].userEnter();
  EXPECT_EQ(explanation, "You will file as Head of Household on your federal tax return.");
  screen().optRateSelect[2].userEnter();
  EXPECT_EQ(explanation, "You are married filing jointly and your spouse is not employed.");
  screen().optRateSelect[4].userEnter();  // has no text of its own
  EXPECT_EQ(explanation, "You are married filing jointly and your spouse is not employed.");
  screen().optRateSelect[4].userLeave();
  EXPECT_EQ(explanation, "");
  screen().optRateSelect[3].userEnter();
  EXPECT_EQ(explanation,
            "You are married filing jointly, have a working spouse, and your combined income is more than $100,500; or "
            "You have a significant nonwage income, and wish to avoid having too little tax withheld; or You are a "
            "nonresident and you have substantial other income.");
  screen().cboState.userPick(newJersey);
  screen().optRateSelect[0].userLeave();
  screen().optRateSelect[0].userEnter();
  EXPECT_EQ(explanation, "");
}

TEST_F(StateOptions, KeepTheRateLetterInTheStore) {
  open(connecticut);
  screen().optRateSelect[3].userClick();
  accept();
  EXPECT_EQ(storedState("staRate"), "3");
  EXPECT_EQ(main().staRate, 0);  // the routines' own field
  open();
  EXPECT_EQ(setOption(screen().optRateSelect), 3);
  screen().cboState.userPick(hawaii);
  accept();
  EXPECT_EQ(storedState("staRate"), "3");
}

TEST_F(StateOptions, SelectNoButtonForStoredNumbersThatHaveNone) {
  putState("staMarried", "10");
  putState("staRate", "-1");
  open();
  EXPECT_EQ(setOption(screen().op3Marital), -1);
  EXPECT_EQ(setOption(screen().optRateSelect), -1);
  accept();
  EXPECT_EQ(storedState("staMarried"), "10");
  EXPECT_EQ(storedState("staRate"), "-1");
}

TEST_F(StateOptions, SelectTheCategoryAgainAtEachActivation) {
  open(california);
  screen().op3Marital[3].userClick();
  screen().cboState.userPick(hawaii);
  EXPECT_EQ(setOption(screen().op3Marital), -1);
  choose("W4");
  desk.use<frmW4>().cmdW4Exit.userClick();
  EXPECT_EQ(setOption(screen().op3Marital), 3);
}

TEST_F(StateOptions, SaveEveryKeyUnderNoState) {
  open(0);
  EXPECT_EQ(screen().cboDeps[0].userPick(5), Refusal::none);
  EXPECT_EQ(screen().mskAdditional.userType("7"), Refusal::none);
  EXPECT_EQ(screen().chkExemp[0].userClick(), Refusal::none);
  EXPECT_EQ(screen().cboDeps[1].userPick(5), Refusal::disabled);
  EXPECT_EQ(screen().cboSpecialDeps.userPick(1), Refusal::disabled);
  accept();
  EXPECT_EQ(storedState("staAdd"), "7");
  EXPECT_EQ(storedState("sta401"), "Y");
  EXPECT_EQ(store.all().at("StateInfo").size(), 9U);
  EXPECT_EQ(storedState("staDeps"), "5");
}

TEST_F(StateOptions, TakeATypedStateThatIsOnNoListForNone) {
  open(hawaii);
  screen().cboState.userType("Ruritania");
  accept();
  EXPECT_EQ(main().cboState.index(), -1);
  calculate();
  EXPECT_EQ(stored("State"), "-1");
}

TEST_F(StateOptions, ComeIntoTheRecordWhenTheyAreClosedByTheListBar) {
  open(hawaii);
  screen().cboDeps[0].userPick(5);
  choose("Multi");
  EXPECT_EQ(payData.staDeps, 5);
  EXPECT_EQ(desk.find<frmState>(), nullptr);
  EXPECT_EQ(activeDocument(), "frmMultiCheck");
}

}  // namespace
}  // namespace tallyfin
