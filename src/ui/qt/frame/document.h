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
  /// Sets the geometry for the screen's state: the whole area, or its own size in the middle.
  void place(const QSize& area);
  /// Shows a message of success in the title strip.
  void confirm(const QString& words);
  /// The active document has a lighter title strip, and its keys are enabled.
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
  QShortcut* escape_;  ///< Closes a page above another.
};

/// The area of the frame with the documents, the active one in front.
class DocumentArea : public QWidget {
 public:
  explicit DocumentArea(QWidget* parent);

  void add(View& view);
  /// Stacks the documents in the order of the screen stack.
  void arrange();
  /// The view of the active document; null for none.
  View* active() const;
  /// Shows a message in the title strip of the active document only.
  void confirm(const QString& words);
  /// Whether a widget belongs to a document that isn't the active one.
  bool covers(const QWidget& widget) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::vector<QPointer<Document>> documents_;
};

}  // namespace tallyfin::qt
