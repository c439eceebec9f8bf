#include "ui/qt/binding/afterevent.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <utility>

namespace tallyfin::qt {

namespace {

struct Deferred {
  QPointer<QObject> context;
  std::function<void()> work;
};

std::deque<Deferred>& queue() {
  static std::deque<Deferred> deferred;
  return deferred;
}

}  // namespace

void afterThisEvent(QObject& context, std::function<void()> work) {
  queue().push_back({&context, std::move(work)});
  // mutation: 0 -> 1: a millisecond later is as soon as the toolkit is done
  QTimer::singleShot(0, QCoreApplication::instance(), runDeferred);
}

/// Work may open a dialog, whose event loop then runs the rest.
void runDeferred() {
  while (!queue().empty()) {
    const Deferred next = std::exchange(queue().front(), {});
    queue().pop_front();
    if (next.context != nullptr) next.work();
  }
}

}  // namespace tallyfin::qt
