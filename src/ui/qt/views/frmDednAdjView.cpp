#include <QPushButton>

#include "ui/qt/views/views.h"
#include "ui/qt/views/worksheetview.h"
#include "w4/frmDednAdj.h"

namespace tallyfin::qt {

namespace {

/// Two pages: deductions, then adjustments and the total.
class frmDednAdjView : public WorksheetView {
 public:
  explicit frmDednAdjView(frmDednAdj& screen) : WorksheetView(screen, amountWidth), screen_(screen) {
    firstPage();
    secondPage();
    keys(screen_.cmdPersWrkCalc, screen_.cmdW4Back[0], screen_.cmdW4Back[1]);
    lineKeys({{'1', &screen_.txtGetItemized}, {'4', &screen_.txtAdjustments}, {'6', &screen_.txtNonWage}});
  }

 private:
  void firstPage() {
    QBoxLayout* sheet = page(screen_.pnlDednAdj[0], screen_.lblPersWorkpt1, screen_.lblPage1);
    line(sheet, caption(screen_.lblNote));
    enter(sheet, screen_.lblItem1, screen_.txtGetItemized);
    comesOut(sheet, screen_.lblItem2, screen_.lblGetPersDed);
    optionLines(sheet, screen_.optDedCategory);
    comesOut(sheet, screen_.lblItem3, screen_.lblSubTotal);
    foot(sheet, {wordButton(screen_.cmdW4Back[0], "forward", "Page 2")});
  }

  void secondPage() {
    QBoxLayout* sheet = page(screen_.pnlDednAdj[1], screen_.lblPersWorkpt2, screen_.lblPage2);
    enter(sheet, screen_.lblDnJ4, screen_.txtAdjustments);
    comesOut(sheet, screen_.lblDnJ5, screen_.lblTotal5);
    enter(sheet, screen_.lblDnJ6, screen_.txtNonWage);
    comesOut(sheet, screen_.lblDnJ7, screen_.lblTotal7);
    comesOut(sheet, screen_.lblDnJ8, screen_.lblDivide);
    comesOut(sheet, screen_.lblDnJ9, screen_.lblPersWrkShtDeps);
    comesOut(sheet, screen_.lblDnJ10, screen_.lblTotal10);
    foot(sheet, {wordButton(screen_.cmdPersWrkCalc, "calculate-dark", "Calculate"),
                 wordButton(screen_.cmdW4Back[1], "back", "Page 1")});
  }

  frmDednAdj& screen_;
};

}  // namespace

std::unique_ptr<View> makeView(frmDednAdj& screen) { return std::make_unique<frmDednAdjView>(screen); }

}  // namespace tallyfin::qt
