#pragma once

#include <QAbstractItemView>
#include <QListWidget>
#include <QStringList>

#include "controls/lists.h"
#include "ui/qt/binding/afterevent.h"
#include "ui/qt/widgets/text.h"

/// The rows of lists and drop-downs.

namespace tallyfin::qt {

/// Notifies of a row that is selected without moving the marker. Only assistive technology does that; keys and mouse
/// move both.
template <class Tie, class Picked>
void onBareSelection(Tie& binding, QAbstractItemView& rows, Picked picked) {
  const auto look = [&binding, &rows, picked] {
    if (binding.control() != nullptr && !binding.refreshing()) picked(rows.selectionModel()->selectedRows());
  };
  QObject::connect(rows.selectionModel(), &QItemSelectionModel::selectionChanged, &binding, [&binding, look] {
    if (!binding.refreshing()) afterThisEvent(binding, look);
  });
}

inline QStringList entriesOf(const ListBox& list) {
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

}  // namespace tallyfin::qt
