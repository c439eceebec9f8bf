#include <sys/stat.h>

#include <QApplication>
#include <QPixmap>
#include <QSplashScreen>

#include "ui/qt/desktop.h"
#include "ui/qt/frame.h"
#include "ui/qt/look.h"
#include "ui/qt/store.h"

int main(int argc, char** argv) {
  umask(S_IRWXG | S_IRWXO);  // whatever the program writes is the user's alone
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Tallyfin99"));
  QApplication::setDesktopFileName(QStringLiteral("tallyfin99"));
  tallyfin::qt::look::apply(application);

  // The splash stands while the frame is being made, and no longer.
  QSplashScreen splash(tallyfin::qt::look::picture(QStringLiteral("splash")).pixmap(360, 200));
  splash.show();

  tallyfin::qt::Store store(tallyfin::qt::Store::usualPath());
  tallyfin::useSettingsStore(store);
  tallyfin::qt::Desktop desktop;
  desktop.start();
  splash.finish(desktop.frame());
  desktop.tellTrouble(store);
  return QApplication::exec();
}
