#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/views/views.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"
#include "whatif/frmMultiCheck.h"

/// Several checks brought to one monthly income: a table on paper, one row for each check.

namespace tallyfin::qt {

namespace {

/// The four periods of a row. The options have no caption to show the focus, so the row draws it.
class Periods : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    const QWidget* focused = QApplication::focusWidget();
    if (focused == nullptr || focused->parentWidget() != this) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(128, 128, 255), 1.5));
    QRectF frame(0, 0, 22, 18);  // mutation: 0 -> 1: it is moved to its place in the next line
    frame.moveCenter(QRectF(focused->geometry()).center());
    painter.drawRoundedRect(frame, 4, 4);
  }
};

class frmMultiCheckView : public ScreenView {
 public:
  explicit frmMultiCheckView(frmMultiCheck& screen) : ScreenView(screen), screen_(screen) {
    look::setGround(*this, look::onPaper());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::edge, look::row, look::edge, look::row);
    layout->setSpacing(look::row);
    layout->addWidget(heading(screen.lblMulti));
    layout->addWidget(paragraph(screen.lblMultiInstruct));
    layout->addStretch();
    layout->addLayout(table());
    layout->addStretch();
    layout->addLayout(foot());
    const std::array boxes{&screen.txtCheck1, &screen.txtCheck2, &screen.txtCheck3, &screen.txtCheck4};
    for (int check = 1; check <= checks; ++check) {
      goOn(Qt::ALT | static_cast<Qt::Key>(Qt::Key_0 + check), *boxes.at(static_cast<std::size_t>(check - 1)));
    }
    pressOn(Qt::Key_F9, screen.cmdCalc);
    pressOn(Qt::ALT | Qt::Key_M, screen.cmdGoBack);
  }

 private:
  static constexpr int checks = 4;
  static constexpr int periodWidth = 56;
  static constexpr int amountWidth = 100;

  QLayout* table() {
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(look::tight);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    grid->addLayout(headings(), 0, 1);
    for (int check = 0; check < checks; ++check) {
      grid->addWidget(look::rule(look::paperLine, this), 2 * check + 1, 0, 1, 3);
      addCheck(*grid, 2 * check + 2, check);
    }
    const int last = grid->rowCount();
    grid->addWidget(look::rule(look::paperLine, this), last, 0, 1, 3);
    QLabel* total = figure(screen_.lblMultiTotal);
    QLabel* title = label(screen_.Label4);
    name(title, total);
    for (QLabel* widget : {total, title}) {
      QFont font = look::figures();
      font.setBold(true);
      widget->setFont(font);
    }
    grid->addWidget(title, last + 1, 1, Qt::AlignRight);
    grid->addWidget(total, last + 1, 2);
    return grid;
  }

  QLayout* headings() {
    auto* row = new QHBoxLayout;
    row->setSpacing(0);  // mutation: row->setSpacing(0); -> nothing: a row in a grid has no spacing of its own
    for (Label* control :
         {&screen_.lblMultiWeekly, &screen_.lblMultiETW, &screen_.lblMulti2aMon, &screen_.lblMultimonthly}) {
      QLabel* widget = paragraph(*control);
      widget->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
      widget->setFixedWidth(look::scaled(periodWidth));
      row->addWidget(widget);
    }
    return row;
  }

  void addCheck(QGridLayout& grid, int line, int check) {
    const std::array boxes{&screen_.txtCheck1, &screen_.txtCheck2, &screen_.txtCheck3, &screen_.txtCheck4};
    const std::array results{&screen_.lblCheck1, &screen_.lblCheck2, &screen_.lblCheck3, &screen_.lblCheck4};
    const auto place = static_cast<std::size_t>(check);
    const QString title = QStringLiteral("Check %1").arg(check + 1);
    QLineEdit* amount = amountBox(*boxes.at(place));
    amount->setMinimumWidth(look::scaled(amountWidth));
    amount->setAccessibleName(title);
    QLabel* result = figure(*results.at(place));
    result->setAccessibleName(title + QStringLiteral(", monthly amount"));
    grid.addWidget(amount, line, 0);
    grid.addWidget(periods(check, title), line, 1);
    grid.addWidget(result, line, 2);
  }

  QWidget* periods(int check, const QString& title) {
    const std::array panels{&screen_.pnlMultiHoldCk_0, &screen_.pnlMultiHoldCk_1, &screen_.pnlMultiHoldCk_2,
                            &screen_.pnlMultiHoldCk_3};
    auto* panel = new Periods(this);
    presentAs(*panel, QAccessible::Grouping);
    tied(panel, bindPlain(*panel, *panels.at(static_cast<std::size_t>(check))));
    panel->setAccessibleName(title + QStringLiteral(", period"));
    const auto widgets = options({&screen_.optSelectWeek[check], &screen_.optSelectETW[check],
                                  &screen_.optSelectTAW[check], &screen_.optSelectMonthly[check]});
    const std::array names{&screen_.lblMultiWeekly, &screen_.lblMultiETW, &screen_.lblMulti2aMon,
                           &screen_.lblMultimonthly};
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins({});
    row->setSpacing(0);  // mutation: row->setSpacing(0); -> nothing: a row in a grid has no spacing of its own
    for (std::size_t i = 0; i < widgets.size(); ++i) {
      widgets[i]->setAccessibleName(title + ", " + text(names.at(i)->caption()));
      row->addWidget(widgets[i], 1, Qt::AlignCenter);
    }
    return panel;
  }

  QLayout* foot() {
    auto* row = new QHBoxLayout;
    row->addStretch();
    const auto add = [&](CommandButton& control, const char* picture, const char* name) {
      row->addWidget(wordButton(control, picture, name));
    };
    add(screen_.cmdCalc, "calculate-dark", "Calculate");
    add(screen_.cmdGoBack, "back", "Go To Main Worksheet");
    return row;
  }

  frmMultiCheck& screen_;
};

}  // namespace

std::unique_ptr<View> makeView(frmMultiCheck& screen) { return std::make_unique<frmMultiCheckView>(screen); }

}  // namespace tallyfin::qt
