#include <QPushButton>

#include "controls/caption.h"
#include "ui/qt/views/views.h"
#include "ui/qt/views/worksheetview.h"
#include "ui/qt/widgets/text.h"
#include "w4/frm2Workers.h"

namespace tallyfin::qt {

namespace {

/// Two pages: the comparison with Table 1, and the additional amount of a paycheck.
class frm2WorkersView : public WorksheetView {
 public:
  explicit frm2WorkersView(frm2Workers& screen) : WorksheetView(screen, amountWidth), screen_(screen) {
    firstPage();
    secondPage();
    keys(screen_.cmdPersWrkCalc[0], screen_.cmdW4Back[0], screen_.cmdW4Back[1]);
    lineKeys({{'7', &screen_.lblTable2}, {'8', &screen_.lblMultiply8}, {'9', &screen_.lblDollarAmt}});
    pressOn(Qt::ALT | Qt::Key_1, screen_.cmdTable1Show[0]);
    pressOn(Qt::ALT | Qt::Key_2, screen_.cmdTable1Show[1]);
  }

 private:
  void firstPage() {
    QBoxLayout* sheet = page(screen_.pnl2Workers[0], screen_.lblPersWorkpt1, screen_.lblPage1);
    line(sheet, caption(screen_.lblTwoNote));
    comesOut(sheet, screen_.lblTwo1, screen_.lblDedFromG);
    QWidget* line2 = sentence(screen_.lblItem2, screen_.cmdTable1Show[0], screen_.lblTwo2);
    line(sheet, line2, result(screen_.lbl2WkerT1, whole(screen_.lblItem2, screen_.cmdTable1Show[0], screen_.lblTwo2)));
    comesOut(sheet, screen_.lblTwo3, screen_.lbl2Wker3);
    line(sheet, caption(screen_.lblTwoNote2));
    foot(sheet, {wordButton(screen_.cmdPersWrkCalc[2], "formw4-dark", "Form W4"),
                 wordButton(screen_.cmdW4Back[0], "forward", "Page 2")});
  }

  void secondPage() {
    QBoxLayout* sheet = page(screen_.pnl2Workers[1], screen_.lblPersWorkpt2, screen_.lblPage2);
    comesOut(sheet, screen_.lbl2WkerLine4, screen_.lbl2WkerResult4);
    comesOut(sheet, screen_.lbl2WkerLine5, screen_.lbl2WkerResult5);
    comesOut(sheet, screen_.lbl2WkerLine6, screen_.lbl2WkerResult6);
    QWidget* line7 = sentence(screen_.lbl2WkerLine7, screen_.cmdTable1Show[1], screen_.lbl2WkerLine7a);
    line(sheet, line7,
         entry(screen_.lblTable2, whole(screen_.lbl2WkerLine7, screen_.cmdTable1Show[1], screen_.lbl2WkerLine7a)));
    enter(sheet, screen_.lbl2WkerLine8, screen_.lblMultiply8);
    enter(sheet, screen_.lbl2WkerLine9, screen_.lblDollarAmt);
    enter(sheet, screen_.lblNoPaydays, screen_.txtNumPayDays);
    foot(sheet, {wordButton(screen_.cmdW4Back[2], "calendar-dark", "Calendar"),
                 wordButton(screen_.cmdPersWrkCalc[0], "calculate-dark", "Calculate"),
                 wordButton(screen_.cmdPersWrkCalc[1], "formw4-dark", "Form W4"),
                 wordButton(screen_.cmdW4Back[1], "back", "Page 1")});
  }

  /// The sentence as it reads with its button in the gap.
  static QString whole(const Label& first, const CommandButton& button, const Label& second) {
    const auto [number, words] = captionOf(first.caption());
    const auto [before, behind] = aroundGap(words);
    return text(number + " " + before + " " + button.caption() + " " + second.caption() + " " + behind);
  }

  frm2Workers& screen_;
};

}  // namespace

std::unique_ptr<View> makeView(frm2Workers& screen) { return std::make_unique<frm2WorkersView>(screen); }

}  // namespace tallyfin::qt
