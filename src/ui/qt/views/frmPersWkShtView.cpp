#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "ui/qt/views/views.h"
#include "ui/qt/views/worksheetview.h"
#include "ui/qt/widgets/captions.h"
#include "ui/qt/widgets/look.h"
#include "w4/frmPersWkSht.h"

namespace tallyfin::qt {

namespace {

/// Two pages: lines A to E, then F to H with the buttons of the next screens.
class frmPersWkShtView : public WorksheetView {
 public:
  explicit frmPersWkShtView(frmPersWkSht& screen) : WorksheetView(screen, countWidth), screen_(screen) {
    firstPage();
    secondPage();
    keys(screen_.cmdPersWrkCalc[0], screen_.cmdW4Back[0], screen_.cmdW4Back[1]);
    lineKeys({{'A', &screen_.chkPersWkShtA[0]},
              {'B', &screen_.chkPersWkShtA[1]},
              {'C', &screen_.chkPersWkShtA[2]},
              {'D', &screen_.txtPersWkEnterDeps},
              {'E', &screen_.chkPersWkShtA[4]},
              {'F', &screen_.chkPersWkShtA[3]},
              {'G', &screen_.txtChild}});
  }

 private:
  void firstPage() {
    QBoxLayout* sheet = page(screen_.pnlW4PersWkSht[0], screen_.lblPersWorkpt1, screen_.lblPage1);
    explained(sheet, screen_.chkPersWkShtA[0], {&screen_.lblItem1});
    explained(sheet, screen_.chkPersWkShtA[1], {&screen_.lblPart1of3, &screen_.lblPart2of3, &screen_.lblPart3of3});
    explained(sheet, screen_.chkPersWkShtA[2], {&screen_.lblItem3});
    enter(sheet, screen_.lblPersWrkNoDeps, screen_.txtPersWkEnterDeps);
    explained(sheet, screen_.chkPersWkShtA[4], {});
    foot(sheet, {wordButton(screen_.cmdW4Back[0], "forward", "Page 2")});
  }

  void secondPage() {
    QBoxLayout* sheet = page(screen_.pnlW4PersWkSht[1], screen_.lblPersWorkpt2, screen_.lblPage2);
    explained(sheet, screen_.chkPersWkShtA[3], {});
    enter(sheet, screen_.lblPersWrkChildCare, screen_.txtChild);
    sheet->addWidget(caption(screen_.lblChildCare[0]));
    sheet->addWidget(caption(screen_.lblChildCare[1]));
    comesOut(sheet, screen_.lblPersWrkTotal, screen_.lblTotalDepsClaim);

    sheet->addWidget(caption(screen_.lblForAccuracy));
    sheet->setSpacing(2);  // the page is full
    for (int i : {0, 1}) sheet->addWidget(instruction(i));
    auto* last = new QHBoxLayout;
    last->setSpacing(look::tight);
    last->addWidget(instruction(2), 1);
    last->addWidget(wordButton(screen_.cmdPersWrkCalc[0], "calculate-dark", "Calculate"));
    last->addWidget(wordButton(screen_.cmdW4Back[1], "back", "Page 1"));
    sheet->addLayout(last);
    sheet->addStretch();
  }

  QWidget* instruction(int index) {
    auto* widget = new WrapButton(this);
    return tied(widget, bind(*widget, screen_.cmdInstructions[index]));
  }

  /// A line with a check box, with its explanation below it.
  void explained(QBoxLayout* sheet, CheckBox& control, std::initializer_list<Label*> explanation) {
    QCheckBox* box = checkLine(control);
    line(sheet, box);
    QStringList words;
    for (Label* part : explanation) {
      QLabel* text = caption(*part);
      sheet->addWidget(text);
      words << text->text();
    }
    box->setAccessibleDescription(words.join(QLatin1Char(' ')));
  }

  frmPersWkSht& screen_;
};

}  // namespace

std::unique_ptr<View> makeView(frmPersWkSht& screen) { return std::make_unique<frmPersWkShtView>(screen); }

}  // namespace tallyfin::qt
