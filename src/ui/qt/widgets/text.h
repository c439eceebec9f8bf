#pragma once

#include <QString>
#include <string>

namespace tallyfin::qt {

inline QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

/// A text as it is drawn: without the middle of a very long one, because the layout of megabytes takes minutes.
inline QString drawn(const QString& whole) {
  constexpr qsizetype most = 2000;
  return whole.size() <= most ? whole : whole.left(most / 2) + QChar(0x2026) + whole.right(most / 2);
}
inline QString drawn(const std::string& utf8) { return drawn(text(utf8)); }

/// A caption without its mnemonic `&`; of two `&` the second is a character.
inline QString unmarked(QString caption) {
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == QLatin1Char('&')) caption.remove(i, 1);
  }
  return caption;
}

}  // namespace tallyfin::qt
