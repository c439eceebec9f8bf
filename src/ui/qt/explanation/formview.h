#pragma once

#include <QTreeWidget>
#include <vector>

#include "explain/form.h"
#include "ui/qt/explanation/setline.h"

namespace tallyfin::qt {

/// A worksheet as a form in a window, a row for each line. A table opens below the line that used it, with its row
/// highlighted. Lines that the text at the pointer or the current line refers to are highlighted.
class FormView : public QTreeWidget {
 public:
  explicit FormView(QWidget* parent);
  ~FormView() override;

  void show(Form form);

  /// The numbers of the highlighted lines.
  std::vector<int> marked() const;
  /// The current row as text, with a tab before its figure; empty for none.
  QString currentText() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  class Delegate;

  void addTable(QTreeWidgetItem& line, const FormTable& table);
  void setForm();
  void point(std::vector<int> lines);
  /// The line of a row of the view; null for the row of a table.
  const FormLine* lineOf(const QModelIndex& index) const;

  Form form_;
  SetLines set_;
  std::vector<int> pointed_;
};

}  // namespace tallyfin::qt
