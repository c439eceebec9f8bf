#pragma once

#include <QStringList>

class QWidget;

/// What a person meets in a part of the desktop, by eye, by keyboard or told aloud, written down in words.

namespace tallyfin::qt {

/// The widgets of a part in the order of their places, each with its class and role, name, place in the part, content,
/// words for assistive technology, state, colours and font where they differ from what is around it, and drawing.
/// Behind them the order of Tab and the keys. What lies in `without` is left out.
QStringList sightOf(QWidget& part, const QWidget* without = nullptr);

/// The fonts and colours of the whole program.
QStringList sightOfTheLook();

}  // namespace tallyfin::qt
