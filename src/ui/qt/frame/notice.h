#pragma once

#include <QLabel>

namespace tallyfin::qt {

/// A line of a window for messages. A long message wraps, within a word where necessary, such as in the path of a file.
/// It is hidden when it is empty.
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
