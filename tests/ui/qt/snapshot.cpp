#include "snapshot.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaEnum>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSpinBox>
#include <QSplitter>
#include <QStyle>
#include <QSvgWidget>
#include <QTableWidget>
#include <QTextBrowser>
#include <QTextCharFormat>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>
#include <algorithm>
#include <string_view>
#include <tuple>
#include <typeinfo>

#include "paintlog.h"
#include "ui/qt/views/view.h"

namespace tallyfin::qt {

namespace {

QString quoted(QString text) {
  return QLatin1Char('"') + text.replace('\n', QLatin1String("\\n")).replace('\t', QLatin1String("\\t")) +
         QLatin1Char('"');
}

template <class Enum>
QString nameOf(Enum value) {
  const char* name = QMetaEnum::fromType<Enum>().valueToKey(static_cast<int>(value));
  return name != nullptr ? QString::fromLatin1(name) : QStringLiteral("%1").arg(static_cast<int>(value));
}

QString alignmentText(Qt::Alignment alignment) {
  return QString::fromLatin1(QMetaEnum::fromType<Qt::Alignment>().valueToKeys(static_cast<int>(alignment)));
}

QString sizeText(QSize size) { return QStringLiteral("%1x%2").arg(size.width()).arg(size.height()); }

/// The text of one widget.
class Words {
 public:
  void add(const QString& words) { words_ << words; }
  void addIf(bool holds, const char* words) {
    if (holds) words_ << QString::fromLatin1(words);
  }
  void addText(const char* what, const QString& text) {
    if (!text.isEmpty()) words_ << QString::fromLatin1(what) + QLatin1Char(' ') + quoted(text);
  }
  QString joined() const { return words_.join(QStringLiteral(", ")); }

 private:
  QStringList words_;
};

void addBars(Words& words, const QAbstractScrollArea& area) {
  for (const QScrollBar* bar : {area.horizontalScrollBar(), area.verticalScrollBar()}) {
    if (!bar->isVisibleTo(&area)) continue;
    words.add(QStringLiteral("%1 bar at %2 of %3")
                  .arg(bar->orientation() == Qt::Vertical ? QStringLiteral("vertical") : QStringLiteral("horizontal"))
                  .arg(bar->value())
                  .arg(bar->maximum()));
  }
}

QString cellText(const QTableWidgetItem* cell) {
  if (cell == nullptr) return QStringLiteral("none");
  Words words;
  words.add(quoted(cell->text()));
  if (cell->data(Qt::TextAlignmentRole).isValid()) {
    words.add(alignmentText(static_cast<Qt::Alignment>(cell->textAlignment())));
  }
  if (cell->data(Qt::FontRole).isValid()) words.add(fontText(cell->font()));
  if (cell->data(Qt::ForegroundRole).isValid()) words.add(colourText(cell->foreground().color()));
  if (cell->data(Qt::BackgroundRole).isValid()) words.add("on " + colourText(cell->background().color()));
  return words.joined();
}

QStringList rowsOf(const QTableWidget& table) {
  QStringList rows;
  if (const QHeaderView& head = *table.horizontalHeader(); head.isVisibleTo(&table)) {
    rows << QStringLiteral("head %1x%2 %3 on %4: %5 | %6")
                .arg(head.width())
                .arg(head.height())
                .arg(colourText(head.palette().color(QPalette::ButtonText)),
                     colourText(head.palette().color(QPalette::Button)), cellText(table.horizontalHeaderItem(0)),
                     cellText(table.horizontalHeaderItem(1)));
  }
  for (int row = 0; row < table.rowCount(); ++row) {
    rows << QStringLiteral("row %1x%2, %3: %4 | %5")
                .arg(table.columnWidth(0))
                .arg(table.rowHeight(row))
                .arg(table.columnWidth(1))
                .arg(cellText(table.item(row, 0)), cellText(table.item(row, 1)));
  }
  return rows;
}

void addEntries(QStringList& rows, const QTreeWidgetItem& item, const QString& indent) {
  for (int i = 0; i < item.childCount(); ++i) {
    const QTreeWidgetItem& child = *item.child(i);
    if (child.isHidden()) continue;
    Words words;
    words.add(indent + quoted(child.text(0)));
    if (child.toolTip(0) != child.text(0)) words.addText("tip", child.toolTip(0));
    words.addIf(child.isSelected(), "chosen");
    words.addIf(child.childCount() > 0 && !child.isExpanded(), "closed");
    rows << words.joined();
    if (child.isExpanded()) addEntries(rows, child, indent + QStringLiteral("  "));
  }
}

/// The content of a widget, by its type.
void addContent(Words& words, const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    words.add(quoted(label->text()));
    words.add(alignmentText(label->alignment()));
    words.addIf(label->wordWrap(), "wraps");
    if (label->margin() != 0) words.add(QStringLiteral("margin %1").arg(label->margin()));
    if (label->indent() != -1) words.add(QStringLiteral("indent %1").arg(label->indent()));
    if (label->buddy() != nullptr) words.add("for " + label->buddy()->objectName());
    if (label->textInteractionFlags() != Qt::LinksAccessibleByMouse) {
      words.add(QString::fromLatin1(QMetaEnum::fromType<Qt::TextInteractionFlags>().valueToKeys(
          static_cast<int>(label->textInteractionFlags()))));
    }
  } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    words.addText("caption", button->text());
    if (!button->icon().isNull()) {
      words.add(QStringLiteral("picture %1 %2")
                    .arg(pictureName(button->icon(), button->iconSize()), sizeText(button->iconSize())));
    }
    if (button->isCheckable()) words.add(button->isChecked() ? QStringLiteral("on") : QStringLiteral("off"));
    if (button->group() != nullptr) words.add("with " + button->group()->buttons().constFirst()->objectName());
    if (const auto* push = qobject_cast<const QPushButton*>(&widget)) {
      words.addIf(push->autoDefault(), "takes Enter");
      words.addIf(push->isDefault(), "default");
      words.addIf(push->isFlat(), "flat");
    }
    if (const auto* tool = qobject_cast<const QToolButton*>(&widget)) {
      words.addText("key", tool->shortcut().toString());
      words.addIf(tool->autoRaise(), "raised under the pointer");
    }
  } else if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
    words.add(quoted(edit->text()));
    words.add(alignmentText(edit->alignment()));
    words.addText("selected", edit->selectedText());
    words.addText("hint", edit->placeholderText());
    words.addIf(edit->isReadOnly(), "read only");
    words.addIf(!edit->hasFrame(), "frameless");
    words.addIf(edit->isClearButtonEnabled(), "clears");
    if (!edit->textMargins().isNull()) words.add(QStringLiteral("margin %1").arg(edit->textMargins().left()));
  } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    words.add(quoted(combo->currentText()));
    words.add(QStringLiteral("entry %1").arg(combo->currentIndex()));
    words.addIf(combo->isEditable(), "editable");
    QStringList entries;
    for (int i = 0; i < combo->count(); ++i) entries << combo->itemText(i);
    words.addText("entries", entries.join(QLatin1Char('|')));
  } else if (const auto* spin = qobject_cast<const QSpinBox*>(&widget)) {
    words.add(quoted(spin->text()));
    words.add(QStringLiteral("%1 to %2 by %3").arg(spin->minimum()).arg(spin->maximum()).arg(spin->singleStep()));
    words.add(alignmentText(spin->alignment()));
  } else if (const auto* list = qobject_cast<const QListWidget*>(&widget)) {
    words.add(QStringLiteral("entry %1").arg(list->currentRow()));
    QStringList entries;
    for (int i = 0; i < list->count(); ++i) entries << (list->item(i)->isSelected() ? "*" : "") + list->item(i)->text();
    words.addText("entries", entries.join(QLatin1Char('|')));
    words.add(QStringLiteral("rows of %1").arg(list->sizeHintForRow(0)));
  } else if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) {
    words.add(QStringLiteral("row %1").arg(table->currentRow()));
    words.add(nameOf(table->selectionMode()) + ' ' + nameOf(table->selectionBehavior()));
    QStringList selected;
    for (const QModelIndex& row : table->selectionModel()->selectedRows()) selected << QString::number(row.row());
    words.addText("selected", selected.join(QLatin1Char(' ')));
    words.addIf(table->editTriggers() != QAbstractItemView::NoEditTriggers, "editable");
    words.addIf(table->tabKeyNavigation(), "takes Tab");
    words.addIf(table->showGrid(), "ruled");
    words.addIf(table->alternatingRowColors(), "striped");
  } else if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
    words.addText("caption", group->title());
  } else if (const auto* calendar = qobject_cast<const QCalendarWidget*>(&widget)) {
    words.add(calendar->selectedDate().toString(Qt::ISODate));
    words.addIf(calendar->isGridVisible(), "ruled");
    words.addIf(calendar->isDateEditEnabled(), "typed into");
    words.add(nameOf(calendar->verticalHeaderFormat()));
    words.add("from " + QString::number(calendar->firstDayOfWeek()));
    for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
      words.add(colourText(calendar->weekdayTextFormat(static_cast<Qt::DayOfWeek>(day)).foreground().color()));
    }
  } else if (qobject_cast<const QSvgWidget*>(&widget) != nullptr) {
    QImage drawn(widget.size(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    const_cast<QWidget&>(widget).render(&drawn, QPoint(), QRegion(), {});
    words.add("picture " + pictureName(drawn));
  } else if (const auto* page = qobject_cast<const QTextBrowser*>(&widget)) {
    words.add(page->source().toString());
    words.add(QString::fromLatin1(
        QMetaEnum::fromType<Qt::TextInteractionFlags>().valueToKeys(static_cast<int>(page->textInteractionFlags()))));
    words.addIf(page->openLinks(), "opens links");
  } else if (const auto* split = qobject_cast<const QSplitter*>(&widget)) {
    words.add(QStringLiteral("split at %1").arg(split->sizes().constFirst()));
    words.addIf(split->childrenCollapsible(), "collapsible");
  }
  if (const auto* frame = qobject_cast<const QFrame*>(&widget)) {
    if (frame->frameShape() != QFrame::NoFrame) words.add(QStringLiteral("frame %1").arg(frame->frameStyle(), 0, 16));
  }
  if (const auto* area = qobject_cast<const QAbstractScrollArea*>(&widget)) addBars(words, *area);
}

/// Further lines of a widget.
QStringList partsOf(const QWidget& widget) {
  if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) return rowsOf(*table);
  QStringList rows;
  if (const auto* tree = qobject_cast<const QTreeWidget*>(&widget)) {
    rows << QStringLiteral("indented by %1").arg(tree->indentation());
    addEntries(rows, *tree->invisibleRootItem(), {});
  }
  for (const QAction* action : widget.actions()) {
    if (action->text().isEmpty()) continue;
    rows << QStringLiteral("action %1 %2")
                .arg(quoted(action->text()),
                     QKeySequence::listToString(action->shortcuts(), QKeySequence::PortableText))
                .trimmed();
  }
  return rows;
}

/// The accessible interface.
QString toldOf(QWidget& widget) {
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
  if (face == nullptr) return {};
  const QString name = face->text(QAccessible::Name);
  if (face->role() == QAccessible::Client && name.isEmpty()) return {};
  const QString description = face->text(QAccessible::Description);
  Words words;
  words.add(nameOf(face->role()));
  words.addText("called", name);
  words.addText("value", face->text(QAccessible::Value));
  if (description != widget.toolTip()) words.addText("described", description);
  words.addText("key", face->text(QAccessible::Accelerator));
  const QAccessible::State state = face->state();
  words.addIf(state.disabled, "disabled");
  words.addIf(state.checkable, "checkable");
  words.addIf(state.checked, "checked");
  words.addIf(state.expandable, "expandable");
  words.addIf(state.expanded, "expanded");
  words.addIf(state.readOnly, "read only");
  words.addIf(state.pressed, "pressed");
  words.addIf(state.defaultButton, "default");
  words.addIf(state.multiSelectable, "selects many");
  if (QAccessibleActionInterface* actions = face->actionInterface()) {
    for (const QString& action : actions->actionNames()) {
      if (action == QAccessibleActionInterface::setFocusAction()) continue;
      const QString keys = actions->keyBindingsForAction(action).join(QLatin1Char(' '));
      words.add(action + (keys.isEmpty() ? QString() : QStringLiteral(" by ") + keys));
    }
  }
  return words.joined();
}

QString stateOf(const QWidget& widget, const QWidget& part) {
  Words words;
  words.addText("tip", widget.toolTip());
  words.addIf(!widget.isEnabledTo(&part), "disabled");
  words.addIf(widget.hasFocus(), "has the keyboard");
  if (widget.focusPolicy() != Qt::NoFocus) words.add("focus " + nameOf(widget.focusPolicy()));
  if (widget.testAttribute(Qt::WA_SetCursor)) words.add(nameOf(widget.cursor().shape()));
  if (widget.contextMenuPolicy() != Qt::DefaultContextMenu) words.add(nameOf(widget.contextMenuPolicy()));
  words.addIf(widget.testAttribute(Qt::WA_TransparentForMouseEvents), "lets clicks through");
  return words.joined();
}

QString coloursOf(const QPalette& palette, const QPalette& around, bool whole) {
  QStringList words;
  for (int i = 0; i < QPalette::NColorRoles; ++i) {
    const auto role = static_cast<QPalette::ColorRole>(i);
    if (role == QPalette::NoRole) continue;
    const auto of = [role](const QPalette& p, QPalette::ColorGroup group) { return colourText(p.color(group, role)); };
    QStringList colours;
    bool differs = whole;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      colours << of(palette, group);
      differs = differs || of(palette, group) != of(around, group);
    }
    if (!differs) continue;
    QString text = colours[0];
    if (colours[1] != colours[0]) text += QStringLiteral(" inactive ") + colours[1];
    if (colours[2] != colours[0]) text += QStringLiteral(" disabled ") + colours[2];
    words << nameOf(role) + ' ' + text;
  }
  return words.join(QStringLiteral(", "));
}

/// Colours and font, where they differ from those around the widget.
QString lookOf(const QWidget& widget) {
  const QWidget* around = widget.isWindow() ? nullptr : widget.parentWidget();
  Words words;
  words.addIf(widget.autoFillBackground(), "filled");
  const QString colours =
      coloursOf(widget.palette(), around == nullptr ? QApplication::palette() : around->palette(), false);
  if (!colours.isEmpty()) words.add(colours);
  const QFont fontAround = around == nullptr ? QApplication::font() : around->font();
  if (fontText(widget.font()) != fontText(fontAround)) words.add(fontText(widget.font()));
  return words.joined();
}

bool isOwn(const QWidget& widget) {
  const std::string_view type = typeid(widget).name();
  return type.find("tallyfin") != std::string_view::npos && dynamic_cast<const View*>(&widget) == nullptr;
}

/// Internal widgets of Qt that are a part of the widget around them.
bool isInner(const QWidget& widget) {
  if (widget.isWindow() || qobject_cast<const QScrollBar*>(&widget) != nullptr) return true;
  if (widget.inherits("QHeaderView") || widget.inherits("QTableCornerButton")) return true;
  const QWidget* around = widget.parentWidget();
  if (qobject_cast<const QComboBox*>(around) != nullptr) return qobject_cast<const QLineEdit*>(&widget) == nullptr;
  if (qobject_cast<const QSplitter*>(around) != nullptr) return widget.inherits("QSplitterHandle");
  return qobject_cast<const QAbstractSpinBox*>(around) != nullptr || qobject_cast<const QLineEdit*>(around) != nullptr;
}

/// A widget that draws nothing and isn't accessible.
bool isPlain(const QWidget& widget) {
  const bool bare = typeid(widget) == typeid(QWidget) || widget.objectName().startsWith(QLatin1String("qt_scrollarea"));
  return bare && widget.accessibleName().isEmpty() && widget.toolTip().isEmpty() && lookOf(widget).isEmpty();
}

class Snapshot {
 public:
  Snapshot(QWidget& part, const QWidget* without) : part_(part), without_(without) { add(part); }

  QStringList lines() {
    std::sort(entries_.begin(), entries_.end());
    QStringList all;
    for (const auto& entry : entries_) all << std::get<QStringList>(entry);
    QStringList hidden = hidden_;
    hidden.sort();
    if (!hidden.isEmpty()) all << QStringLiteral("hidden: %1").arg(hidden.join(QStringLiteral(", ")));
    return all << tabs() << keys();
  }

 private:
  void add(QWidget& widget) {
    if (&widget == without_) return;
    const bool seen = widget.isVisibleTo(&part_);
    if (!seen) return addHidden(widget);
    if (&widget == &part_ || !isPlain(widget)) note(widget);
    for (QObject* child : widget.children()) {
      auto* inside = qobject_cast<QWidget*>(child);
      if (inside != nullptr && !isInner(*inside)) add(*inside);
    }
  }

  void addHidden(const QWidget& widget) {
    if (!widget.objectName().isEmpty() && !widget.objectName().startsWith(QLatin1String("qt_"))) {
      hidden_ << widget.objectName();
    }
    for (const QObject* child : widget.children()) {
      const auto* inside = qobject_cast<const QWidget*>(child);
      if (inside != nullptr && !isInner(*inside)) addHidden(*inside);
    }
  }

  void note(QWidget& widget) {
    const QPoint at = widget.mapTo(&part_, QPoint());
    Words first;
    first.add(QStringLiteral("%1 %2 at %3,%4 %5")
                  .arg(QString::fromLatin1(widget.metaObject()->className()), widget.objectName())
                  .arg(at.x())
                  .arg(at.y())
                  .arg(sizeText(widget.size()))
                  .simplified());
    addContent(first, widget);
    if (widget.isWindow()) addWindow(first, widget);
    QStringList lines{first.joined()};
    for (const QString& line : {toldOf(widget), stateOf(widget, part_), lookOf(widget)}) {
      if (!line.isEmpty()) lines << QStringLiteral("  ") + line;
    }
    QStringList drawn = isOwn(widget) ? drawnBy(widget) : QStringList();
    if (auto* page = qobject_cast<QTextBrowser*>(&widget)) drawn = drawnBy(*page->viewport());
    for (const QString& line : partsOf(widget) + drawn) lines << QStringLiteral("    ") + line;
    entries_.emplace_back(at.y(), at.x(), widget.objectName(), lines);
  }

  static void addWindow(Words& words, const QWidget& window) {
    words.addText("title", window.windowTitle());
    if (!window.windowIcon().isNull()) words.add("picture " + pictureName(window.windowIcon(), {32, 32}));
    words.add(QStringLiteral("at %1,%2 of the screen").arg(window.x()).arg(window.y()));
    if (window.minimumSize() == window.maximumSize()) words.add(QStringLiteral("fixed"));
    words.addIf(window.isModal(), "modal");
    words.add(QStringLiteral("flags %1").arg(static_cast<int>(window.windowFlags()), 0, 16));
  }

  /// The widgets in the order of Tab.
  QString tabs() const {
    QStringList names;
    const QWidget* widget = &part_;
    do {
      const bool reached = part_.isAncestorOf(widget) && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
                           widget->focusProxy() == nullptr && widget->isVisibleTo(&part_) &&
                           widget->isEnabledTo(&part_) && (without_ == nullptr || !without_->isAncestorOf(widget));
      if (reached) names << (widget->objectName().isEmpty() ? widget->accessibleName() : widget->objectName());
      widget = widget->nextInFocusChain();
    } while (widget != &part_);
    return QStringLiteral("Tab: %1").arg(names.join(QStringLiteral(", ")));
  }

  QStringList keys() const {
    QStringList lines;
    for (const QShortcut* key : part_.findChildren<QShortcut*>()) {
      if (without_ != nullptr && without_->isAncestorOf(static_cast<const QWidget*>(key->parent()))) continue;
      Words words;
      words.add("key " + key->key().toString());
      words.addText("to", key->whatsThis());
      words.addIf(!key->isEnabled(), "off");
      words.addIf(key->context() != Qt::WindowShortcut, "everywhere");
      lines << words.joined();
    }
    lines.sort();
    return lines;
  }

  QWidget& part_;
  const QWidget* without_;
  std::vector<std::tuple<int, int, QString, QStringList>> entries_;
  QStringList hidden_;
};

}  // namespace

QStringList snapshotOf(QWidget& part, const QWidget* without) { return Snapshot(part, without).lines(); }

QStringList snapshotOfTheLook() {
  const auto* style = qobject_cast<const QProxyStyle*>(QApplication::style());
  return {QStringLiteral("style %1").arg(style == nullptr ? QString() : style->baseStyle()->name()),
          QStringLiteral("font %1").arg(fontText(QApplication::font())),
          QStringLiteral("colours %1").arg(coloursOf(QApplication::palette(), {}, true)),
          QStringLiteral("tips %1, %2").arg(fontText(QToolTip::font()), coloursOf(QToolTip::palette(), {}, true))};
}

}  // namespace tallyfin::qt
