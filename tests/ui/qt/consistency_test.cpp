#include "consistency.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCursor>
#include <QDialog>
#include <QMenu>
#include <QScrollArea>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>
#include <QWindow>
#include <deque>
#include <iostream>
#include <random>

#include "controls/buttons.h"
#include "desktoptest.h"
#include "platform/platform.h"
#include "standingclock.h"
#include "ui/qt/frame/listbar.h"

/// Random acts on the real widgets: clicks, keys, wheel, focus and pointer, as the window system sends them. After each
/// act every widget must show the value of its control. A refused act must not change any screen.
///
/// TALLYFIN_CONSISTENCY_SEED is the seed, TALLYFIN_CONSISTENCY_ACTS the number of acts.

namespace tallyfin::qt {

namespace {

int fromEnvironment(const char* name, int usual) {
  const int value = qEnvironmentVariableIntValue(name);
  return value == 0 ? usual : value;
}

/// A fixed date, and fakes of everything outside the program.
class Walk : public DesktopTest, public ::testing::WithParamInterface<int> {
 protected:
  Walk()
      : seed_(static_cast<unsigned>(fromEnvironment("TALLYFIN_CONSISTENCY_SEED", 1999) * 100 + GetParam())),
        random_(seed_) {}

  void begin() {
    // A menu of Qt (that of the calendar's months) runs its own event loop.
    QObject::connect(&closeMenus_, &QTimer::timeout, &closeMenus_, [] {
      if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) menu->close();
    });
    closeMenus_.start(20);
    platform.clock = &clock_;
    if (desktopRuns_) {
      restart();
    } else {
      start();
    }
    desktopRuns_ = true;
    platform.help = &noHelp_;
    consistency_.look(desktop());
  }

  /// Does one random act; returns its description.
  std::string act() {
    if (QWidget* popup = QApplication::activePopupWidget()) return actOnPopup(*popup);
    if (QApplication::activeWindow() == nullptr) {
      activate();
      consistency_.look(desktop());  // that may have given the focus to a box
    }
    const int kind = below(100);
    if (kind < 38) return clickSomething();
    if (kind < 44) return doubleClickSomething();
    if (kind < 58) return typeSomething();
    if (kind < 74) return pressSomething();
    if (kind < 80) return turnWheel();
    if (kind < 90) return movePointer();
    if (kind < 96) return clickListBar();
    if (kind < 98) return clickAnywhere();
    return frameAct();
  }

  /// An act, then the comparison. Fails the test at the first difference.
  void step(int number) {
    refused_.clear();
    history_.push_back(std::to_string(number) + ": " + act());
    if (history_.size() > 12) history_.pop_front();
    settle();
    dismissForeign();
    if (!desk.running()) return begin();
    consistency_.look(desktop());
    ASSERT_TRUE(consistency_.differences().empty()) << consistency_.differences() << told();
    if (!refused_.empty()) {
      ++refusals_;
      ASSERT_EQ(heldBefore_, consistency_.held()) << "after the refused act on " << refused_ << "\n" << told();
    }
  }

  std::string told() const {
    std::string words = "documents:";
    for (const Screen* screen : desk.documents()) words += " " + screen->name();
    const QWidget* popup = QApplication::activePopupWidget();
    if (popup != nullptr) words += "; a list is open";
    words += "\nseed " + std::to_string(seed_) + ", the last acts:\n";
    for (const std::string& one : history_) words += "  " + one + "\n";
    return words;
  }

  unsigned seed() const { return seed_; }
  int refusals() const { return refusals_; }

 private:
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  template <class T>
  T one(const std::vector<T>& of) {
    return of[static_cast<std::size_t>(below(static_cast<int>(of.size())))];
  }

  /// Without a window manager nothing else activates the frame when a box above it is closed.
  void activate() {
    frame().activateWindow();
    settle();
  }

  // --- Targets of acts

  /// A widget of the active window, mostly of the document in front.
  QWidget* something() {
    QWidget* window = QApplication::activeWindow();
    if (window == nullptr || (QApplication::activeModalWidget() != nullptr && below(5) == 0)) window = &frame();
    const QWidget* from = window;
    const Screen* front = desk.activeDocument();
    if (window == &frame() && front != nullptr && below(8) > 0) from = &view(front->name().c_str());
    std::vector<QWidget*> candidates;
    for (QWidget* widget : from->findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->width() == 0 || widget->height() == 0) continue;
      if (widget->mapTo(window, QPoint()).x() < 0) continue;  // on a page out of view
      const bool tied = widget->objectName().contains(QLatin1String("(")) || consistency_.controlOf(widget) != nullptr;
      if (tied || qobject_cast<QAbstractButton*>(widget) != nullptr) candidates.push_back(widget);
    }
    if (candidates.empty()) return window;
    QWidget* chosen = one(candidates);
    // Acts that end the run are rare.
    static const QStringList leaves{"print", "savepdf", "cmdToolBar(3)", "SSListBar1(ExitProgram)"};
    if (leaves.contains(chosen->objectName()) && below(12) > 0) return something();
    return chosen;
  }

  QPoint pointIn(const QWidget& widget) {
    // The indicator of an option or check box is at its left end.
    if (below(3) == 0) return {std::min(8, widget.width() / 2), widget.height() / 2};
    return {below(widget.width()), below(widget.height())};
  }

  static std::string named(const QWidget& widget) {
    const QString name = widget.objectName().isEmpty() ? widget.metaObject()->className() : widget.objectName();
    return name.toStdString();
  }

  /// Sends the event to the window, like the window system.
  static void clickAt(const QWidget& widget, QPoint point) {
    const QWidget* window = widget.window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, widget.mapTo(window, point));
  }

  /// Moves the pointer there before a press.
  void pointAt(const QWidget& widget, QPoint point) {
    QCursor::setPos(widget.mapToGlobal(point));
    settle();
  }

  /// Stores the state of the screens if the next act will be refused.
  void noteRefusal(const QWidget& widget) {
    const Control* control = consistency_.controlOf(QApplication::widgetAt(QCursor::pos()));
    if (control == nullptr || control != consistency_.controlOf(&widget)) return;
    const bool inFront = control->screen().place() != Place::document || desk.activeDocument() == &control->screen();
    if (!desk.blocked(control->screen().name()) && (control->enabled || !inFront)) return;
    consistency_.look(desktop());
    heldBefore_ = consistency_.held();
    refused_ = control->address();
  }

  // --- Acts

  std::string clickSomething() {
    QWidget& widget = *something();
    const QPoint point = pointIn(widget);
    std::string words = "click " + named(widget);
    pointAt(widget, point);
    noteRefusal(widget);
    clickAt(widget, point);
    return words;
  }

  std::string doubleClickSomething() {
    QWidget& widget = *something();
    const QPoint point = pointIn(widget);
    std::string words = "double click " + named(widget);
    pointAt(widget, point);
    noteRefusal(widget);
    consistency_.userSelects();  // a double click selects a word
    QTest::mouseDClick(widget.window()->windowHandle(), Qt::LeftButton, {}, widget.mapTo(widget.window(), point));
    return words;
  }

  static QWindow* keyWindow() {
    QWindow* window = QGuiApplication::focusWindow();
    return window != nullptr ? window : QApplication::topLevelWindows().front();
  }

  std::string typeSomething() {
    static const std::string letters = "0123456789999.,$%-(ExaN ";
    std::string typed;
    for (int i = below(4); i >= 0; --i)
      typed += letters[static_cast<std::size_t>(below(static_cast<int>(letters.size())))];
    for (const char letter : typed) QTest::keyClick(keyWindow(), letter);
    return "type \"" + typed + "\"";
  }

  std::string pressSomething() {
    static const std::vector<Qt::Key> keys{
        Qt::Key_Tab,    Qt::Key_Tab,   Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Up,       Qt::Key_Down,
        Qt::Key_Left,   Qt::Key_Right, Qt::Key_Return, Qt::Key_Enter,   Qt::Key_Space,    Qt::Key_Escape,
        Qt::Key_Delete, Qt::Key_Home,  Qt::Key_End,    Qt::Key_PageUp,  Qt::Key_PageDown, Qt::Key_Backspace};
    if (below(6) == 0) {
      const char letter = one(std::vector<char>{'i', 'h', 'k', 'p', 'f', 'x', 's', 'q'});
      QTest::keyClick(keyWindow(), letter, Qt::AltModifier);
      return std::string("press Alt and ") + letter;
    }
    const Qt::Key key = one(keys);
    const auto modifier = key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier;
    QTest::keyClick(keyWindow(), key, modifier);
    return "press " + QKeySequence(key).toString().toStdString();
  }

  std::string turnWheel() {
    QWidget& widget = *something();
    const QPoint point = pointIn(widget);
    std::string words = "turn the wheel over " + named(widget);
    pointAt(widget, point);
    QWidget* under = QApplication::widgetAt(QCursor::pos());
    const QPoint turn(0, below(2) == 0 ? 120 : -120);
    if (under == nullptr || QApplication::activeModalWidget() != nullptr) return words;
    QWheelEvent wheel(under->mapFromGlobal(QCursor::pos()), QCursor::pos(), {}, turn, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(under, &wheel);
    return words;
  }

  std::string movePointer() {
    QWidget& widget = *something();
    const QPoint point = pointIn(widget);
    std::string words = "point at " + named(widget);
    pointAt(widget, point);
    return words;
  }

  /// Opens a group, or chooses an item of the open one.
  std::string clickListBar() {
    std::vector<QAbstractButton*> buttons;
    for (auto* button : frame().findChildren<QAbstractButton*>()) {
      if (dynamic_cast<BarButton*>(button) != nullptr && button->isVisible()) buttons.push_back(button);
    }
    QAbstractButton& button = *one(buttons);
    if (button.objectName() == QLatin1String("SSListBar1(ExitProgram)") && below(4) > 0) return movePointer();
    std::string words = "click " + named(button) + " of the list bar";
    pointAt(button, button.rect().center());
    noteRefusal(button);
    clickAt(button, button.rect().center());
    return words;
  }

  std::string clickAnywhere() {
    const QPoint point(below(frame().width()), below(frame().height()));
    pointAt(frame(), point);
    QTest::mouseClick(frame().windowHandle(), Qt::LeftButton, {}, point);
    return "click at " + std::to_string(point.x()) + ", " + std::to_string(point.y());
  }

  std::string frameAct() {
    if (below(4) > 0) {
      const Screen* front = desk.activeDocument();
      if (front == nullptr) return "nothing";
      const QWidget& seen = view(front->name().c_str());
      for (auto* close : frame().area().findChildren<QToolButton*>()) {
        if (!close->isVisible() || !close->window()->isVisible() ||
            !close->parentWidget()->parentWidget()->isAncestorOf(&seen) ||
            close->accessibleName() != QLatin1String("Close")) {
          continue;
        }
        const std::string words = "close " + front->name();
        clickAt(*close, close->rect().center());
        return words;
      }
      return "nothing";
    }
    if (below(3) > 0) {
      frame().setWindowState(Qt::WindowMaximized);
      return "maximise the frame";
    }
    frame().close();
    return "close the frame";
  }

  std::string actOnPopup(QWidget& popup) {
    auto* rows = popup.findChild<QAbstractItemView*>();
    if (rows != nullptr && below(2) == 0) {
      const QModelIndex row = rows->model()->index(below(rows->model()->rowCount()), 0);
      rows->scrollTo(row);
      const QPoint point = rows->viewport()->mapTo(&popup, rows->visualRect(row).center());
      QCursor::setPos(popup.mapToGlobal(point));
      settle();
      // A list ignores a release for some milliseconds after it has opened, so a second click is needed.
      QTest::mouseClick(popup.windowHandle(), Qt::LeftButton, {}, point);
      return "choose entry " + std::to_string(row.row());
    }
    const Qt::Key key = one(std::vector<Qt::Key>{Qt::Key_Up, Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape, Qt::Key_N});
    QTest::keyClick(popup.windowHandle(), key);
    return "press " + QKeySequence(key).toString().toStdString() + " in the list";
  }

  /// Closes Qt's own windows, such as the file dialog.
  static void dismissForeign() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* dialog = qobject_cast<QDialog*>(window);
      if (dialog == nullptr || !dialog->isVisible()) continue;
      const auto& children = dialog->children();
      const auto isView = [](const QObject* child) { return dynamic_cast<const View*>(child) != nullptr; };
      if (std::none_of(children.begin(), children.end(), isView)) dialog->reject();
    }
    settle();
  }

  unsigned seed_;
  std::mt19937 random_;
  Consistency consistency_;
  StandingClock clock_;
  HelpViewer noHelp_;
  bool desktopRuns_ = false;
  QTimer closeMenus_;
  std::deque<std::string> history_;
  std::string refused_;
  std::string heldBefore_;
  int refusals_ = 0;
};

TEST_P(Walk, EveryWidgetShowsTheValueOfItsControl) {
  std::cout << "seed " << seed() << std::endl;
  begin();
  const int acts = fromEnvironment("TALLYFIN_CONSISTENCY_ACTS", 5000);
  for (int number = 1; number <= acts; ++number) {
    step(number);
    if (HasFatalFailure()) return;
  }
  std::cout << refusals() << " refused" << std::endl;
}

INSTANTIATE_TEST_SUITE_P(Consistency, Walk, ::testing::Values(1, 2, 3, 4));

}  // namespace

}  // namespace tallyfin::qt
