#pragma once

#include <QComboBox>
#include <functional>

namespace tallyfin::qt {

/// A drop-down that reports when its list has been opened, by whatever means.
class DropDownBox : public QComboBox {
 public:
  using QComboBox::QComboBox;

  void showPopup() override;

  std::function<void()> opened;
  /// Chooses the entry whose text has been typed, letter case aside; nothing happens where none has been.
  std::function<void()> takeTyped;
};

/// A key of the page is about to act: where an entry is being typed, it is chosen first.
void takeTypedEntry(QWidget* focused);

}  // namespace tallyfin::qt
