#include <QPixmapCache>
#include <cstddef>

#include "desktoptest.h"
#include "ui/qt/binding/binding.h"
#include "ui/screens.h"

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // declared here, because there is no header
#endif

/// A closed screen must leave no memory allocated.

namespace tallyfin::qt {

namespace {

/// The memory in use, bytes. Only the address sanitizer counts it without memory that the allocator keeps.
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

  /// Whether twenty openings leave less than a hundred bytes each, now or after some more: a table of Qt may grow once,
  /// but a leak grows with each opening.
  bool settlesInMemory() {
    for (int round = 0; round < 5; ++round) {
      const std::size_t bytes = bytesInUse();
      openAndClose(20);
      if (bytesInUse() < bytes + 2000) return true;
    }
    return false;
  }
};

/// Without the frame, which is open for the whole run.
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
  this->openAndClose(10);  // allocates what is kept
  const auto widgets = QApplication::allWidgets().size();
  EXPECT_TRUE(this->settlesInMemory());
  EXPECT_EQ(QApplication::allWidgets().size(), widgets);

  // Qt would cache drawn pixmaps under ever new keys.
  EXPECT_FALSE(QPixmapCache::insert("drawn", QPixmap(1, 1)));
}

using Released = DesktopTest;

/// The control may outlive the widget. The address sanitizer detects notifications to a deleted widget.
TEST_F(Released, ABindingIsNotNotified) {
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
