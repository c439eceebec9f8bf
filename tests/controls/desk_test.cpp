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
