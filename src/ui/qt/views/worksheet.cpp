#include "ui/qt/views/worksheet.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/qt/accessible.h"
#include "ui/qt/captions.h"
#include "ui/qt/frame.h"
#include "ui/qt/look.h"

namespace tallyfin::qt {

namespace {

constexpr QSize unfilled{460, 362};  ///< Of a worksheet that doesn't fill the shell.

QWidget* hairline(QWidget* parent) {
  auto* line = new QWidget(parent);
  QPalette palette = look::onPaper();
  palette.setColor(QPalette::Window, look::paperLine);
  look::setGround(*line, palette);
  line->setFixedHeight(1);
  return line;
}

/// A figure in a field of its own.
class Result : public FigureLabel {
 public:
  using FigureLabel::FigureLabel;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    painter.fillRect(rect(), look::paper.lighter(103));
    look::drawEdge(painter, rect(), look::paperLine.darker(125));
    painter.end();
    QLabel::paintEvent(event);
  }
};

}  // namespace

WorksheetView::WorksheetView(Screen& screen, int entryWidth)
    : View(screen), margin_(look::scaled(26)), entryWidth_(look::scaled(entryWidth)), pages_(new QVBoxLayout(this)) {
  look::setGround(*this, look::onPaper());
  pages_->setContentsMargins(look::edge, look::tight, look::edge, look::tight);
}

QSize WorksheetView::sizeHint() const { return unfilled; }

QBoxLayout* WorksheetView::page(Panel& panel, Label& headingText, Label& pageNumber) {
  auto* sheet = new QWidget(this);
  pages_->addWidget(sheet);
  auto* column = new QVBoxLayout(sheet);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(look::tight);
  auto* top = new QHBoxLayout;
  top->addWidget(heading(headingText), 1);
  top->addWidget(label(pageNumber));
  column->addLayout(top);
  presentAs(*sheet, QAccessible::Grouping);
  sheet->setAccessibleName(QString::fromStdString(pageNumber.caption()));
  Binding& binding = bindPlain(*sheet, panel);
  sheets_.push_back({sheet, &panel, QString::fromStdString(pageNumber.caption())});
  binding.show = [this, number = sheets_.size() - 1] { place(sheets_[number]); };
  binding.refresh();
  tied(sheet, binding);
  return column;
}

/// A page out of sight stands beside the sheet, as wide and high as in its place; its boxes work there too. Who can't
/// see that is told it with the name of whatever has the focus.
void WorksheetView::place(const Sheet& sheet) {
  if (screen() == nullptr) return;
  QWidget& page = *sheet.widget;
  const bool inSight = sheet.panel->left >= 0;
  if (!inSight) {
    pages_->removeWidget(&page);
    const QRect inside = contentsRect().marginsRemoved(pages_->contentsMargins());
    const int width = std::max(inside.width(), page.minimumSizeHint().width());
    const int height = std::max(inside.height(), page.heightForWidth(width));
    const int left = std::min(Frame::pixels(sheet.panel->left), -width);
    page.setGeometry(left, Frame::pixels(sheet.panel->top), width, height);
  } else if (pages_->indexOf(&page) < 0) {
    pages_->addWidget(&page);
    if (auto* frame = dynamic_cast<Frame*>(window())) frame->announce(sheet.number);
  }
  const QString remark = QStringLiteral(" (%1, out of sight)").arg(sheet.number);
  for (QWidget* widget : page.findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus) continue;
    const QString words = widget->accessibleDescription().remove(remark);
    widget->setAccessibleDescription(inSight ? words : words + remark);
  }
}

void WorksheetView::resizeEvent(QResizeEvent* event) {
  View::resizeEvent(event);
  for (const Sheet& sheet : sheets_) place(sheet);
}

void WorksheetView::line(QBoxLayout* page, QWidget* words, QWidget* entry) {
  page->addWidget(hairline(this));
  auto* row = new QHBoxLayout;
  row->setSpacing(look::row);
  row->addWidget(words, 1);
  if (entry != nullptr) row->addWidget(entry, 0, Qt::AlignBottom);
  page->addLayout(row);
}

void WorksheetView::foot(QBoxLayout* page, std::initializer_list<QWidget*> pictures) {
  page->addWidget(hairline(this));
  page->addStretch(1);
  auto* row = new QHBoxLayout;
  row->setSpacing(look::tight);
  row->addStretch(1);
  for (QWidget* picture : pictures) row->addWidget(picture);
  page->addLayout(row);
}

void WorksheetView::keys(const char* calculate) {
  static const QRegularExpression number(QStringLiteral("^([0-9]|[A-Z])\\."));
  for (QWidget* widget : findChildren<QWidget*>()) {
    const auto* button = qobject_cast<QAbstractButton*>(widget);
    const QString words = button != nullptr ? nameOf(*button) : widget->accessibleName();
    const auto line = number.match(words);
    const bool takes = qobject_cast<QLineEdit*>(widget) != nullptr || qobject_cast<QCheckBox*>(widget) != nullptr;
    if (!takes || !line.hasMatch()) continue;
    onKey(QKeySequence(QStringLiteral("Alt+") + line.captured(1)), QStringLiteral("Line ") + line.captured(1),
          [widget] { widget->setFocus(Qt::ShortcutFocusReason); });
  }
  pressOn(Qt::Key_F9, findChild<QAbstractButton*>(QString::fromLatin1(calculate)));
  pressOn(Qt::CTRL | Qt::Key_PageDown, findChild<QAbstractButton*>(QStringLiteral("cmdW4Back(0)")));
  pressOn(Qt::CTRL | Qt::Key_PageUp, findChild<QAbstractButton*>(QStringLiteral("cmdW4Back(1)")));
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
  widget->setFont(look::figures());
  widget->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  widget->setMargin(2);
  widget->setIndent(2);
  widget->setFixedWidth(entryWidth_);
  widget->setAccessibleName(words.simplified());
  return tied(widget, bind(*widget, control));
}

QPushButton* WorksheetView::pictureButton(CommandButton& control, const char* picture, const char* accessibleName) {
  QPushButton* widget = button(control, QString::fromLatin1(picture));
  widget->setAccessibleName(QString::fromLatin1(accessibleName));
  widget->setIconSize({18, 18});
  widget->setFixedSize(34, 26);
  return widget;
}

QWidget* WorksheetView::sentence(Label& first, CommandButton& button, Label& second) {
  auto* widget = new SentenceWithButton(this, margin_);
  tied(widget->first(), bind(*widget->first(), first));
  tied(widget->second(), bind(*widget->second(), second));
  widget->setButton(this->button(button));
  return widget;
}

}  // namespace tallyfin::qt
