#pragma once

#include <QDialog>
#include <QString>

#include "explain/explain.h"
#include "explain/figuretexts.h"
#include "explain/form.h"
#include "explain/shares.h"

class QLabel;
class QTableWidget;

namespace tallyfin::qt {

class FormView;
class Frame;
class Notice;

/// The parts of the gross pay as one horizontal bar: each part has its own background colour and shows its share where
/// that fits; the sentence below names all parts.
class ShareBar : public QWidget {
 public:
  explicit ShareBar(QWidget* parent);

  void show(std::vector<Share> shares);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<Share> shares_;
};

/// The window that explains each figure of the last calculation. It is beside the frame, may stay open, and is updated
/// by the next Calculate.
class ExplanationWindow : public QDialog {
 public:
  explicit ExplanationWindow(Frame& frame);

  /// Shows the figure of a row of the results; does nothing before a calculation or for an invalid row. Creates the
  /// window if necessary.
  static void open(Frame& frame, const QString& title);
  /// Call when the results have changed: updates an open window.
  static void follow(const Frame& frame);

  /// The chosen explanation as text, its title first.
  QString chosenText() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Copies a text to the clipboard.
  void take(const QString& words);
  static ExplanationWindow* of(const Frame& frame);
  void refresh();
  void choose(const QString& title);
  void tell();
  void copy();
  /// Shows a message in a line of this window; an empty text hides the line.
  void tellUser(const QString& words);
  void print();

  Frame& frame_;
  std::vector<Explanation> explanations_;
  std::vector<Form> forms_;
  FormHeading entries_;
  QLabel* heading_;
  ShareBar* bar_;
  QLabel* shares_;
  QTableWidget* figures_;
  FormView* page_;
  Notice* notice_;
};

}  // namespace tallyfin::qt
