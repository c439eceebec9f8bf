#include "ui/qt/desktopplatform.h"

#include <QApplication>

namespace tallyfin::qt {

void DesktopBeeper::beep() { QApplication::beep(); }

DesktopPointer::~DesktopPointer() {
  if (busy_) QApplication::restoreOverrideCursor();
}

void DesktopPointer::setBusy(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace tallyfin::qt
