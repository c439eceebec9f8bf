#include <sys/stat.h>

#include <QApplication>
#include <QPixmap>
#include <QSocketNotifier>
#include <QSplashScreen>
#include <QTimer>
#include <clocale>

#include "process/process.h"
#include "store/location.h"
#include "store/store.h"
#include "ui/qt/desktop.h"
#include "ui/qt/frame/dialogs.h"
#include "ui/qt/widgets/look.h"

int main(int argc, char** argv) {
  umask(S_IRWXG | S_IRWXO);  // files are accessible by the user only
  tallyfin::hideMemory();
  tallyfin::fillStandardStreams();
  tallyfin::awaitEndings();
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");  // Qt has set it to the user's, where a number may have a comma
  QApplication::setApplicationName(QStringLiteral("Tallyfin99"));
  QApplication::setDesktopFileName(QStringLiteral("tallyfin99"));
  tallyfin::qt::look::apply(application);

  // The splash is shown until the frame is created. It is a picture file, because drawing it took a tenth of the start
  // time.
  auto* splash = new QSplashScreen(QPixmap(QStringLiteral(":/pictures/splash.png")));
  splash->setAttribute(Qt::WA_DeleteOnClose);
  splash->show();

  tallyfin::FileStore store(tallyfin::usersStore());
  tallyfin::qt::SystemDialogs dialogs;
  tallyfin::qt::Desktop desktop(store, dialogs);
  const QSocketNotifier ending(tallyfin::endingDescriptor(), QSocketNotifier::Read);
  QObject::connect(&ending, &QSocketNotifier::activated, &application, &QApplication::quit);
  desktop.start();
  // Waiting until the frame is visible would delay the frame itself.
  QTimer::singleShot(0, splash, &QWidget::close);
  return QApplication::exec();
}
