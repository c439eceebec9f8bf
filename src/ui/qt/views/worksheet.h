#pragma once

#include <QLabel>
#include <QLineEdit>

#include "controls/buttons.h"
#include "controls/texts.h"
#include "ui/qt/views/pages.h"

class QBoxLayout;

namespace tallyfin::qt {

/// What the worksheets of Form W-4 have in common: ruled paper in pages, line numbers hanging in the margin, what is
/// entered and what comes out in one column at the right.
class WorksheetView : public PagedView {
 public:
  QSize sizeHint() const override;

 protected:
  // Pixels at the normal size of letters.
  static constexpr int countWidth = 48;   ///< Of the column at the right where it holds counts,
  static constexpr int amountWidth = 92;  ///< and where it holds amounts.

  WorksheetView(Screen& screen, int entryWidth);

  /// A page with its heading. The lines go below each other on it.
  QBoxLayout* page(Panel& panel, Label& heading, Label& pageNumber);
  /// A line of the page, a hairline above it: its words, and the entry at the right if it has one.
  void line(QBoxLayout* page, QWidget* words, QWidget* entry = nullptr);
  /// The foot of the page: pictures at its right end.
  void foot(QBoxLayout* page, std::initializer_list<QWidget*> pictures);
  /// The keys that calculate, and turn the page by two buttons.
  void keys(const CommandButton& calculate, const CommandButton& forward, const CommandButton& back);

  QLabel* caption(Label& control);
  /// Options below each other, as far in as the words of a line.
  template <int count>
  void optionLines(QBoxLayout* page, ControlArray<OptionButton, count>& controls) {
    for (QRadioButton* option : options(controls)) addIndented(page, option);
  }
  QCheckBox* checkLine(CheckBox& control);
  /// A box or a figure in the column at the right, named by the words of its line.
  QLineEdit* entry(TextBox& control, const QString& words);
  QLabel* result(Label& control, const QString& words);
  static QString wordsOf(const Label& control) { return QString::fromStdString(control.caption()); }
  /// A line with its box, and one with its figure.
  void enter(QBoxLayout* page, Label& words, TextBox& box) { line(page, caption(words), entry(box, wordsOf(words))); }
  void comesOut(QBoxLayout* page, Label& words, Label& figure) {
    line(page, caption(words), result(figure, wordsOf(words)));
  }
  /// A line whose words surround a button.
  QWidget* sentence(Label& first, CommandButton& button, Label& second);

 private:
  void addIndented(QBoxLayout* page, QRadioButton* option);

  int margin_;  ///< For the line numbers.
  int entryWidth_;
};

}  // namespace tallyfin::qt
