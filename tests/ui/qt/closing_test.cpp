#include <QPixmapCache>
#include <cstddef>

#include "desktoptest.h"
#include "ui/qt/binding/binding.h"
#include "ui/screens.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // the compiler brings no header for it
#endif

/// What a screen leaves behind when it is closed: nothing, or a day's work would fill the memory.

namespace tallyfin::qt {

namespace {

/// The memory in use, bytes. Only the address sanitizer counts it without what the allocator keeps for the next time.
std::size_t bytesInUse() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes();
#else
  return 0;
#endif
}

template <class S>
class ClosedScreen : public DesktopTest {
 protected:
  void openAndClose(int times) {
    for (int i = 0; i < times; ++i) {
      desk.show(desk.use<S>());
      settle();
      ASSERT_TRUE(shown(S::screenName));
      desk.userClose(desk.use<S>());
      settle();
      ASSERT_FALSE(shown(S::screenName));
    }
  }

  /// Whether twenty openings leave less than a hundred bytes each, now or after some more: a table of the toolkit may
  /// grow once, but what is lost at each opening grows every time.
  bool settlesInMemory() {
    for (int round = 0; round < 5; ++round) {
      const std::size_t bytes = bytesInUse();
      openAndClose(20);
      if (bytesInUse() < bytes + 2000) return true;
    }
    return false;
  }
};

/// Without the frame, which is there from the beginning to the end of a run.
template <class Frame, class... Screens>
struct WithoutFirst {
  using Types = ::testing::Types<Screens...>;
};

struct ScreenName {
  template <class S>
  static std::string GetName(int /*place*/) {
    return S::screenName;
  }
};

TYPED_TEST_SUITE(ClosedScreen, AllScreens<WithoutFirst>::Types, ScreenName);

TYPED_TEST(ClosedScreen, LeavesNoWidgetAndNoMemory) {
  this->startOnMain();
  this->openAndClose(10);  // what is made once and kept is made here
  const auto widgets = QApplication::allWidgets().size();
  EXPECT_TRUE(this->settlesInMemory());
  EXPECT_EQ(QApplication::allWidgets().size(), widgets);

  // The toolkit would keep what it draws by ever new names.
  EXPECT_FALSE(QPixmapCache::insert("drawn", QPixmap(1, 1)));
}

using Released = DesktopTest;

/// The control may be there still when the widget is gone. The address sanitizer sees who is told then.
TEST_F(Released, ABindingIsToldNothingMore) {
  startOnMain();
  Control& control = desk.use<frmAnalysis>().lblOne[0];  // which has no widget yet
  {
    QWidget widget;
    bindPlain(widget, control).release();
    control.enabled = false;
    EXPECT_TRUE(widget.isEnabled());
  }
  control.enabled = true;
  EXPECT_TRUE(control.enabled);
}

}  // namespace

}  // namespace tallyfin::qt
