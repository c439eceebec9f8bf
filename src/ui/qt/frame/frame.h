#pragma once

#include <QAbstractButton>
#include <QWidget>
#include <map>
#include <vector>

#include "ui/qt/views/view.h"

class QLabel;
class QScrollArea;
class QShortcut;

namespace tallyfin {
class MDIOpen;
}

namespace tallyfin::qt {

class Announcer;
class Dialogs;
class Notice;

/// A document in the frame: a title strip with a closing button above the view, which scrolls where it doesn't fit.
class Document : public QWidget {
 public:
  Document(View& view, QWidget* parent);

  View& view() const { return view_; }
  /// Takes the place that the screen's state asks for: the whole area, or its own size in the middle of it.
  void place(const QSize& area);
  /// The active document's title strip is the lighter one, and it hears its keys.
  void setActive(bool active);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void showTitle();
  void close();

  View& view_;
  QWidget* strip_;
  QLabel* title_;
  QScrollArea* scroll_;
  QShortcut* escape_;  ///< Closes a page that lies over another.
};

/// The area of the frame in which the documents stand, the active one in front.
class DocumentArea : public QWidget {
 public:
  explicit DocumentArea(QWidget* parent);

  void add(View& view);
  /// Puts the documents in the order of the desk.
  void arrange();
  /// The view of the active document; none without one.
  View* active() const;
  /// Whether a widget belongs to a document that isn't the active one.
  bool covers(const QWidget& widget) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::vector<QPointer<Document>> documents_;
};

/// What stands in the list bar: pressed by the mouse, Space or Enter.
class BarButton : public QAbstractButton {
 public:
  using QAbstractButton::QAbstractButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The head of a group of the list bar; a mark tells the open one.
class GroupHeader : public BarButton {
 public:
  GroupHeader(const QString& caption, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// One item of the list bar: a picture above its caption, highlighted while the pointer is over it.
class ListBarButton : public BarButton {
 public:
  ListBarButton(QWidget* parent, const QString& pictureName);
  QSize sizeHint() const override;
  int heightForWidth(int width) const override;

  bool highlighted = false;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// The frame of the program: a window of fixed size, the list bar at its left, the documents beside it.
class Frame : public View {
 public:
  Frame(MDIOpen& screen, Dialogs& dialogs);

  /// What its windows ask the user with.
  Dialogs& dialogs() const { return dialogs_; }
  DocumentArea& area() const { return *area_; }
  /// Says in a line below the documents what the user must know; no words take the line away.
  void tell(const QString& words);
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
  void keys();

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
