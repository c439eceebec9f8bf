#pragma once

#include <QObject>

#include "ui/qt/binding/binding.h"

class QDropEvent;
class QLineEdit;

namespace tallyfin::qt {

/// Cleans a text that is pasted or dropped into a box. It is cut at a line break or tab, so of a spreadsheet selection
/// the first cell is used. Surrounding blanks are removed where it replaces the whole text. In an amount, all Unicode
/// blanks and minus signs are accepted. It is one undo step.
class PasteFilter : public QObject {
 public:
  PasteFilter(QLineEdit& edit, Pasted kind);

  /// Handles the keys of a widget that gets them before the line edit, such as a drop-down.
  void hear(QWidget& widget) { widget.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool takeIn(QEvent& event);
  void paste(const QString& text);
  void showMenu(const QPoint& place);
  bool drop(QDropEvent& event);
  QString cleaned(const QString& pasted, bool replacesAll) const;

  QLineEdit& edit_;
  Pasted kind_;
};

}  // namespace tallyfin::qt
