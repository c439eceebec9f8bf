#include "ui/qt/binding.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/texts.h"
#include "ui/qt/look.h"

namespace tallyfin::qt {

namespace {

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

/// A caption as a widget shows it: an ampersand is a character, not a mark for the keyboard.
QString plain(const std::string& caption) { return text(caption).replace(QLatin1String("&"), QLatin1String("&&")); }

/// Keeps a drop-down from choosing what the user only passes over, for a choice may open another screen. A wheel that
/// turns over it without the focus scrolls the page; the arrow keys open its list, where Enter chooses.
class PassingGuard : public QObject {
 public:
  explicit PassingGuard(QComboBox& box, QObject* parent) : QObject(parent), box_(box) { box.installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Wheel && !box_.hasFocus()) {
      event->ignore();
      return true;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down) return false;
    box_.showPopup();
    return true;
  }

 private:
  QComboBox& box_;
};

}  // namespace

Binding::Binding(QWidget& widget, Control& control) : QObject(&widget), widget_(widget), control_(&control) {
  widget.setObjectName(text(control.address()));
  widget.setToolTip(text(control.tooltip));
  if (widget.accessibleName().isEmpty()) widget.setAccessibleName(text(control.tooltip));
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
    if (back) widget_.setFocus(Qt::ActiveWindowFocusReason);  // its control has kept the focus
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
  if (const OwnColour& fore = control_->foreColour) {
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
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

Binding& bindPlain(QWidget& widget, Control& control) {
  auto* binding = new Binding(widget, control);
  binding->refresh();
  return *binding;
}

namespace {

/// Turns the mouse's clicks on a widget that has none of its own into acts. Of a double click the first release has
/// run Click already, so the rest of it runs DblClick alone.
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
    // The model knows whose a double click is: the screen behind mustn't take it once more.
    if (doubled_) event->accept();
    return doubled_;
  }

 private:
  Binding& binding_;
  Clickable& control_;
  bool doubled_ = false;
};

void takeClicks(Binding& binding, Clickable& control) {
  binding.widget().installEventFilter(new ClickFilter(binding, control));
}

}  // namespace

Binding& bindPicture(QWidget& widget, Clickable& control) {
  Binding& binding = bindPlain(widget, control);
  takeClicks(binding, control);
  return binding;
}

Binding& bind(QLabel& widget, Label& label) {
  auto* binding = new Binding(widget, label);
  binding->show = [&widget, &label] { widget.setText(text(label.caption())); };
  widget.setTextFormat(Qt::PlainText);
  takeClicks(*binding, label);
  binding->refresh();
  return *binding;
}

namespace {

/// A box shows its plain text while it is being edited and its display format while it isn't.
class EditFilter : public QObject {
 public:
  EditFilter(Binding& binding, QLineEdit& edit, TextBox& box)
      : QObject(&binding), binding_(binding), edit_(edit), box_(box) {}

  void showText() {
    const QString wanted = text(edit_.hasFocus() ? box_.text() : box_.shown());
    if (edit_.text() != wanted) edit_.setText(wanted);
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
      // A box that is given back the focus which its control has kept is left as it was.
      const auto reason = static_cast<QFocusEvent*>(event)->reason();
      const bool gained = event->type() == QEvent::FocusIn && (!box_.focused() || reason == Qt::OtherFocusReason);
      QTimer::singleShot(0, this, [this, gained] {
        if (binding_.control() == nullptr) return;
        showText();
        if (gained && edit_.hasFocus()) edit_.setSelection(box_.selStart(), box_.selLength());
      });
    }
    return false;
  }

 private:
  Binding& binding_;
  QLineEdit& edit_;
  TextBox& box_;
};

}  // namespace

Binding& bind(QLineEdit& edit, TextBox& box) {
  auto* binding = new Binding(edit, box);
  auto* filter = new EditFilter(*binding, edit, box);
  edit.installEventFilter(filter);
  binding->show = [filter] { filter->showText(); };
  QObject::connect(&edit, &QLineEdit::textEdited, binding,
                   [binding, &box](const QString& typed) { binding->act([&] { box.userType(typed.toStdString()); }); });
  binding->refresh();
  return *binding;
}

Binding& bind(QAbstractButton& widget, CommandButton& button) {
  auto* binding = new Binding(widget, button);
  widget.setText(plain(button.caption()));
  if (!button.caption().empty()) widget.setAccessibleName(text(button.caption()).trimmed());
  QObject::connect(&widget, &QAbstractButton::clicked, binding,
                   [binding, &button] { binding->act([&] { button.userClick(); }); });
  binding->refresh();
  return *binding;
}

Binding& bind(QRadioButton& widget, OptionButton& option, QButtonGroup& group) {
  auto* binding = new Binding(widget, option);
  group.addButton(&widget);
  binding->show = [&widget, &option, &group] {
    widget.setText(plain(option.caption()));
    group.setExclusive(false);  // else the last one set couldn't be cleared
    widget.setChecked(option.value());
    group.setExclusive(true);
  };
  QObject::connect(&widget, &QRadioButton::clicked, binding,
                   [binding, &option] { binding->act([&] { option.userClick(); }); });
  binding->refresh();
  return *binding;
}

Binding& bind(QCheckBox& widget, CheckBox& box) {
  auto* binding = new Binding(widget, box);
  widget.setText(plain(box.caption()));
  binding->show = [&widget, &box] { widget.setChecked(box.value()); };
  QObject::connect(&widget, &QCheckBox::clicked, binding, [binding, &box] { binding->act([&] { box.userClick(); }); });
  binding->refresh();
  return *binding;
}

namespace {

/// Turns moving the marker, clicking and Enter in a list into picks; a click on the chosen row picks it again.
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
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    // The toolkit marks the first row of a list that gets the focus with nothing chosen; there is no mark here until
    // the user moves.
    if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, &binding_, [this] { binding_.refresh(); });
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space) return false;
    pick(widget_.currentRow());
    return true;
  }

 private:
  void pick(int row) {
    binding_.act([this, row] { list_.userPick(row); });
  }

  Binding& binding_;
  QListWidget& widget_;
  ListBox& list_;
  Choose choose_;
};

QStringList entriesOf(const ListBox& list) {
  QStringList entries;
  for (const std::string& entry : list.entries()) entries << text(entry);
  return entries;
}

template <class Widget>
QStringList shownEntries(const Widget& widget) {
  QStringList entries;
  for (int i = 0; i < widget.count(); ++i) {
    if constexpr (std::is_same_v<Widget, QListWidget>) {
      entries << widget.item(i)->text();
    } else {
      entries << widget.itemText(i);
    }
  }
  return entries;
}

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
  binding->refresh();
  return *binding;
}

namespace {

Binding& bindCombo(QComboBox& widget, DropDown& dropDown) {
  auto* binding = new Binding(widget, dropDown);
  new PassingGuard(widget, binding);
  widget.setFocusPolicy(Qt::StrongFocus);
  QObject::connect(&widget, &QComboBox::activated, binding,
                   [binding, &dropDown](int row) { binding->act([&] { dropDown.userPick(row); }); });
  return *binding;
}

void showEntries(QComboBox& widget, const DropDown& dropDown) {
  if (shownEntries(widget) != entriesOf(dropDown)) {
    widget.clear();
    widget.addItems(entriesOf(dropDown));
  }
  widget.setCurrentIndex(dropDown.index());
}

}  // namespace

Binding& bind(QComboBox& widget, DropDown& dropDown) {
  Binding& binding = bindCombo(widget, dropDown);
  binding.show = [&widget, &dropDown] { showEntries(widget, dropDown); };
  binding.refresh();
  return binding;
}

Binding& bind(QComboBox& widget, EditableDropDown& dropDown) {
  Binding& binding = bindCombo(widget, dropDown);
  widget.setEditable(true);
  widget.setInsertPolicy(QComboBox::NoInsert);
  widget.setCompleter(nullptr);
  binding.show = [&widget, &dropDown] {
    const int cursor = widget.lineEdit()->cursorPosition();
    showEntries(widget, dropDown);
    const QString wanted = text(dropDown.text());
    if (widget.currentText() != wanted) widget.setEditText(wanted);
    if (widget.lineEdit()->hasFocus()) widget.lineEdit()->setCursorPosition(cursor);
  };
  QObject::connect(widget.lineEdit(), &QLineEdit::textEdited, &binding, [&binding, &dropDown](const QString& typed) {
    binding.act([&] { dropDown.userType(typed.toStdString()); });
  });
  binding.refresh();
  return binding;
}

Binding& bind(QSpinBox& widget, UpDown& upDown) {
  auto* binding = new Binding(widget, upDown);
  widget.setFocusPolicy(Qt::StrongFocus);
  widget.setRange(upDown.from(), upDown.to());
  widget.setKeyboardTracking(false);
  binding->show = [&widget, &upDown] { widget.setValue(upDown.value()); };
  QObject::connect(&widget, &QSpinBox::valueChanged, binding,
                   [binding, &upDown](int value) { binding->act([&] { upDown.userPick(value); }); });
  binding->refresh();
  return *binding;
}

}  // namespace tallyfin::qt
