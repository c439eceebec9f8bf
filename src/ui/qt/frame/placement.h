#pragma once

class QWidget;

namespace tallyfin::qt {

/// Moves a window to where it hides least of another: beside it where the screen has the room, else into a corner. Call
/// before it is shown.
void placeBeside(QWidget& window, const QWidget& other);

}  // namespace tallyfin::qt
