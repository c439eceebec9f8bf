#include "ui/qt/views/worksheetview.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/qt/accessibility/accessible.h"
#include "ui/qt/widgets/captions.h"
#include "ui/qt/widgets/look.h"
#include "ui/qt/widgets/text.h"

namespace tallyfin::qt {

namespace {

// mutation: 362 -> 363 and 460 -> 461: a pixel or so moves no word
constexpr QSize unfilled{460, 362};  ///< Of a worksheet that doesn't fill the document area.

/// A figure in a field.
class Result : public FigureLabel {
 public:
  using FigureLabel::FigureLabel;

 protected:
  void paintEvent(QPaintEvent* event) override {
    {
      QPainter painter(this);
      painter.fillRect(rect(), look::paper.lighter(103));
      look::drawEdge(painter, rect(), look::paperLine.darker(125));
    }
    QLabel::paintEvent(event);
  }
};

}  // namespace

WorksheetView::WorksheetView(Screen& screen, int entryWidth)
    : PagedView(screen), margin_(look::scaled(26)), entryWidth_(look::scaled(entryWidth)) {
  look::setGround(*this, look::onPaper());
  setLayout(pages());
  pages()->setContentsMargins(look::edge, look::tight, look::edge, look::tight);
}

QSize WorksheetView::sizeHint() const { return unfilled; }

QBoxLayout* WorksheetView::page(Panel& panel, Label& headingText, Label& pageNumber) {
  QVBoxLayout* column = PagedView::page(panel, text(pageNumber.caption()));
  column->setSpacing(look::tight);
  auto* top = new QHBoxLayout;
  top->addWidget(heading(headingText), 1);
  top->addWidget(label(pageNumber));
  column->addLayout(top);
  return column;
}

void WorksheetView::line(QBoxLayout* page, QWidget* words, QWidget* entry) {
  page->addWidget(look::rule(look::paperLine, this));
  auto* row = new QHBoxLayout;
  row->setSpacing(look::row);
  row->addWidget(words, 1);
  // mutation: 0 -> 1: what has a fixed width doesn't stretch
  if (entry != nullptr) row->addWidget(entry, 0, Qt::AlignBottom);
  page->addLayout(row);
}

void WorksheetView::foot(QBoxLayout* page, std::initializer_list<QWidget*> pictures) {
  page->addWidget(look::rule(look::paperLine, this));
  page->addStretch();
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (QWidget* picture : pictures) row->addWidget(picture);
  page->addLayout(row);
}

void WorksheetView::keys(const CommandButton& calculate, const CommandButton& forward, const CommandButton& back) {
  pressOn(Qt::Key_F9, calculate);
  pressOn(Qt::CTRL | Qt::Key_PageDown, forward);
  pressOn(Qt::CTRL | Qt::Key_PageUp, back);
}

void WorksheetView::addIndented(QBoxLayout* page, QRadioButton* option) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(margin_, 0, 0, 0);
  row->addWidget(option);
  page->addLayout(row);
}

QLabel* WorksheetView::caption(Label& control) {
  auto* widget = new HangingLabel(this, margin_);
  return tied(widget, bind(*widget, control));
}

QCheckBox* WorksheetView::checkLine(CheckBox& control) {
  // mutation: look::row -> look::group: a pixel or so moves no word
  auto* widget = new HangingCheckBox(this, margin_, entryWidth_ + look::row);
  return tied(widget, bind(*widget, control));
}

QLineEdit* WorksheetView::entry(TextBox& control, const QString& words) {
  QLineEdit* widget = amountBox(control);
  widget->setFixedWidth(entryWidth_);
  widget->setAccessibleName(words.simplified());
  return widget;
}

QLabel* WorksheetView::result(Label& control, const QString& words) {
  auto* widget = new Result(this);
  // mutation: widget->setFont(look::figures()); -> nothing: the font has digits of one width already
  widget->setFont(look::figures());
  widget->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  widget->setMargin(2);
  widget->setIndent(2);
  widget->setFixedWidth(entryWidth_);
  widget->setAccessibleName(words.simplified());
  return tied(widget, bind(*widget, control));
}

QWidget* WorksheetView::sentence(Label& first, CommandButton& button, Label& second) {
  auto* widget = new SentenceWithButton(this, margin_);
  tied(widget->first(), bind(*widget->first(), first));
  tied(widget->second(), bind(*widget->second(), second));
  widget->setButton(this->button(button));
  return widget;
}

}  // namespace tallyfin::qt
