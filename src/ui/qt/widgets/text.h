#pragma once

#include <QString>
#include <string>

namespace tallyfin::qt {

inline QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

/// A caption without its mnemonic `&`; of two `&` the second is a character.
inline QString unmarked(QString caption) {
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == QLatin1Char('&')) caption.remove(i, 1);
  }
  return caption;
}

}  // namespace tallyfin::qt
