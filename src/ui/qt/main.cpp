#include <sys/stat.h>

#include <QApplication>
#include <QFile>
#include <QPixmap>
#include <QSplashScreen>
#include <QStandardPaths>
#include <QTimer>

#include "store/store.h"
#include "ui/qt/desktop.h"
#include "ui/qt/frame/dialogs.h"
#include "ui/qt/widgets/look.h"

int main(int argc, char** argv) {
  umask(S_IRWXG | S_IRWXO);  // whatever the program writes is the user's alone
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Tallyfin99"));
  QApplication::setDesktopFileName(QStringLiteral("tallyfin99"));
  tallyfin::qt::look::apply(application);

  // The splash stands while the frame is being made, and no longer. It is kept as drawn: drawing it took a tenth of
  // the start.
  auto* splash = new QSplashScreen(QPixmap(QStringLiteral(":/pictures/splash.png")));
  splash->setAttribute(Qt::WA_DeleteOnClose);
  splash->show();

  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  tallyfin::FileStore store(QFile::encodeName(folder + QStringLiteral("/Tallyfin99/Tallyfin99.sqlite")).toStdString());
  tallyfin::qt::SystemDialogs dialogs;
  tallyfin::qt::Desktop desktop(store, dialogs);
  desktop.start();
  // Waiting for the frame to be seen would keep it waiting itself.
  QTimer::singleShot(0, splash, &QWidget::close);
  return QApplication::exec();
}
