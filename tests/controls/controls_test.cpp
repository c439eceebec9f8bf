#include "controls/smallscreens.h"
#include "engine/failure.h"

namespace tallyfin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A shown document that records its events.
class ControlTest : public DeskTest {
 protected:
  ControlTest() {
    desk.show<First>();
    happened();
  }

  First& screen = desk.use<First>();
};

using Lists = ControlTest;

TEST_F(Lists, StartWithNoEntryChosen) {
  EXPECT_EQ(screen.list.index(), -1);
  EXPECT_EQ(screen.list.text(), "");
  EXPECT_EQ(screen.combo.index(), -1);
  EXPECT_EQ(screen.combo.text(), "");
}

TEST_F(Lists, RunClickAtEveryAssignmentOfTheIndex) {
  screen.list.setIndex(1);
  screen.list.setIndex(1);
  EXPECT_THAT(happened(), ElementsAre("First list Click", "First list Click"));
  EXPECT_EQ(screen.list.text(), "b");
}

TEST_F(Lists, TakeMinusOneAndRunClick) {
  screen.combo.setIndex(1);
  happened();
  screen.combo.setIndex(-1);
  EXPECT_THAT(happened(), ElementsAre("First combo Click"));
  EXPECT_EQ(screen.combo.text(), "");
}

TEST_F(Lists, FailOutsideTheirEntriesAndChangeNothing) {
  screen.list.setIndex(2);
  happened();
  EXPECT_THROW(screen.list.setIndex(3), FailedStatement);
  EXPECT_THROW(screen.list.setIndex(-2), FailedStatement);
  EXPECT_EQ(screen.list.index(), 2);
  EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(Lists, GiveTheUserTheEntriesThatStandThere) {
  EXPECT_EQ(screen.list.userPick(2), Refusal::none);
  EXPECT_EQ(screen.list.userPick(2), Refusal::none);
  EXPECT_EQ(screen.list.userPick(3), Refusal::noEntry);
  EXPECT_EQ(screen.list.userPick(-1), Refusal::noEntry);
  EXPECT_EQ(screen.list.index(), 2);
  EXPECT_THAT(happened(), ElementsAre("First list Click", "First list Click"));
}

TEST_F(Lists, ForgetTheChoiceWhenTheyAreEmptied) {
  screen.list.setIndex(1);
  happened();
  screen.list.clear();
  EXPECT_EQ(screen.list.index(), -1);
  screen.list.add("d", 400);
  screen.list.setIndex(0);
  EXPECT_EQ(screen.list.itemData(), 400);
  EXPECT_THAT(screen.list.entries(), ElementsAre("d"));
}

using EditableDropDowns = ControlTest;

TEST_F(EditableDropDowns, ChooseTheEntryOfTheTextWithoutAClick) {
  screen.combo.setText("1");
  EXPECT_EQ(screen.combo.index(), 1);
  EXPECT_EQ(screen.combo.userType("2"), Refusal::none);
  EXPECT_EQ(screen.combo.index(), 2);
  EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(EditableDropDowns, ChooseNothingForAnyOtherText) {
  screen.combo.setIndex(1);
  screen.combo.setText("33");
  EXPECT_EQ(screen.combo.index(), -1);
  EXPECT_EQ(screen.combo.text(), "33");
  screen.combo.setText("");
  EXPECT_EQ(screen.combo.index(), -1);
}

TEST_F(EditableDropDowns, TakeTextAndClickFromAChosenEntry) {
  screen.combo.setText("33");
  screen.combo.userPick(2);
  EXPECT_EQ(screen.combo.text(), "2");
  EXPECT_THAT(happened(), ElementsAre("First combo Click"));
}

TEST_F(EditableDropDowns, AreEmptyWhenTheirListIsEmptied) {
  screen.combo.setIndex(1);
  screen.combo.clear();
  EXPECT_EQ(screen.combo.text(), "");
  EXPECT_EQ(screen.combo.index(), -1);
}

TEST_F(ControlTest, AListWithoutAChoiceHasTheNumberZero) {
  screen.list.add("d", 7);
  EXPECT_EQ(screen.list.itemData(), 0);
  screen.list.setIndex(3);
  EXPECT_EQ(screen.list.itemData(), 7);
}

using UpDowns = ControlTest;

TEST_F(UpDowns, ReachTheirLimitsAndNoFurther) {
  EXPECT_EQ(screen.upDown.from(), 10);
  EXPECT_EQ(screen.upDown.to(), 400);
  EXPECT_EQ(screen.upDown.userPick(10), Refusal::none);
  EXPECT_EQ(screen.upDown.userPick(400), Refusal::none);
  EXPECT_EQ(screen.upDown.userPick(9), Refusal::noEntry);
  EXPECT_EQ(screen.upDown.userPick(401), Refusal::noEntry);
  EXPECT_EQ(screen.upDown.value(), 400);
  EXPECT_THAT(happened(), ElementsAre("First upDown Change", "First upDown Change"));
}

using CheckBoxes = ControlTest;

TEST_F(CheckBoxes, RunNothingWhenSetByCode) {
  screen.check.setValue(true);
  screen.check.setValue(true);
  EXPECT_TRUE(screen.check.value());
  EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(CheckBoxes, ChangeTheirTickBeforeTheClick) {
  bool ticked = false;
  hooks["First check Click"] = [&] { ticked = screen.check.value(); };
  screen.check.userClick();
  EXPECT_TRUE(ticked);
  screen.check.userClick();
  EXPECT_FALSE(ticked);
}

/// Three options of one group that record their clicks.
class OptionButtons : public DeskTest {
 protected:
  struct Options final : Screen {
    static constexpr const char* screenName = "Options";
    Options() : Screen(screenName, "") {
      option.on(&OptionButton::onClick, [](int i) { note("option " + std::to_string(i)); });
    }
    ControlArray<OptionButton, 3> option{*this, "option", {"a", "b", "c"}};
    OptionGroup group{option};
  };
  OptionButtons() { desk.show<Options>(); }

  ControlArray<OptionButton, 3>& option = desk.use<Options>().option;
};

TEST_F(OptionButtons, AreSetOneAtMost) {
  option[0].select();
  option[2].select();
  EXPECT_FALSE(option[0].value());
  EXPECT_TRUE(option[2].value());
}

TEST_F(OptionButtons, RunClickAtEverySelectionAndAtNoDeselection) {
  option[1].select();
  option[1].select();
  option[0].select();
  option[0].deselect();
  EXPECT_THAT(happened(), ElementsAre("option 1", "option 1", "option 0"));
}

TEST_F(OptionButtons, RunClickAgainWhereTheUserClicksTheSetOne) {
  option[1].userClick();
  option[1].userClick();
  EXPECT_THAT(happened(), ElementsAre("option 1", "option 1"));
  EXPECT_TRUE(option[1].value());
}

TEST_F(OptionButtons, CanBeSelectedByCodeWhileDisabled) {
  option[1].enabled = false;
  option[1].select();
  EXPECT_TRUE(option[1].value());
  EXPECT_EQ(option[1].userClick(), Refusal::disabled);
}

TEST_F(OptionButtons, HaveTheAddressOfTheirIndex) {
  EXPECT_EQ(option[2].address(), "option(2)");
  EXPECT_EQ(option[2].caption(), "c");
}

/// Boxes of every format, labels and a panel.
class Texts : public DeskTest {
 protected:
  struct Page final : Screen {
    static constexpr const char* screenName = "Page";
    Page() : Screen(screenName, "") {}
    TextBox plain{*this, "plain"};
    MaskedBox amount{*this, "amount", Format::currency};
    MaskedBox whole{*this, "whole", Format::whole};
    MaskedBox free{*this, "free", Format::none};
    Label label{*this, "label"};
    Panel panel{*this, "panel"};
    ListBarItem item{*this, "bar", "NewFile", "File", "New", "new", "Ctrl+N"};
  };
  Texts() { desk.show<Page>(); }

  Page& page = desk.use<Page>();
};

TEST_F(Texts, OfABoxLoseTheirSelectionWhenReplaced) {
  page.plain.setText("1000");
  page.plain.selectAll();
  EXPECT_EQ(page.plain.selStart(), 0);
  EXPECT_EQ(page.plain.selLength(), 4);
  page.plain.setText("1000");
  EXPECT_EQ(page.plain.selLength(), 0);
}

TEST_F(Texts, AreSelectedByCharactersNotBytes) {
  page.plain.userType("Zo\u00EB \U0001F600");
  page.plain.selectAll();
  EXPECT_EQ(page.plain.selLength(), 5);
}

TEST_F(Texts, OfAnAmountBoxShowAsCurrencyWhereTheyAreNumbers) {
  page.amount.userType("1234.5");
  EXPECT_EQ(page.amount.text(), "1234.5");
  EXPECT_EQ(page.amount.shown(), "$1,234.50");
  page.amount.setText("-5");
  EXPECT_EQ(page.amount.shown(), "($5.00)");
  page.amount.userType("a lot");
  EXPECT_EQ(page.amount.shown(), "a lot");
}

TEST_F(Texts, OfAWholeNumberBoxAreFormattedOnlyWhereTheyWereTyped) {
  page.whole.setText("86.66");
  EXPECT_EQ(page.whole.shown(), "86.66");
  page.whole.userType("86.66");
  EXPECT_EQ(page.whole.shown(), "87");
  EXPECT_EQ(page.whole.text(), "86.66");
  page.whole.userType("2.5");
  EXPECT_EQ(page.whole.shown(), "3");
  page.whole.setText("173.33");
  EXPECT_EQ(page.whole.shown(), "173.33");
}

TEST_F(Texts, OfABoxWithoutAFormatAreShownUnchanged) {
  page.free.userType("1234.5");
  EXPECT_EQ(page.free.shown(), "1234.5");
}

TEST_F(Texts, OfALabelRunItsChangeOnce) {
  int runs = 0;
  page.label.onChange = [&] {
    ++runs;
    page.label.setCaption("<" + page.label.caption() + ">");
  };
  page.label.setCaption("5");
  EXPECT_EQ(page.label.caption(), "<5>");
  EXPECT_EQ(runs, 1);
  page.label.setCaption("<5>");
  EXPECT_EQ(runs, 2);
}

TEST_F(Texts, StandWithTheirPageOutOfSightToo) {
  page.panel.moveTo(728, 135);
  EXPECT_EQ(page.panel.left(), 728);
  EXPECT_EQ(page.panel.top(), 135);
  page.panel.left = Panel::outOfSight;
  EXPECT_EQ(page.panel.left(), -10000);
  EXPECT_EQ(page.panel.caption(), "");
}

TEST_F(Texts, OfABoxAreSelectedAsItGainsTheFocus) {
  page.plain.setText("one");
  EXPECT_EQ(page.plain.userFocus(), Refusal::none);
  EXPECT_EQ(page.plain.selStart(), 0);
  EXPECT_EQ(page.plain.selLength(), 3);
}

TEST_F(Texts, OfTheListBarAreHighlightedUnderThePointer) {
  page.item.userEnter();
  EXPECT_TRUE(page.item.highlighted());
  page.item.userMove();
  EXPECT_TRUE(page.item.highlighted());
  page.item.userLeave();
  EXPECT_FALSE(page.item.highlighted());
  EXPECT_EQ(page.item.address(), "bar(NewFile)");
  EXPECT_EQ(page.item.picture(), "new");
}

}  // namespace
}  // namespace tallyfin
