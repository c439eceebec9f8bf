#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace tallyfin::qt {

/// Paints at once what is to be painted in the widget's window. The window system would ask for it later.
inline void paintNow(const QWidget& widget) {
  QApplication::sendPostedEvents();
  QEvent request(QEvent::UpdateRequest);
  QApplication::sendEvent(widget.window(), &request);
}

/// Counts how often a widget is painted.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

}  // namespace tallyfin::qt
