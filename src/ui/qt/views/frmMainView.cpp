#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

#include "ui/frmMain.h"
#include "ui/qt/look.h"
#include "ui/qt/views/views.h"

namespace tallyfin::qt {

namespace {

class frmMainView : public View {
 public:
  explicit frmMainView(frmMain& screen) : View(screen), screen_(screen) {
    look::setGround(*this, look::onDeep());
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(look::edge, look::tight, look::edge, look::row);
    layout->setSpacing(look::group);
    layout->addLayout(inputs());
    layout->addLayout(results(), 1);
  }

 private:
  QLayout* inputs() {
    auto* column = new QVBoxLayout;
    column->setSpacing(look::row);
    column->addLayout(boxes());
    column->addLayout(frequencyAndStatus());
    column->addLayout(choices());
    column->addStretch(1);
    auto* buttons = new QHBoxLayout;
    for (CommandButton& control : screen_.cmdAdditional) buttons->addWidget(button(control));
    column->addLayout(buttons);
    return column;
  }

  QLayout* boxes() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(look::tight);
    grid->setVerticalSpacing(look::tight);
    const auto row = [&](Label& caption, TextBox& control) {
      QLabel* name = label(caption);
      QLineEdit* edit = amountBox(control);
      View::name(name, edit);
      grid->addWidget(name, grid->rowCount(), 0, Qt::AlignRight | Qt::AlignVCenter);
      grid->addWidget(edit, grid->rowCount() - 1, 1);
    };
    row(screen_.lblIncome, screen_.txtIncome);
    row(screen_.lblHours, screen_.txtHours);
    row(screen_.lbl401k, screen_.txt401k);
    row(screen_.lblPreTax, screen_.txtPreTax);
    row(screen_.lblPreFICA, screen_.txtPreFICA);
    return grid;
  }

  QLayout* frequencyAndStatus() {
    auto* row = new QHBoxLayout;
    row->setSpacing(look::row);
    QListWidget* frequency = list(screen_.lstFrequency);
    frequency->setAccessibleName(QStringLiteral("Pay frequency"));
    frequency->setFixedWidth(frequency->fontMetrics().horizontalAdvance(QStringLiteral("Every Two Weeks")) + 16);
    frequency->setFixedHeight(4 * frequency->sizeHintForRow(0) + 2 * frequency->frameWidth());
    frequency->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* status = new QVBoxLayout;
    status->setSpacing(look::tight);
    for (QRadioButton* option : options(screen_.optStatus)) status->addWidget(option);
    row->addWidget(frequency);
    row->addLayout(status);
    return row;
  }

  QLayout* choices() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(look::tight);
    grid->setVerticalSpacing(look::tight);
    QLabel* exemptionsName = label(screen_.lblExemp);
    QComboBox* exemptions = dropDown(screen_.cboExemptions);
    name(exemptionsName, exemptions);
    QLabel* stateName = label(screen_.lblStateTax);
    QComboBox* state = dropDown(screen_.cboState);
    name(stateName, state);
    grid->addWidget(exemptionsName, 0, 0, Qt::AlignRight);
    grid->addWidget(exemptions, 0, 1);
    grid->addWidget(stateName, 1, 0, Qt::AlignRight);
    grid->addWidget(state, 1, 1);
    grid->addWidget(check(screen_.chkSelfEmployed), 2, 1);
    return grid;
  }

  QLayout* results() {
    auto* column = new QVBoxLayout;
    column->setSpacing(look::row);
    column->addLayout(toolbar());
    column->addWidget(grid(), 1);
    column->addLayout(strip());
    return column;
  }

  QLayout* toolbar() {
    auto* row = new QHBoxLayout;
    row->setSpacing(look::tight);
    const auto add = [&](int index, const char* picture) {
      QPushButton* widget = button(screen_.cmdToolBar[index], QString::fromLatin1(picture));
      widget->setIconSize({20, 20});
      widget->setFixedSize(34, 28);
      row->addWidget(widget);
    };
    add(2, "clear");
    add(0, "calculate");
    add(1, "print");
    add(3, "exit");
    row->addStretch(1);
    row->addWidget(button(screen_.cmdToolBar[4]));
    return row;
  }

  QTableWidget* grid() {
    auto* table = new QTableWidget(0, 2, this);
    table->setHorizontalHeaderLabels({QStringLiteral("Title"), QStringLiteral("Value")});
    table->verticalHeader()->hide();
    table->verticalHeader()->setMinimumSectionSize(12);
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 3);
    table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    table->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    table->horizontalHeader()->setHighlightSections(false);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setTabKeyNavigation(false);
    table->setAccessibleName(QStringLiteral("Results"));
    Binding& binding = bindPlain(*table, screen_.dbgDisplay);
    binding.show = [this, table] { fill(*table); };
    binding.refresh();
    return tied(table, binding);
  }

  void fill(QTableWidget& table) const {
    const auto& cells = screen_.dbgDisplay.cells();
    table.setRowCount(static_cast<int>(cells.size()));
    for (int row = 0; row < table.rowCount(); ++row) {
      const auto& texts = cells[static_cast<std::size_t>(row)];
      auto* title = new QTableWidgetItem(QString::fromStdString(texts[0]));
      auto* value = new QTableWidgetItem(QString::fromStdString(texts[1]));
      value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      const bool check = texts[0] == "Check Amt";
      for (QTableWidgetItem* item : {title, value}) {
        QFont font = look::figures();
        font.setBold(check || texts[0] == "Total Ded" || texts[0] == "Gross Pay");
        item->setFont(font);
        if (check) {
          item->setBackground(look::deep);
          item->setForeground(look::lightYellow);
        }
      }
      table.setItem(row, 0, title);
      table.setItem(row, 1, value);
    }
  }

  /// The eight figures with their names, so that a raise can be seen.
  QLayout* strip() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(look::row);
    grid->setVerticalSpacing(1);
    const auto add = [&](int place, const char* title, Label& control) {
      auto* name = new QLabel(QString::fromLatin1(title), this);
      QLabel* value = figure(control);
      value->setAccessibleName(name->text());
      name->setBuddy(value);
      grid->addWidget(name, place % 4, place / 4 * 2);
      grid->addWidget(value, place % 4, place / 4 * 2 + 1);
    };
    add(0, "Federal", screen_.lbl1);
    add(1, "State", screen_.lbl2);
    add(2, "401(k)", screen_.lbl3);
    add(3, "Local", screen_.lbl8);
    add(4, "FICA", screen_.lbl4);
    add(5, "Pre-FICA", screen_.lbl5);
    add(6, "Soc. Sec.", screen_.lbl6);
    add(7, "Medicare", screen_.lbl7);
    for (const int column : {1, 3}) grid->setColumnStretch(column, 1);
    return grid;
  }

  frmMain& screen_;
};

}  // namespace

std::unique_ptr<View> makeView(frmMain& screen) { return std::make_unique<frmMainView>(screen); }

}  // namespace tallyfin::qt
