#pragma once

#include <QObject>

namespace tallyfin::qt {

/// Makes keys act in their order, at once. Qt lets 0.1 s pass before a mnemonic clicks its button, clicks by Space only
/// when the key comes up, and runs what is put off only when no key is waiting.
class InputOrder : public QObject {
 public:
  InputOrder();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace tallyfin::qt
