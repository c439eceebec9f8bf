#pragma once

#include <QLabel>
#include <QLineEdit>

#include "controls/buttons.h"
#include "controls/texts.h"
#include "ui/qt/views/pages.h"
#include "ui/qt/widgets/text.h"

class QBoxLayout;

namespace tallyfin::qt {

/// The common parts of the Form W-4 worksheets: ruled pages, line numbers in the margin, entries and results in one
/// column at the right.
class WorksheetView : public PagedView {
 public:
  QSize sizeHint() const override;

 protected:
  // Pixels at the normal font size.
  static constexpr int countWidth = 48;   ///< Of the right column with counts,
  static constexpr int amountWidth = 92;  ///< and with amounts.

  WorksheetView(Screen& screen, int entryWidth);

  /// Adds a page with its heading. Lines are added to it.
  QBoxLayout* page(Panel& panel, Label& heading, Label& pageNumber);
  /// Adds a line to the page, with a hairline above it: its text, and the entry at the right if it has one.
  void line(QBoxLayout* page, QWidget* words, QWidget* entry = nullptr);
  /// The foot of the page: pictures at its right end.
  void foot(QBoxLayout* page, std::initializer_list<QWidget*> pictures);
  /// The keys that calculate, and turn the page by two buttons.
  void keys(const CommandButton& calculate, const CommandButton& forward, const CommandButton& back);

  QLabel* caption(Label& control);
  /// Adds options below each other, aligned with the text of lines.
  template <int count>
  void optionLines(QBoxLayout* page, ControlArray<OptionButton, count>& controls) {
    for (QRadioButton* option : options(controls)) addIndented(page, option);
  }
  QCheckBox* checkLine(CheckBox& control);
  /// A box or a figure in the right column; its accessible name is the text of its line.
  QLineEdit* entry(TextBox& control, const QString& words);
  QLabel* result(Label& control, const QString& words);
  static QString wordsOf(const Label& control) { return text(control.caption()); }
  /// A line with its box, and one with its figure.
  void enter(QBoxLayout* page, Label& words, TextBox& box) { line(page, caption(words), entry(box, wordsOf(words))); }
  void comesOut(QBoxLayout* page, Label& words, Label& figure) {
    line(page, caption(words), result(figure, wordsOf(words)));
  }
  /// Adds a line with a button within its text.
  QWidget* sentence(Label& first, CommandButton& button, Label& second);

 private:
  void addIndented(QBoxLayout* page, QRadioButton* option);

  int margin_;  ///< For the line numbers.
  int entryWidth_;
};

}  // namespace tallyfin::qt
