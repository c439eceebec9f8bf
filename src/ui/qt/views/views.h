#pragma once

#include <memory>

#include "ui/qt/view.h"

namespace tallyfin::qt {

/// Makes the view of a screen: one for each screen, in the source of its view.
template <class S>
std::unique_ptr<View> makeView(S& screen);

}  // namespace tallyfin::qt
