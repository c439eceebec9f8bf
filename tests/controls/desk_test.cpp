#include "controls/desk.h"

#include <stdexcept>

#include "controls/smallscreens.h"
#include "engine/services.h"

namespace tallyfin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes where the acts begin and end.
class ActNotifications : public DeskTest, private ActWatcher {
 protected:
  void beginAct() override { note("begin"); }
  void endAct() override { note("end"); }

 private:
  const Installed<ActWatcher*> installed_{desk.actWatcher, this};
};

TEST_F(ActNotifications, IncludeTheActsWithinThem) {
  for (int i = 0; i < 2; ++i) {
    desk.carryOut([] {
      desk.carryOut([] { note("within"); });
      note("after it");
    });
    EXPECT_THAT(happened(), ElementsAre("begin", "within", "after it", "end"));
  }
}

TEST_F(ActNotifications, EndWithAnException) {
  EXPECT_THROW(desk.carryOut([] { throw std::bad_alloc(); }), std::bad_alloc);
  EXPECT_THAT(happened(), ElementsAre("begin", "end"));
}

using ScreenLife = DeskTest;

TEST_F(ScreenLife, CreatesAndLoadsAScreenAtItsFirstUse) {
  const Screen& screen = desk.use<First>();
  EXPECT_THAT(happened(), ElementsAre("First Load"));
  EXPECT_FALSE(screen.shown());
  EXPECT_EQ(&desk.use<First>(), &screen);
  EXPECT_THAT(happened(), IsEmpty());
  EXPECT_THAT(stack(), IsEmpty());
}

TEST_F(ScreenLife, HoldsBoxesFromFrontToBack) {
  desk.show<First>();
  EXPECT_THAT(desk.boxes(), IsEmpty());
  desk.show<SmallBox>();
  desk.show<SecondBox>();
  EXPECT_THAT(desk.boxes(), ElementsAre(desk.find<SecondBox>(), desk.find<SmallBox>()));
}

TEST_F(ScreenLife, LoadsThenActivatesWhatIsShown) {
  desk.show<First>();
  EXPECT_THAT(happened(), ElementsAre("First Load", "First Activate"));
  EXPECT_TRUE(desk.use<First>().shown());
}

TEST_F(ScreenLife, ActivatesTheFrontDocumentOnceHoweverOftenItIsShown) {
  desk.show<First>();
  happened();
  desk.show<First>();
  EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(ScreenLife, ActivatesADocumentEachTimeItComesToTheFront) {
  desk.show<First>();
  desk.show<Second>();
  EXPECT_THAT(stack(), ElementsAre("Second", "First"));
  happened();
  desk.show<First>();
  EXPECT_THAT(happened(), ElementsAre("First Activate"));
  EXPECT_THAT(stack(), ElementsAre("First", "Second"));
  desk.close<First>();
  EXPECT_THAT(happened(), ElementsAre("First Unload", "Second Activate"));
}

TEST_F(ScreenLife, DiscardsAClosedScreen) {
  desk.use<First>().box.setText("typed");
  desk.close<First>();
  EXPECT_EQ(desk.find<First>(), nullptr);
  EXPECT_EQ(desk.use<First>().box.text(), "");
  EXPECT_THAT(happened(), ElementsAre("First Load", "First Unload", "First Load"));
}

TEST_F(ScreenLife, ClosesNothingThatIsNotLoaded) {
  desk.close<First>();
  desk.closeActiveDocument();
  EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(ScreenLife, ClosesTheActiveDocumentAndNoOther) {
  desk.use<Third>();
  desk.show<First>();
  desk.show<Second>();
  desk.closeActiveDocument();
  EXPECT_THAT(stack(), ElementsAre("First"));
  EXPECT_NE(desk.find<Third>(), nullptr);
  desk.closeActiveDocument();
  EXPECT_THAT(stack(), IsEmpty());
  EXPECT_NE(desk.find<Third>(), nullptr);
}

TEST_F(ScreenLife, IsInUseWhileItLoads) {
  const Screen* inside = nullptr;
  hooks["First Load"] = [&] { inside = &desk.use<First>(); };
  const Screen* outside = &desk.use<First>();
  EXPECT_EQ(inside, outside);
  EXPECT_THAT(happened(), ElementsAre("First Load"));
}

TEST_F(ScreenLife, ActivatesAScreenThatWasShownWhileItLoadedRightAfterThatLoad) {
  hooks["First Load"] = [] {
    desk.show<First>();
    note("shown");
  };
  desk.use<First>();
  EXPECT_THAT(happened(), ElementsAre("First Load", "shown", "First Activate"));
  EXPECT_THAT(stack(), ElementsAre("First"));
  desk.show<First>();
  EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(ScreenLife, CannotBeClosedWhileItLoads) {
  hooks["First Load"] = [] { desk.close<First>(); };
  desk.show<First>();
  EXPECT_THAT(happened(), ElementsAre("First Load", "First Activate"));
}

TEST_F(ScreenLife, CanBeNeitherShownNorClosedWhileItUnloads) {
  hooks["First Unload"] = [] {
    desk.show<First>();
    desk.close<First>();
  };
  desk.show<First>();
  desk.show<Second>();
  happened();
  desk.close<First>();
  EXPECT_THAT(happened(), ElementsAre("First Unload"));
  EXPECT_THAT(stack(), ElementsAre("Second"));
}

TEST_F(ScreenLife, IsStillFoundWhileItUnloads) {
  Screen* inside = nullptr;
  hooks["First Unload"] = [&] { inside = &desk.use<First>(); };
  Screen* before = &desk.use<First>();
  desk.close<First>();
  EXPECT_EQ(inside, before);
  EXPECT_THAT(happened(), ElementsAre("First Load", "First Unload"));
}

TEST_F(ScreenLife, TwoScreensMayNeedEachOtherWhileTheyLoad) {
  hooks["First Load"] = [] {
    desk.show<Second>();
    desk.close<Second>();
  };
  hooks["Second Load"] = [] { desk.use<First>(); };
  desk.use<First>();
  EXPECT_THAT(happened(), ElementsAre("First Load", "Second Load", "Second Activate", "Second Unload"));
}

TEST_F(ScreenLife, EndsOnce) {
  First& first = desk.use<First>();
  desk.show(first);
  happened();
  hooks["First button Click"] = [&] {
    desk.close(first);
    desk.close(first);
    desk.show(first);
  };
  first.button.userClick();
  EXPECT_THAT(happened(), ElementsAre("First button Click", "First Unload"));
  EXPECT_THAT(stack(), IsEmpty());
}

TEST_F(ScreenLife, LastsUntilTheOutermostActIsOver) {
  First& first = desk.use<First>();
  desk.show(first);
  hooks["First check Click"] = [] { desk.close<First>(); };
  hooks["First button Click"] = [&] {
    first.check.userClick();
    first.box.setText("still here");
    EXPECT_EQ(first.box.text(), "still here");
  };
  first.button.userClick();
  EXPECT_EQ(desk.find<First>(), nullptr);
}

using TheUsualOpening = DeskTest;

TEST_F(TheUsualOpening, ClosesThenLoadsMaximisesAndShows) {
  desk.show<First>();
  happened();
  desk.openInstead<Second>();
  EXPECT_THAT(happened(), ElementsAre("First Unload", "Second Load", "Second Activate"));
  EXPECT_TRUE(desk.use<Second>().maximized());
}

TEST_F(TheUsualOpening, ActivatesTheNextBeneathBeforeAnythingOpens) {
  desk.show<First>();
  desk.show<Second>();
  happened();
  desk.openInstead<Third>();
  EXPECT_THAT(happened(), ElementsAre("Second Unload", "First Activate", "Third Load", "Third Activate"));
  EXPECT_THAT(stack(), ElementsAre("Third", "First"));
}

TEST_F(TheUsualOpening, LoadsTheActiveScreenAfresh) {
  desk.show<First>();
  happened();
  desk.openInstead<First>();
  EXPECT_THAT(happened(), ElementsAre("First Unload", "First Load", "First Activate"));
}

TEST_F(TheUsualOpening, ShowsAScreenThatIsStillLoadedBeneathWithoutALoad) {
  desk.show<First>();
  desk.show<Second>();
  happened();
  desk.openInstead<First>();
  EXPECT_THAT(happened(), ElementsAre("Second Unload", "First Activate"));
  EXPECT_THAT(stack(), ElementsAre("First"));
}

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

using ProgramRun = DeskTest;

TEST_F(ProgramRun, BeginsWithTheFrameShownBeforeItsLoad) {
  bool shown = false;
  hooks["Shell Load"] = [&] { shown = desk.find<ShellFrame>()->shown(); };
  desk.start<ShellFrame>();
  EXPECT_TRUE(shown);
  EXPECT_TRUE(desk.running());
}

TEST_F(ProgramRun, EndsAtOnceWithoutAHandler) {
  desk.show<First>();
  happened();
  desk.end();
  EXPECT_THAT(happened(), IsEmpty());
  EXPECT_FALSE(desk.running());
  EXPECT_THAT(desk.loaded(), IsEmpty());
}

TEST_F(ProgramRun, OutlivesAnActThatThrows) {
  desk.show<First>();
  hooks["First button Click"] = [] {
    desk.close<First>();
    throw std::runtime_error("a fault");
  };
  EXPECT_THROW(desk.use<First>().button.userClick(), std::runtime_error);
  hooks.clear();
  desk.show<Second>();
  EXPECT_EQ(desk.use<Second>().userClick(), Refusal::none);
  EXPECT_EQ(desk.find<First>(), nullptr);
}

TEST_F(ProgramRun, MayEndFromWithinAHandler) {
  desk.show<First>();
  happened();
  hooks["First button Click"] = [] { desk.end(); };
  desk.use<First>().button.userDblClick();
  EXPECT_THAT(happened(), ElementsAre("First button Click"));
  EXPECT_THAT(desk.loaded(), IsEmpty());
}

TEST_F(ProgramRun, MayEndWhileAScreenLoads) {
  hooks["Shell Load"] = [] { desk.end(); };
  desk.start<ShellFrame>();
  EXPECT_FALSE(desk.running());
  EXPECT_THAT(desk.loaded(), IsEmpty());
}

TEST_F(ProgramRun, EndsWhereTheUserClosesTheFrame) {
  desk.show<First>();
  happened();
  EXPECT_EQ(desk.userClose(desk.use<ShellFrame>()), Refusal::none);
  EXPECT_FALSE(desk.running());
  EXPECT_THAT(happened(), IsEmpty());
}

TEST_F(ProgramRun, StartsAgainInPlaceOfTheOldOne) {
  desk.show<First>();
  happened();
  desk.start<ShellFrame>();
  EXPECT_THAT(happened(), ElementsAre("Shell Load"));
  EXPECT_EQ(desk.find<First>(), nullptr);
}

TEST_F(ProgramRun, TakesTheSecondClickForTheDoubleClickAlone) {
  desk.show<First>();
  happened();
  desk.use<First>().button.userSecondClick();
  EXPECT_THAT(happened(), ElementsAre("First button DblClick"));
}

class BindingNotifications : public DeskTest, private DeskWatcher {
 protected:
  void shown(Screen& screen) override { note("told of " + screen.name() + " shown"); }
  void discarded(Screen& screen) override { note("told of " + screen.name() + " discarded"); }
  void focusMoved() override { note("told of the focus"); }

 private:
  const Installed<DeskWatcher*> installed_{desk.watcher, this};
};

TEST_F(BindingNotifications, ComeBeforeActivateAndAfterUnload) {
  desk.show<First>();
  desk.use<First>().box.setFocus();
  desk.close<First>();
  EXPECT_THAT(happened(), ElementsAre("First Load", "told of First shown", "First Activate", "First box GotFocus",
                                      "told of the focus", "First Unload", "told of First discarded"));
}

TEST_F(BindingNotifications, ComeBeforeTheLoadOfTheFrame) {
  desk.start<ShellFrame>();
  EXPECT_THAT(happened(), ElementsAre("told of Shell discarded", "told of Shell shown", "Shell Load"));
}

TEST_F(BindingNotifications, IncludeEveryChangeOfAControl) {
  First& first = desk.use<First>();
  int changes = 0;
  first.box.watch([&] { ++changes; });
  first.box.setText("x");
  first.box.enabled = false;
  first.box.foreColour = Colour{1, 2, 3};
  EXPECT_EQ(changes, 3);
}

}  // namespace
}  // namespace tallyfin
