#pragma once

#include <QLabel>

namespace tallyfin::qt {

/// The line of a window that says what the user must know. A long one wraps, within a word too where it must, such as
/// the path of a file. Without words it takes no room.
class Notice : public QLabel {
 public:
  explicit Notice(QWidget* parent);

  void tell(const QString& words);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tallyfin::qt
