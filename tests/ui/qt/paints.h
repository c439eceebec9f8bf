#pragma once

#include <QEvent>
#include <QWidget>

namespace tallyfin::qt {

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
