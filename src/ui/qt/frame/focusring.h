#pragma once

#include <QPointer>
#include <QWidget>

namespace tallyfin::qt {

/// The focus ring: a light and a dark line around the widget with the keyboard focus, so that one of them is visible on
/// any background.
class FocusRing : public QWidget {
 public:
  /// Shows the ring around this widget, or hides it for null.
  void mark(QWidget* widget);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void place();

  QPointer<QWidget> marked_;
};

}  // namespace tallyfin::qt
