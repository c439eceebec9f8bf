#pragma once

#include <QPointer>
#include <QStringList>

#include "platform/platform.h"
#include "ui/qt/help/helpfile.h"
#include "ui/qt/help/helpwindow.h"

namespace tallyfin::qt {

class Frame;

/// The help of the program, for the frame.
class DesktopHelp : public HelpViewer {
 public:
  explicit DesktopHelp(QStringList folders = HelpFiles::usualFolders());
  ~DesktopHelp() override;

  /// Makes F1 in this window open the help on the active document, in a window above it.
  void serve(Frame& frame);
  /// Makes F1 work in a modal box.
  void serveBox(QWidget& box);
  /// Call before a box is destroyed: help that was opened from it stays open.
  void leave(const QWidget& box);
  void open(const std::string& file, int context) override;
  void openTopic(const QString& file, const QString& id);
  /// The topic of the active window, in either file: that of its box, or of the active document of the frame. A window
  /// without a topic of its own has that of the window below it.
  void openForActiveWindow();

  HelpWindow* window() const { return window_; }

 private:
  HelpFiles files_;
  QPointer<Frame> frame_;
  QPointer<HelpWindow> window_;
};

}  // namespace tallyfin::qt
