#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <memory>

#include "controls/desk.h"
#include "controls/surroundings.h"
#include "ui/qt/helpviewer.h"
#include "ui/qt/machine.h"

class QDialog;

namespace tallyfin::qt {

class FocusRing;
class Frame;
class ScreenPrinter;
class View;

/// The desktop binding as a whole: shows what the desk holds. A shown screen has a view; documents stand in the frame,
/// boxes above it. While it lives it is also the program's beeper, mouse pointer, printer and help.
class Desktop : public QObject {
 public:
  Desktop();
  ~Desktop() override;

  /// Begins a run: the frame, then its first screen.
  void start();
  Frame* frame() const { return frame_.get(); }
  /// The view of a shown screen; none if it isn't shown.
  View* view(std::string_view screenName) const;
  /// What prints screens.
  ScreenPrinter& screenPrinter() const { return *screenPrinter_; }

 private:
  void show(Screen& screen);
  void showDocument(Screen& screen);
  void showBox(Screen& screen);
  void arrange();
  void giveKeyboard();
  void moveMark(QWidget* now);
  void discard(Screen& screen);
  void followFocus();
  QWidget* focusedWidget() const;
  void dropFocus(const QWidget* now);

  std::unique_ptr<Frame> frame_;
  std::map<const Screen*, QPointer<View>> views_;
  std::map<const Screen*, QPointer<QDialog>> boxes_;
  QPointer<FocusRing> ring_;
  QPointer<View> said_;  ///< The page whose title has been told last.
  std::vector<std::unique_ptr<QObject>> helpers_;
  std::unique_ptr<ScreenPrinter> screenPrinter_;
  Surroundings before_;
  DesktopBeeper beeper_;
  DesktopPointer pointer_;
  DesktopHelp help_;
};

}  // namespace tallyfin::qt
