#pragma once

#include <QAbstractButton>
#include <QWidget>
#include <map>
#include <vector>

#include "ui/qt/view.h"

class QLabel;
class QScrollArea;
class QToolButton;
class QVBoxLayout;

namespace tallyfin {
class MDIOpen;
}

namespace tallyfin::qt {

/// A document in the frame: a title strip with a closing button above the view, which scrolls where it doesn't fit.
class Document : public QWidget {
 public:
  Document(View& view, QWidget* parent);

  View& view() const { return view_; }
  /// Takes the place that the screen's state asks for: the whole area, or its own size in the middle of it.
  void place(const QSize& area);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void showTitle();

  View& view_;
  QLabel* title_;
  QToolButton* close_;
  QScrollArea* scroll_;
};

/// The area of the frame in which the documents stand, the active one in front.
class DocumentArea : public QWidget {
 public:
  explicit DocumentArea(QWidget* parent);

  void add(View& view);
  /// Puts the documents in the order of the desk.
  void arrange();

 private:
  std::vector<QPointer<Document>> documents_;
};

/// One item of the list bar: a picture above its caption, highlighted while the pointer is over it.
class ListBarButton : public QAbstractButton {
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
  explicit Frame(MDIOpen& screen);

  DocumentArea& area() const { return *area_; }

  /// 1440 twips are an inch, 96 pixels are an inch.
  static constexpr int pixels(int twips) { return twips / 15; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* listBar(MDIOpen& screen);
  void openGroup(std::size_t group);

  struct Group {
    QToolButton* header;
    QWidget* items;
  };
  std::vector<Group> groups_;
  DocumentArea* area_;
};

}  // namespace tallyfin::qt
