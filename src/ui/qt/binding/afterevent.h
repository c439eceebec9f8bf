#pragma once

#include <functional>

class QObject;

namespace tallyfin::qt {

/// Runs work after the current event, and before the next key or click of the user is handled, so that all effects of a
/// key are complete before the next key. Nothing runs when the context has been destroyed.
void afterThisEvent(QObject& context, std::function<void()> work);

/// Runs all deferred work at once.
void runDeferred();

}  // namespace tallyfin::qt
