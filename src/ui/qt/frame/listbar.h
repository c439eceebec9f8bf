#pragma once

#include <QAbstractButton>

#include "ui/qt/accessibility/accessible.h"

namespace tallyfin {
class ListBarItem;
}

namespace tallyfin::qt {

class Binding;

int listBarWidth();

/// What stands in the list bar: pressed by the mouse, Space or Enter.
class BarButton : public QAbstractButton {
 public:
  using QAbstractButton::QAbstractButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The head of a group of the list bar; a mark tells the open one.
class GroupHeader : public BarButton, public Expander {
 public:
  GroupHeader(const QString& caption, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// One item of the list bar: a picture above its caption, highlighted while the pointer is over it.
class ListBarButton : public BarButton {
 public:
  ListBarButton(QWidget* parent, const QString& pictureName);
  QSize sizeHint() const override;
  int heightForWidth(int width) const override;

  bool highlighted = false;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// Binds an item's button; an item is no command button but clicks like one.
Binding& bind(ListBarButton& widget, ListBarItem& item);

}  // namespace tallyfin::qt
