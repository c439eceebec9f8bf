#pragma once

#include <QLabel>

namespace tallyfin::qt {

/// The line of a window in which the user is told what he must know. Without words it takes no room.
class Notice : public QLabel {
 public:
  explicit Notice(QWidget* parent) : QLabel(parent) {
    setObjectName(QStringLiteral("notice"));
    setWordWrap(true);
    hide();
  }

  void tell(const QString& words) {
    setText(words);
    setVisible(!words.isEmpty());
  }
};

}  // namespace tallyfin::qt
