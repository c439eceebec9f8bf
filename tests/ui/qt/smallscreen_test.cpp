#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "everyscreen.h"
#include "ui/qt/help/helpwindow.h"
#include "ui/qt/widgets/text.h"

/// The program on displays that are too small for it; the test runs once for each of several sizes.

namespace tallyfin::qt {

namespace {

class SmallScreen : public EveryScreen {
 protected:
  static QRect room() { return QGuiApplication::primaryScreen()->availableGeometry(); }
};

TEST_F(SmallScreen, TheWindowOpensWithItsTitleOnTheScreen) {
  startOnMain();
  constexpr int title = 30;  // of a window manager
  EXPECT_GE(frame().pos().y(), room().top());
  EXPECT_GE(frame().pos().x(), room().left());
  EXPECT_LE(frame().pos().y() + title + frame().height(), room().bottom() + 1);
  EXPECT_LE(frame().pos().x() + frame().width(), room().right() + 1);
}

TEST_F(SmallScreen, EveryControlCanBeScrolledIntoView) {
  int looked = 0;
  onEveryScreen([&](const Screen& screen) {
    if (screen.place() != Place::document) return;
    QWidget& page = const_cast<View&>(view(screen.name().c_str()));
    for (const Control* control : screen.controls()) {
      QWidget& widget = find(screen.name().c_str(), qt::text(control->address()));
      if (!widget.isVisible() || !widget.isEnabled() || !(widget.focusPolicy() & Qt::TabFocus)) continue;
      if (widget.mapTo(&page, QPoint()).x() < 0) continue;
      ++looked;
      widget.setFocus(Qt::TabFocusReason);
      settle();
      if (QApplication::focusWidget() != &widget) continue;
      EXPECT_FALSE(widget.visibleRegion().isEmpty()) << control->address();
    }
  });
  EXPECT_GT(looked, 60);
}

TEST_F(SmallScreen, TheListBarIsReachedToItsEnd) {
  startOnMain();
  for (const char* key : {"ExitProgram", "Analysis", "W4Help", "About"}) {
    auto& item = find<QAbstractButton>("MDIOpen", QStringLiteral("SSListBar1(%1)").arg(key));
    for (auto* header : frame().findChildren<QAbstractButton*>(QRegularExpression("^group "))) {
      if (!item.isVisible()) click(*header);
      EXPECT_FALSE(header->visibleRegion().isEmpty()) << header->objectName().toStdString();
    }
    item.setFocus(Qt::TabFocusReason);
    settle();
    EXPECT_FALSE(item.visibleRegion().isEmpty()) << key;
    EXPECT_GE(item.height(), item.heightForWidth(item.width())) << key;
  }
}

TEST_F(SmallScreen, TheHelpFitsTheScreen) {
  startOnMain();
  clickItem("Help");
  const auto* help = frame().findChild<QDialog*>("help");
  ASSERT_NE(help, nullptr);
  constexpr int edges = 8;  // of a window manager
  EXPECT_LE(help->width(), room().width() - edges);
  EXPECT_LE(help->height(), room().height());
}

}  // namespace

}  // namespace tallyfin::qt
