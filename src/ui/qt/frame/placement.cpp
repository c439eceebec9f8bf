#include "ui/qt/frame/placement.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace tallyfin::qt {

namespace {

/// The window manager's decoration of a window that isn't shown yet.
constexpr QMargins windowEdges{4, 32, 4, 4};

int hidden(const QRect& place, const QRect& other) {
  const QRect both = place.intersected(other);
  return both.width() * both.height();
}

}  // namespace

void placeBeside(QWidget& window, const QWidget& other) {
  const QRect room = other.screen()->availableGeometry();
  const QRect taken = other.frameGeometry();
  const QRect own = QRect({}, window.size()).marginsAdded(windowEdges);
  const int right = room.right() + 1 - own.width();
  const int bottom = room.bottom() + 1 - own.height();
  const QPoint places[] = {{taken.right() + 1, taken.top()},
                           {taken.left() - own.width(), taken.top()},
                           {taken.left(), taken.bottom() + 1},
                           {taken.left(), taken.top() - own.height()},
                           {right, bottom},
                           {room.left(), bottom},
                           {right, room.top()},
                           {room.left(), room.top()}};
  QRect best;
  for (const QPoint& place : places) {
    // The title of a window that is larger than the display stays visible.
    const QPoint inside(std::max(room.left(), std::min(place.x(), right)),
                        std::max(room.top(), std::min(place.y(), bottom)));
    const QRect there(inside, own.size());
    if (best.isNull() || hidden(there, taken) < hidden(best, taken)) best = there;
  }
  window.move(best.topLeft());
}

}  // namespace tallyfin::qt
