#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>
#include <cstdio>
#include <memory>

#include "script/session.h"
#include "ui/qt/desktop.h"
#include "ui/qt/explanation/explanation.h"
#include "ui/qt/frame/dialogs.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/widgets/look.h"

/// tallyfin99-screenshots FOLDER SHOTS-FILE [POINTS]: saves pictures of the screens, for a desktop with a font of this
/// size. The file holds lines of the script protocol and six more: `fresh` begins with an empty store and no run,
/// `group NAME` opens a group of the list bar, `how ROW` opens the explanation of that row of the results, `shot NAME`
/// saves what the frame shows as NAME.png, and a box above it as NAME-box.png, `drawn FILE` saves an SVG picture for
/// both densities of screens, `icon FILE` as icons of the sizes that the package has.

namespace {

using namespace tallyfin;

struct Stage {
  MemoryStore store;
  qt::SystemDialogs dialogs;
  std::unique_ptr<qt::Desktop> desktop = std::make_unique<qt::Desktop>(store, dialogs);
  script::Session session{store, platform, desk.watcher};  // on the desktop's platform, and it shows what happens
};

void save(const QWidget& widget, const QString& path) {
  const QPixmap picture = const_cast<QWidget&>(widget).grab();
  if (!picture.save(path)) std::fprintf(stderr, "%s can't be written\n", qPrintable(path));
}

void shoot(const Stage& stage, const QDir& folder, const QString& name) {
  for (int i = 0; i < 5; ++i) {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // a box that has been closed
  }
  if (const qt::Frame* frame = stage.desktop->frame()) save(*frame, folder.filePath(name + ".png"));
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    if (qobject_cast<const QDialog*>(widget) != nullptr && widget->isVisible()) {
      save(*widget, folder.filePath(name + "-box.png"));
    }
  }
}

void draw(QSvgRenderer& picture, QSize size, QImage::Format format, const QString& path) {
  QImage image(size, format);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  picture.render(&painter);
  painter.end();
  if (!image.save(path)) std::fprintf(stderr, "%s can't be written\n", qPrintable(path));
}

void drawSplash(const QString& file, const QDir& folder) {
  QSvgRenderer picture(file);
  const QString name = folder.filePath(QFileInfo(file).baseName());
  draw(picture, picture.defaultSize(), QImage::Format_RGB32, name + ".png");
  draw(picture, picture.defaultSize() * 2, QImage::Format_RGB32, name + "@2x.png");
}

void drawIcons(const QString& file, const QDir& folder) {
  QSvgRenderer picture(file);
  for (const int side : {48, 128}) {
    const QString name = QStringLiteral("%1-%2.png").arg(QFileInfo(file).baseName()).arg(side);
    draw(picture, {side, side}, QImage::Format_ARGB32, folder.filePath(name));
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  qt::look::apply(application);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc != 3 && argc != 4) {
    std::fprintf(stderr, "tallyfin99-screenshots FOLDER SHOTS-FILE [POINTS]\n");
    return 2;
  }
  if (argc == 4) qt::look::applyFont(application, QString::fromLocal8Bit(argv[3]).toDouble());
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  folder.mkpath(".");
  QFile shots(QString::fromLocal8Bit(argv[2]));
  if (!shots.open(QIODevice::ReadOnly)) {
    std::fprintf(stderr, "%s can't be read\n", argv[2]);
    return 2;
  }
  auto stage = std::make_unique<Stage>();
  QTextStream lines(&shots);
  while (!lines.atEnd()) {
    const QString line = lines.readLine().trimmed();
    if (line == "fresh") {
      stage.reset();  // in this order: each restores what was there before
      QApplication::sendPostedEvents(nullptr,
                                     QEvent::DeferredDelete);  // without an event loop closed windows aren't deleted
      stage = std::make_unique<Stage>();
    } else if (line.startsWith("group ")) {
      auto* header = stage->desktop->frame()->findChild<QAbstractButton*>(line);
      if (header != nullptr) header->click();
    } else if (line.startsWith("how ")) {
      qt::ExplanationWindow::open(*stage->desktop->frame(), line.mid(4));
    } else if (line.startsWith("drawn ")) {
      drawSplash(QFileInfo(shots).dir().filePath(line.mid(6)), folder);
    } else if (line.startsWith("icon ")) {
      drawIcons(QFileInfo(shots).dir().filePath(line.mid(5)), folder);
    } else if (line.startsWith("shot ")) {
      shoot(*stage, folder, line.mid(5));
    } else if (const auto answer = stage->session.answer(line.toStdString()); answer && answer->front() == '!') {
      std::fprintf(stderr, "%s: %s\n", qPrintable(line), answer->c_str());
      return 1;
    }
    QApplication::processEvents();
  }
  return 0;
}
