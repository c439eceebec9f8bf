#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <memory>

#include "controls/desk.h"
#include "ui/program.h"
#include "ui/qt/binding/inputorder.h"
#include "ui/qt/desktopplatform.h"
#include "ui/qt/help/desktophelp.h"
#include "ui/qt/paper/screenprinter.h"

class QDialog;

namespace tallyfin::qt {

class Dialogs;
class FocusRing;
class Frame;
class View;

/// The desktop binding: shows the screens of the screen stack. A shown screen has a view; documents are in the frame,
/// boxes above it. During its lifetime it is also the program's beeper, mouse pointer, printer and help.
class Desktop final : public QObject, private DeskWatcher {
 public:
  Desktop(SettingsStore& store, Dialogs& dialogs);
  ~Desktop() override;

  /// Begins a run: the frame, then its first screen.
  void start();
  Frame* frame() const { return frame_.get(); }
  /// The view of a shown screen; null if it isn't shown.
  View* view(std::string_view screenName) const;

 private:
  void shown(Screen& screen) override;
  void discarded(Screen& screen) override;
  void focusMoved() override;
  void showDocument(Screen& screen);
  void showBox(Screen& screen);
  void arrange();
  void giveKeyboard();
  void moveMark(QWidget* now);
  QWidget* focusedWidget() const;
  void dropFocus(const QWidget* now);

  InputOrder order_;
  Dialogs& dialogs_;
  std::unique_ptr<Frame> frame_;
  std::map<const Screen*, QPointer<View>> views_;
  std::map<const Screen*, QPointer<QDialog>> boxes_;
  QPointer<FocusRing> ring_;
  QPointer<View> said_;  ///< The page whose title was announced last.
  DesktopBeeper beeper_;
  DesktopPointer pointer_;
  ScreenPrinter printer_;
  DesktopHelp help_;
  Program program_;
};

}  // namespace tallyfin::qt
