#pragma once

class QWidget;

namespace tallyfin::qt {

/// Moves a window so that it covers as little of another as possible: beside it if it fits on the display, else into a
/// corner. Call before it is shown.
void placeBeside(QWidget& window, const QWidget& other);

}  // namespace tallyfin::qt
