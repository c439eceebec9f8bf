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

  /// Marks the group that holds the item of the screen in front.
  void setHere(bool here);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool here_ = false;
};

/// One item of the list bar: a picture above its caption, highlighted while the pointer is over it.
class ListBarButton : public BarButton {
 public:
  ListBarButton(QWidget* parent, const QString& pictureName);
  QSize sizeHint() const override;
  int heightForWidth(int width) const override;

  bool highlighted = false;
  /// Marks the item whose screen is in front, for assistive technology too.
  void setCurrent(bool current);
  bool current() const { return current_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool current_ = false;
};

/// Binds an item's button; an item is no command button but clicks like one.
Binding& bind(ListBarButton& widget, ListBarItem& item);

}  // namespace tallyfin::qt
