#include <QAction>
#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>

#include "ui/qt/frame/frame.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"
#include "whatif/frmAnalysis.h"

/// The analysis: ten captions and their figures, in three groups: wages, shares, the year.

namespace tallyfin::qt {

namespace {

class frmAnalysisView : public ScreenView {
 public:
  explicit frmAnalysisView(frmAnalysis& screen) : ScreenView(screen) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(2 * look::edge, look::edge, 2 * look::edge, look::edge);
    grid->setHorizontalSpacing(look::group);
    grid->setVerticalSpacing(look::row);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(0, 1);  // mutation: 0 -> 1: an empty row or column of a grid takes no room
    for (int i = 0; i < 10; ++i) {
      if (i == firstShare || i == firstOfYear)
        // mutation: 1 -> 2: an empty row or column of a grid takes no room
        grid->addWidget(look::rule(look::deepLine, this), grid->rowCount(), 0, 1, 2);
      const int line = grid->rowCount();
      QLabel* caption = label(screen.lblAnalysis[i]);
      QLabel* value = figure(screen.lblOne[i]);
      colour(value, look::choicesOnDeep());
      name(caption, value);
      grid->addWidget(caption, line, 0);
      grid->addWidget(value, line, 1);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    auto* copy = new QAction(QStringLiteral("&Copy the figures"), this);
    connect(copy, &QAction::triggered, this, [this, &screen] {
      if (View::screen() == nullptr) return;
      std::string rows;
      for (int i = 0; i < 10; ++i) rows += screen.lblAnalysis[i].caption() + '\t' + screen.lblOne[i].caption() + '\n';
      QGuiApplication::clipboard()->setText(text(rows));
      static_cast<Frame&>(*window()).confirm(QStringLiteral("Copied"));
    });
    addAction(copy);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    onKey(QKeySequence::Copy, QStringLiteral("Copy the figures"), [copy] { copy->trigger(); });
  }

 private:
  static constexpr int firstShare = 3;
  static constexpr int firstOfYear = 8;
};

}  // namespace

std::unique_ptr<View> makeView(frmAnalysis& screen) { return std::make_unique<frmAnalysisView>(screen); }

}  // namespace tallyfin::qt
