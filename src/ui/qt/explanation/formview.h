#pragma once

#include <QTreeWidget>
#include <vector>

#include "explain/form.h"
#include "ui/qt/explanation/setline.h"

namespace tallyfin::qt {

/// A worksheet as a form in a window, a row for each line. Below a line that used a table the table opens, its row
/// marked. The lines that are named where the pointer is, and those that the current line names, are marked.
class FormView : public QTreeWidget {
 public:
  explicit FormView(QWidget* parent);
  ~FormView() override;

  void show(Form form);

  /// The numbers of the lines that are marked.
  std::vector<int> marked() const;
  /// The current row as text, its figure behind a tab; empty where there is none.
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
