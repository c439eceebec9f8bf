#pragma once

#include <QStringList>

class QWidget;

/// Snapshots: a description of a part of the desktop as text: drawing, keyboard, accessibility.

namespace tallyfin::qt {

/// The widgets of a part in the order of their positions, each with its class and role, name, position, content,
/// accessible texts, state, colours and font where they differ from those of its parent, and drawing. Then the order of
/// Tab and the keys. Widgets in `without` are left out.
QStringList snapshotOf(QWidget& part, const QWidget* without = nullptr);

/// The fonts and colours of the application.
QStringList snapshotOfTheLook();

}  // namespace tallyfin::qt
