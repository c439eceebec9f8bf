#include "ui/qt/binding/binding.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QRadioButton>
#include <QSpinBox>

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/texts.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/binding/afterevent.h"
#include "ui/qt/binding/rows.h"
#include "ui/qt/widgets/look.h"

namespace tallyfin::qt {

namespace {

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

}  // namespace

Binding::Binding(QWidget& widget, Control& control) : QObject(&widget), widget_(widget), control_(&control) {
  widget.setObjectName(text(control.address()));
  widget.setToolTip(text(control.tooltip));
  widget.setMouseTracking(true);
  widget.installEventFilter(this);
  control.watch([this] { refresh(); });
}

void Binding::release() {
  if (control_ != nullptr) control_->watch(nullptr);
  control_ = nullptr;
}

void Binding::refresh() {
  if (control_ == nullptr || refreshing_) return;
  refreshing_ = true;
  widget_.setEnabled(control_->enabled);
  if (control_->visible && (!shown || shown())) {
    const bool back = widget_.isHidden() && control_->focused();
    widget_.setVisible(true);
    if (back) widget_.setFocus(Qt::ActiveWindowFocusReason);  // its control still has the focus
  } else {
    hideQuietly(widget_);
  }
  applyColours();
  if (show) show();
  refreshing_ = false;
}

void hideQuietly(QWidget& widget) {
  QWidget* focused = QApplication::focusWidget();
  if (focused != nullptr && (focused == &widget || widget.isAncestorOf(focused))) focused->clearFocus();
  widget.hide();
}

void Binding::applyColours() {
  QPalette palette = colours;
  // The style draws edges slightly darker than the window colour: too little contrast on the real background.
  const QWidget* ground = widget_.parentWidget();
  const bool edged = widget_.inherits("QLineEdit") || widget_.inherits("QAbstractButton") ||
                     widget_.inherits("QAbstractItemView") || widget_.inherits("QComboBox");
  if (edged && ground != nullptr) {
    const bool dark = ground->palette().color(QPalette::Window).lightness() < 128;
    palette.setColor(QPalette::Window, dark ? look::light : look::lightEdge);
  }
  if (const OwnColour& fore = control_->foreColour) {
    // The check mark of an option or check box has the colour Text, on a light background.
    const bool marked = widget_.inherits("QRadioButton") || widget_.inherits("QCheckBox");
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
      if (marked && role == QPalette::Text) continue;
      palette.setColor(QPalette::Active, role, look::colour(*fore));
      palette.setColor(QPalette::Inactive, role, look::colour(*fore));
    }
  }
  if (const OwnColour& back = control_->backColour) {
    palette.setColor(QPalette::Base, look::colour(*back));
    if (qobject_cast<QLabel*>(&widget_) != nullptr) {
      palette.setColor(QPalette::Window, look::colour(*back));
      palette.setColor(QPalette::WindowText, look::ink);
      widget_.setAutoFillBackground(true);
    }
  }
  widget_.setPalette(palette);
}

bool Binding::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (control_ == nullptr) return false;
  switch (event->type()) {
    case QEvent::FocusIn: control_->userFocus(); break;
    case QEvent::Enter: control_->userEnter(); break;
    case QEvent::Leave: control_->userLeave(); break;
    case QEvent::MouseMove: control_->userMove(); break;
    default: break;
  }
  return false;
}

Binding& bindPlain(QWidget& widget, Control& control) { return *new Binding(widget, control); }

namespace {

/// Turns mouse clicks on a widget without a clicked signal into acts. The first release of a double click has run Click
/// already, so the rest runs only DblClick.
class ClickFilter : public QObject {
 public:
  ClickFilter(Binding& binding, Clickable& control) : QObject(&binding), binding_(binding), control_(control) {}

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    const auto type = event->type();
    const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!press && type != QEvent::MouseButtonRelease) return false;
    if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) return false;
    if (type == QEvent::MouseButtonRelease && !doubled_) {
      binding_.act([this] { control_.userClick(); });
    } else if (type == QEvent::MouseButtonDblClick) {
      binding_.act([this] { control_.userSecondClick(); });
    }
    doubled_ = type == QEvent::MouseButtonDblClick;
    return doubled_;  // the model handles the double click: the screen behind must not handle it again
  }

 private:
  Binding& binding_;
  Clickable& control_;
  bool doubled_ = false;
};

}  // namespace

Binding& bind(QLabel& widget, Label& label) {
  auto* binding = new Binding(widget, label);
  binding->show = [&widget, &label] {
    const QString before = widget.text();
    const QString now = text(label.caption());
    widget.setText(now);
    if (before != now && dynamic_cast<Readable*>(&widget) != nullptr) tellReadable(widget, before, now);
  };
  widget.installEventFilter(new ClickFilter(*binding, label));
  return *binding;
}

Binding& bind(QAbstractButton& widget, CommandButton& button) {
  auto* binding = new Binding(widget, button);
  widget.setText(text(button.caption()));
  QObject::connect(&widget, &QAbstractButton::clicked, binding,
                   [binding, &button] { binding->act([&] { button.userClick(); }); });
  return *binding;
}

Binding& bind(QRadioButton& widget, OptionButton& option, QButtonGroup& group) {
  auto* binding = new Binding(widget, option);
  group.addButton(&widget);
  binding->show = [&widget, &option, &group] {
    if (nameOf(widget) != text(option.caption()).trimmed()) widget.setText(text(option.caption()));
    group.setExclusive(false);  // else Qt wouldn't clear the last option
    widget.setChecked(option.value());
    group.setExclusive(true);
  };
  QObject::connect(&widget, &QRadioButton::clicked, binding,
                   [binding, &option] { binding->act([&] { option.userClick(); }); });
  return *binding;
}

Binding& bind(QCheckBox& widget, CheckBox& box) {
  auto* binding = new Binding(widget, box);
  widget.setText(text(box.caption()));
  binding->show = [&widget, &box] { widget.setChecked(box.value()); };
  QObject::connect(&widget, &QCheckBox::clicked, binding, [binding, &box] { binding->act([&] { box.userClick(); }); });
  return *binding;
}

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
