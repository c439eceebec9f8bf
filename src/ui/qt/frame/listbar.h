#pragma once

#include <QAbstractButton>

#include "ui/qt/accessibility/accessible.h"

namespace tallyfin {
class ListBarItem;
}

namespace tallyfin::qt {

class Binding;

int listBarWidth();

/// A button of the list bar: pressed by the mouse, Space or Enter.
class BarButton : public QAbstractButton {
 public:
  using QAbstractButton::QAbstractButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The head of a group of the list bar; an arrow shows which group is open.
class GroupHeader : public BarButton, public Expander {
 public:
  GroupHeader(const QString& caption, QWidget* parent);
  QSize sizeHint() const override;

  /// Marks the group with the item of the screen in front.
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

  bool highlighted = false;  // mutation: false -> true: written before it is read
  /// Marks the item of the screen in front, for assistive technology too.
  void setCurrent(bool current);
  bool current() const { return current_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool current_ = false;
};

/// Binds an item's button. An item isn't a command button but is clicked like one.
Binding& bind(ListBarButton& widget, ListBarItem& item);

}  // namespace tallyfin::qt
