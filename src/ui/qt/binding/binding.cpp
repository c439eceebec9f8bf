#include "ui/qt/binding/binding.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTimer>
#include <algorithm>

#include "controls/buttons.h"
#include "controls/lists.h"
#include "controls/texts.h"
#include "ui/qt/accessibility/accessible.h"
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
  // The style draws edges a little darker than what it takes for the ground: too little to be seen on the true one.
  const QWidget* ground = widget_.parentWidget();
  const bool edged = widget_.inherits("QLineEdit") || widget_.inherits("QAbstractButton") ||
                     widget_.inherits("QAbstractItemView") || widget_.inherits("QComboBox");
  if (edged && ground != nullptr) {
    const bool dark = ground->palette().color(QPalette::Window).lightness() < 128;
    palette.setColor(QPalette::Window, dark ? look::light : look::lightEdge);
  }
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

Binding& bindPlain(QWidget& widget, Control& control) { return *new Binding(widget, control); }

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
    return doubled_;  // the model knows whose a double click is: the screen behind mustn't take it once more
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

namespace {

/// What the user has changed a text into. Of a text that came in as a whole, such as a cell of a spreadsheet, the line
/// breaks and the blanks at its ends are dropped.
struct Typed {
  QString text;
  qsizetype cursor = -1;  ///< Where the cursor belongs after what came in; -1 where nothing was dropped.
};

Typed typedInto(const QString& before, const QString& now) {
  qsizetype head = 0;
  const qsizetype shorter = std::min(before.size(), now.size());
  while (head < shorter && before[head] == now[head]) ++head;
  qsizetype tail = 0;
  while (tail < shorter - head && before[before.size() - 1 - tail] == now[now.size() - 1 - tail]) ++tail;
  const QString cameIn = now.mid(head, now.size() - head - tail);
  if (cameIn.size() < 2) return {now};  // a key
  static const QRegularExpression breaks(QStringLiteral("[\\r\\n\\x{2028}\\x{2029}]+"));
  const QString kept = cameIn.trimmed().replace(breaks, QStringLiteral(" "));
  if (kept == cameIn) return {now};
  return {now.left(head) + kept + now.right(tail), head + kept.size()};
}

/// A box shows its plain text while it is being edited and its display format while it isn't.
class EditFilter : public QObject {
 public:
  EditFilter(Binding& binding, QLineEdit& edit, TextBox& box)
      : QObject(&binding), binding_(binding), edit_(edit), box_(box) {
    // Assistive technology sets a text without a key.
    QObject::connect(&edit, &QLineEdit::textChanged, this, [this](const QString& now) { take(now); });
  }

  void showText() {
    const QString wanted = text(edit_.hasFocus() ? box_.text() : box_.shown());
    if (edit_.text() == wanted) return;
    showing_ = true;
    edit_.setText(wanted);
    showing_ = false;
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
  void take(const QString& now) {
    if (showing_) return;
    binding_.act([this, now] {
      const Typed typed = typedInto(text(box_.text()), now);
      box_.userType(typed.text.toStdString());
      if (typed.cursor >= 0) edit_.setCursorPosition(static_cast<int>(typed.cursor));
    });
  }

  Binding& binding_;
  QLineEdit& edit_;
  TextBox& box_;
  bool showing_ = false;
};

}  // namespace

Binding& bind(QLineEdit& edit, TextBox& box) {
  auto* binding = new Binding(edit, box);
  auto* filter = new EditFilter(*binding, edit, box);
  edit.installEventFilter(filter);
  binding->show = [filter] { filter->showText(); };
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
    group.setExclusive(false);  // else the last one set couldn't be cleared
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

/// Tells when a row of a list is selected while the marker stays elsewhere: so does assistive technology, and nobody
/// else. Keys and mouse move both.
template <class Picked>
void onBareSelection(Binding& binding, QAbstractItemView& rows, Picked picked) {
  const auto look = [&binding, &rows, picked] {
    if (binding.control() == nullptr || binding.refreshing()) return;
    const QModelIndexList selected = rows.selectionModel()->selectedRows();
    const QModelIndex row = selected.isEmpty() ? rows.currentIndex() : selected.front();
    if (row.isValid() && (selected.isEmpty() || row != rows.currentIndex())) picked(row.row());
  };
  QObject::connect(rows.selectionModel(), &QItemSelectionModel::selectionChanged, &binding, [&binding, look] {
    if (!binding.refreshing()) QTimer::singleShot(0, &binding, look);
  });
}

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
    onBareSelection(binding, widget, [this](int row) {
      widget_.setFocus(Qt::MouseFocusReason);
      pick(row);
    });
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    switch (event->type()) {
      // The toolkit marks the first row of a list that gets the focus with nothing chosen; there is no mark here until
      // the user moves.
      case QEvent::FocusIn: QTimer::singleShot(0, &binding_, [this] { binding_.refresh(); }); return false;
      case QEvent::KeyPress: return pickBy(static_cast<QKeyEvent&>(*event).key());
      default: return false;
    }
  }

 private:
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
  return *binding;
}

namespace {

/// What keys and wheel do to a drop-down. A closed one never chooses, for a choice may open another screen: keys open
/// its list and move its marker there, typed letters to the first entry that begins with them. Enter chooses, Escape
/// leaves all as it was.
class DropDownKeys : public QObject {
 public:
  DropDownKeys(Binding& binding, QComboBox& box, DropDown& dropDown)
      : QObject(&binding), binding_(binding), box_(box), dropDown_(dropDown) {
    box.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != &box_) return event->type() == QEvent::KeyPress && search(static_cast<QKeyEvent&>(*event));
    switch (event->type()) {
      case QEvent::Wheel: event->ignore(); return true;  // it scrolls the page
      case QEvent::KeyPress: return openBy(static_cast<QKeyEvent&>(*event));
      // The toolkit makes the list when it is first opened, or asked for by assistive technology.
      case QEvent::ChildAdded: QTimer::singleShot(0, this, [this] { adoptList(); }); return false;
      default: return false;
    }
  }

 private:
  static constexpr int pause = 1000;  ///< Milliseconds after which typed letters begin anew.

  bool openBy(QKeyEvent& key) {
    switch (key.key()) {
      case Qt::Key_Up:
      case Qt::Key_Down: open(); return true;
      case Qt::Key_Home:
      case Qt::Key_End:
        if (box_.isEditable()) return false;
        [[fallthrough]];
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
        open();
        QApplication::sendEvent(box_.view(), &key);
        return true;
      default: break;
    }
    if (box_.isEditable() || !isLetter(key)) return false;
    open();
    searched_.clear();
    return search(key);
  }

  void open() {
    box_.showPopup();
    adoptList();  // before the keys that wait already
  }

  void adoptList() {
    if (adopted_ || binding_.control() == nullptr) return;
    adopted_ = true;
    QAbstractItemView& rows = *box_.view();
    look::setGround(*rows.parentWidget(), look::onList());
    rows.setAccessibleName(box_.accessibleName());
    rows.installEventFilter(this);
    onBareSelection(binding_, rows, [this](int row) {
      if (row == box_.currentIndex()) return;
      box_.hidePopup();
      box_.setFocus(Qt::MouseFocusReason);
      binding_.act([this, row] { dropDown_.userPick(row); });
    });
  }

  static bool isLetter(const QKeyEvent& key) {
    const bool command = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return !command && !key.text().isEmpty() && key.text().front().isPrint();
  }

  /// Moves the marker of the open list.
  bool search(QKeyEvent& key) {
    if (!isLetter(key)) return false;
    if (!lastLetter_.isValid() || lastLetter_.hasExpired(pause)) searched_.clear();
    lastLetter_.start();
    QString wanted = searched_ + key.text();
    int row = firstFrom(0, wanted);
    if (row < 0 && wanted.count(wanted.front(), Qt::CaseInsensitive) == wanted.size()) {
      // One letter again and again goes through the entries that begin with it.
      row = firstFrom(box_.view()->currentIndex().row() + 1, wanted.left(1));
      if (row < 0) row = firstFrom(0, wanted.left(1));
    }
    if (row < 0) return true;
    searched_ = wanted;
    box_.view()->setCurrentIndex(box_.model()->index(row, box_.modelColumn(), box_.rootModelIndex()));
    return true;
  }

  int firstFrom(int row, const QString& beginning) const {
    for (; row < box_.count(); ++row) {
      if (box_.itemText(row).startsWith(beginning, Qt::CaseInsensitive)) return row;
    }
    return -1;
  }

  Binding& binding_;
  QComboBox& box_;
  DropDown& dropDown_;
  bool adopted_ = false;
  QString searched_;
  QElapsedTimer lastLetter_;
};

Binding& bindCombo(QComboBox& widget, DropDown& dropDown) {
  auto* binding = new Binding(widget, dropDown);
  new DropDownKeys(*binding, widget, dropDown);
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
    widget.lineEdit()->setCursorPosition(cursor);
  };
  QLineEdit* edit = widget.lineEdit();
  QObject::connect(edit, &QLineEdit::textChanged, &binding, [&binding, &widget, &dropDown, edit](const QString& now) {
    // The toolkit writes the chosen entry there before it tells of the choice.
    if (text(dropDown.text()) == now || (widget.currentIndex() >= 0 && widget.itemText(widget.currentIndex()) == now)) {
      return;
    }
    binding.act([&] {
      const Typed typed = typedInto(text(dropDown.text()), now);
      dropDown.userType(typed.text.toStdString());
      if (typed.cursor >= 0) edit->setCursorPosition(static_cast<int>(typed.cursor));
    });
  });
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
  return *binding;
}

}  // namespace tallyfin::qt
