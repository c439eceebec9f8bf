#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

class QLabel;
class QScrollArea;
class QShortcut;

namespace tallyfin::qt {

class View;

/// A document in the frame: a title strip with a closing button above the view, which scrolls where it doesn't fit.
class Document : public QWidget {
 public:
  Document(View& view, QWidget* parent);

  View& view() const { return view_; }
  /// Takes the place that the screen's state asks for: the whole area, or its own size in the middle of it.
  void place(const QSize& area);
  /// Words in the title strip, that something went well.
  void confirm(const QString& words);
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
  QLabel* confirmed_;
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
  /// Words in the title strip of the active document; the others have none.
  void confirm(const QString& words);
  /// Whether a widget belongs to a document that isn't the active one.
  bool covers(const QWidget& widget) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::vector<QPointer<Document>> documents_;
};

}  // namespace tallyfin::qt
