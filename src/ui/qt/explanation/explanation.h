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

/// The parts of the gross pay as one horizontal bar: each part is drawn in a ground of its own and bears its share,
/// where that has room; the sentence beneath names them all.
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

/// The window that tells how each figure of the last calculation was worked out. It stands beside the frame, may stay
/// open, and follows the next Calculate.
class ExplanationWindow : public QDialog {
 public:
  explicit ExplanationWindow(Frame& frame);

  /// Shows the figure of a row of the results; nothing happens where nothing has been calculated or there is no such
  /// row. Makes the window of the frame where there is none.
  static void open(Frame& frame, const QString& title);
  /// The results have changed: an open window shows the new ones.
  static void follow(const Frame& frame);

  /// The chosen explanation as text, its title first.
  QString chosenText() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Takes a text to the clipboard.
  void take(const QString& words);
  static ExplanationWindow* of(const Frame& frame);
  void refresh();
  void choose(const QString& title);
  void tell();
  void copy();
  /// Says in a line of this window what the user must know; no words take the line away.
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
