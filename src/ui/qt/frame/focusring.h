#pragma once

#include <QPointer>
#include <QWidget>

namespace tallyfin::qt {

/// The mark of the keyboard: a light and a dark line around the widget that has it, so that one of them stands out
/// from whatever is there.
class FocusRing : public QWidget {
 public:
  /// Marks this widget, or none.
  void mark(QWidget* widget);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void place();

  QPointer<QWidget> marked_;
};

}  // namespace tallyfin::qt
