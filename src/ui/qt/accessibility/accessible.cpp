#include "ui/qt/accessibility/accessible.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QApplication>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolButton>
#include <algorithm>

#include "ui/qt/binding/afterevent.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

constexpr const char* roleProperty = "accessibleRole";  // mutation: "accessibleRole" -> *: nothing else reads it

}  // namespace

QString nameOf(const QAbstractButton& button) {
  return button.accessibleName().isEmpty() ? unmarked(button.text()).trimmed() : button.accessibleName();
}

namespace {

/// A button, option, check box or group head. Qt would let assistive technology change only its check mark; here each
/// action is a click, as by the mouse.
class ButtonFace : public QAccessibleWidget {
 public:
  explicit ButtonFace(QAbstractButton& button) : QAccessibleWidget(&button, roleOf(button)), button_(button) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    if (header()) {
      state.expandable = 1;
      state.expanded = button_.isChecked() ? 1 : 0;
      state.collapsed = button_.isChecked() ? 0 : 1;
    } else {
      state.checkable = button_.isCheckable() ? 1 : 0;
      state.checked = button_.isChecked() ? 1 : 0;
    }
    state.pressed = button_.isDown() ? 1 : 0;
    const auto* push = qobject_cast<const QPushButton*>(&button_);
    state.defaultButton = push != nullptr && push->isDefault() ? 1 : 0;
    return state;
  }

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name) return nameOf(button_);
    if (kind == QAccessible::Accelerator) return button_.shortcut().toString(QKeySequence::NativeText);
    return QAccessibleWidget::text(kind);
  }

  QStringList actionNames() const override {
    QStringList names;
    if (button_.isEnabled()) names << (button_.isCheckable() && !header() ? toggleAction() : pressAction());
    return names + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& action) override {
    if (action != pressAction() && action != toggleAction()) return QAccessibleWidget::doAction(action);
    // The press may open a dialog, so it runs after the answer to assistive technology.
    afterThisEvent(button_, [&button = button_] {
      if (button.focusPolicy() & Qt::ClickFocus) button.setFocus(Qt::MouseFocusReason);
      button.click();
    });
  }

  QStringList keyBindingsForAction(const QString& action) const override {
    const bool press = action == pressAction() || action == toggleAction();
    return press && !button_.shortcut().isEmpty() ? QStringList(text(QAccessible::Accelerator)) : QStringList();
  }

 private:
  bool header() const { return dynamic_cast<const Expander*>(&button_) != nullptr; }

  static QAccessible::Role roleOf(const QAbstractButton& button) {
    if (qobject_cast<const QRadioButton*>(&button) != nullptr) return QAccessible::RadioButton;
    return button.inherits("QCheckBox") ? QAccessible::CheckBox : QAccessible::Button;
  }

  QAbstractButton& button_;
};

class SwitchFace : public QAccessibleWidget {
 public:
  SwitchFace(QWidget& widget, Switch& lever) : QAccessibleWidget(&widget, QAccessible::CheckBox), lever_(lever) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = 1;
    state.checked = lever_.on() ? 1 : 0;
    return state;
  }
  QStringList actionNames() const override { return QStringList(toggleAction()) + QAccessibleWidget::actionNames(); }
  void doAction(const QString& action) override {
    if (action != toggleAction()) return QAccessibleWidget::doAction(action);
    afterThisEvent(*widget(), [widget = widget(), &lever = lever_] {
      widget->setFocus(Qt::MouseFocusReason);
      lever.turn();
    });
  }

 private:
  Switch& lever_;
};

/// A page that may be out of view.
class TurnableFace : public QAccessibleWidget {
 public:
  TurnableFace(QWidget& widget, const Turnable& page)
      : QAccessibleWidget(&widget, QAccessible::Grouping), page_(page) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    if (!shows()) state.invisible = state.offscreen = 1;
    return state;
  }
  int childCount() const override { return shows() ? QAccessibleWidget::childCount() : 0; }
  QAccessibleInterface* child(int index) const override { return shows() ? QAccessibleWidget::child(index) : nullptr; }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return shows() ? QAccessibleWidget::indexOfChild(child) : -1;
  }
  QAccessibleInterface* focusChild() const override { return shows() ? QAccessibleWidget::focusChild() : nullptr; }

 private:
  bool shows() const {
    const QWidget* focused = QApplication::focusWidget();
    return page_.inView() || (focused != nullptr && widget()->isAncestorOf(focused));
  }

  const Turnable& page_;
};

/// A text for screen readers: as a value, and by characters, words and lines.
class ReadableFace : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  ReadableFace(QWidget& widget, QAccessible::Role role, const Readable& readable)
      : QAccessibleWidget(&widget, role), readable_(readable) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? readable_.readable() : QAccessibleWidget::text(kind);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = 1;
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
  int selectionCount() const override { return 0; }
  void addSelection(int /*start*/, int /*end*/) override {}
  void removeSelection(int /*index*/) override {}
  void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
  int cursorPosition() const override { return 0; }
  void setCursorPosition(int /*position*/) override {}
  QString text(int start, int end) const override { return readable_.readable().mid(start, end - start); }
  int characterCount() const override { return static_cast<int>(readable_.readable().size()); }
  QRect characterRect(int /*offset*/) const override { return rect(); }
  int offsetAtPoint(const QPoint& /*point*/) const override { return 0; }
  void scrollToSubstring(int /*start*/, int /*end*/) override {}
  QString attributes(int /*offset*/, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

 private:
  const Readable& readable_;
};

/// A document that is read. Qt's own text of it has marks where tables and their cells begin and end (U+FDD0, U+FDD1),
/// which screen readers speak; here they are line breaks.
class DocumentFace : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit DocumentFace(QTextEdit& edit) : QAccessibleWidget(&edit, QAccessible::StaticText), edit_(edit) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? text(0, characterCount()) : QAccessibleWidget::text(kind);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = state.multiLine = state.selectableText = 1;
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QString text(int start, int end) const override {
    QString letters = between(start, end).selectedText();
    for (const char16_t mark : {u'\u2028', u'\u2029', u'\uFDD0', u'\uFDD1'})
      letters.replace(QChar(mark), QLatin1Char('\n'));
    return letters.replace(QChar(QChar::Nbsp), QLatin1Char(' '));
  }
  int characterCount() const override { return edit_.document()->characterCount() - 1; }
  int selectionCount() const override { return edit_.textCursor().hasSelection() ? 1 : 0; }
  void selection(int /*index*/, int* start, int* end) const override {
    *start = edit_.textCursor().selectionStart();
    *end = edit_.textCursor().selectionEnd();
  }
  void addSelection(int start, int end) override { setSelection(0, start, end); }
  void setSelection(int /*index*/, int start, int end) override { edit_.setTextCursor(between(start, end)); }
  void removeSelection(int /*index*/) override { setCursorPosition(cursorPosition()); }
  int cursorPosition() const override { return edit_.textCursor().position(); }
  void setCursorPosition(int position) override { edit_.setTextCursor(between(position, position)); }
  QRect characterRect(int offset) const override {
    const QRect before = edit_.cursorRect(between(offset, offset));
    const QRect behind = edit_.cursorRect(between(offset + 1, offset + 1));
    const bool sameLine = before.top() == behind.top() && behind.left() > before.left();
    const QSize size(sameLine ? behind.left() - before.left() : 1, before.height());
    return {edit_.viewport()->mapToGlobal(before.topLeft()), size};
  }
  int offsetAtPoint(const QPoint& point) const override {
    return edit_.cursorForPosition(edit_.viewport()->mapFromGlobal(point)).position();
  }
  void scrollToSubstring(int start, int /*end*/) override {
    const QRect line = edit_.cursorRect(between(start, start));
    if (edit_.viewport()->rect().contains(line)) return;
    edit_.verticalScrollBar()->setValue(edit_.verticalScrollBar()->value() + line.top());
  }
  QString attributes(int /*offset*/, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

 private:
  QTextCursor between(int start, int end) const {
    QTextCursor cursor(edit_.document());
    cursor.setPosition(std::clamp(start, 0, characterCount()));
    cursor.setPosition(std::clamp(end, 0, characterCount()), QTextCursor::KeepAnchor);
    return cursor;
  }

  QTextEdit& edit_;
};

QAccessible::Role roleOf(const QWidget& widget, QAccessible::Role otherwise) {
  const QVariant role = widget.property(roleProperty);
  return role.isValid() ? static_cast<QAccessible::Role>(role.toInt()) : otherwise;
}

QAccessibleInterface* faceOf(const QString& /*className*/, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr) return nullptr;
  if (const auto* readable = dynamic_cast<const Readable*>(object)) {
    return new ReadableFace(*widget, roleOf(*widget, QAccessible::StaticText), *readable);
  }
  if (const auto* page = dynamic_cast<const Turnable*>(object)) return new TurnableFace(*widget, *page);
  if (auto* lever = dynamic_cast<Switch*>(object)) return new SwitchFace(*widget, *lever);
  if (auto* edit = qobject_cast<QTextEdit*>(object)) return new DocumentFace(*edit);
  auto* button = qobject_cast<QAbstractButton*>(object);
  if (button != nullptr && qobject_cast<QToolButton*>(object) == nullptr) return new ButtonFace(*button);
  if (widget->property(roleProperty).isValid()) return new QAccessibleWidget(widget, roleOf(*widget, {}));
  return nullptr;
}

}  // namespace

void answerAssistiveTechnology() { QAccessible::installFactory(faceOf); }

void presentAs(QWidget& widget, QAccessible::Role role) { widget.setProperty(roleProperty, static_cast<int>(role)); }

void tellReadable(const QWidget& widget, const QString& before, const QString& now) {
  auto* told = const_cast<QWidget*>(&widget);
  QAccessibleTextUpdateEvent text(told, 0, before, now);
  QAccessible::updateAccessibility(&text);
  QAccessibleValueChangeEvent value(told, now);
  QAccessible::updateAccessibility(&value);
}

Announcer::Announcer(QWidget* window) : QWidget(window) {
  setObjectName(QStringLiteral("announcer"));
  presentAs(*this, QAccessible::Notification);
  setFixedSize(1, 1);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Announcer::say(const QString& words) {
  setAccessibleName(words);  // notifies of the new name
  for (const auto kind : {QAccessible::ObjectShow, QAccessible::Alert}) {
    QAccessibleEvent event(this, kind);
    QAccessible::updateAccessibility(&event);
  }
}

}  // namespace tallyfin::qt
