#include <QApplication>
#include <QWidget>

/// An empty window of the frame's size, to compare with the start of the desktop program.

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.setObjectName(QStringLiteral("MDIOpen"));
  window.resize(586, 393);
  window.show();
  return QApplication::exec();
}
