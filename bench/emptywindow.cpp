#include <QApplication>
#include <QWidget>

/// An empty window of the frame's size, which the desktop program's start is held against.

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.setObjectName(QStringLiteral("MDIOpen"));
  window.resize(586, 393);
  window.show();
  return QApplication::exec();
}
