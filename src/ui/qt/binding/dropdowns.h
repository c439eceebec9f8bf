#pragma once

#include <QComboBox>
#include <functional>

namespace tallyfin::qt {

/// A drop-down that notifies when its list opens, for any reason.
class DropDownBox : public QComboBox {
 public:
  using QComboBox::QComboBox;

  void showPopup() override;

  std::function<void()> opened;
  /// Chooses the entry whose text has been typed, in any letter case; does nothing without one.
  std::function<void()> takeTyped;
};

/// Call before a key of the page acts: chooses an entry that is being typed.
void takeTypedEntry(QWidget* focused);

}  // namespace tallyfin::qt
