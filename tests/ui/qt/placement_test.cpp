#include <QScreen>

#include "desktoptest.h"

/// Where the help and the explanation open, on a display that has room for them beside the frame.

namespace tallyfin::qt {

namespace {

using Sections = SettingsStore::Sections;

/// The two windows that open beside the frame, by their names.
class Placement : public DesktopTest, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    stored(section::settings, "IncAmt", "1000");
    stored(section::settings, "Frequency", "0");
    startOnMain();
    putAt(room().topLeft());
  }

  QRect room() const { return frame().QWidget::screen()->availableGeometry(); }
  /// As a user moves the frame; the figures are there to be explained.
  void putAt(const QPoint& place) const {
    frame().move(place);
    click("frmMain", "cmdToolBar(0)");
    settle();
  }
  QWidget* window() const { return frame().findChild<QDialog*>(QString::fromLatin1(GetParam())); }
  void open() const {
    frame().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame()));
    if (GetParam() == std::string("help")) {
      QTest::keyClick(&frame(), Qt::Key_F1);
    } else {
      auto& grid = find<QTableWidget>("frmMain", "dbgDisplay");
      const QPoint row = grid.visualItemRect(grid.item(5, 0)).center();
      QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, row);
      QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, row);
    }
    settle();
    ASSERT_NE(window(), nullptr);
    ASSERT_TRUE(window()->isVisible());
  }
  void close() const {
    window()->close();
    settle();
    ASSERT_FALSE(window()->isVisible());
  }
  void expectBeside() const {
    const QRect place = window()->frameGeometry();
    // Else there is nothing to be seen here.
    ASSERT_GE(room().width(), frame().frameGeometry().width() + place.width());
    EXPECT_FALSE(place.intersects(frame().frameGeometry()));
    EXPECT_TRUE(room().contains(place));
  }
  /// The stored texts of a run that ends.
  Sections storedByARun(const std::function<void()>& act) {
    act();
    restart();
    return FileStore(storePath().toStdString()).all();
  }
};

INSTANTIATE_TEST_SUITE_P(Windows, Placement, testing::Values("help", "explanation"),
                         [](const auto& window) { return std::string(window.param); });

TEST_P(Placement, IsBesideTheFrameAtEitherEdgeOfTheDisplay) {
  open();
  expectBeside();
  EXPECT_GT(window()->x(), frame().x());
  close();
  putAt({room().right() + 1 - frame().width(), room().top()});
  open();
  expectBeside();
  EXPECT_LT(window()->x(), frame().x());
}

TEST_P(Placement, ThatIsOpenStaysWhereTheUserPutIt) {
  open();
  const QPoint chosen = frame().pos() + QPoint(40, 60);
  window()->move(chosen);
  open();
  EXPECT_EQ(window()->pos(), chosen);
}

TEST_P(Placement, IsNotRemembered) {
  open();
  const QPoint first = window()->pos();
  window()->move(frame().pos() + QPoint(40, 60));
  close();
  open();
  EXPECT_EQ(window()->pos(), first);
  window()->move(frame().pos() + QPoint(40, 60));
  restart();
  putAt(room().topLeft());
  open();
  EXPECT_EQ(window()->pos(), first);
}

TEST_P(Placement, IsNotStored) {
  const Sections without = storedByARun([] {});
  ASSERT_FALSE(without.empty());
  putAt(room().topLeft());
  const Sections with = storedByARun([this] {
    open();
    window()->move(frame().pos() + QPoint(40, 60));
    close();
    open();
  });
  EXPECT_EQ(with, without);
}

}  // namespace

}  // namespace tallyfin::qt
