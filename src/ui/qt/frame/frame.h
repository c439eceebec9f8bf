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

  /// What its windows ask the user with.
  Dialogs& dialogs() const { return dialogs_; }
  DocumentArea& area() const { return *area_; }
  /// Says in a line below the documents what the user must know; no words take the line away.
  void tell(const QString& words);
  /// Says in the title strip of the page in front that something went well, until the focus moves on.
  void confirm(const QString& words);
  /// Marks the item of the list bar that leads to the page in front.
  void markPage();
  /// Lets keys act in another window as they do in the frame.
  void lendKeys(QWidget& window, std::initializer_list<QKeySequence> keys);
  /// Says aloud what has happened, to who can't see it.
  void announce(const QString& words);

  /// 1440 twips are an inch, 96 pixels are an inch.
  static constexpr int pixels(int twips) { return twips / 15; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  /// Tab goes round the active document and the list bar; the documents beneath are passed over.
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
  std::size_t openGroup_ = 0;
  DocumentArea* area_;
  Notice* notice_;
  Announcer* announcer_;
};

}  // namespace tallyfin::qt
