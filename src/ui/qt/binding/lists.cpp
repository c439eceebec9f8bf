#include "controls/lists.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QSpinBox>

#include "ui/qt/binding/afterevent.h"
#include "ui/qt/binding/binding.h"
#include "ui/qt/binding/rows.h"

namespace tallyfin::qt {

namespace {

/// Turns marker moves, clicks and Enter in a list into picks; a click on the chosen row picks it again.
class PickFilter : public QObject {
 public:
  PickFilter(Binding& binding, QListWidget& widget, ListBox& list, Choose choose)
      : QObject(&binding), binding_(binding), widget_(widget), list_(list), choose_(choose) {
    widget.installEventFilter(this);
    QObject::connect(&widget, &QListWidget::currentRowChanged, this, [this](int row) {
      const bool moved = row >= 0 && widget_.item(row)->isSelected();
      if (moved && choose_ == Choose::byMoving && QApplication::mouseButtons() == Qt::NoButton) pick(row);
    });
    QObject::connect(&widget, &QListWidget::itemClicked, this,
                     [this](QListWidgetItem* item) { pick(widget_.row(item)); });
    onBareSelection(binding, widget, [this](const QModelIndexList& selected) { pickSelected(selected); });
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    switch (event->type()) {
      // Qt marks the first row of a list that gets the focus with nothing chosen. Here no row is marked until the user
      // moves.
      case QEvent::FocusIn: afterThisEvent(binding_, [this] { binding_.refresh(); }); return false;
      case QEvent::KeyPress: return pickBy(static_cast<QKeyEvent&>(*event).key());
      default: return false;
    }
  }

 private:
  /// Unselecting the chosen row picks it again.
  void pickSelected(const QModelIndexList& selected) {
    const QModelIndex row = selected.isEmpty() ? widget_.currentIndex() : selected.front();
    if (!row.isValid() || (!selected.isEmpty() && row == widget_.currentIndex())) return;
    widget_.setFocus(Qt::MouseFocusReason);
    pick(row.row());
  }

  bool pickBy(int key) {
    const bool chooses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    if (chooses) pick(widget_.currentRow());
    return chooses;
  }

  void pick(int row) {
    binding_.act([this, row] { list_.userPick(row); });
  }

  Binding& binding_;
  QListWidget& widget_;
  ListBox& list_;
  Choose choose_;
};

}  // namespace

Binding& bind(QListWidget& widget, ListBox& list, Choose choose) {
  auto* binding = new Binding(widget, list);
  new PickFilter(*binding, widget, list, choose);
  binding->show = [&widget, &list] {
    if (shownEntries(widget) != entriesOf(list)) {
      widget.clear();
      widget.addItems(entriesOf(list));
    }
    widget.setCurrentRow(list.index());
  };
  return *binding;
}

Binding& bind(QSpinBox& widget, UpDown& upDown) {
  auto* binding = new Binding(widget, upDown);
  widget.setFocusPolicy(Qt::StrongFocus);
  widget.setRange(upDown.from(), upDown.to());
  widget.setKeyboardTracking(false);
  binding->show = [&widget, &upDown] { widget.setValue(upDown.value()); };
  QObject::connect(&widget, &QSpinBox::valueChanged, binding,
                   [binding, &upDown](int value) { binding->act([&] { upDown.userPick(value); }); });
  return *binding;
}

}  // namespace tallyfin::qt
