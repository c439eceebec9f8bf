#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/qt/frame/frame.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"
#include "w4/frmTableOne.h"

namespace tallyfin::qt {

namespace {

/// Choosing a row closes the screen, so the arrow keys only move the marker and Enter chooses.
class frmTableOneView : public ScreenView {
 public:
  explicit frmTableOneView(frmTableOne& screen) : ScreenView(screen) {
    look::setGround(*this, look::onPaper());
    auto* left = new QVBoxLayout;
    left->setSpacing(look::row);
    QLabel* table = heading(screen.lblCboTable);
    left->addWidget(table);
    for (QRadioButton* option : options(screen.optTableOne)) {
      letter(option, option->text().front().toLatin1());
      left->addWidget(option);
    }
    left->addStretch();
    QListWidget* wages = list(screen.lstTableOne, Choose::byEnter);
    wages->setAccessibleName(text(screen.title()));
    wages->setMinimumWidth(look::scaled(160));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(look::edge, look::tight, look::edge, look::tight);
    layout->setSpacing(look::group);
    layout->addLayout(left);
    layout->addWidget(wages, 1);
    onKey(Qt::ALT | Qt::Key_W, QStringLiteral("Wages"), [wages] { wages->setFocus(Qt::ShortcutFocusReason); });
  }

  QSize sizeHint() const override { return {Frame::pixels(frmTableOne::width), Frame::pixels(frmTableOne::height)}; }
};

}  // namespace

std::unique_ptr<View> makeView(frmTableOne& screen) { return std::make_unique<frmTableOneView>(screen); }

}  // namespace tallyfin::qt
