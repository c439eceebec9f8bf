#pragma once

#include <functional>

class QObject;

namespace tallyfin::qt {

/// Runs work once the present event is over, and before the next key or click of the user is heard, so that fast hands
/// find all done that their last key has caused. Nothing runs when the context has gone.
void afterThisEvent(QObject& context, std::function<void()> work);

/// Runs at once what is put off.
void runDeferred();

}  // namespace tallyfin::qt
