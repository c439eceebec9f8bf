#include "consistency.h"

#include <QAccessible>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QSpinBox>
#include <QTableWidget>
#include <utility>

#include "controls/buttons.h"
#include "controls/calendar.h"
#include "controls/lists.h"
#include "controls/output.h"
#include "ui/qt/frame/document.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/frame/listbar.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

QString joined(const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& one : texts) list << text(one);
  return list.join(QLatin1Char('|'));
}

/// A tooltip without the key at its end.
QString withoutKey(QString tooltip) {
  static const QRegularExpression key(QStringLiteral(" \\((F\\d+|(Ctrl|Alt|Shift)\\+[^)]+)\\)$"));
  return tooltip.remove(key);
}

QString date(const std::chrono::year_month_day& day) {
  return QStringLiteral("%1-%2-%3")
      .arg(static_cast<int>(day.year()))
      .arg(static_cast<unsigned>(day.month()))
      .arg(static_cast<unsigned>(day.day()));
}

QString rowsOf(const QTableWidget& table) {
  QStringList cells;
  for (int row = 0; row < table.rowCount(); ++row) cells << table.item(row, 0)->text() << table.item(row, 1)->text();
  return cells.join(QLatin1Char('|'));
}

QPalette::ColorRole roleOfLetters(const QWidget& widget) {
  const auto* combo = qobject_cast<const QComboBox*>(&widget);
  if (combo != nullptr) return combo->isEditable() ? QPalette::Text : QPalette::ButtonText;
  const bool base = qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QAbstractSpinBox*>(&widget);
  return base ? QPalette::Text : widget.foregroundRole();
}

QPalette::ColorRole roleOfGround(const QWidget& widget) {
  const bool plain = qobject_cast<const QLabel*>(&widget) || qobject_cast<const QAbstractButton*>(&widget);
  return plain ? widget.backgroundRole() : QPalette::Base;
}

}  // namespace

void Consistency::look(const Desktop& desktop) {
  differences_.clear();
  held_.clear();
  std::erase_if(ties_, [](const auto& entry) { return entry.second.view == nullptr || !entry.second.view->screen(); });
  for (Screen* screen : desk.loaded()) {
    address_ = text(screen->name());
    View* view = desktop.view(screen->name());
    same("shown", screen->shown() ? 1 : 0, view != nullptr ? 1 : 0);
    if (view == nullptr) continue;
    if (ties_[screen].view != view) tieAll(*view, *screen);
    compareScreen(*view, *screen);
  }
  compareDocuments(desktop);
  compareFocus(desktop);
}

void Consistency::tieAll(View& view, const Screen& screen) {
  std::map<const QWidget*, Control*> known;
  Ties& ties = ties_[&screen];
  ties = {&view, {}};
  for (Control* control : screen.controls()) {
    const auto widgets = view.findChildren<QWidget*>(text(control->address()));
    if (widgets.size() != 1) {
      differ(QStringLiteral("%1 widgets of %2").arg(widgets.size()).arg(text(control->address())));
      continue;
    }
    known[widgets.front()] = control;
    ties.ties.push_back({control, widgets.front(), {}});
  }
  for (Tie& tie : ties.ties) {
    for (const QWidget* around = tie.widget; around != nullptr && around != &view; around = around->parentWidget()) {
      if (!known.contains(around)) continue;
      if (const auto* panel = dynamic_cast<const Panel*>(known[around])) tie.pages.push_back(panel);
    }
  }
}

Control* Consistency::controlOf(const QWidget* widget) const {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    for (const auto& [screen, ties] : ties_) {
      if (ties.view == nullptr || ties.view->screen() == nullptr) continue;
      for (const Tie& tie : ties.ties) {
        if (tie.widget == widget && dynamic_cast<Panel*>(tie.control) == nullptr) return tie.control;
      }
    }
  }
  return nullptr;
}

void Consistency::compareScreen(View& view, const Screen& screen) {
  const QWidget* window = view.window();
  if (screen.place() == Place::document) {
    const QWidget* document = &view;
    while (dynamic_cast<const Document*>(document) == nullptr) document = document->parentWidget();
    QStringList titles;
    for (const auto* label : document->findChildren<QLabel*>(QString(), Qt::FindChildrenRecursively)) {
      if (!view.isAncestorOf(label) && label->objectName() != QLatin1String("confirmed")) titles << label->text();
    }
    same("title", screen.title(), titles.join(QLatin1Char('|')));
    const QWidget* area = document->parentWidget();
    if (screen.maximized) same("maximised", 1, document->geometry() == area->rect() ? 1 : 0);
  } else {
    same("title", screen.title(), window->windowTitle());
  }
  if (const OwnColour& ground = screen.backColour) {
    same("ground", look::colour(*ground).name(), view.palette().color(QPalette::Window).name());
  }
  for (const Tie& tie : ties_[&screen].ties) compare(tie, view);
}

void Consistency::compare(const Tie& tie, const View& view) {
  const Control& control = *tie.control;
  QWidget& widget = *tie.widget;
  address_ = text(control.screen().name() + "." + control.address());
  bool inSight = control.visible;
  for (const Panel* page : tie.pages) inSight = inSight && page->visible && page->left >= 0;
  if (control.screen().place() == Place::frame) {
    // The list bar shows the items of one group at a time; items of closed groups are hidden.
    same("visible", control.visible ? 1 : 0, widget.isHidden() ? 0 : 1);
    same("enabled", control.enabled ? 1 : 0, widget.isEnabled() ? 1 : 0);
    if (!control.tooltip.empty()) same("tooltip", control.tooltip, withoutKey(widget.toolTip()));
    compareContent(control, widget);
    return compareNames(control, widget);
  }
  const bool there =
      widget.isVisibleTo(const_cast<View*>(&view)) && widget.mapTo(&view, widget.rect().topRight()).x() >= 0;
  same("visible", inSight ? 1 : 0, there ? 1 : 0);
  same("enabled", control.enabled ? 1 : 0, widget.isEnabledTo(const_cast<View*>(&view)) ? 1 : 0);
  if (!control.tooltip.empty()) same("tooltip", control.tooltip, withoutKey(widget.toolTip()));
  compareContent(control, widget);
  compareColours(control, widget);
  compareNames(control, widget);
}

void Consistency::compareContent(const Control& control, QWidget& widget) {
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    const auto& shown = dynamic_cast<QLabel&>(widget);
    same("caption", label->caption(), shown.buddy() != nullptr ? unmarked(shown.text()) : shown.text());
  } else if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
    const auto& edit = dynamic_cast<QLineEdit&>(widget);
    same("text", edit.hasFocus() ? box->text() : box->shown(), edit.text());
  } else if (const auto* item = dynamic_cast<const ListBarItem*>(&control)) {
    const auto& button = dynamic_cast<ListBarButton&>(widget);
    same("caption", item->caption(), button.text());
    same("highlighted", item->highlighted() ? 1 : 0, button.highlighted ? 1 : 0);
  } else if (const auto* command = dynamic_cast<const CommandButton*>(&control)) {
    const QString shown = unmarked(dynamic_cast<QAbstractButton&>(widget).text());
    if (!command->caption().empty()) same("caption", command->caption(), shown);  // else the view has a caption
  } else if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    const auto& button = dynamic_cast<QRadioButton&>(widget);
    same("caption", option->caption(), unmarked(button.text()));
    same("value", option->value() ? 1 : 0, button.isChecked() ? 1 : 0);
  } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
    const auto& button = dynamic_cast<QCheckBox&>(widget);
    same("caption", check->caption(), unmarked(button.text()));
    same("value", check->value() ? 1 : 0, button.isChecked() ? 1 : 0);
  } else if (const auto* dropDown = dynamic_cast<const DropDown*>(&control)) {
    const auto& combo = dynamic_cast<QComboBox&>(widget);
    QStringList entries;
    for (int i = 0; i < combo.count(); ++i) entries << combo.itemText(i);
    same("entries", joined(dropDown->entries()), entries.join(QLatin1Char('|')));
    // While a text is typed, the widget's index doesn't change; it isn't visible.
    if (!combo.isEditable() || dropDown->index() >= 0) same("index", dropDown->index(), combo.currentIndex());
    same("text", dropDown->text(), combo.currentText());
  } else if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
    const auto& rows = dynamic_cast<QListWidget&>(widget);
    QStringList entries;
    for (int i = 0; i < rows.count(); ++i) entries << rows.item(i)->text();
    same("entries", joined(list->entries()), entries.join(QLatin1Char('|')));
    // In a list where Enter chooses, the marker is independent of the choice.
    if (control.name() != "lstTableOne") {
      const auto selected = rows.selectionModel()->selectedRows();
      same("index", list->index(), selected.isEmpty() ? -1 : selected.front().row());
    }
  } else if (const auto* upDown = dynamic_cast<const UpDown*>(&control)) {
    same("value", upDown->value(), dynamic_cast<QSpinBox&>(widget).value());
  } else if (const auto* grid = dynamic_cast<const Grid*>(&control)) {
    std::vector<std::string> cells;
    for (const auto& row : grid->cells()) cells.insert(cells.end(), row.begin(), row.end());
    same("cells", joined(cells), rowsOf(dynamic_cast<QTableWidget&>(widget)));
  } else if (const auto* engine = dynamic_cast<const PrintEngine*>(&control)) {
    const QWidget* sheet = dynamic_cast<QScrollArea&>(widget).widget();
    same("zoom", Frame::pixels(12240 * engine->zoom() / 100) + 24, sheet->width());  // a margin of 12
    const auto* number = widget.parentWidget()->findChild<QLabel*>(QStringLiteral("pageNumber"));
    same("pages", engine->pages() == 0 ? QStringLiteral("No report") : QStringLiteral("Page 1 of 1"), number->text());
  } else if (const auto* calendar = dynamic_cast<const MonthCalendar*>(&control)) {
    const QDate day = dynamic_cast<QCalendarWidget&>(widget).selectedDate();
    same("date", date(calendar->date()), QStringLiteral("%1-%2-%3").arg(day.year()).arg(day.month()).arg(day.day()));
  } else if (const auto* panel = dynamic_cast<const Panel*>(&control)) {
    if (const auto* group = qobject_cast<QGroupBox*>(&widget)) same("caption", panel->caption(), group->title());
  }
}

void Consistency::compareColours(const Control& control, const QWidget& widget) {
  const auto one = [&](const char* what, const OwnColour& held, QPalette::ColorRole role) {
    const QColor shown = widget.palette().color(QPalette::Active, role);
    if (held) return same(what, look::colour(*held).name(), shown.name());
    // A colour that isn't the control's is the view's, and constant.
    const auto own = own_.try_emplace(address_ + what, shown).first;
    same(what, own->second.name(), shown.name());
  };
  if (dynamic_cast<const Image*>(&control) != nullptr || dynamic_cast<const Panel*>(&control) != nullptr) return;
  one("text colour", control.foreColour, roleOfLetters(widget));
  one("ground colour", control.backColour, roleOfGround(widget));
}

void Consistency::compareNames(const Control& control, QWidget& widget) {
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
  const QString name = face->text(QAccessible::Name);
  const auto captioned = [&](const std::string& caption) {
    if (!caption.empty()) same("accessible name", text(caption).trimmed(), name.trimmed());
  };
  if (const auto* command = dynamic_cast<const CommandButton*>(&control)) captioned(command->caption());
  if (const auto* item = dynamic_cast<const ListBarItem*>(&control)) captioned(item->caption());
  if (const auto* edit = qobject_cast<QLineEdit*>(&widget)) {
    same("accessible value", edit->text(), face->text(QAccessible::Value));
  }
  if (const auto* combo = qobject_cast<QComboBox*>(&widget)) {
    same("accessible value", combo->currentText(), face->text(QAccessible::Value));
  }
  if (const auto* button = qobject_cast<QAbstractButton*>(&widget)) {
    same("accessible mark", button->isChecked() ? 1 : 0, face->state().checked ? 1 : 0);
  }
  const bool named = !name.isEmpty() || qobject_cast<QComboBox*>(&widget) != nullptr;  // named by its label
  if (widget.focusPolicy() != Qt::NoFocus && !named) differ(QStringLiteral("has no accessible name"));
}

/// The active document is in front, the others behind it in their order.
void Consistency::compareDocuments(const Desktop& desktop) {
  address_ = QStringLiteral("documents");
  if (desktop.frame() == nullptr) return;
  QStringList held;
  for (const Screen* screen : desk.documents()) {
    held << text(screen->name());
    if (screen->maximized) break;  // it covers the others
  }
  QStringList shown;
  for (const QObject* child : desktop.frame()->area().children()) {
    const auto* document = dynamic_cast<const Document*>(child);
    if (document == nullptr || document->view().screen() == nullptr) continue;
    const Screen* front = desk.activeDocument();
    const bool covered = front != nullptr && front->maximized && document->view().screen() != front;
    same("covered", covered ? 1 : 0, document->isHidden() ? 1 : 0);
    shown.prepend(text(document->view().screen()->name()));  // the last child is on top
  }
  while (shown.size() > held.size()) shown.removeLast();
  same("order", held.join(QLatin1Char(' ')), shown.join(QLatin1Char(' ')));
}

/// The focused control is that of the focused widget. Right after a screen has come to the front no widget has the
/// focus yet. A widget without a control takes the focus from the controls.
void Consistency::compareFocus(const Desktop& desktop) {
  address_ = QStringLiteral("focus");
  const auto name = [](const Control* control) {
    return control == nullptr ? QStringLiteral("none") : text(control->screen().name() + "." + control->address());
  };
  const Control* held = desk.focused();
  held_ += "focus " + name(held).toStdString() + "\n";
  const QWidget* widget = QApplication::focusWidget();
  const Control* shown = controlOf(widget);
  const bool takesKeys = widget != nullptr && widget->focusPolicy() != Qt::NoFocus;
  if (shown != nullptr || takesKeys) {
    same("focus", name(held), name(shown));
  } else if (held != nullptr && &held->screen() == desk.activeDocument() && desktop.frame()->isActiveWindow()) {
    same("focus", name(held), QStringLiteral("none"));
  }
  // The selection of a box when it gets the focus is that of its widget; later the user may change it.
  const auto* box = dynamic_cast<const TextBox*>(held);
  const auto* edit = qobject_cast<const QLineEdit*>(widget);
  if (!std::exchange(userSelects_, false) && held != focused_ && box != nullptr && edit != nullptr && shown == held &&
      box->selLength() > 0) {
    same("selection", text(box->text()).mid(box->selStart(), box->selLength()), edit->selectedText());
  }
  focused_ = held;
}

void Consistency::same(const char* what, const QString& held, const QString& shown) {
  held_ += address_.toStdString() + " " + what + " " + held.toStdString() + "\n";
  if (held != shown) differ(QStringLiteral("%1: held \"%2\", shown \"%3\"").arg(QLatin1String(what), held, shown));
}

void Consistency::differ(const QString& words) { differences_ += (address_ + " " + words).toStdString() + "\n"; }

}  // namespace tallyfin::qt
