#pragma once

#include <QObject>

#include "ui/qt/binding/binding.h"

class QDropEvent;
class QLineEdit;

namespace tallyfin::qt {

/// Cleans what is pasted or dropped into a box. A line break or a tab ends it: of a spreadsheet's selection the first
/// cell is meant. Where it replaces the whole text, the blanks at its ends are dropped. In an amount, what looks like
/// a blank or a minus is one. Undo takes it back as one step.
class PasteFilter : public QObject {
 public:
  PasteFilter(QLineEdit& edit, Pasted kind);

  /// Hears the keys of the widget that stands before the line edit, as a drop-down does.
  void hear(QWidget& widget) { widget.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool takeIn(QEvent& event);
  void paste(const QString& text);
  void showMenu(const QPoint& place);
  bool drop(QDropEvent& event);
  QString cleaned(QString text, bool replacesAll) const;

  QLineEdit& edit_;
  Pasted kind_;
};

}  // namespace tallyfin::qt
