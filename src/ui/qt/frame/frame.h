#pragma once

#include <vector>

#include "ui/qt/views/view.h"

class QScrollArea;

namespace tallyfin {
class MDIOpen;
}

namespace tallyfin::qt {

class Announcer;
class Dialogs;
class DocumentArea;
class GroupHeader;
class Notice;

/// The frame of the program: a window of fixed size, the list bar at its left, the documents beside it.
class Frame : public View {
 public:
  Frame(MDIOpen& screen, Dialogs& dialogs);

  /// The dialogs of its windows.
  Dialogs& dialogs() const { return dialogs_; }
  DocumentArea& area() const { return *area_; }
  /// Shows a message in a line below the documents; an empty text hides the line.
  void tell(const QString& words);
  /// Shows a message of success in the title strip of the page in front, until the focus moves.
  void confirm(const QString& words);
  /// Highlights the item of the list bar for the page in front.
  void markPage();
  /// Enables the frame's keys in another window.
  void lendKeys(QWidget& window, std::initializer_list<QKeySequence> keys);
  /// Announces an event to assistive technology.
  void announce(const QString& words);

  /// 1440 twips are an inch, 96 pixels are an inch.
  static constexpr int pixels(int twips) { return twips / 15; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  /// Tab moves through the active document and the list bar, and skips the other documents.
  bool focusNextPrevChild(bool next) override;

 private:
  QWidget* listBar(MDIOpen& screen);
  void openGroup(std::size_t group);
  void keys(const MDIOpen& screen);

  struct Group {
    GroupHeader* header;
    QScrollArea* items;
  };
  Group addGroup(const QString& caption, QWidget* bar);

  Dialogs& dialogs_;
  std::vector<Group> groups_;
  std::size_t openGroup_ = 0;  // mutation: 0 -> 1: written before it is read
  DocumentArea* area_;
  Notice* notice_;
  Announcer* announcer_;
};

}  // namespace tallyfin::qt
