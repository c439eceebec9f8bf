#include "controls/desk.h"
#include "controls/smallscreens.h"

namespace tallyfin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Boxes = DeskTest;

TEST_F(Boxes, StandAboveTheDocuments) {
  desk.show<First>();
  desk.show<SmallBox>();
  EXPECT_THAT(stack(), ElementsAre("First"));
  EXPECT_TRUE(desk.use<SmallBox>().shown());
  happened();
  desk.closeActiveDocument();
  EXPECT_NE(desk.find<SmallBox>(), nullptr);
  EXPECT_THAT(happened(), ElementsAre("First Unload"));
}

TEST_F(Boxes, MustBeAnsweredBeforeAnythingElseWhereTheyBlock) {
  desk.show<First>();
  First& first = desk.use<First>();
  hooks["Box Load"] = [] { desk.setBlocker(desk.use<SmallBox>()); };
  desk.show<SmallBox>();
  SmallBox& box = desk.use<SmallBox>();
  box.OK.onClick = [&box] { desk.close(box); };
  happened();

  EXPECT_EQ(first.button.userClick(), Refusal::blocked);
  EXPECT_EQ(first.box.userType("x"), Refusal::blocked);
  EXPECT_EQ(first.button.userEnter(), Refusal::blocked);
  EXPECT_EQ(first.box.userFocus(), Refusal::blocked);
  EXPECT_EQ(first.userClick(), Refusal::blocked);
  EXPECT_EQ(desk.userClose(first), Refusal::blocked);
  EXPECT_EQ(desk.userClose(desk.use<ShellFrame>()), Refusal::blocked);
  EXPECT_EQ(desk.use<ShellFrame>().item.userClick(), Refusal::blocked);
  EXPECT_THAT(happened(), IsEmpty());

  EXPECT_EQ(box.OK.userClick(), Refusal::none);
  EXPECT_EQ(first.button.userClick(), Refusal::none);
}

TEST_F(Boxes, CanBeAnsweredByTheirOwnFrame) {
  desk.show<First>();
  hooks["Box Load"] = [] { desk.setBlocker(desk.use<SmallBox>()); };
  desk.show<SmallBox>();
  EXPECT_EQ(desk.userClose(desk.use<SmallBox>()), Refusal::none);
  EXPECT_EQ(desk.use<First>().button.userClick(), Refusal::none);
}

using Refusals = DeskTest;

TEST_F(Refusals, AScreenThatIsNotShownTakesNoAct) {
  First& first = desk.use<First>();
  happened();
  EXPECT_EQ(first.button.userClick(), Refusal::notShown);
  EXPECT_EQ(first.userDblClick(), Refusal::notShown);
  EXPECT_EQ(desk.userClose(first), Refusal::notShown);
  EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(Refusals, ComeInAnOrder) {
  desk.show<First>();
  First& first = desk.use<First>();
  EXPECT_EQ(first.list.userPick(3), Refusal::noEntry);
  first.list.enabled = false;
  EXPECT_EQ(first.list.userPick(3), Refusal::disabled);
  first.list.visible = false;
  EXPECT_EQ(first.list.userPick(3), Refusal::notShown);
  desk.setBlocker(desk.use<Second>());
  EXPECT_EQ(first.list.userPick(3), Refusal::blocked);
}

TEST_F(Refusals, ChangeNothing) {
  desk.show<First>();
  First& first = desk.use<First>();
  desk.show<Second>();
  first.box.enabled = false;
  happened();
  EXPECT_EQ(first.box.userType("x"), Refusal::disabled);
  EXPECT_EQ(first.box.userFocus(), Refusal::disabled);
  EXPECT_EQ(first.list.userPick(-1), Refusal::noEntry);
  EXPECT_EQ(first.box.text(), "");
  EXPECT_EQ(desk.focused(), nullptr);
  EXPECT_THAT(stack(), ElementsAre("Second", "First"));
  EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(Refusals, DoNotStopTheProgramItself) {
  First& first = desk.use<First>();
  first.list.enabled = false;
  first.list.visible = false;
  first.list.setIndex(1);
  EXPECT_EQ(first.list.index(), 1);
}

using UserActs = DeskTest;

TEST_F(UserActs, BringTheScreenToTheFrontFirst) {
  desk.show<First>();
  desk.show<Second>();
  happened();
  EXPECT_EQ(desk.use<First>().button.userClick(), Refusal::none);
  EXPECT_THAT(happened(), ElementsAre("First Activate", "First button Click"));
}

TEST_F(UserActs, OfThePointerBringNothingToTheFront) {
  desk.show<First>();
  desk.show<Second>();
  happened();
  First& first = desk.use<First>();
  first.button.userEnter();
  first.button.userMove();
  first.button.userLeave();
  EXPECT_THAT(happened(), ElementsAre("First button MouseEnter", "First button MouseMove", "First button MouseLeave"));
  EXPECT_THAT(stack(), ElementsAre("Second", "First"));
}

TEST_F(UserActs, AlwaysLetThePointerLeave) {
  First& first = desk.use<First>();
  const auto leave = [&] {
    happened();
    first.button.userLeave();
    return happened();
  };
  EXPECT_THAT(leave(), ElementsAre("First button MouseLeave"));  // not shown yet
  desk.show(first);
  first.button.enabled = false;
  EXPECT_THAT(leave(), ElementsAre("First button MouseLeave"));
  first.button.enabled = true;
  first.button.visible = false;
  EXPECT_THAT(leave(), ElementsAre("First button MouseLeave"));
  first.button.visible = true;
  desk.show<SmallBox>();
  desk.setBlocker(desk.use<SmallBox>());
  EXPECT_EQ(first.button.userMove(), Refusal::blocked);
  EXPECT_THAT(leave(), ElementsAre("First button MouseLeave"));
}

TEST_F(UserActs, OnALabelWithoutHandlersGoToItsScreen) {
  desk.show<First>();
  First& first = desk.use<First>();
  happened();
  EXPECT_EQ(first.label.userClick(), Refusal::none);
  EXPECT_THAT(happened(), ElementsAre("First Click"));
  EXPECT_EQ(first.label.userDblClick(), Refusal::none);
  EXPECT_THAT(happened(), ElementsAre("First Click", "First DblClick"));
  first.label.visible = false;
  EXPECT_EQ(first.label.userClick(), Refusal::notShown);
  EXPECT_EQ(first.label.userDblClick(), Refusal::notShown);
  EXPECT_THAT(happened(), ElementsAre());
}

TEST_F(UserActs, OnALabelWithAHandlerAreItsOwn) {
  desk.show<First>();
  First& first = desk.use<First>();
  happened();
  first.label.onDblClick = [] { note("label DblClick"); };
  first.label.userClick();
  EXPECT_THAT(happened(), ElementsAre());
  first.label.userDblClick();
  EXPECT_THAT(happened(), ElementsAre("label DblClick"));
}

TEST_F(UserActs, ClickOnceBeforeADoubleClick) {
  desk.show<First>();
  happened();
  desk.use<First>().button.userDblClick();
  EXPECT_THAT(happened(), ElementsAre("First button Click", "First button DblClick"));
  desk.use<First>().userDblClick();
  EXPECT_THAT(happened(), ElementsAre("First Click", "First DblClick"));
}

TEST_F(UserActs, DoNotDoubleClickAScreenThatTheClickHasClosed) {
  desk.show<First>();
  happened();
  hooks["First button Click"] = [] { desk.close<First>(); };
  EXPECT_EQ(desk.use<First>().button.userDblClick(), Refusal::none);
  EXPECT_THAT(happened(), ElementsAre("First button Click", "First Unload"));
}

TEST_F(UserActs, DoNotDoubleClickTheNextScreenOfTheSameName) {
  desk.show<First>();
  happened();
  hooks["First Click"] = [] { desk.openInstead<First>(); };
  desk.use<First>().userDblClick();
  EXPECT_THAT(happened(), ElementsAre("First Click", "First Unload", "First Load", "First Activate"));
}

TEST_F(UserActs, CloseAScreenByItsFrame) {
  desk.show<First>();
  happened();
  EXPECT_EQ(desk.userClose(desk.use<First>()), Refusal::none);
  EXPECT_THAT(happened(), ElementsAre("First Unload"));
}

using Focus = DeskTest;

TEST_F(Focus, IsLostByOneControlBeforeAnotherHasIt) {
  desk.show<First>();
  desk.show<Second>();
  desk.use<First>().box.setFocus();
  happened();
  desk.use<Second>().button.setFocus();
  EXPECT_THAT(happened(), ElementsAre("First box LostFocus", "Second button GotFocus"));
  EXPECT_FALSE(desk.use<First>().box.focused());
  EXPECT_TRUE(desk.use<Second>().button.focused());
}

TEST_F(Focus, OfTheUserBringsTheScreenToTheFront) {
  desk.show<First>();
  desk.show<Second>();
  happened();
  EXPECT_EQ(desk.use<First>().check.userFocus(), Refusal::none);
  EXPECT_THAT(happened(), ElementsAre("First Activate", "First check GotFocus"));
}

TEST_F(Focus, IsLostToWhatIsNoControl) {
  desk.show<First>();
  desk.use<First>().check.userFocus();
  happened();
  desk.dropFocus();
  EXPECT_FALSE(desk.use<First>().check.focused());
  EXPECT_THAT(happened(), ElementsAre("First check LostFocus"));
  desk.dropFocus();
  EXPECT_THAT(happened(), ElementsAre());
  desk.use<First>().check.userFocus();
  EXPECT_THAT(happened(), ElementsAre("First check GotFocus"));
}

TEST_F(Focus, OnAControlThatHasItRunsNothing) {
  desk.show<First>();
  desk.use<First>().check.userFocus();
  happened();
  EXPECT_EQ(desk.use<First>().check.userFocus(), Refusal::none);
  EXPECT_THAT(happened(), ElementsAre());
}

TEST_F(Focus, GoesWithItsScreenAndRunsNoHandler) {
  desk.show<First>();
  desk.use<First>().box.setFocus();
  desk.show<Second>();
  EXPECT_TRUE(desk.use<First>().box.focused());
  happened();
  desk.close<First>();
  EXPECT_THAT(happened(), ElementsAre("First Unload"));
  EXPECT_EQ(desk.focused(), nullptr);
}

TEST_F(Focus, DoesNotFollowAClickOrATypedText) {
  desk.show<First>();
  desk.use<First>().button.userClick();
  desk.use<First>().box.userType("x");
  EXPECT_EQ(desk.focused(), nullptr);
}

}  // namespace
}  // namespace tallyfin
