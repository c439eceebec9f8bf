#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <array>

#include "stateoptions/frmState.h"
#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

/// The state options. All controls are at the same place for every state, disabled where the state doesn't use them.

namespace tallyfin::qt {

namespace {

constexpr int explanationLines = 4;
constexpr int acceptHeight = 32;

class frmStateView : public ScreenView {
 public:
  explicit frmStateView(frmState& screen) : ScreenView(screen), screen_(screen) {
    look::setGround(*this, look::onDeeper());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, look::row, 6, look::row);  // the captions need the width
    layout->setSpacing(0);
    layout->addLayout(dropDowns());
    layout->addStretch();
    layout->addLayout(marital());
    layout->addStretch();
    layout->addWidget(rates());
    layout->addStretch();
    layout->addLayout(foot());
    letter(screen.chkExemp[0], '4');
    letter(screen.chkExemp[1], 'P');
    pressOn(Qt::CTRL | Qt::Key_Return, screen.cmdAccept);
  }

 private:
  QLayout* dropDowns() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(look::row);
    grid->setVerticalSpacing(look::tight);
    const auto narrow = [&](EditableDropDown& control) {
      QComboBox* widget = dropDown(control);
      widget->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
      return widget;
    };
    const auto row = [&](int line, Label& caption, EditableDropDown& control, char letter) {
      QLabel* title = label(caption);
      QComboBox* widget = narrow(control);
      name(title, widget, letter);
      grid->addWidget(title, line, 0, Qt::AlignRight | Qt::AlignVCenter);
      return widget;
    };
    grid->addWidget(row(0, screen_.lblStateVariables[1], screen_.cboState, 'S'), 0, 1, 1, 3);
    grid->addWidget(row(1, screen_.lblStateVariables[0], screen_.cboDeps[0], 'D'), 1, 1);
    auto* illinois = new QLabel(QStringLiteral("Illinois"), this);
    QComboBox* second = narrow(screen_.cboDeps[1]);
    name(illinois, second, 'I');
    // mutation: Qt::AlignRight -> *: its place is as wide and as high as the label
    grid->addWidget(illinois, 1, 2, Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(second, 1, 3);
    grid->addWidget(row(2, screen_.lblSpecialDeps, screen_.cboSpecialDeps, 'x'), 2, 1);
    for (const int column : {1, 3}) grid->setColumnStretch(column, 1);
    // The caption of the special list changes with the state; the boxes don't move.
    grid->setColumnMinimumWidth(0, fontMetrics().horizontalAdvance(QStringLiteral("Select Withholding Percentage")));
    return grid;
  }

  /// Two columns, with the longer captions in the second, so that they fit the width.
  QLayout* marital() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(look::tight);
    grid->setVerticalSpacing(2);
    const auto widgets = options(screen_.op3Marital);
    constexpr std::array places{0, 1, 2, 3, 5, 4, 6, 7, 8, 9};
    for (std::size_t i = 0; i < widgets.size(); ++i) {
      colour(widgets[i], look::choicesOnDeep());
      grid->addWidget(widgets[i], places.at(i) / 2, places.at(i) % 2);
    }
    return grid;
  }

  QWidget* rates() {
    auto* panel = new QWidget(this);
    presentAs(*panel, QAccessible::Grouping);
    tied(panel, bindPlain(*panel, screen_.pnlRate));
    panel->setAccessibleName(QStringLiteral("Rate"));
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins({});
    layout->setSpacing(look::tight);
    auto* row = new QHBoxLayout;
    for (QRadioButton* option : options(screen_.optRateSelect)) {
      colour(option, look::choicesOnDeep());
      row->addWidget(option);
    }
    layout->addLayout(row);
    QLabel* explanation = paragraph(screen_.lblExplain);
    explanation->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    explanation->setFixedHeight(explanationLines * fontMetrics().lineSpacing());
    layout->addWidget(explanation);
    return panel;
  }

  QLayout* foot() {
    auto* column = new QVBoxLayout;
    column->setSpacing(look::tight);
    QLabel* title = label(screen_.lblStateVariables[2]);
    column->addWidget(title);
    auto* row = new QHBoxLayout;
    row->setSpacing(look::group);
    QLineEdit* edit = amountBox(screen_.mskAdditional);
    name(title, edit, 'W');
    row->addWidget(edit, 1, Qt::AlignTop);  // mutation: 1 -> 2: what is aligned is as large as it wants to be
    row->addWidget(exempt());
    QPushButton* accept = wordButton(screen_.cmdAccept, "accept", "Accept");
    accept->setFixedHeight(look::scaled(acceptHeight));
    row->addWidget(accept, 0, Qt::AlignBottom);  // mutation: 0 -> 1: what is aligned is as large as it wants to be
    column->addLayout(row);
    return column;
  }

  QWidget* exempt() {
    auto* panel = new QGroupBox(this);
    tied(panel, bindPlain(*panel, screen_.pnlExempt));
    panel->setTitle(text(screen_.pnlExempt.caption()));
    auto* layout = new QHBoxLayout(panel);
    layout->setContentsMargins(look::row, look::tight, look::row, look::tight);
    for (CheckBox& control : screen_.chkExemp) {
      QCheckBox* widget = check(control);
      colour(widget, look::choicesOnDeep());
      layout->addWidget(widget);
    }
    return panel;
  }

  frmState& screen_;
};

}  // namespace

std::unique_ptr<View> makeView(frmState& screen) { return std::make_unique<frmStateView>(screen); }

}  // namespace tallyfin::qt
