#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

#include "ui/frmMain.h"
#include "ui/qt/explanation/explanation.h"
#include "ui/qt/frame/frame.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

constexpr int resultRows = 12;

class frmMainView : public ScreenView {
 public:
  explicit frmMainView(frmMain& screen) : ScreenView(screen), screen_(screen) {
    look::setGround(*this, look::onDeep());
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(look::edge, 6, look::edge, 6);
    layout->setSpacing(look::group);
    layout->addLayout(inputs());
    layout->addLayout(results(), 1);
    letters();
  }

 private:
  Frame& frame() const { return static_cast<Frame&>(*window()); }

  /// Mnemonics, and the keys of controls without a caption.
  void letters() {
    letter(screen_.optStatus[0], 'M');
    letter(screen_.optStatus[1], 'g');
    letter(screen_.optStatus[2], 'C');
    letter(screen_.chkSelfEmployed, 'E');
    letter(screen_.cmdAdditional[frmMain::localTax], 'L');
    letter(screen_.cmdAdditional[frmMain::raise], 'R');
    letter(screen_.cmdToolBar[frmMain::sponsorInfo], 'o');
    pressOn(Qt::Key_F9, screen_.cmdToolBar[frmMain::calculate]);
    pressOn(QKeySequence::Print, screen_.cmdToolBar[frmMain::print]);
    pressOn(Qt::CTRL | Qt::Key_L, screen_.cmdToolBar[frmMain::clear]);
    goOn(Qt::ALT | Qt::Key_Y, screen_.lstFrequency);
    goOn(Qt::ALT | Qt::Key_T, screen_.dbgDisplay);
  }

  QLayout* inputs() {
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addLayout(boxes());
    column->addStretch();
    column->addWidget(frequency());
    column->addStretch();
    for (QRadioButton* option : options(screen_.optStatus)) {
      colour(option, look::choicesOnDeep());
      column->addWidget(option);
    }
    column->addStretch();
    column->addLayout(choices());
    column->addStretch();
    column->addLayout(additional());
    return column;
  }

  QLayout* boxes() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(look::tight);
    grid->setVerticalSpacing(look::tight);
    const auto row = [&](Label& caption, TextBox& control, char letter) {
      const int line = grid->rowCount();
      QLabel* title = label(caption);
      QLineEdit* edit = amountBox(control);
      name(title, edit, letter);
      grid->addWidget(title, line, 0, Qt::AlignRight | Qt::AlignVCenter);
      grid->addWidget(edit, line, 1);  // mutation: 1 -> 2: an empty row or column of a grid takes no room
    };
    row(screen_.lblIncome, screen_.txtIncome, 'I');
    row(screen_.lblHours, screen_.txtHours, 'H');
    row(screen_.lbl401k, screen_.txt401k, 'k');
    row(screen_.lblPreTax, screen_.txtPreTax, 'P');
    row(screen_.lblPreFICA, screen_.txtPreFICA, 'F');
    return grid;
  }

  QListWidget* frequency() {
    FramedList* widget = list(screen_.lstFrequency);
    widget->setAccessibleName(QStringLiteral("Pay frequency"));
    widget->setRows(widget->count());
    return widget;
  }

  QLayout* choices() {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(look::tight);
    grid->setVerticalSpacing(look::tight);
    QLabel* exemptionsName = label(screen_.lblExemp);
    QComboBox* exemptions = dropDown(screen_.cboExemptions);
    name(exemptionsName, exemptions, 'x');
    QLabel* stateName = label(screen_.lblStateTax);
    QComboBox* state = dropDown(screen_.cboState);
    name(stateName, state, 'S');
    auto* first = new QHBoxLayout;
    first->addWidget(exemptionsName);
    first->addWidget(exemptions, 1);
    grid->addLayout(first, 0, 0, 1, 2);
    grid->addWidget(stateName, 1, 0);
    grid->addWidget(state, 1, 1);
    grid->setColumnStretch(1, 1);
    QCheckBox* selfEmployed = check(screen_.chkSelfEmployed);
    colour(selfEmployed, look::choicesOnDeep());
    // mutation: 0 -> 1 and 1 -> 2 and 2 -> 3 and grid->addWidget(self* -> nothing: an empty row or column of a grid
    // takes no room
    grid->addWidget(selfEmployed, 2, 0, 1, 2);
    return grid;
  }

  QLayout* additional() {
    auto* row = new QHBoxLayout;
    row->setSpacing(look::row);
    for (CommandButton& control : screen_.cmdAdditional) {
      QPushButton* widget = button(control);
      colour(widget, look::choicesOnDeep());
      keepPlace(widget);  // the Raise button appears at the first Calculate
      row->addWidget(widget, 1);
    }
    return row;
  }

  QLayout* results() {
    auto* column = new QVBoxLayout;
    column->setSpacing(look::tight);
    column->addLayout(toolbar());
    column->addSpacing(2);
    column->addWidget(grid());
    column->addWidget(remark());
    column->addStretch();
    column->addLayout(strip());
    return column;
  }

  /// The five buttons in their order, in two rows: each has a caption, and Calculate, the main action, is highlighted.
  QLayout* toolbar() {
    auto* rows = new QVBoxLayout;
    rows->setSpacing(look::tight);
    auto* first = new QHBoxLayout;
    auto* second = new QHBoxLayout;
    const auto add = [this](QHBoxLayout* row, int index, const char* picture, const char* word, int stretch) {
      QPushButton* widget = wordButton(screen_.cmdToolBar[index], picture, word);
      widget->setFixedHeight(look::scaled(toolHeight));
      row->addWidget(widget, stretch);
      return widget;
    };
    for (QHBoxLayout* row : {first, second}) {
      row->setSpacing(look::tight);
      rows->addLayout(row);
    }
    add(first, frmMain::clear, "clear", "Clear", 0);
    QPushButton* calculate = add(first, frmMain::calculate, "calculate-dark", "Calculate", 1);
    QFont bold = calculate->font();
    bold.setBold(true);
    calculate->setFont(bold);
    colour(calculate, look::mainAction());
    add(second, frmMain::print, "print", "Print", 0);
    add(second, frmMain::exit, "exit", "Exit", 0);
    QPushButton* sponsors = button(screen_.cmdToolBar[frmMain::sponsorInfo]);
    sponsors->setFixedHeight(look::scaled(toolHeight));
    second->addWidget(sponsors, 1);
    return rows;
  }

  /// The reason for a federal tax of zero where no pay frequency is chosen.
  QLabel* remark() {
    remark_ = new QLabel(QStringLiteral("Federal tax needs a pay frequency."), this);
    remark_->setObjectName(QStringLiteral("remark"));
    QPalette yellow = look::onDeep();
    yellow.setColor(QPalette::WindowText, look::lightYellow);
    remark_->setPalette(yellow);
    remark_->setVisible(lacksFrequency());
    return remark_;
  }

  bool lacksFrequency() const { return holdsResults() && screen_.lstFrequency.index() < 0; }

  QTableWidget* grid() {
    auto* table = new QTableWidget(0, 2, this);  // mutation: 0 -> 1: written before it is read
    auto* title = new QTableWidgetItem(QStringLiteral("Title"));
    auto* value = new QTableWidgetItem(QStringLiteral("Value"));
    title->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    table->setHorizontalHeaderItem(0, title);
    table->setHorizontalHeaderItem(1, value);
    QHeaderView* header = table->horizontalHeader();
    header->setPalette(look::lightFace());
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    const int rowHeight = fontMetrics().height() + look::tight;
    header->setFixedHeight(rowHeight);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    table->setFixedHeight((1 + resultRows) * rowHeight + 2 * table->frameWidth());
    table->setMinimumWidth(QFontMetrics(look::figures()).horizontalAdvance("Social Security  ($1,000,000.00)"));
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setShowGrid(false);
    table->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    table->setAlternatingRowColors(true);
    table->setTabKeyNavigation(false);
    table->setAccessibleName(QStringLiteral("Results"));
    offerActions(*table);
    Binding& binding = bindPlain(*table, screen_.dbgDisplay);
    binding.show = [this, table] { fill(*table); };
    return tied(table, binding);
  }

  /// Actions on the results: explain the current one, and copy those that are selected, or all.
  void offerActions(QTableWidget& table) {
    const auto explainRow = [this, &table] {
      const auto* title = table.item(table.currentRow(), 0);
      if (title != nullptr && holdsResults()) ExplanationWindow::open(frame(), title->text());
    };
    const auto copyRows = [this, &table] {
      QString rows;
      const QItemSelectionModel& selected = *table.selectionModel();
      for (int row = 0; row < table.rowCount(); ++row) {
        if (selected.hasSelection() && !selected.isRowSelected(row)) continue;
        rows += table.item(row, 0)->text() + '\t' + table.item(row, 1)->text() + '\n';
      }
      QGuiApplication::clipboard()->setText(rows);
      frame().confirm(QStringLiteral("Copied"));
    };
    auto* how = new QAction(QStringLiteral("&How this was worked out"), &table);
    how->setShortcuts({Qt::Key_Return, Qt::Key_Enter});
    auto* all = new QAction(QStringLiteral("Select &all"), &table);
    all->setShortcut(QKeySequence::SelectAll);
    connect(all, &QAction::triggered, &table, &QTableWidget::selectAll);
    auto* copy = new QAction(QStringLiteral("&Copy the rows"), &table);
    copy->setShortcut(QKeySequence::Copy);
    for (QAction* action : {how, all, copy}) {
      action->setShortcutContext(Qt::WidgetShortcut);
      table.addAction(action);
    }
    table.setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(how, &QAction::triggered, this, explainRow);
    connect(copy, &QAction::triggered, this, copyRows);
    connect(&table, &QTableWidget::cellDoubleClicked, this, explainRow);
  }

  /// Whether the grid holds all results, and not another table.
  bool holdsResults() const {
    const std::vector<RowKind>& kinds = screen_.dbgDisplay.kinds();
    return !kinds.empty() && kinds.back() == RowKind::result;
  }

  void fill(QTableWidget& table) const {
    const auto& cells = screen_.dbgDisplay.cells();
    table.setRowCount(static_cast<int>(cells.size()));
    for (int row = 0; row < table.rowCount(); ++row) {
      const auto& texts = cells[static_cast<std::size_t>(row)];
      auto* title = new QTableWidgetItem(text(texts[0]));
      auto* value = new QTableWidgetItem(text(texts[1]));
      value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      const RowKind kind = screen_.dbgDisplay.kinds()[static_cast<std::size_t>(row)];
      for (QTableWidgetItem* item : {title, value}) {
        QFont font = look::figures();
        font.setBold(kind != RowKind::line);
        item->setFont(font);
        if (kind == RowKind::result) {
          item->setBackground(look::deep);
          item->setForeground(look::lightYellow);
        }
      }
      table.setItem(row, 0, title);
      table.setItem(row, 1, value);
    }
    if (remark_ != nullptr) remark_->setVisible(lacksFrequency());
    if (!holdsResults()) return;
    ExplanationWindow::follow(frame());
    const int last = table.rowCount() - 1;
    const QString check = table.item(last, 0)->text() + ' ' + table.item(last, 1)->text();
    const bool remarked = remark_ != nullptr && lacksFrequency();
    frame().announce(remarked ? check + QStringLiteral(". ") + remark_->text() : check);
  }

  /// The eight figures with their names, which show the effect of a raise.
  QLayout* strip() {
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(1);
    grid->setHorizontalSpacing(look::tight);
    grid->setColumnMinimumWidth(2, look::row);
    const auto add = [&](int place, const char* title, Label& control) {
      const int column = place / 4 * 3;
      auto* name = new QLabel(QString::fromLatin1(title), this);
      QLabel* value = figure(control);
      value->setAccessibleName(name->text());
      name->setBuddy(value);
      grid->addWidget(name, place % 4, column);
      grid->addWidget(value, place % 4, column + 1);
    };
    add(0, "Federal", screen_.lbl1);
    add(1, "State", screen_.lbl2);
    add(2, "401(k)", screen_.lbl3);
    add(3, "Local", screen_.lbl8);
    add(4, "FICA", screen_.lbl4);
    add(5, "Pre-FICA", screen_.lbl5);
    add(6, "Soc. Sec.", screen_.lbl6);
    add(7, "Medicare", screen_.lbl7);
    for (const int column : {1, 4}) grid->setColumnStretch(column, 1);
    return grid;
  }

  static constexpr int toolHeight = 24;

  frmMain& screen_;
  QLabel* remark_ = nullptr;
};

}  // namespace

std::unique_ptr<View> makeView(frmMain& screen) { return std::make_unique<frmMainView>(screen); }

}  // namespace tallyfin::qt
