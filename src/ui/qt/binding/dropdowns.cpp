#include "ui/qt/binding/dropdowns.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "controls/lists.h"
#include "ui/qt/binding/afterevent.h"
#include "ui/qt/binding/rows.h"
#include "ui/qt/binding/texts.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

void DropDownBox::showPopup() {
  QComboBox::showPopup();
  if (opened) opened();
}

void takeTypedEntry(QWidget* focused) {
  const auto* box = dynamic_cast<DropDownBox*>(focused);
  if (box != nullptr && box->takeTyped) box->takeTyped();
}

namespace {

/// Keys and wheel on a drop-down. A closed one never chooses, because a choice may open another screen. Keys open its
/// list and move the marker; typed letters move it to the first entry that begins with them. Enter chooses, Escape
/// changes nothing.
class DropDownKeys : public QObject {
 public:
  DropDownKeys(Binding& binding, DropDownBox& box, DropDown& dropDown)
      : QObject(&binding), binding_(binding), box_(box), dropDown_(dropDown) {
    box.installEventFilter(this);
    box.opened = [this] {
      adoptList();  // before pending keys are handled
      if (dropDown_.index() < 0) box_.view()->selectionModel()->clear();
    };
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != &box_) return hearList(*event);
    switch (event->type()) {
      case QEvent::Wheel: event->ignore(); return true;  // the page scrolls
      case QEvent::KeyPress: return openBy(static_cast<QKeyEvent&>(*event));
      // Qt creates the list when it is first opened, or when assistive technology requests it.
      case QEvent::ChildAdded: afterThisEvent(*this, [this] { adoptList(); }); return false;
      default: return false;
    }
  }

 private:
  static constexpr int pause = 1000;  ///< Milliseconds after which typed letters start a new search.

  bool openBy(QKeyEvent& key) {
    switch (key.key()) {
      case Qt::Key_Up:
      case Qt::Key_Down: box_.showPopup(); return true;
      case Qt::Key_Home:
      case Qt::Key_End:
        if (box_.isEditable()) return false;
        [[fallthrough]];
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
        box_.showPopup();
        QApplication::sendEvent(box_.view(), &key);
        return true;
      default: break;
    }
    if (box_.isEditable() || !isLetter(key)) return false;
    box_.showPopup();
    searched_.clear();
    return search(key);
  }

  bool hearList(QEvent& event) {
    // Qt makes the first row of a list the current one when it gets the keyboard with no entry chosen.
    if (event.type() == QEvent::FocusIn) {
      afterThisEvent(*box_.view(), [rows = box_.view()] {
        if (!rows->selectionModel()->hasSelection()) rows->selectionModel()->clear();
      });
    }
    return event.type() == QEvent::KeyPress && search(static_cast<QKeyEvent&>(event));
  }

  void adoptList() {
    if (adopted_ || binding_.control() == nullptr) return;
    // mutation: adopted_ = true; -> nothing and true -> false: adopted once more, the list is the same
    adopted_ = true;
    QAbstractItemView& rows = *box_.view();
    look::setGround(*rows.parentWidget(), look::onList());
    rows.setAccessibleName(box_.accessibleName());
    rows.installEventFilter(this);
    onBareSelection(binding_, rows, [this](const QModelIndexList& selected) { pickSelected(selected); });
  }

  void pickSelected(const QModelIndexList& selected) {
    const int row = selected.isEmpty() ? -1 : selected.front().row();
    if (row < 0 || selected.front() == box_.view()->currentIndex() || row == dropDown_.index()) return;
    box_.hidePopup();
    box_.setFocus(Qt::MouseFocusReason);
    binding_.act([this, row] { dropDown_.userPick(row); });
  }

  static bool isLetter(const QKeyEvent& key) {
    const bool command = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return !command && !key.text().isEmpty() && key.text().front().isPrint();
  }

  /// Moves the marker of the open list.
  bool search(QKeyEvent& key) {
    if (!isLetter(key)) return false;
    // The times of the keys themselves: a busy machine may handle them later.
    if (key.timestamp() - lastLetter_ > pause) searched_.clear();
    lastLetter_ = key.timestamp();
    QString wanted = searched_ + key.text();
    int row = firstFrom(0, wanted);
    if (row < 0 && wanted.count(wanted.front(), Qt::CaseInsensitive) == wanted.size()) {
      // The same letter repeated moves through the entries that begin with it.
      row = firstFrom(box_.view()->currentIndex().row() + 1, wanted.left(1));
      if (row < 0) row = firstFrom(0, wanted.left(1));  // mutation: 0 -> 1 and < -> <=: the first entry is found again
    }
    if (row < 0) return true;
    searched_ = wanted;
    box_.view()->setCurrentIndex(box_.model()->index(row, box_.modelColumn(), box_.rootModelIndex()));
    return true;
  }

  int firstFrom(int row, const QString& beginning) const {
    for (; row < box_.count(); ++row) {  // mutation: < -> <=: the first entry is found again
      if (box_.itemText(row).startsWith(beginning, Qt::CaseInsensitive)) return row;
    }
    return -1;  // mutation: 1 -> 2: the first entry is found again
  }

  Binding& binding_;
  DropDownBox& box_;
  DropDown& dropDown_;
  bool adopted_ = false;
  QString searched_;
  // mutation: 0 -> 1: the search is empty at the first letter
  quint64 lastLetter_ = 0;  ///< When it was typed, in milliseconds.
};

Binding& bindCombo(DropDownBox& widget, DropDown& dropDown) {
  auto* binding = new Binding(widget, dropDown);
  new DropDownKeys(*binding, widget, dropDown);
  widget.setFocusPolicy(Qt::StrongFocus);
  QObject::connect(&widget, &QComboBox::activated, binding,
                   [binding, &dropDown](int row) { binding->act([&] { dropDown.userPick(row); }); });
  return *binding;
}

void showEntries(DropDownBox& widget, const DropDown& dropDown) {
  if (shownEntries(widget) != entriesOf(dropDown)) {
    widget.clear();
    widget.addItems(entriesOf(dropDown));
  }
}

/// The text of an editable drop-down. It isn't set while an entry is typed, because Qt would clear the undo history.
class TypedEntry : public QObject {
 public:
  TypedEntry(Binding& binding, DropDownBox& box, EditableDropDown& dropDown)
      : QObject(&binding), binding_(binding), box_(box), edit_(*box.lineEdit()), dropDown_(dropDown) {
    box.installEventFilter(this);
    box.takeTyped = [this] { take(); };
    connect(&edit_, &QLineEdit::textEdited, this, [this](const QString& now) { type(now); });
    // Assistive technology sets a text without a key.
    connect(&edit_, &QLineEdit::textChanged, this, [this](const QString& now) {
      if (binding_.refreshing() || now == text()) return;
      edit_.setModified(true);
      type(now);
    });
  }

  void show() {
    showEntries(box_, dropDown_);
    const bool typed = dropDown_.index() < 0 && edit_.text() == text();
    if (typed) return;
    const int cursor = edit_.cursorPosition();
    box_.setCurrentIndex(dropDown_.index());
    if (edit_.text() != text()) edit_.setText(text());
    if (edit_.cursorPosition() != cursor) edit_.setCursorPosition(cursor);
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (binding_.control() == nullptr) return false;  // its screen has closed
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Return || key == Qt::Key_Enter) take();
    } else if (event->type() == QEvent::FocusOut) {
      // Another active window, or a menu, doesn't end editing.
      const auto reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) take();
    }
    return false;
  }

 private:
  QString text() const { return qt::text(dropDown_.text()); }

  void type(const QString& now) {
    binding_.act([&] { dropDown_.userType(now.toStdString()); });
  }

  /// Chooses the entry that has been typed, in any letter case.
  void take() {
    if (!edit_.isModified()) return;
    const int row = box_.findText(edit_.text(), Qt::MatchFixedString);
    if (row < 0) return;
    edit_.setModified(false);
    binding_.act([&] { dropDown_.userPick(row); });
  }

  Binding& binding_;
  DropDownBox& box_;
  QLineEdit& edit_;
  EditableDropDown& dropDown_;
};

}  // namespace

Binding& bind(DropDownBox& widget, DropDown& dropDown) {
  Binding& binding = bindCombo(widget, dropDown);
  binding.show = [&widget, &dropDown] {
    showEntries(widget, dropDown);
    widget.setCurrentIndex(dropDown.index());
  };
  return binding;
}

Binding& bind(DropDownBox& widget, EditableDropDown& dropDown) {
  Binding& binding = bindCombo(widget, dropDown);
  widget.setEditable(true);
  // mutation: QComboBox::NoInsert -> * and widget.setInsertPoli* -> nothing: the act that follows takes away what the
  // toolkit adds
  widget.setInsertPolicy(QComboBox::NoInsert);
  widget.setCompleter(nullptr);
  auto* typed = new TypedEntry(binding, widget, dropDown);
  auto* pasted = new PasteFilter(*widget.lineEdit(), Pasted::amount);
  pasted->hear(widget);  // the line edit gets its keys from the drop-down
  binding.show = [typed] { typed->show(); };
  QObject::connect(&widget, &QComboBox::activated, &binding, [edit = widget.lineEdit()] { edit->setModified(false); });
  return binding;
}

}  // namespace tallyfin::qt
