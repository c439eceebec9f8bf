#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt/views/pages.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"
#include "whatif/frmMisc.h"

/// Local tax and raise: two pages of one size, of which one is visible.

namespace tallyfin::qt {

namespace {

class frmMiscView : public PagedView {
 public:
  explicit frmMiscView(frmMisc& screen) : PagedView(screen), screen_(screen) {
    look::setGround(*this, look::onDeep());
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(look::edge, look::edge, look::edge, look::edge);
    layout->setSpacing(look::group);
    layout->addWidget(seal(), 0, Qt::AlignTop);  // mutation: 0 -> 1: what is aligned is as large as it wants to be
    layout->addLayout(pages());
    fillLocalTax(*page(screen.pnlContainerMisc[0], QStringLiteral("Local tax")));
    fillRaise(*page(screen.pnlContainerMisc[1], QStringLiteral("Raise")));
    setFixedWidth(look::scaled(width));
    // mutation: 2 -> 3: the raise is the higher page
    levelPages(look::scaled(width) - sealSide - look::group - 2 * look::edge);
    // Its mnemonics differ from those of the main screen, which is below it.
    pressOn(Qt::CTRL | Qt::Key_Return, screen.cmdExit[0]);
    goOn(Qt::ALT | Qt::Key_B, screen.lstGrossPay);
    pressOn(Qt::Key_F9, screen.cmdExit[1]);
  }

 private:
  static constexpr int width = 380;
  static constexpr int sealSide = 64;

  /// The picture that closes the screen, as a button, so that it can be reached by keyboard.
  QPushButton* seal() {
    auto* widget = new QPushButton(this);
    widget->setFlat(true);
    widget->setAutoDefault(true);
    showPicture(*widget, "seal", "Close this page", {sealSide, sealSide}, 56);
    Binding& binding = bindPlain(*widget, screen_.imgSeal);
    connect(widget, &QPushButton::clicked, &binding,
            [this, &binding] { binding.act([this] { screen_.imgSeal.userClick(); }); });
    return tied(widget, binding);
  }

  void fillLocalTax(QVBoxLayout& layout) {
    layout.setSpacing(look::row);
    QLabel* percent = label(screen_.lblpercent);
    QLineEdit* rate = amountBox(screen_.txtTaxPerCnt);
    rate->setFixedWidth(look::scaled(boxWidth));
    name(percent, rate, 'n');
    auto* row = new QHBoxLayout;
    row->addWidget(percent);
    row->addStretch();
    row->addWidget(rate);
    layout.addLayout(row);
    layout.addWidget(paragraph(screen_.lblInstruct));
    FramedList* bases = list(screen_.lstGrossPay);
    bases->setAccessibleName(QStringLiteral("What the local tax is taken from"));
    bases->setRows(bases->count());
    layout.addWidget(bases);
    layout.addStretch();  // mutation: layout.addStretch(); -> nothing: the raise is the higher page
    // mutation: 0 -> 1: what is aligned is as large as it wants to be
    layout.addWidget(command(button(screen_.cmdExit[0])), 0, Qt::AlignRight);
  }

  /// In the order of a sentence: from the old wage, by a percentage or to a new wage.
  void fillRaise(QVBoxLayout& layout) {
    layout.setSpacing(look::row);
    layout.addWidget(paragraph(screen_.lblRaiseInst));
    auto* grid = new QGridLayout;
    grid->setColumnStretch(0, 1);
    const auto row = [&](int line, QLabel* title, QWidget* value, char letter, int columns = 2) {
      name(title, value, letter);
      value->setFixedWidth(look::scaled(boxWidth));
      grid->addWidget(title, line, 0, 1, columns);
      grid->addWidget(value, line, 2);
    };
    QLabel* oldWage = figure(screen_.lblOldShow);
    oldWage->setMargin(3);
    row(0, label(screen_.lblOld), oldWage, '\0');
    row(1, paragraph(screen_.lblRaise), amountBox(screen_.txtRaise[0]), 'a');
    grid->addWidget(label(screen_.lblOr), 2, 2, Qt::AlignHCenter);
    row(3, paragraph(screen_.lblCompare), amountBox(screen_.txtRaise[1]), 'w', 1);
    // mutation: Qt::AlignRight -> *: its place is as wide and as high as the label
    grid->addWidget(label(screen_.lblNew), 3, 1, Qt::AlignRight | Qt::AlignVCenter);
    layout.addLayout(grid);
    layout.addStretch();  // mutation: layout.addStretch(); -> nothing: the raise is the higher page
    auto* foot = new QHBoxLayout;
    // mutation: foot->setSpacing(look::row); -> nothing: a row takes the spacing of its column, which is the same
    foot->setSpacing(look::row);
    foot->addStretch();
    foot->addWidget(command(wordButton(screen_.cmdExit[1], "raise-dark", "Raise")));
    foot->addWidget(command(wordButton(screen_.cmdExit[2], "exit-dark", "Close")));
    layout.addLayout(foot);
  }

  /// A button with a light background, because the text colours of the screen are dark.
  QPushButton* command(QPushButton* widget) {
    colour(widget, look::lightFace());
    widget->setFixedSize(commandSize());
    return widget;
  }

  static QSize commandSize() { return {look::scaled(80), look::scaled(28)}; }

  static constexpr int boxWidth = 88;

  frmMisc& screen_;
};

}  // namespace

std::unique_ptr<View> makeView(frmMisc& screen) { return std::make_unique<frmMiscView>(screen); }

}  // namespace tallyfin::qt
