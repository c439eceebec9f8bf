#pragma once

#include <QLineEdit>
#include <QListWidget>

/// Boxes and lists of all screens.

namespace tallyfin::qt {

/// A text box. Without the focus it shows the beginning of its text; where the text is cut off, the tooltip has the
/// whole text.
class Box : public QLineEdit {
 public:
  explicit Box(QWidget* parent);

 protected:
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  /// The cursor position when the box lost the focus.
  struct Place {
    int cursor = 0;
    int selectionStart = -1;
    int selectionLength = 0;
  };
  bool cut() const;

  Place left_;
};

/// A list with a frame that the rows don't cover. Its size hint is the height of some or all of its rows; it scrolls
/// where it has more.
class FramedList : public QListWidget {
 public:
  explicit FramedList(QWidget* parent);

  /// The list is always as high as this many rows.
  void setRows(int rows);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;

 private:
  int rows_ = 0;
};

}  // namespace tallyfin::qt
