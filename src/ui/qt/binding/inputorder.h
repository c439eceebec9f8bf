#pragma once

#include <QObject>

namespace tallyfin::qt {

/// Makes keys act at once and in their order. Qt waits 0.1 s before a mnemonic clicks its button, clicks by Space when
/// the key is released, and runs deferred work only when no key is pending.
class InputOrder : public QObject {
 public:
  InputOrder();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tallyfin::qt
